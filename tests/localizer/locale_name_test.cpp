#include <string>

#include <gtest/gtest.h>

#include "localizer/locale_name.h"

using zantlog::localizer::LocaleName;
using zantlog::localizer::parseLocaleName;

namespace {

// "de_DE", "de", or empty.
std::string parsed(const char *name) {
    const LocaleName locale = parseLocaleName(name);
    return std::string(locale.language) + (locale.territory[0] != '\0' ? "_" : "") + locale.territory;
}

} // namespace

TEST(LocaleNames, PosixNames) {
    EXPECT_EQ(parsed("de_DE"), "de_DE");
    EXPECT_EQ(parsed("de"), "de");
    EXPECT_EQ(parsed("de_DE.UTF-8"), "de_DE");
    EXPECT_EQ(parsed("de_DE@euro"), "de_DE");
    EXPECT_EQ(parsed("de_DE.UTF-8@euro"), "de_DE");
    EXPECT_EQ(parsed("de.UTF-8"), "de");
    EXPECT_EQ(parsed("DE_de"), "de_DE");
    EXPECT_EQ(parsed("nds_DE"), "nds_DE");
    EXPECT_EQ(parsed("es_419"), "es_419");
}

TEST(LocaleNames, LanguageTags) {
    EXPECT_EQ(parsed("de-DE"), "de_DE");
    EXPECT_EQ(parsed("zh-Hans-CN"), "zh_CN");
    EXPECT_EQ(parsed("zh_Hant_TW"), "zh_TW");
    EXPECT_EQ(parsed("sr-Latn"), "sr");
    EXPECT_EQ(parsed("de-CH-1996"), "de_CH");
}

TEST(LocaleNames, NamesOfTheRuntime) {
    EXPECT_EQ(parsed("German_Germany.1252"), "de_DE");
    EXPECT_EQ(parsed("German_Austria.1252"), "de_AT");
    EXPECT_EQ(parsed("English_United States.1252"), "en_US");
    EXPECT_EQ(parsed("English_United Kingdom.1252"), "en_GB");
    EXPECT_EQ(parsed("Chinese (Simplified)_People's Republic of China.936"), "zh_CN");
    EXPECT_EQ(parsed("Chinese_Hong Kong S.A.R..950"), "zh_HK");
    EXPECT_EQ(parsed("Norwegian-Nynorsk_Norway.1252"), "nn_NO");
    EXPECT_EQ(parsed("Norwegian (Bokm\xE5l)_Norway.1252"), "nb_NO");
    EXPECT_EQ(parsed("Portuguese_Brazil.1252"), "pt_BR");
    EXPECT_EQ(parsed("german"), "de");
    EXPECT_EQ(parsed("German_Atlantis.1252"), "de");
}

TEST(LocaleNames, ListsOfCategories) {
    EXPECT_EQ(parsed("LC_COLLATE=C;LC_CTYPE=German_Germany.1252;LC_MONETARY=C;LC_NUMERIC=C;LC_TIME=C"),
              "de_DE");
    EXPECT_EQ(parsed("LC_COLLATE=C;LC_CTYPE=C;LC_TIME=French_France.1252"), "fr_FR");
    EXPECT_EQ(parsed("LC_CTYPE=de_DE.UTF-8;LC_MESSAGES=fr_FR.UTF-8"), "fr_FR");
    EXPECT_EQ(parsed("LC_COLLATE=German_Germany.1252;LC_CTYPE=C"), "");
    EXPECT_EQ(parsed("=;=;;"), "");
}

TEST(LocaleNames, NoLocale) {
    for (const char *name :
         {"", "C", "POSIX", "C.UTF-8", ".1252", "_", "-", "_DE", "Klingon_Qonos.1252", "d", "..", "..\\..",
          "../de", "d\\e_DE", "1234_DE", "@", "abcdefghijklmnopqrstuvwxyz"}) {
        EXPECT_EQ(parsed(name), "") << name;
    }
    EXPECT_EQ(parsed(nullptr), "");
}

TEST(LocaleNames, TerritoriesThatAreNoneAreDropped) {
    for (const char *name : {"de_", "de_..\\x", "de_D", "de_DEU", "de_D\\", "de_12", "de-", "de-\\.."}) {
        EXPECT_EQ(parsed(name), "de") << name;
    }
}
