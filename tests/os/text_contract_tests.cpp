// What every implementation of the seam promises of texts, in the runtime's "C" locale and code page 1252.
#include "logfile/os/os_text.h"
#include "tests/support/test_folder.h"
#include "tests/support/wide_text.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

TEST(TextContract, MultiByteTextBecomesWide) {
    wchar_t wide[8];
    EXPECT_EQ(multiByteToWide(wide, "ab\xe9", 8), 3u);
    EXPECT_EQ(WideText(wide), L"ab\x00e9");
    EXPECT_EQ(multiByteToWide(wide, "", 8), 0u);
    EXPECT_EQ(wide[0], L'\0');
}

TEST(TextContract, MeasuringLeavesOutTheTerminator) {
    EXPECT_EQ(multiByteToWide(nullptr, "abc", 0), 3u);
    EXPECT_EQ(wideToMultiByte(nullptr, L"abcd", 0), 4u);
}

TEST(TextContract, TextThatFillsTheBufferIsNotTerminated) {
    wchar_t wide[4] = {L'z', L'z', L'z', L'z'};
    EXPECT_EQ(multiByteToWide(wide, "abc", 3), 3u);
    EXPECT_EQ(wide[2], L'c');
    EXPECT_EQ(wide[3], L'z');
    char narrow[4] = {'z', 'z', 'z', 'z'};
    EXPECT_EQ(wideToMultiByte(narrow, L"abc", 3), 3u);
    EXPECT_EQ(narrow[2], 'c');
    EXPECT_EQ(narrow[3], 'z');
}

TEST(TextContract, WideTextBecomesMultiByte) {
    char narrow[8];
    EXPECT_EQ(wideToMultiByte(narrow, L"ab\x00e9", 8), 3u);
    EXPECT_STREQ(narrow, "ab\xe9");
}

TEST(TextContract, WideTextOutsideTheLocaleDoesNotConvert) {
    char narrow[8];
    EXPECT_EQ(wideToMultiByte(narrow, L"a\x4e00", 8), kConversionFailed);
}

TEST(TextContract, MeasuringInTheCLocaleDoesNotLookAtTheCharacters) {
    EXPECT_EQ(wideToMultiByte(nullptr, L"a\x4e00", 0), 2u);
}

TEST(TextContract, OneWideCharacterIsPrinted) {
    char bytes[16];
    EXPECT_EQ(wideCharToMultiByte(bytes, L'x'), 1u);
    EXPECT_EQ(bytes[0], 'x');
    EXPECT_EQ(wideCharToMultiByte(bytes, static_cast<wchar_t>(0xe9)), 1u);
    EXPECT_EQ(bytes[0], '\xe9');
}

TEST(TextContract, WideLengthCountsUnits) {
    EXPECT_EQ(wideLength(L""), 0u);
    EXPECT_EQ(wideLength(L"abc"), 3u);
    const wchar_t pair[] = {static_cast<wchar_t>(0xd83d), static_cast<wchar_t>(0xde00), 0};
    EXPECT_EQ(wideLength(pair), 2u);
}

TEST(TextContract, CollationTellsCaseApart) {
    EXPECT_EQ(collate("true", "true"), 0);
    EXPECT_NE(collate("TRUE", "true"), 0);
    EXPECT_LT(collate("a", "b"), 0);
    EXPECT_GT(collate("b", "a"), 0);
}

TEST(TextContract, ComparisonIgnoresCase) {
    EXPECT_EQ(compareIgnoringCase("TrUe", "true"), 0);
    EXPECT_NE(compareIgnoringCase("true ", "true"), 0);
    EXPECT_NE(compareIgnoringCase("", "true"), 0);
}

TEST(TextContract, NamesOfCodePageAndLocale) {
    EXPECT_STREQ(codePageName(), "windows-1252");
    EXPECT_EQ(codePageName(), codePageName());
    EXPECT_STREQ(localeName(), "C");
}

TEST(EnvironmentContract, ValueComesWithItsLength) {
    setEnvironment("ZANTLOG_TEST_VARIABLE", "C:\\x y");
    char buffer[16];
    uint32_t length = 99;
    EXPECT_TRUE(environmentVariable("ZANTLOG_TEST_VARIABLE", buffer, sizeof(buffer), &length));
    EXPECT_EQ(length, 6u);
    EXPECT_STREQ(buffer, "C:\\x y");
    setEnvironment("ZANTLOG_TEST_VARIABLE", nullptr);
}

TEST(EnvironmentContract, MissingVariableIsNotSet) {
    char buffer[16];
    uint32_t length = 99;
    EXPECT_FALSE(environmentVariable("ZANTLOG_TEST_MISSING", buffer, sizeof(buffer), &length));
}

TEST(EnvironmentContract, ValueThatDoesNotFitNamesItsLength) {
    setEnvironment("ZANTLOG_TEST_VARIABLE", "12345");
    char buffer[6] = "old";
    uint32_t length = 0;
    EXPECT_TRUE(environmentVariable("ZANTLOG_TEST_VARIABLE", buffer, 5, &length));
    EXPECT_EQ(length, 5u);
    EXPECT_STREQ(buffer, "");
    EXPECT_TRUE(environmentVariable("ZANTLOG_TEST_VARIABLE", buffer, 6, &length));
    EXPECT_EQ(length, 5u);
    EXPECT_STREQ(buffer, "12345");
    EXPECT_TRUE(environmentVariable("ZANTLOG_TEST_VARIABLE", nullptr, 0, &length));
    EXPECT_EQ(length, 5u);
    setEnvironment("ZANTLOG_TEST_VARIABLE", nullptr);
}

} // namespace

} // namespace zantlog::test
