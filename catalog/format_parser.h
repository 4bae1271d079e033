// The formats of messages: printf's, with positions and a few conversions of our own. docs/catalog.md
// describes them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog::catalog {

// How an argument is passed.
enum class ArgumentClass : uint8_t { none, int32, int64, real, pointer };

enum class ConversionKind : uint8_t {
    signedInteger,
    unsignedInteger,
    real,
    pointer,
    narrowCharacter,
    wideCharacter,
    nativeString,
    wideString,
    utf8String,
    osError,
    osErrorWide,
    dateTime,
    nested
};

// A width or precision.
struct Amount {
    enum class Source : uint8_t { absent, fixed, argument };
    Source source = Source::absent;
    int32_t value = 0;    // fixed
    int32_t position = 0; // of the argument; 0: the next one
};

struct Conversion {
    ConversionKind kind = ConversionKind::signedInteger;
    char letter = 0;        // as the format has it
    uint8_t bits = 0;       // sized integers
    bool left = false;      // "-"
    bool plus = false;      // "+"
    bool blank = false;     // " "
    bool alternate = false; // "#"
    bool zero = false;      // "0"
    Amount width;
    Amount precision;
    int32_t position = 0; // of the argument; 0: the next one
};

// A run of literal text, or one conversion.
struct FormatPiece {
    bool literal = false;
    const char *begin = nullptr; // literal: text in which "%%" stands for "%"
    const char *end = nullptr;
    size_t length = 0; // literal: after that replacement
    Conversion conversion;
};

enum class PieceResult : uint8_t { piece, end, malformed };

// No double has more digits behind the point.
inline constexpr int32_t kMaximumRealPrecision = 1100;

// Takes the next piece off the format.
[[nodiscard]] PieceResult nextPiece(const char **at, FormatPiece *piece);

// Positions run from 1 to kMaximumPosition.
inline constexpr int32_t kMaximumPosition = 100;

struct FormatSummary {
    size_t literals = 0;
    size_t conversions = 0;
    int32_t positions = 0; // highest position; 0: arguments are taken one after the other
    ArgumentClass classes[kMaximumPosition] = {}; // of position 1, 2, ...
};

// Reads a whole format; false when any part of it is malformed.
[[nodiscard]] bool readFormat(const char *format, FormatSummary *summary);

[[nodiscard]] ArgumentClass argumentClass(const Conversion &conversion);

// Flags, width or precision are given.
[[nodiscard]] bool isFormatted(const Conversion &conversion);

} // namespace zantlog::catalog
