#include <string>

#include <gtest/gtest.h>

#include "localizer/placeholder.h"

using namespace zantlog::localizer;

namespace {

// A form of the pieces that tests can compare: "[literal]", "<argument zeros width precision letter>", "!"
// for what is malformed.
std::string pieces(std::string_view text) {
    std::string all;
    for (;;) {
        const Piece piece = nextPiece(&text);
        switch (piece.kind) {
        case PieceKind::End:
            return all;
        case PieceKind::Literal:
            all += "[" + std::string(piece.text) + "]";
            break;
        case PieceKind::Malformed:
            all += "!";
            break;
        case PieceKind::Argument:
            const Placeholder &place = piece.placeholder;
            all += "<" + std::to_string(place.argument) + (place.zeros ? " zeros " : " ") +
                   std::to_string(place.width) +
                   (place.precision != kNoPrecision ? " ." + std::to_string(place.precision) : "") +
                   (place.letter != 0 ? std::string(" ") + place.letter : "") + ">";
        }
    }
}

} // namespace

TEST(Placeholders, TextAndArguments) {
    EXPECT_EQ(pieces(""), "");
    EXPECT_EQ(pieces("text"), "[text]");
    EXPECT_EQ(pieces("{1}"), "<1 0>");
    EXPECT_EQ(pieces("disk {1} is {2} full"), "[disk ]<1 0>[ is ]<2 0>[ full]");
    EXPECT_EQ(pieces("{99}{01}"), "<99 0><1 0>");
}

TEST(Placeholders, BracesAreWrittenTwice) {
    EXPECT_EQ(pieces("a{{1}}b"), "[a][{][1][}][b]");
    EXPECT_EQ(pieces("{{{1}}}"), "[{]<1 0>[}]");
}

TEST(Placeholders, Formats) {
    EXPECT_EQ(pieces("{1:x}"), "<1 0 x>");
    EXPECT_EQ(pieces("{1:08X}"), "<1 zeros 8 X>");
    EXPECT_EQ(pieces("{1:12}"), "<1 12>");
    EXPECT_EQ(pieces("{1:.2f}"), "<1 0 .2 f>");
    EXPECT_EQ(pieces("{1:10.3n}"), "<1 10 .3 n>");
    EXPECT_EQ(pieces("{1:.0}"), "<1 0 .0>");
    EXPECT_EQ(pieces("{1:0}"), "<1 zeros 0>");
    for (const char letter : std::string("dxXonfegti")) {
        EXPECT_EQ(pieces(std::string("{1:") + letter + "}"), std::string("<1 0 ") + letter + ">");
    }
}

TEST(Placeholders, WhatIsMalformed) {
    for (const char *text :
         {"{}", "{0}", "{100}", "{a}", "{1:}", "{1:q}", "{1:xx}", "{1:.}", "{1:.f}", "{1:100}", "{1:.100}",
          "{-1}", "{ 1}", "{1 }", "{1", "}", "{1:x", "{1;x}", "{"}) {
        EXPECT_NE(placeholderDefect(text), nullptr) << text;
    }
    EXPECT_EQ(placeholderDefect("{1:x} {{ }} {2}"), nullptr);
    EXPECT_NE(placeholderDefect(std::string_view("{1:\0}", 5)), nullptr);
    EXPECT_NE(std::string(placeholderDefect("a } b")).find("closes nothing"), std::string::npos);
    EXPECT_NE(std::string(placeholderDefect("a { b")).find("without its"), std::string::npos);
    EXPECT_NE(std::string(placeholderDefect("a {x} b")).find("{1} to {99}"), std::string::npos);
}
