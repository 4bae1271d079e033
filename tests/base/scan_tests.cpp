// Reading numbers and words out of texts.
#include "base/scan.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog {

namespace {

struct UnsignedCase {
    const char *text;
    int width;
    bool read;
    uint32_t value;
    const char *rest;
};

TEST(Scan, UnsignedNumbers) {
    const UnsignedCase cases[] = {
        {"0", 0, true, 0, ""},
        {"12-3", 0, true, 12, "-3"},
        {" \t\n\v\f\r7x", 0, true, 7, "x"},
        {"+7", 0, true, 7, ""},
        {"-1", 0, true, 4294967295u, ""},
        {"-4294967295", 0, true, 1, ""},
        {"4294967295", 0, true, 4294967295u, ""},
        {"4294967296", 0, true, 4294967295u, ""},
        {"-4294967296", 0, true, 4294967295u, ""},
        {"99999999999999999999999999,", 0, true, 4294967295u, ","},
        {"007", 0, true, 7, ""},
        {"0x10", 0, true, 0, "x10"},
        {"251116", 2, true, 25, "1116"},
        {"  251116", 2, true, 25, "1116"},
        {"-12", 2, true, 4294967295u, "2"},
        {"+1", 1, false, 0, "+1"},
        {"", 0, false, 0, ""},
        {"  ", 0, false, 0, ""},
        {"  x", 0, false, 0, "x"},
        {"-x", 0, false, 0, "-x"},
        {"--1", 0, false, 0, "--1"},
        {"- 1", 0, false, 0, "- 1"},
    };
    for (const UnsignedCase &each : cases) {
        Scanner scanner{each.text};
        uint32_t value = 0;
        EXPECT_EQ(scanner.unsigned32(&value, each.width), each.read) << each.text;
        EXPECT_EQ(value, each.value) << each.text;
        EXPECT_STREQ(scanner.at, each.rest) << each.text;
    }
}

struct SignedCase {
    const char *text;
    int width;
    bool read;
    int64_t value;
    const char *rest;
};

TEST(Scan, SignedNumbersOf32Bits) {
    const SignedCase cases[] = {
        {"0", 0, true, 0, ""},
        {"-5:30", 0, true, -5, ":30"},
        {" +12 ", 0, true, 12, " "},
        {"2147483647", 0, true, 2147483647, ""},
        {"2147483648", 0, true, 2147483647, ""},
        {"-2147483648", 0, true, -2147483648LL, ""},
        {"-2147483649", 0, true, -2147483648LL, ""},
        {"99999999999999999999", 0, true, 2147483647, ""},
        {"251116", 2, true, 25, "1116"},
        {"-12", 2, true, -1, "2"},
        {"-", 1, false, 0, "-"},
        {"", 0, false, 0, ""},
        {" x", 0, false, 0, "x"},
    };
    for (const SignedCase &each : cases) {
        Scanner scanner{each.text};
        int32_t value = 0;
        EXPECT_EQ(scanner.signed32(&value, each.width), each.read) << each.text;
        EXPECT_EQ(value, each.value) << each.text;
        EXPECT_STREQ(scanner.at, each.rest) << each.text;
    }
}

TEST(Scan, SignedNumbersOf64Bits) {
    const SignedCase cases[] = {
        {"1763249000,", 0, true, 1763249000, ","},
        {"9223372036854775807", 0, true, INT64_MAX, ""},
        {"9223372036854775808", 0, true, INT64_MAX, ""},
        {"-9223372036854775808", 0, true, INT64_MIN, ""},
        {"-9223372036854775809", 0, true, INT64_MIN, ""},
        {"18446744073709551616", 0, true, INT64_MAX, ""},
        {"-99999999999999999999999999", 0, true, INT64_MIN, ""},
        {"12345", 3, true, 123, "45"},
        {"+", 0, false, 0, "+"},
    };
    for (const SignedCase &each : cases) {
        Scanner scanner{each.text};
        int64_t value = 0;
        EXPECT_EQ(scanner.signed64(&value, each.width), each.read) << each.text;
        EXPECT_EQ(value, each.value) << each.text;
        EXPECT_STREQ(scanner.at, each.rest) << each.text;
    }
}

TEST(Scan, FailedReadKeepsTheValue) {
    Scanner scanner{"x"};
    uint32_t number = 77;
    int32_t signedNumber = -77;
    int64_t longNumber = -78;
    EXPECT_FALSE(scanner.unsigned32(&number));
    EXPECT_FALSE(scanner.signed32(&signedNumber));
    EXPECT_FALSE(scanner.signed64(&longNumber));
    EXPECT_EQ(number, 77u);
    EXPECT_EQ(signedNumber, -77);
    EXPECT_EQ(longNumber, -78);
}

TEST(Scan, WordsEndAtWhiteSpaceOrWhenTheBufferIsFull) {
    char buffer[5] = "old";
    Scanner scanner{" \t$Hea der\n"};
    EXPECT_TRUE(scanner.word(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "$Hea");
    EXPECT_STREQ(scanner.at, " der\n");
    EXPECT_TRUE(scanner.word(buffer, 3));
    EXPECT_STREQ(buffer, "de");
    EXPECT_TRUE(scanner.word(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "r");
    EXPECT_FALSE(scanner.word(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "r");
    EXPECT_STREQ(scanner.at, "");
}

TEST(Scan, BytesAbove127AreNoWhiteSpace) {
    char buffer[8];
    Scanner scanner{"\xa0\x85z"};
    EXPECT_TRUE(scanner.word(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "\xa0\x85z");
}

TEST(Scan, LiteralsMatchOneCharacter) {
    Scanner scanner{"-:x"};
    EXPECT_FALSE(scanner.literal(':'));
    EXPECT_TRUE(scanner.literal('-'));
    EXPECT_TRUE(scanner.literal(':'));
    EXPECT_STREQ(scanner.at, "x");
    Scanner end{""};
    EXPECT_FALSE(end.literal('x'));
    EXPECT_FALSE(end.literal('\0'));
    EXPECT_STREQ(end.at, "");
}

TEST(Scan, LeadingNumberOfAText) {
    EXPECT_EQ(leadingUnsigned32("42abc"), 42u);
    EXPECT_EQ(leadingUnsigned32("  42"), 42u);
    EXPECT_EQ(leadingUnsigned32("-1"), 4294967295u);
    EXPECT_EQ(leadingUnsigned32("4294967296"), 4294967295u);
    EXPECT_EQ(leadingUnsigned32(""), 0u);
    EXPECT_EQ(leadingUnsigned32("abc"), 0u);
    EXPECT_EQ(leadingUnsigned32("-"), 0u);
}

} // namespace

} // namespace zantlog
