// Building of texts in fixed buffers, and decimal digits.
#include "base/bounded_text.h"
#include "base/decimal.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace zantlog {

namespace {

std::string digits(int64_t value) {
    char area[kDecimalDigits];
    char *first = formatSigned(area, value);
    return {first, area + kDecimalDigits};
}

std::string unsignedDigits(uint64_t value) {
    char area[kDecimalDigits];
    char *first = formatUnsigned(area, value);
    return {first, area + kDecimalDigits};
}

TEST(Decimal, DigitsOfEveryKindOfNumber) {
    EXPECT_EQ(digits(0), "0");
    EXPECT_EQ(digits(7), "7");
    EXPECT_EQ(digits(-1), "-1");
    EXPECT_EQ(digits(1234567890), "1234567890");
    EXPECT_EQ(digits(INT64_MAX), "9223372036854775807");
    EXPECT_EQ(digits(INT64_MIN), "-9223372036854775808");
    EXPECT_EQ(unsignedDigits(0), "0");
    EXPECT_EQ(unsignedDigits(10), "10");
    EXPECT_EQ(unsignedDigits(UINT64_MAX), "18446744073709551615");
}

TEST(CopyBounded, TextThatFitsIsCopied) {
    char buffer[6] = "xxxxx";
    EXPECT_TRUE(copyBounded(buffer, sizeof(buffer), "hello"));
    EXPECT_STREQ(buffer, "hello");
    EXPECT_TRUE(copyBounded(buffer, sizeof(buffer), ""));
    EXPECT_STREQ(buffer, "");
}

TEST(CopyBounded, TextThatDoesNotFitIsCutAndTerminated) {
    char buffer[6] = "xxxxx";
    EXPECT_FALSE(copyBounded(buffer, 5, "hello"));
    EXPECT_STREQ(buffer, "hell");
    EXPECT_FALSE(copyBounded(buffer, 1, "hello"));
    EXPECT_STREQ(buffer, "");
}

TEST(BoundedText, StartsEmpty) {
    char buffer[8] = "old";
    const BoundedText built(buffer);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(built.length(), 0u);
    EXPECT_FALSE(built.cut());
}

TEST(BoundedText, PiecesFollowEachOther) {
    char buffer[64];
    BoundedText built(buffer);
    built.text("C:\\logs\\").number(12).character('-').bytes("abcdef", 3).signedNumber(-5).text("");
    EXPECT_STREQ(buffer, "C:\\logs\\12-abc-5");
    EXPECT_EQ(built.length(), 16u);
    EXPECT_FALSE(built.cut());
}

TEST(BoundedText, NumbersArePaddedWithZeros) {
    char buffer[64];
    BoundedText(buffer).number(7, 10).character(' ').number(123, 2).character(' ').number(0, 0);
    EXPECT_STREQ(buffer, "0000000007 123 0");
    BoundedText(buffer).signedNumber(-7, 2).character(' ').signedNumber(7, 2).character(' ').signedNumber(
        INT64_MIN);
    EXPECT_STREQ(buffer, "-07 07 -9223372036854775808");
    BoundedText(buffer).number(UINT64_MAX);
    EXPECT_STREQ(buffer, "18446744073709551615");
}

TEST(BoundedText, HexadecimalIsLowerCaseWithoutPrefix) {
    char buffer[64];
    BoundedText(buffer).hexadecimal(0).character(' ').hexadecimal(0x1f).character(' ').hexadecimal(
        UINT64_MAX);
    EXPECT_STREQ(buffer, "0 1f ffffffffffffffff");
}

TEST(BoundedText, WhatFitsExactlyIsNotCut) {
    char buffer[4];
    BoundedText built(buffer);
    built.text("abc");
    EXPECT_STREQ(buffer, "abc");
    EXPECT_FALSE(built.cut());
    built.text("");
    EXPECT_FALSE(built.cut());
}

TEST(BoundedText, WhatDoesNotFitIsCutAndRemembered) {
    char buffer[5] = {'z', 'z', 'z', 'z', 'z'};
    BoundedText built(buffer, 4);
    built.text("abcd");
    EXPECT_STREQ(buffer, "abc");
    EXPECT_TRUE(built.cut());
    EXPECT_EQ(built.length(), 3u);
    EXPECT_EQ(buffer[4], 'z');
    built.text("");
    EXPECT_TRUE(built.cut());
}

TEST(BoundedText, EachKindOfPieceIsCut) {
    char buffer[3];
    EXPECT_TRUE(BoundedText(buffer).number(123).cut());
    EXPECT_STREQ(buffer, "12");
    EXPECT_TRUE(BoundedText(buffer).signedNumber(-12).cut());
    EXPECT_STREQ(buffer, "-1");
    EXPECT_TRUE(BoundedText(buffer).hexadecimal(0xabc).cut());
    EXPECT_STREQ(buffer, "ab");
    EXPECT_TRUE(BoundedText(buffer).text("ab").character('c').cut());
    EXPECT_STREQ(buffer, "ab");
}

TEST(BoundedText, BufferWithoutRoomIsNotTouched) {
    char buffer[1] = {'z'};
    BoundedText built(buffer, 0);
    built.text("a").number(1);
    EXPECT_EQ(buffer[0], 'z');
    EXPECT_TRUE(built.cut());
    EXPECT_EQ(built.length(), 0u);
}

} // namespace

} // namespace zantlog
