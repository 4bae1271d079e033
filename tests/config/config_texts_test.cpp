// Texts of a configuration record: the ones that it owns, its directory, its names.
#include "tests/config/test_stores.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

struct TextAccessor {
    uint32_t (*set)(zantLogCfg *, const char *);
    uint32_t (*get)(zantLogCfg *, char **); // null: no plain getter
    char *zantLogCfg::*field;
    uint32_t bit;
};

const TextAccessor kTexts[] = {
    {zantLogCfgSetL10nLib, nullptr, &zantLogCfg::l10nLib, 0x4},
    {zantLogCfgSetL10nResource, zantLogCfgGetL10nResource, &zantLogCfg::l10nResource, 0x8},
    {zantLogCfgSetL10nResourceDir, zantLogCfgGetL10nResourceDir, &zantLogCfg::l10nResourceDir, 0x10},
    {zantLogCfgSetLogsetFilename, zantLogCfgGetLogsetFilename, &zantLogCfg::logSetFileName, 0x8000000},
    {zantLogCfgSetLogsetOIDappMsgLogging, zantLogCfgGetLogsetOIDOIDappMsgLogging,
     &zantLogCfg::oidAppMsgLogging, 0x10000000},
    {zantLogCfgSetLogsetOIDDebugLogging, zantLogCfgGetLogsetOIDDebugLogging, &zantLogCfg::oidDebugLogging,
     0x20000000},
    {zantLogCfgSetLogsetOIDDiagLogging, zantLogCfgGetLogsetOIDDiagLogging, &zantLogCfg::oidDiagLogging,
     0x40000000},
};

TEST(ConfigTexts, SettersStoreACopyAndMarkTheirBit) {
    for (const TextAccessor &text : kTexts) {
        Config cfg;
        char value[] = "value";
        EXPECT_EQ(text.set(&cfg, value), 0U);
        value[0] = 'X';
        EXPECT_STREQ(cfg.*text.field, "value");
        EXPECT_EQ(cfg.changedMask, text.bit);
        EXPECT_EQ(text.set(&cfg, "another"), 0U);
        EXPECT_STREQ(cfg.*text.field, "another");
    }
}

TEST(ConfigTexts, SettersRefuseNullAndEmptyAndStoreNothing) {
    for (const TextAccessor &text : kTexts) {
        Config cfg;
        EXPECT_EQ(text.set(&cfg, "kept"), 0U);
        cfg.changedMask = 0;
        EXPECT_EQ(text.set(nullptr, "x"), 3U);
        EXPECT_EQ(text.set(&cfg, nullptr), 3U);
        EXPECT_EQ(text.set(&cfg, ""), 3U);
        EXPECT_STREQ(cfg.*text.field, "kept");
        EXPECT_EQ(cfg.changedMask, 0U);
    }
}

TEST(ConfigTexts, SettersTakeTheRecordsOwnText) {
    for (const TextAccessor &text : kTexts) {
        Config cfg;
        EXPECT_EQ(text.set(&cfg, "prefix-own"), 0U);
        EXPECT_EQ(text.set(&cfg, cfg.*text.field + 7), 0U);
        EXPECT_STREQ(cfg.*text.field, "own");
    }
}

TEST(ConfigTexts, GettersHandOutFreshCopies) {
    for (const TextAccessor &text : kTexts) {
        if (text.get == nullptr) {
            continue;
        }
        Config cfg;
        EXPECT_EQ(text.set(&cfg, "value"), 0U);
        HandedOut copy;
        EXPECT_EQ(text.get(&cfg, &copy), 0U);
        EXPECT_STREQ(copy.get(), "value");
        EXPECT_NE(copy.get(), cfg.*text.field);
    }
}

TEST(ConfigTexts, GettersOfANullTextGiveNull) {
    for (const TextAccessor &text : kTexts) {
        if (text.get == nullptr) {
            continue;
        }
        Config cfg;
        char marker[] = "marker";
        char *out = marker;
        EXPECT_EQ(text.get(&cfg, &out), 0U);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(text.get(&cfg, nullptr), 3U);
        out = marker;
        EXPECT_EQ(text.get(nullptr, &out), 3U);
        EXPECT_EQ(out, marker);
    }
}

TEST(ConfigTexts, LibraryNameIsVersioned) {
    const char *const names[][2] = {
        {"zantLogFormatMsg", "zantLogFormatMsg_3.dll"},
        {"C:\\my_dir.x\\lib_old.dll", "C:\\my_dir.x\\lib_3.dll"},
        {"lib.1_2", "lib_3.dll"},
    };
    for (const auto &name : names) {
        Config cfg;
        EXPECT_EQ(zantLogCfgSetL10nLib(&cfg, name[0]), 0U);
        HandedOut out;
        EXPECT_EQ(zantLogCfgGetL10nLib(&cfg, &out), 0U);
        EXPECT_STREQ(out.get(), name[1]);
    }
}

TEST(ConfigTexts, LibraryNameIsSetToNullBeforeAnyFailure) {
    Config cfg;
    char marker[] = "marker";
    char *out = marker;
    EXPECT_EQ(zantLogCfgGetL10nLib(nullptr, &out), 3U);
    EXPECT_EQ(out, nullptr);
    out = marker;
    EXPECT_EQ(zantLogCfgGetL10nLib(&cfg, &out), 4U);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(zantLogCfgGetL10nLib(&cfg, nullptr), 3U);
}

TEST(ConfigTexts, FreeingZeroesTheWholeRecord) {
    Config cfg;
    for (const TextAccessor &text : kTexts) {
        EXPECT_EQ(text.set(&cfg, "value"), 0U);
    }
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(&cfg, "D:(A;;GA;;;WD)"), 0U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, "Source"), 0U);
    cfg.logSetName = zantLogSafeStrdup("set");
    cfg.productId = 1;
    cfg.removeMask = 2;
    EXPECT_EQ(zantLogFreeCfg(&cfg), 0U);
    const zantLogCfg empty{};
    EXPECT_EQ(std::memcmp(static_cast<zantLogCfg *>(&cfg), &empty, sizeof empty), 0);
    EXPECT_EQ(zantLogFreeCfg(&cfg), 0U);
    EXPECT_EQ(zantLogFreeCfg(nullptr), 3U);
}

TEST(ConfigDirectory, EndsInABackslash) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\logs\\");
    EXPECT_EQ(cfg.changedMask, 0x1U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\x\\", nullptr), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\x\\");
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "\\", nullptr), 0U);
    EXPECT_STREQ(cfg.logDirectory, "\\");
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "x", nullptr), 0U);
    EXPECT_STREQ(cfg.logDirectory, "x\\");
}

TEST(ConfigDirectory, PairsOfBackslashesCollapseFromLeftToRight) {
    const char *const texts[][2] = {
        {"D:\\\\logs", "D:\\logs\\"},
        {"D:\\\\\\logs", "D:\\\\logs\\"},
        {"D:\\\\\\\\logs", "D:\\\\logs\\"},
        {"D:\\\\\\\\\\logs", "D:\\\\\\logs\\"},
        {"\\\\server\\share", "\\server\\share\\"},
        {"D:\\logs\\\\", "D:\\logs\\"},
        {"D:\\logs\\\\\\", "D:\\logs\\\\"},
        {"\\\\", "\\"},
    };
    for (const auto &text : texts) {
        Config cfg;
        EXPECT_EQ(zantLogCfgSetDirectory(&cfg, text[0], nullptr), 0U);
        EXPECT_STREQ(cfg.logDirectory, text[1]) << text[0];
    }
}

TEST(ConfigDirectory, APositionAppends) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\l", nullptr), 0U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "sub", cfg.logDirectory + 5), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\l\\sub\\");
    // Only the new text is collapsed.
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "\\x", cfg.logDirectory + 5), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\l\\\\x\\");
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "y", cfg.logDirectory), 0U);
    EXPECT_STREQ(cfg.logDirectory, "y\\");
}

TEST(ConfigDirectory, APositionOutsideTheFieldIsRefused) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\l", nullptr), 0U);
    cfg.changedMask = 0;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "x", cfg.logDirectory - 1), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "x", cfg.logDirectory + 1025), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "x", cfg.logDirectory + 1024), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "x", cfg.logDirectory + 1023), 3U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\l\\");
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST(ConfigDirectory, HoldsExactly1024Characters) {
    Config cfg;
    const std::string fits(1023, 'd');
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, fits.c_str(), nullptr), 0U);
    EXPECT_EQ(std::strlen(cfg.logDirectory), 1024U);
    EXPECT_EQ(cfg.logDirectory[1023], '\\');
    EXPECT_EQ(cfg.logFileSDDL, nullptr);

    const std::string slash = std::string(1023, 'e') + '\\';
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, slash.c_str(), nullptr), 0U);
    EXPECT_EQ(cfg.logDirectory, slash);

    cfg.changedMask = 0;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, std::string(1024, 'f').c_str(), nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, std::string(100000, 'f').c_str(), nullptr), 3U);
    EXPECT_EQ(cfg.logDirectory, slash);
    EXPECT_EQ(cfg.changedMask, 0U);

    // What counts is the length after collapsing.
    const std::string pairs(2048, '\\');
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, pairs.c_str(), nullptr), 0U);
    EXPECT_EQ(std::strlen(cfg.logDirectory), 1024U);
}

TEST(ConfigDirectory, AppendingBeyondTheFieldIsRefused) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, std::string(1000, 'd').c_str(), nullptr), 0U);
    const std::string before = cfg.logDirectory;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, std::string(23, 's').c_str(), cfg.logDirectory + 1001), 3U);
    EXPECT_EQ(cfg.logDirectory, before);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, std::string(22, 's').c_str(), cfg.logDirectory + 1001), 0U);
    EXPECT_EQ(std::strlen(cfg.logDirectory), 1024U);
}

TEST(ConfigDirectory, TakesTheRecordsOwnText) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, cfg.logDirectory + 3, nullptr), 0U);
    EXPECT_STREQ(cfg.logDirectory, "logs\\");
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, cfg.logDirectory, cfg.logDirectory + 5), 0U);
    EXPECT_STREQ(cfg.logDirectory, "logs\\logs\\");
}

TEST(ConfigDirectory, NullAndEmptyAreRefused) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetDirectory(nullptr, "x", nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, nullptr, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "", nullptr), 3U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST(ConfigDirectory, IsHandedOutAsACopy) {
    Config cfg;
    HandedOut empty;
    EXPECT_EQ(zantLogCfgGetDirectory(&cfg, &empty), 0U);
    EXPECT_STREQ(empty.get(), "");
    EXPECT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    HandedOut copy;
    EXPECT_EQ(zantLogCfgGetDirectory(&cfg, &copy), 0U);
    EXPECT_STREQ(copy.get(), "D:\\logs\\");
    EXPECT_EQ(zantLogCfgGetDirectory(nullptr, &copy), 3U);
    EXPECT_EQ(zantLogCfgGetDirectory(&cfg, nullptr), 3U);
    EXPECT_STREQ(copy.get(), "D:\\logs\\");
}

struct ShortName {
    const char *names;
    const char *first;
};

TEST(ShortNames, AreCutAtTheFirstCommaElseAtTheFirstBlank) {
    const ShortName names[] = {
        {"abc def,ghi", "abc def"},
        {"abc def", "abc"},
        {"abc", "abc"},
        {",abc", ""},
        {" abc", ""},
        {"a,b,c", "a"},
    };
    for (const ShortName &name : names) {
        Config cfg;
        std::strcpy(cfg.productNames, name.names);
        std::strcpy(cfg.originatorNames, "other");
        HandedOut out;
        EXPECT_EQ(LogCfgGetShortNames(&cfg, 263, &out), 0U);
        EXPECT_STREQ(out.get(), name.first) << name.names;
    }
}

TEST(ShortNames, AnyOtherCodeMeansTheOriginators) {
    Config cfg;
    std::strcpy(cfg.productNames, "product");
    std::strcpy(cfg.originatorNames, "writer,w");
    for (uint32_t which : {0U, 262U, 264U, 0xFFFFFFFFU}) {
        HandedOut out;
        EXPECT_EQ(LogCfgGetShortNames(&cfg, which, &out), 0U);
        EXPECT_STREQ(out.get(), "writer");
    }
}

TEST(ShortNames, NoNamesGiveNull) {
    Config cfg;
    char marker[] = "marker";
    char *out = marker;
    EXPECT_EQ(LogCfgGetShortNames(&cfg, 263, &out), 0U);
    EXPECT_EQ(out, nullptr);
    out = marker;
    EXPECT_EQ(LogCfgGetShortNames(nullptr, 263, &out), 3U);
    EXPECT_EQ(out, marker);
    EXPECT_EQ(LogCfgGetShortNames(&cfg, 263, nullptr), 3U);
}

TEST(ShortNames, A1024CharacterNameIsHandedOutWhole) {
    Config cfg;
    std::memset(cfg.productNames, 'n', 1024);
    HandedOut out;
    EXPECT_EQ(LogCfgGetShortNames(&cfg, 263, &out), 0U);
    EXPECT_EQ(out.get(), std::string(1024, 'n'));
}

} // namespace
} // namespace zantlog::test
