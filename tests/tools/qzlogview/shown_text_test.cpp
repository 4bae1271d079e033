// What becomes of a text before it is shown.
#include <gtest/gtest.h>

#include "tools/qzlogview/shown_text.h"

using namespace zantlog::view;

namespace {

std::string shown(std::string_view text, Lines lines = Lines::one, size_t indentation = 0) {
    std::string out = "|";
    appendShown(text, lines, indentation, &out);
    return out.substr(1);
}

std::string safeJson(std::string_view json) {
    std::string out;
    appendSafeJson(json, &out);
    return out;
}

constexpr char kReplacement[] = "\xEF\xBF\xBD";

} // namespace

TEST(ShownText, PlainTextStays) {
    EXPECT_EQ(shown(""), "");
    EXPECT_EQ(shown("disk C: is \"full\" \\ ~"), "disk C: is \"full\" \\ ~");
}

TEST(ShownText, CharactersOfAllLengthsStay) {
    const std::string text = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";
    EXPECT_EQ(shown(text), text);
    EXPECT_EQ(shown("\xC2\xA0"), "\xC2\xA0"); // the first one behind the controls
}

TEST(ShownText, EveryAsciiControlIsEscaped) {
    const char *const kDigits = "0123456789abcdef";
    for (int code = 0; code < 0x20; ++code) {
        std::string expected = "\\x";
        expected += kDigits[code / 16];
        expected += kDigits[code % 16];
        if (code == 9) {
            expected = "\\t";
        } else if (code == 10) {
            expected = "\\n";
        }
        EXPECT_EQ(shown(std::string(1, static_cast<char>(code))), expected) << code;
    }
    EXPECT_EQ(shown("a\x7F"), "a\\x7f");
    EXPECT_EQ(shown("\x1b[2J"), "\\x1b[2J");
    EXPECT_EQ(shown("a\rb"), "a\\x0db");
}

TEST(ShownText, AnUnsafeByteIsFoundAtEveryPlaceOfALongText) {
    for (size_t at = 0; at < 40; ++at) {
        for (const auto &[byte, escape] : {std::pair{'\x1b', "\\x1b"},
                                           {'\x7F', "\\x7f"},
                                           {'\x01', "\\x01"},
                                           {'\x1f', "\\x1f"},
                                           {'\xFF', kReplacement}}) {
            std::string text(40, 'x');
            text[(at + 3) % 40] = ' ';
            text[at] = byte;
            std::string expected = text;
            expected.replace(at, 1, escape);
            EXPECT_EQ(shown(text), expected) << at;
        }
    }
    EXPECT_EQ(shown(std::string(50, '~') + std::string(50, ' ')),
              std::string(50, '~') + std::string(50, ' '));
}

TEST(ShownText, EveryC1ControlIsEscaped) {
    const char *const kDigits = "0123456789abcdef";
    for (int code = 0x80; code < 0xA0; ++code) {
        const std::string text = {'\xC2', static_cast<char>(code)};
        const std::string expected = {'\\', 'x', kDigits[code / 16], kDigits[code % 16]};
        EXPECT_EQ(shown(text), expected) << code;
    }
}

TEST(ShownText, WhatChangesTheDirectionOrHidesIsEscaped) {
    EXPECT_EQ(shown("\xE2\x80\xAE"
                    "fdp.exe"),
              "\\u202efdp.exe");
    EXPECT_EQ(shown("\xD8\x9C"), "\\u061c");
    EXPECT_EQ(shown("\xE2\x80\x8B\xE2\x80\x8F"), "\\u200b\\u200f");
    EXPECT_EQ(shown("\xE2\x80\xA8\xE2\x80\xA9"), "\\u2028\\u2029"); // line and paragraph separators
    EXPECT_EQ(shown("\xE2\x80\xAA\xE2\x80\xAB\xE2\x80\xAC\xE2\x80\xAD"), "\\u202a\\u202b\\u202c\\u202d");
    EXPECT_EQ(shown("\xE2\x81\xA6\xE2\x81\xA7\xE2\x81\xA8\xE2\x81\xA9"), "\\u2066\\u2067\\u2068\\u2069");
    EXPECT_EQ(shown("\xEF\xBB\xBF"), "\\ufeff");
    EXPECT_EQ(shown("\xE2\x80\x90\xE2\x80\xA7\xE2\x80\xAF"), "\xE2\x80\x90\xE2\x80\xA7\xE2\x80\xAF");
}

TEST(ShownText, BytesThatAreNoUtf8BecomeReplacements) {
    const std::string one = kReplacement;
    EXPECT_EQ(shown("a\xFF"
                    "b"),
              "a" + one + "b");
    EXPECT_EQ(shown("\x80"), one);
    EXPECT_EQ(shown("\xC3"), one);           // cut off
    EXPECT_EQ(shown("\xE2\x82"), one + one); // the same
    EXPECT_EQ(shown("\xC0\xAF"), one + one); // longer than needed
    EXPECT_EQ(shown("\xC1\x9B"), one + one); // an escape in disguise
    EXPECT_EQ(shown("\xE0\x82\x9B"), one + one + one);
    EXPECT_EQ(shown("\xED\xA0\x80"), one + one + one);           // a surrogate
    EXPECT_EQ(shown("\xF4\x90\x80\x80"), one + one + one + one); // above U+10FFFF
    EXPECT_EQ(shown("\xF5"), one);
    EXPECT_EQ(shown("\xC3\x1b"), one + "\\x1b"); // what follows is looked at on its own
}

TEST(ShownText, LineFeedsStayWhereLinesMayBeSeveral) {
    EXPECT_EQ(shown("a\nb\n\nc", Lines::indented, 4), "a\n    b\n    \n    c");
    EXPECT_EQ(shown("a\nb", Lines::indented, 0), "a\nb");
    EXPECT_EQ(shown("a\nb", Lines::one, 4), "a\\nb");
    EXPECT_EQ(shown("a\r\n\tb", Lines::indented, 2), "a\\x0d\n  \\tb");
}

TEST(SafeJson, WhatDrivesATerminalIsEscaped) {
    EXPECT_EQ(safeJson("{\"text\":\"a\\u001b\xC3\xA4\xE2\x82\xAC\"}"),
              "{\"text\":\"a\\u001b\xC3\xA4\xE2\x82\xAC\"}");
    EXPECT_EQ(safeJson("\"\x7F\xC2\x9B\""), "\"\\u007f\\u009b\"") << "DEL and C1";
    EXPECT_EQ(safeJson("\"\xE2\x80\xAE\xEF\xBB\xBF\""), "\"\\u202e\\ufeff\"") << "the direction of writing";
}
