#include "catalog/format_parser.h"

#include <cstring>

namespace zantlog::catalog {

namespace {

enum class LengthModifier : uint8_t { none, charSize, shortSize, longSize, bits32, bits64, wide };

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// False for a number above INT32_MAX, as for none at all.
bool takeNumber(const char **at, int32_t *number) {
    if (!isDigit(**at)) {
        return false;
    }
    int64_t value = 0;
    for (; isDigit(**at); ++*at) {
        value = value * 10 + (**at - '0');
        if (value > INT32_MAX) {
            return false;
        }
    }
    *number = static_cast<int32_t>(value);
    return true;
}

// "3$". Leaves *at alone, and the position 0, when no "$" ends the digits.
bool takePosition(const char **at, int32_t *position) {
    const char *ahead = *at;
    while (isDigit(*ahead)) {
        ++ahead;
    }
    *position = 0;
    if (ahead == *at || *ahead != '$') {
        return true;
    }
    const bool inRange = takeNumber(at, position) && *position >= 1 && *position <= kMaximumPosition;
    *at = ahead + 1;
    return inRange;
}

void takeFlags(const char **at, Conversion *conversion) {
    for (;; ++*at) {
        switch (**at) {
        case '-':
            conversion->left = true;
            break;
        case '+':
            conversion->plus = true;
            break;
        case ' ':
            conversion->blank = true;
            break;
        case '#':
            conversion->alternate = true;
            break;
        case '0':
            conversion->zero = true;
            break;
        default:
            return;
        }
    }
}

bool takeArgumentAmount(const char **at, Amount *amount) {
    ++*at; // the "*"
    amount->source = Amount::Source::argument;
    return takePosition(at, &amount->position);
}

bool takeWidth(const char **at, Amount *width) {
    if (**at == '*') {
        return takeArgumentAmount(at, width);
    }
    if (!isDigit(**at)) {
        return true;
    }
    width->source = Amount::Source::fixed;
    return takeNumber(at, &width->value);
}

bool takePrecision(const char **at, Amount *precision) {
    if (**at != '.') {
        return true;
    }
    ++*at;
    if (**at == '*') {
        return takeArgumentAmount(at, precision);
    }
    precision->source = Amount::Source::fixed; // "." alone is precision 0
    return !isDigit(**at) || takeNumber(at, &precision->value);
}

LengthModifier takeCharacters(const char **at, int count, LengthModifier modifier) {
    *at += count;
    return modifier;
}

// "long" has 32 bits on Windows, for callers of every build.
LengthModifier takeModifier(const char **at) {
    const char *text = *at;
    switch (text[0]) {
    case 'h':
        return text[1] == 'h' ? takeCharacters(at, 2, LengthModifier::charSize)
                              : takeCharacters(at, 1, LengthModifier::shortSize);
    case 'l':
        return text[1] == 'l' ? takeCharacters(at, 2, LengthModifier::bits64)
                              : takeCharacters(at, 1, LengthModifier::longSize);
    case 'I':
        if (text[1] == '3' && text[2] == '2') {
            return takeCharacters(at, 3, LengthModifier::bits32);
        }
        return takeCharacters(at, text[1] == '6' && text[2] == '4' ? 3 : 1, LengthModifier::bits64);
    case 'j':
    case 'z':
    case 't':
        return takeCharacters(at, 1, LengthModifier::bits64);
    case 'w':
        return takeCharacters(at, 1, LengthModifier::wide);
    default:
        return LengthModifier::none;
    }
}

bool setInteger(Conversion *conversion, ConversionKind kind, LengthModifier modifier) {
    conversion->kind = kind;
    switch (modifier) {
    case LengthModifier::charSize:
        conversion->bits = 8;
        return true;
    case LengthModifier::shortSize:
        conversion->bits = 16;
        return true;
    case LengthModifier::none:
    case LengthModifier::longSize:
    case LengthModifier::bits32:
        conversion->bits = 32;
        return true;
    case LengthModifier::bits64:
        conversion->bits = 64;
        return true;
    case LengthModifier::wide:
        break;
    }
    return false;
}

// A precision that comes through "*" is not known before its argument is read.
bool setReal(Conversion *conversion, LengthModifier modifier) {
    conversion->kind = ConversionKind::real;
    const Amount &precision = conversion->precision;
    if (precision.source == Amount::Source::fixed && precision.value > kMaximumRealPrecision) {
        return false;
    }
    return modifier == LengthModifier::none || modifier == LengthModifier::longSize;
}

// Characters and strings come narrow and wide: "h" makes them narrow, "l" and "w" wide.
bool setText(Conversion *conversion, ConversionKind narrow, ConversionKind wide, bool wideByDefault,
             LengthModifier modifier) {
    switch (modifier) {
    case LengthModifier::none:
        conversion->kind = wideByDefault ? wide : narrow;
        return true;
    case LengthModifier::shortSize:
        conversion->kind = narrow;
        return true;
    case LengthModifier::longSize:
    case LengthModifier::wide:
        conversion->kind = wide;
        return true;
    default:
        return false;
    }
}

// Conversions that printf lacks; only the strings among them take flags, width and precision.
bool setExtension(Conversion *conversion, ConversionKind kind, LengthModifier modifier) {
    conversion->kind = kind;
    return modifier == LengthModifier::none &&
           (kind == ConversionKind::utf8String || !isFormatted(*conversion));
}

bool setKind(Conversion *conversion, LengthModifier modifier) {
    using Kind = ConversionKind;
    switch (conversion->letter) {
    case 'd':
    case 'i':
        return setInteger(conversion, Kind::signedInteger, modifier);
    case 'u':
    case 'x':
    case 'X':
    case 'o':
        return setInteger(conversion, Kind::unsignedInteger, modifier);
    case 'f':
    case 'F':
    case 'e':
    case 'E':
    case 'g':
    case 'G':
    case 'a':
    case 'A':
        return setReal(conversion, modifier);
    case 'p':
        conversion->kind = Kind::pointer;
        return modifier == LengthModifier::none;
    case 'c':
        return setText(conversion, Kind::narrowCharacter, Kind::wideCharacter, false, modifier);
    case 'C':
        return setText(conversion, Kind::narrowCharacter, Kind::wideCharacter, true, modifier);
    case 's':
        return setText(conversion, Kind::nativeString, Kind::wideString, false, modifier);
    case 'S':
        return setText(conversion, Kind::nativeString, Kind::wideString, true, modifier);
    case 'U':
        return setExtension(conversion, Kind::utf8String, modifier);
    case 'r':
        return setExtension(conversion, Kind::osError, modifier);
    case 'R':
        return setExtension(conversion, Kind::osErrorWide, modifier);
    case 'T':
        return setExtension(conversion, Kind::dateTime, modifier);
    case 'N':
        return setExtension(conversion, Kind::nested, modifier);
    default:
        return false; // "%n" among them: nothing is ever written through an argument
    }
}

bool takeConversion(const char **at, Conversion *conversion) {
    ++*at; // the "%"
    if (!takePosition(at, &conversion->position)) {
        return false;
    }
    takeFlags(at, conversion);
    if (!takeWidth(at, &conversion->width) || !takePrecision(at, &conversion->precision)) {
        return false;
    }
    const LengthModifier modifier = takeModifier(at);
    conversion->letter = **at;
    if (!setKind(conversion, modifier)) {
        return false;
    }
    ++*at;
    return true;
}

void takeLiteral(const char **at, FormatPiece *piece) {
    piece->literal = true;
    piece->begin = *at;
    for (; **at != '\0'; ++*at, ++piece->length) {
        if (**at != '%') {
            continue;
        }
        if ((*at)[1] != '%') {
            break;
        }
        ++*at;
    }
    piece->end = *at;
}

// Notes one argument; false when positions are mixed with their absence, or one argument is passed in two
// ways.
bool noteArgument(FormatSummary *summary, bool *sequential, int32_t position, ArgumentClass passed) {
    if (position == 0) {
        *sequential = true;
        return summary->positions == 0;
    }
    if (*sequential) {
        return false;
    }
    if (position > summary->positions) {
        summary->positions = position;
    }
    ArgumentClass &known = summary->classes[position - 1];
    if (known != ArgumentClass::none && known != passed) {
        return false;
    }
    known = passed;
    return true;
}

bool noteAmount(FormatSummary *summary, bool *sequential, const Amount &amount) {
    return amount.source != Amount::Source::argument ||
           noteArgument(summary, sequential, amount.position, ArgumentClass::int32);
}

// An argument that no conversion names could be of any size, so nothing behind it could be found.
bool everyPositionIsUsed(const FormatSummary &summary) {
    for (int32_t position = 0; position < summary.positions; ++position) {
        if (summary.classes[position] == ArgumentClass::none) {
            return false;
        }
    }
    return true;
}

} // namespace

bool isFormatted(const Conversion &conversion) {
    return conversion.left || conversion.plus || conversion.blank || conversion.alternate ||
           conversion.zero || conversion.width.source != Amount::Source::absent ||
           conversion.precision.source != Amount::Source::absent;
}

ArgumentClass argumentClass(const Conversion &conversion) {
    switch (conversion.kind) {
    case ConversionKind::signedInteger:
    case ConversionKind::unsignedInteger:
        return conversion.bits == 64 ? ArgumentClass::int64 : ArgumentClass::int32;
    case ConversionKind::narrowCharacter:
    case ConversionKind::wideCharacter:
    case ConversionKind::osError:
        return ArgumentClass::int32;
    case ConversionKind::osErrorWide:
    case ConversionKind::dateTime:
        return ArgumentClass::int64;
    case ConversionKind::real:
        return ArgumentClass::real;
    default:
        return ArgumentClass::pointer;
    }
}

PieceResult nextPiece(const char **at, FormatPiece *piece) {
    *piece = FormatPiece{};
    if (**at == '\0') {
        return PieceResult::end;
    }
    if (**at != '%' || (*at)[1] == '%') {
        takeLiteral(at, piece);
        return PieceResult::piece;
    }
    return takeConversion(at, &piece->conversion) ? PieceResult::piece : PieceResult::malformed;
}

bool readFormat(const char *format, FormatSummary *summary) {
    *summary = FormatSummary{};
    bool sequential = false;
    for (FormatPiece piece;;) {
        const PieceResult result = nextPiece(&format, &piece);
        if (result != PieceResult::piece) {
            return result == PieceResult::end && everyPositionIsUsed(*summary);
        }
        if (piece.literal) {
            ++summary->literals;
            continue;
        }
        ++summary->conversions;
        const Conversion &conversion = piece.conversion;
        if (!noteAmount(summary, &sequential, conversion.width) ||
            !noteAmount(summary, &sequential, conversion.precision) ||
            !noteArgument(summary, &sequential, conversion.position, argumentClass(conversion))) {
            return false;
        }
    }
}

} // namespace zantlog::catalog
