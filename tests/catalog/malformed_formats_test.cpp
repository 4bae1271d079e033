// Formats that are refused, and arguments by position.
#include <gtest/gtest.h>

#include "tests/catalog/built_object.h"

namespace zantlog::test {
namespace {

// A list in which every argument is one that no conversion could follow: reading any text or object of it
// would crash.
BuiltObject refused(const char *format) {
    void *const bad = reinterpret_cast<void *>(uintptr_t{1});
    return message(format, bad, bad, bad, bad, bad, bad);
}

void expectRefused(const char *format) {
    const BuiltObject object = refused(format);
    EXPECT_EQ(object.result, -2) << format;
    EXPECT_EQ(object.lis.textId, 0U) << format;
    EXPECT_EQ(object.lis.argCount, 0U) << format;
    EXPECT_EQ(object.lis.first, nullptr) << format;
}

TEST(MalformedFormats, NothingIsWrittenThroughArguments) {
    for (const char *format : {"%n", "%hn", "%lln", "%1$n", "%5n", "text %s %n"}) {
        expectRefused(format);
    }
    int written = 77;
    EXPECT_EQ(plainText("abc%n", &written).result, -2);
    EXPECT_EQ(written, 77);
}

TEST(MalformedFormats, UnknownConversionsAreRefused) {
    for (const char *format :
         {"%",   "%s%", "%y", "%Z",  "%v",   "%!", "%\n", "%-",  "%5",  "%.",   "%5.2",  "%l",
          "%ll", "%h",  "%I", "%I6", "%I64", "%*", "%-%", "%5%", "% %", "%.3%", "%\xE9", "%'d"}) {
        expectRefused(format);
    }
}

TEST(MalformedFormats, AFaultyEndKeepsTheBeginningUnread) {
    expectRefused("%s %s %s %q");
    expectRefused("%N %ls %");
}

TEST(MalformedFormats, SizesThatDoNotFitTheConversionAreRefused) {
    for (const char *format : {"%hf", "%llf", "%Lf", "%hhs", "%lls", "%hhc", "%llc", "%lp", "%hp", "%wd",
                               "%I64s", "%zf", "%hhhd", "%llld", "%lU", "%hr", "%lT", "%lN", "%Ld"}) {
        expectRefused(format);
    }
}

TEST(MalformedFormats, OwnConversionsWithoutALayoutTakeNone) {
    for (const char *format : {"%5r", "%-R", "%.2T", "%0N", "%*r", "%+T"}) {
        expectRefused(format);
    }
}

TEST(MalformedFormats, NumbersBeyondIntAreRefused) {
    expectRefused("%2147483648d");
    expectRefused("%.2147483648d");
    expectRefused("%99999999999999999999d");
    expectRefused("%99999999999999999999$d");
}

TEST(MalformedFormats, APrecisionThatNoDoubleHasIsRefused) {
    expectRefused("%s %.1101f");
    expectRefused("%s %.1101g");
}

TEST(MalformedFormats, FlagsComeBeforeTheWidth) {
    expectRefused("%5-d");
    expectRefused("%.3+d");
}

TEST(Positions, ArgumentsAreTakenByPosition) {
    const BuiltObject object = message("%2$s %1$d", 42, "disk");
    ASSERT_EQ(object.result, 0);
    ASSERT_EQ(object.lis.argCount, 2U);
    EXPECT_STREQ(object.argument(0).first.narrow, "disk");
    EXPECT_EQ(object.argument(1).second.number, 42);
}

TEST(Positions, EveryClassOfArgumentCanStandAtAnyPosition) {
    const BuiltObject object = message("%5$s|%4$f|%3$hhd|%2$lld|%1$d", 1, int64_t{2}, 3, 4.5, "5");
    ASSERT_EQ(object.result, 0);
    EXPECT_STREQ(object.argument(0).first.narrow, "5");
    EXPECT_EQ(object.argument(1).first.real, 4.5);
    EXPECT_EQ(object.argument(2).second.number, 3);
    EXPECT_EQ(object.argument(3).second.number, 2);
    EXPECT_EQ(object.argument(4).second.number, 1);
}

TEST(Positions, OneArgumentCanBeUsedTwice) {
    EXPECT_EQ(plainText("%1$s-%1$s", "a").texts(), "a-a");
    EXPECT_EQ(plainText("%1$x %1$X", 255).texts(), "ff FF");
}

TEST(Positions, StarsHavePositionsToo) {
    EXPECT_EQ(plainText("%2$*1$d", 5, 42).texts(), "   42");
    EXPECT_EQ(plainText("%3$*1$.*2$f", 8, 2, 3.25).texts(), "    3.25");
    EXPECT_EQ(plainText("%1$-5d|", 42).texts(), "42   |");
}

TEST(Positions, MixedUseIsRefused) {
    for (const char *format : {"%1$d %d", "%d %1$d", "%1$*d", "%*1$d", "%1$.*d", "%.*1$d", "%1$s %s %2$s"}) {
        expectRefused(format);
    }
}

TEST(Positions, GapsAreRefused) {
    expectRefused("%2$d");
    expectRefused("%1$d %3$d");
}

TEST(Positions, OneArgumentCannotBePassedInTwoWays) {
    for (const char *format : {"%1$d %1$s", "%1$d %1$lld", "%1$f %1$d", "%2$*1$d %1$s"}) {
        expectRefused(format);
    }
    EXPECT_EQ(message("%1$d %1$u %1$hhx %1$c", 65).lis.argCount, 4U);
    EXPECT_EQ(plainText("%1$s %1$p", "x").lis.argCount, 3U);
}

TEST(Positions, TheyRunFromOneToAHundred) {
    expectRefused("%0$d");
    expectRefused("%101$d");
    std::string format;
    for (int position = 1; position <= 100; ++position) {
        format += "%" + std::to_string(position) + "$d";
    }
    const BuiltObject object =
        message(format.c_str(), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22,
                23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45,
                46, 47, 48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67, 68,
                69, 70, 71, 72, 73, 74, 75, 76, 77, 78, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91,
                92, 93, 94, 95, 96, 97, 98, 99, 100);
    ASSERT_EQ(object.lis.argCount, 100U);
    for (size_t index = 0; index < 100; ++index) {
        EXPECT_EQ(object.argument(index).second.number, static_cast<int64_t>(index) + 1);
    }
}

} // namespace
} // namespace zantlog::test
