#include <cstring>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "localizer/catalog_file.h"

using namespace zantlog;
using namespace zantlog::localizer;

namespace {

struct Defect {
    uint32_t line;
    std::string what;
};

class CatalogFileTest : public testing::Test {
protected:
    void parse(const std::string &text) {
        defects_.clear();
        OwnedText bytes = allocateBlock<char>(text.size() + 1);
        std::memcpy(bytes.get(), text.data(), text.size());
        const DefectSink sink = {.visit = keep, .context = this};
        ASSERT_EQ(parseCatalog(std::move(bytes), text.size(), sink, &catalog_), 0u);
    }
    [[nodiscard]] std::string text(uint32_t id) const {
        const std::string_view found = catalogText(catalog_, id);
        return found.data() != nullptr ? std::string(found) : "none";
    }
    [[nodiscard]] std::string word(Word word) const {
        const std::string_view found = catalog_.words[static_cast<size_t>(word)];
        return found.data() != nullptr ? std::string(found) : "none";
    }
    // The one defect of a line that stands between two good ones, which stay.
    void expectDefect(const std::string &line, const std::string &words) {
        parse("1 = one\n" + line + "\n3 = three\n");
        ASSERT_EQ(defects_.size(), 1u) << line;
        EXPECT_EQ(defects_[0].line, 2u);
        EXPECT_NE(defects_[0].what.find(words), std::string::npos) << line << ": " << defects_[0].what;
        EXPECT_EQ(text(1), "one");
        EXPECT_EQ(text(3), "three");
        EXPECT_EQ(catalog_.count, 2u);
    }

    Catalog catalog_;
    std::vector<Defect> defects_;

private:
    static void keep(void *context, uint32_t line, const char *what) {
        static_cast<CatalogFileTest *>(context)->defects_.push_back({line, what});
    }
};

} // namespace

TEST_F(CatalogFileTest, TextsById) {
    parse("4711 = disk {1} is full\n7=seven\n\t 4294967295 \t=\t last \t\n");
    EXPECT_EQ(text(4711), "disk {1} is full");
    EXPECT_EQ(text(7), "seven");
    EXPECT_EQ(text(4294967295), "last");
    EXPECT_EQ(text(1), "none");
    EXPECT_EQ(text(0), "none");
    EXPECT_TRUE(defects_.empty());
}

TEST_F(CatalogFileTest, LineEndsCommentsAndByteOrderMark) {
    parse("\xEF\xBB\xBF"
          "1 = one\r\n# 2 = two\r\n; 3 = three\r\n\r\n   \r\n  # 5 = x\n4 = four");
    EXPECT_EQ(text(1), "one");
    EXPECT_EQ(text(4), "four");
    EXPECT_EQ(catalog_.count, 2u);
    EXPECT_TRUE(defects_.empty());
}

TEST_F(CatalogFileTest, NothingToRead) {
    for (const char *none : {"", "\n", "\r\n", "\xEF\xBB\xBF", "# only a comment"}) {
        parse(none);
        EXPECT_EQ(catalog_.count, 0u);
        EXPECT_TRUE(defects_.empty());
        EXPECT_EQ(text(1), "none");
    }
}

TEST_F(CatalogFileTest, EmptyTextIsAText) {
    parse("1 =\n2 = \n");
    EXPECT_EQ(text(1), "");
    EXPECT_EQ(text(2), "");
}

TEST_F(CatalogFileTest, Escapes) {
    parse("1 = a\\nb\\tc\\\\d\n2 = \\s x \\s\n3 = \\\\n\n");
    EXPECT_EQ(text(1), "a\nb\tc\\d");
    EXPECT_EQ(text(2), "  x  ");
    EXPECT_EQ(text(3), "\\n");
    EXPECT_TRUE(defects_.empty());
}

TEST_F(CatalogFileTest, EqualsSignsAndHashesOfTheText) {
    parse("1 = a = b # c ; d\n");
    EXPECT_EQ(text(1), "a = b # c ; d");
}

TEST_F(CatalogFileTest, TextsAreUtf8) {
    parse("1 = \xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80\n");
    EXPECT_EQ(text(1), "\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_TRUE(defects_.empty());
    for (const char *bytes :
         {"\xFC", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\x80", "\xE2\x82", "\xE2\x28\xA1", "\xFF"}) {
        expectDefect("2 = x" + std::string(bytes), "UTF-8");
    }
    expectDefect("2 = a" + std::string(1, '\0') + "b", "UTF-8");
}

TEST_F(CatalogFileTest, WhatIsMalformedIsReportedByLineAndLeftOut) {
    expectDefect("two", "\"=\" is missing");
    expectDefect("= two", "before the \"=\"");
    expectDefect("two = 2", "before the \"=\"");
    expectDefect("0 = none", "before the \"=\"");
    expectDefect("-2 = x", "before the \"=\"");
    expectDefect("4294967296 = x", "before the \"=\"");
    expectDefect("99999999999999999999999 = x", "before the \"=\"");
    expectDefect("0x2 = x", "before the \"=\"");
    expectDefect("2 2 = x", "before the \"=\"");
    expectDefect("2 = a\\qb", "behind a \"\\\"");
    expectDefect("2 = a\\", "behind a \"\\\"");
    expectDefect("2 = {", "\"{\"");
    expectDefect("2 = {x}", "{1} to {99}");
    expectDefect("date = %Q", "pattern");
    expectDefect("time = 100%", "pattern");
}

TEST_F(CatalogFileTest, FirstLineOfAnIdHolds) {
    parse("5 = a\n2 = b\n5 = c\n5 = d\n");
    EXPECT_EQ(text(5), "a");
    EXPECT_EQ(catalog_.count, 2u);
    ASSERT_EQ(defects_.size(), 2u);
    EXPECT_EQ(defects_[0].line, 3u);
    EXPECT_EQ(defects_[0].what, "this id stands in line 1 already");
    EXPECT_EQ(defects_[1].line, 4u);
}

TEST_F(CatalogFileTest, WordsByName) {
    parse(
        "decimal = ,\ngroup = \\s\ndate = %d.%m.%Y\ntime = %H:%M:%S Uhr\nerror = Fehler\nsecure-audit = x\n");
    EXPECT_TRUE(defects_.empty());
    EXPECT_EQ(word(Word::Decimal), ",");
    EXPECT_EQ(word(Word::Group), " ");
    EXPECT_EQ(word(Word::Date), "%d.%m.%Y");
    EXPECT_EQ(word(Word::Time), "%H:%M:%S Uhr");
    EXPECT_EQ(word(Word::Error), "Fehler");
    EXPECT_EQ(word(Word::SecureAudit), "x");
    EXPECT_EQ(word(Word::Warning), "none");
    parse("error = a\nerror = b\n");
    EXPECT_EQ(word(Word::Error), "a");
    ASSERT_EQ(defects_.size(), 1u);
    EXPECT_EQ(defects_[0].line, 2u);
}

TEST_F(CatalogFileTest, ManyTextsInAnyOrder) {
    std::string file;
    for (uint32_t i = 0; i < 5000; ++i) {
        const uint32_t id = 1 + i * 7919 % 5000;
        file += std::to_string(id) + " = text " + std::to_string(id) + "\n";
    }
    parse(file);
    EXPECT_TRUE(defects_.empty());
    for (uint32_t id = 1; id <= 5000; ++id) {
        ASSERT_EQ(text(id), "text " + std::to_string(id));
    }
    EXPECT_EQ(text(5001), "none");
}
