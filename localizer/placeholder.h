// The places of arguments in a catalog text: "{1}", "{2:x}"; "{{" and "}}" are braces.
#pragma once

#include <cstdint>
#include <string_view>

namespace zantlog::localizer {

inline constexpr unsigned kNoPrecision = 255;

struct Placeholder {
    unsigned argument;  // from 1
    char letter;        // one of kPlaceholderLetters, or 0
    bool zeros;         // pad with zeros
    unsigned width;     // at least so many characters
    unsigned precision; // digits of a fraction, or kNoPrecision
};

inline constexpr char kPlaceholderLetters[] = "dxXonfegti";

enum class PieceKind : uint8_t { End, Literal, Argument, Malformed };

struct Piece {
    PieceKind kind;
    std::string_view text; // as it stands in the text; of a literal: what it is, so one brace for two
    Placeholder placeholder;
};

// Takes the next piece off the text.
Piece nextPiece(std::string_view *text);

// Null for a text that is well-formed, else what is wrong with it.
const char *placeholderDefect(std::string_view text);

} // namespace zantlog::localizer
