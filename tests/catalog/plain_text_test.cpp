// Objects of plain texts: literal pieces and arguments in their order are the text.
#include <gtest/gtest.h>

#include "tests/catalog/built_object.h"

namespace zantlog::test {
namespace {

TEST(PlainText, HasNoMessageId) {
    EXPECT_EQ(plainText("%d", 1).lis.textId, 0U);
}

TEST(PlainText, LiteralPiecesAreNativeTexts) {
    const BuiltObject object = plainText("disk %s is %d %% full", "C:", 93);
    ASSERT_EQ(object.result, 0);
    ASSERT_EQ(object.lis.argCount, 5U);
    EXPECT_EQ(object.argument(0).kind, 11);
    EXPECT_STREQ(object.argument(0).first.narrow, "disk ");
    EXPECT_STREQ(object.argument(1).first.narrow, "C:");
    EXPECT_STREQ(object.argument(2).first.narrow, " is ");
    EXPECT_EQ(object.argument(3).kind, 1);
    EXPECT_EQ(object.argument(3).second.number, 93);
    EXPECT_EQ(object.argument(4).kind, 11);
    EXPECT_STREQ(object.argument(4).first.narrow, " % full");
}

TEST(PlainText, DoublePercentIsOnePercentOfTheLiteralAroundIt) {
    EXPECT_EQ(plainText("%%").texts(), "%");
    EXPECT_EQ(plainText("%%%%").texts(), "%%");
    EXPECT_EQ(plainText("a%%b").lis.argCount, 1U);
    EXPECT_EQ(plainText("a%%b").texts(), "a%b");
    EXPECT_EQ(plainText("%%%s%%", "x").texts(), "%x%");
    EXPECT_EQ(plainText("%%d").texts(), "%d");
}

TEST(PlainText, AnEmptyFormatHasNoArguments) {
    const BuiltObject object = plainText("");
    EXPECT_EQ(object.result, 0);
    EXPECT_EQ(object.lis.argCount, 0U);
    EXPECT_EQ(object.lis.first, nullptr);
}

TEST(PlainText, BareConversionsStayTyped) {
    EXPECT_EQ(plainText("%d", 1).argument(0).kind, 1);
    EXPECT_EQ(plainText("%u", 1).argument(0).kind, 2);
    EXPECT_EQ(plainText("%f", 1.5).argument(0).kind, 3);
    EXPECT_EQ(plainText("%p", static_cast<void *>(nullptr)).argument(0).kind, 4);
    EXPECT_EQ(plainText("%ls", L"x").argument(0).kind, 5);
    EXPECT_EQ(plainText("%r", 5).argument(0).kind, 6);
    EXPECT_EQ(plainText("%R", int64_t{5}).argument(0).kind, 7);
    EXPECT_EQ(plainText("%T", int64_t{0}).argument(0).kind, 8);
    EXPECT_EQ(plainText("%U", "x").argument(0).kind, 10);
    EXPECT_EQ(plainText("%s", "x").argument(0).kind, 11);
    EXPECT_EQ(plainText("%lc", 'x').argument(0).kind, 0);
    const BuiltObject inner = plainText("x");
    EXPECT_EQ(plainText("%N", &inner.lis).argument(0).kind, 9);
}

TEST(PlainText, WhatWouldBeRenderedOtherwiseBecomesText) {
    EXPECT_EQ(plainText("%x", 255).texts(), "ff");
    EXPECT_EQ(plainText("%e", 3.25).texts(), "3.250000e+00");
    EXPECT_EQ(plainText("%g", 3.25).texts(), "3.25");
    EXPECT_EQ(plainText("%F", 1.5).texts(), "1.500000");
}

TEST(PlainText, WhatTheRendererCouldCutBecomesText) {
    EXPECT_EQ(plainText("%f", 9999999.0).argument(0).kind, 3);         // 14 characters
    EXPECT_EQ(plainText("%f", 99999999.0).texts(), "99999999.000000"); // 15
    EXPECT_EQ(plainText("%f", 1e20).texts(), "100000000000000000000.000000");
    EXPECT_EQ(plainText("%r", 123456789).argument(0).kind, 6);
    EXPECT_EQ(plainText("%r", -2147024891).texts(), "-2147024891");
    EXPECT_EQ(plainText("%R", int64_t{1} << 40).texts(), "1099511627776");
}

TEST(PlainText, LongTextsAreWhole) {
    const std::string literal(100000, 'l');
    const std::string argument(200000, 'a');
    EXPECT_EQ(plainText((literal + "%s").c_str(), argument.c_str()).texts(), literal + argument);
}

TEST(PlainText, BytesAbove127ArePassedOn) {
    EXPECT_EQ(plainText("gr\xFC\xDF %s", "\xE9").texts(), "gr\xFC\xDF \xE9");
}

} // namespace
} // namespace zantlog::test
