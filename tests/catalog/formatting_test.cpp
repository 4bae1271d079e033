// Flags, widths and precisions: what a formatted conversion reads like. The expected texts are C's.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/catalog/built_object.h"

namespace zantlog::test {
namespace {

#define EXPECT_READS(expected, ...)                                                                          \
    do {                                                                                                     \
        const BuiltObject built = plainText(__VA_ARGS__);                                                    \
        EXPECT_EQ(built.result, 0);                                                                          \
        EXPECT_EQ(built.texts(), expected);                                                                  \
    } while (false)

TEST(Formatting, WidthPadsOnTheLeftAndMinusOnTheRight) {
    EXPECT_READS("   42", "%5d", 42);
    EXPECT_READS("42   ", "%-5d", 42);
    EXPECT_READS("12345678", "%5d", 12345678);
    EXPECT_READS("  -42", "%5d", -42);
    EXPECT_READS("   42", "%5u", 42);
}

TEST(Formatting, ZeroFillsBehindTheSign) {
    EXPECT_READS("00042", "%05d", 42);
    EXPECT_READS("-0042", "%05d", -42);
    EXPECT_READS("42   ", "%-05d", 42);  // minus wins
    EXPECT_READS("  042", "%05.3d", 42); // so does a precision
}

TEST(Formatting, PlusAndBlankShowTheSign) {
    EXPECT_READS("+42", "%+d", 42);
    EXPECT_READS("-42", "%+d", -42);
    EXPECT_READS(" 42", "% d", 42);
    EXPECT_READS("+42", "% +d", 42); // plus wins
    EXPECT_READS("42", "%+u", 42);   // there is no sign to show
}

TEST(Formatting, PrecisionOfAnIntegerIsItsLeastDigits) {
    EXPECT_READS("00042", "%.5d", 42);
    EXPECT_READS("-00042", "%.5d", -42);
    EXPECT_READS("", "%.0d", 0);
    EXPECT_READS("", "%.d", 0);
    EXPECT_READS("1", "%.0d", 1);
    EXPECT_READS("  00042", "%7.5d", 42);
    EXPECT_READS("00ff", "%.4x", 255);
}

TEST(Formatting, HexadecimalAndOctal) {
    EXPECT_READS("ff", "%x", 255);
    EXPECT_READS("FF", "%X", 255);
    EXPECT_READS("377", "%o", 255);
    EXPECT_READS("0xff", "%#x", 255);
    EXPECT_READS("0XFF", "%#X", 255);
    EXPECT_READS("0377", "%#o", 255);
    EXPECT_READS("0", "%#x", 0);
    EXPECT_READS("0", "%#o", 0);
    EXPECT_READS("0", "%#.0o", 0);
    EXPECT_READS("000000ff", "%08x", 255);
    EXPECT_READS("0x0000ff", "%#08x", 255);
    EXPECT_READS("ffffffff", "%x", -1);
    EXPECT_READS("ff", "%hhx", -1);
    EXPECT_READS("ffffffffffffffff", "%llx", UINT64_MAX);
    EXPECT_READS("00377", "%#.5o", 255);
}

TEST(Formatting, ExtremeIntegers) {
    EXPECT_READS("+9223372036854775807", "%+lld", INT64_MAX);
    EXPECT_READS("-9223372036854775808", "%+lld", INT64_MIN);
    EXPECT_READS("-128", "%+hhd", 128);
}

TEST(Formatting, Doubles) {
    EXPECT_READS("3.25", "%.2f", 3.25);
    EXPECT_READS("3", "%.0f", 3.25);
    EXPECT_READS("3.", "%#.0f", 3.25);
    EXPECT_READS("    3.25", "%8.2f", 3.25);
    EXPECT_READS("3.25    ", "%-8.2f", 3.25);
    EXPECT_READS("00003.25", "%08.2f", 3.25);
    EXPECT_READS("-0003.25", "%08.2f", -3.25);
    EXPECT_READS("+3.25", "%+.2f", 3.25);
    EXPECT_READS("3.25", "%g", 3.25);
    EXPECT_READS("3.25000", "%#g", 3.25);
    EXPECT_READS("1.5e-10", "%g", 1.5e-10);
    EXPECT_READS("-0.0", "%.1f", -0.0);
}

TEST(Formatting, ExponentsHaveAtLeastTwoDigits) {
    EXPECT_READS("3.250000e+00", "%e", 3.25);
    EXPECT_READS("3.250000E+00", "%E", 3.25);
    EXPECT_READS("1.0e+300", "%.1e", 1e300);
}

TEST(Formatting, HexadecimalDoublesReadBackAsTheyWere) {
    const BuiltObject object = plainText("%a", 0.15625);
    EXPECT_EQ(std::strtod(object.argument(0).first.narrow, nullptr), 0.15625);
    const BuiltObject upper = plainText("%A", -1.5);
    EXPECT_EQ(upper.texts().substr(0, 3), "-0X");
    EXPECT_EQ(std::strtod(upper.argument(0).first.narrow, nullptr), -1.5);
    const BuiltObject padded = plainText("%020a", 1.0);
    EXPECT_EQ(padded.texts().size(), 20U);
    EXPECT_EQ(padded.texts().substr(0, 3), "0x0");
    EXPECT_EQ(std::strtod(padded.argument(0).first.narrow, nullptr), 1.0);
}

TEST(Formatting, InfinityAndNoNumberAreNeverFilledWithZeros) {
    EXPECT_READS("   inf", "%06f", std::numeric_limits<double>::infinity());
    EXPECT_READS("  -inf", "%06f", -std::numeric_limits<double>::infinity());
    EXPECT_READS("+INF", "%+E", std::numeric_limits<double>::infinity());
    EXPECT_READS("   nan", "%6f", std::numeric_limits<double>::quiet_NaN());
    EXPECT_READS("   inf", "%6a", std::numeric_limits<double>::infinity());
}

TEST(Formatting, TheLargestDoubleIsWhole) {
    const std::string text = plainText("%.1f", std::numeric_limits<double>::max()).texts();
    EXPECT_EQ(text.size(), 311U);
    EXPECT_EQ(text.substr(0, 17), "17976931348623157");
}

TEST(Formatting, APrecisionThatNoDoubleHasIsRefused) {
    EXPECT_EQ(plainText("%.1100f", 0.1).texts().size(), 1102U);
    EXPECT_EQ(plainText("%.1101f", 0.1).result, -2);
    EXPECT_EQ(plainText("%.*f", 1101, 0.1).result, -2);
    EXPECT_EQ(message("%.1101e", 0.1).result, -2);
}

TEST(Formatting, PointersReadAsTheyAreRendered) {
    EXPECT_READS("      0x1f", "%10p", reinterpret_cast<void *>(uintptr_t{0x1F}));
    EXPECT_READS("0x1f      ", "%-10p", reinterpret_cast<void *>(uintptr_t{0x1F}));
    EXPECT_READS("0x0000001f", "%010p", reinterpret_cast<void *>(uintptr_t{0x1F}));
    EXPECT_READS("0x001f", "%.4p", reinterpret_cast<void *>(uintptr_t{0x1F}));
}

TEST(Formatting, StringsArePaddedAndCut) {
    EXPECT_READS("   ab", "%5s", "ab");
    EXPECT_READS("ab   ", "%-5s", "ab");
    EXPECT_READS("abc", "%.3s", "abcdef");
    EXPECT_READS("", "%.0s", "abcdef");
    EXPECT_READS("   ab", "%5.2s", "abcdef");
    EXPECT_READS("abcdef", "%.100s", "abcdef");
    EXPECT_READS("(nul", "%.4s", static_cast<char *>(nullptr));
    EXPECT_READS("    x", "%5c", 'x');
    EXPECT_READS("x    ", "%-5c", 'x');
}

TEST(Formatting, ACutStringNeedsNoTerminator) {
    const char text[3] = {'a', 'b', 'c'};
    EXPECT_READS("abc", "%.3s", text);
    EXPECT_READS("ab", "%.*s", 2, text);
    const wchar_t wide[2] = {'x', 'y'};
    EXPECT_EQ(units(plainText("%.2ls", wide).argument(0).first.wide), (Units{'x', 'y'}));
    const char euro[3] = {'\xE2', '\x82', '\xAC'};
    EXPECT_READS("\xE2\x82\xAC", "%.3U", euro);
}

TEST(Formatting, WideTextsStayWide) {
    const BuiltObject object = message("%5.2ls", L"abcdef");
    EXPECT_EQ(object.argument(0).kind, 5);
    EXPECT_EQ(units(object.argument(0).first.wide), (Units{' ', ' ', ' ', 'a', 'b'}));
    const BuiltObject left = message("%-4lc", 0x20AC);
    EXPECT_EQ(left.argument(0).kind, 5);
    EXPECT_EQ(units(left.argument(0).first.wide), (Units{0x20AC, ' ', ' ', ' '}));
}

TEST(Formatting, CuttingLeavesNoHalfCharacters) {
    EXPECT_EQ(units(message("%.2ls", L"a\xD83D\xDE00").argument(0).first.wide), (Units{'a'}));
    EXPECT_EQ(units(message("%.3ls", L"a\xD83D\xDE00").argument(0).first.wide), (Units{'a', 0xD83D, 0xDE00}));
    EXPECT_STREQ(message("%.2U", "\xE2\x82\xAC").argument(0).first.narrow, "");
    EXPECT_STREQ(message("%.1U", "\xE2\x82\xAC").argument(0).first.narrow, "");
    EXPECT_STREQ(message("%.4U", "a\xF0\x9F\x98\x80").argument(0).first.narrow, "a");
    EXPECT_STREQ(message("%.5U", "a\xF0\x9F\x98\x80").argument(0).first.narrow, "a\xF0\x9F\x98\x80");
    EXPECT_STREQ(message("%.2U", "\xC3\xA9\xC3\xA9").argument(0).first.narrow, "\xC3\xA9");
}

TEST(Formatting, Utf8StringsStayUtf8) {
    const BuiltObject object = message("%6U", "\xE2\x82\xAC");
    EXPECT_EQ(object.argument(0).kind, 10);
    EXPECT_STREQ(object.argument(0).first.narrow, "   \xE2\x82\xAC");
}

TEST(Formatting, StarsTakeWidthAndPrecisionFromTheArguments) {
    EXPECT_READS("   42", "%*d", 5, 42);
    EXPECT_READS("42   ", "%*d", -5, 42);
    EXPECT_READS("42   ", "%-*d", 5, 42);
    EXPECT_READS("3.25", "%.*f", 2, 3.25);
    EXPECT_READS("    3.25", "%*.*f", 8, 2, 3.25);
    EXPECT_READS("abcdef", "%.*s", -1, "abcdef");
    EXPECT_READS("  042", "%*.*d", 5, 3, 42);
    EXPECT_READS("00042", "%0*.*d", 5, -1, 42); // no precision, so the zeros count
}

TEST(Formatting, AMessageHasFormattedNumbersAsTexts) {
    const BuiltObject object =
        message("%5d%+d%05u%#x%.2f%20p", 1, 2, 3, 4, 5.0, static_cast<void *>(nullptr));
    ASSERT_EQ(object.result, 0);
    ASSERT_EQ(object.lis.argCount, 6U);
    EXPECT_EQ(object.texts(), "    1+2000030x45.00                 0x0");
}

TEST(Formatting, FlagsWithoutMeaningChangeNothing) {
    EXPECT_READS("ab", "%+s", "ab");
    EXPECT_READS("  ab", "%04s", "ab");
    EXPECT_READS("42", "%#d", 42);
}

TEST(Formatting, MemoryThatNobodyHasIsReported) {
    // 70,000 times 2 GB: more than a process can address.
    std::string format;
    for (int i = 0; i < 70000; ++i) {
        format += "%1$2147483647d";
    }
    const BuiltObject object = plainText(format.c_str(), 1);
    EXPECT_EQ(object.result, -3);
    EXPECT_EQ(object.lis.first, nullptr);
    EXPECT_EQ(object.lis.argCount, 0U);
}

} // namespace
} // namespace zantlog::test
