#include "catalog/argument_conversion.h"

#include <cmath>
#include <cstring>

#include "catalog/object_copy.h"
#include "catalog/text_field.h"

namespace zantlog::catalog {

namespace {

template <typename Character> const Character *storeField(Arena *arena, const TextField<Character> &field) {
    const size_t bytes = (field.length() + 1) * sizeof(Character);
    auto *at = static_cast<Character *>(arena->take(bytes, alignof(Character)));
    if (at != nullptr) {
        field.write(at);
    }
    return at;
}

void setNativeText(Arena *arena, const TextField<char> &field, zantLisArg *argument) {
    argument->kind = ZANTLIS_NATIVE_STRING;
    argument->first.narrow = storeField(arena, field);
}

void setSized(zantLisArg *argument, int32_t kind, uint8_t bits, int64_t value) {
    argument->kind = kind;
    argument->first.word = 0;
    argument->first.width = bits;
    argument->second.number = value;
}

int64_t signedValue(const Conversion &conversion, ArgumentValue value) {
    switch (conversion.bits) {
    case 8:
        return static_cast<int8_t>(value.int32);
    case 16:
        return static_cast<int16_t>(value.int32);
    case 64:
        return value.int64;
    default:
        return value.int32;
    }
}

uint64_t unsignedValue(const Conversion &conversion, ArgumentValue value) {
    switch (conversion.bits) {
    case 8:
        return static_cast<uint8_t>(value.int32);
    case 16:
        return static_cast<uint16_t>(value.int32);
    case 64:
        return static_cast<uint64_t>(value.int64);
    default:
        return static_cast<uint32_t>(value.int32);
    }
}

void formatSigned(NumberText *text, const Layout &layout, int64_t value) {
    const auto magnitude = static_cast<uint64_t>(value);
    formatInteger(text, layout, 'd', value < 0 ? ~magnitude + 1 : magnitude, value < 0);
}

// What the renderer of plain texts sets aside for a double and for an error code, less the terminator: a
// longer text could be cut there.
constexpr size_t kRenderedReal = 14;
constexpr size_t kRenderedError = 9;

void convertSigned(Arena *arena, const Conversion &conversion, const Layout &layout, int64_t value,
                   zantLisArg *argument) {
    if (!isFormatted(conversion)) {
        setSized(argument, ZANTLIS_SIGNED, conversion.bits, value);
        return;
    }
    NumberText text;
    formatSigned(&text, layout, value);
    setNativeText(arena, text.field, argument);
}

void convertUnsigned(Arena *arena, const Conversion &conversion, const Layout &layout, uint64_t value,
                     bool plainText, zantLisArg *argument) {
    if (!isFormatted(conversion) && (conversion.letter == 'u' || !plainText)) {
        setSized(argument, ZANTLIS_UNSIGNED, conversion.bits, static_cast<int64_t>(value));
        return;
    }
    NumberText text;
    formatInteger(&text, layout, conversion.letter, value, false);
    setNativeText(arena, text.field, argument);
}

int32_t convertReal(Arena *arena, const Conversion &conversion, const Layout &layout, double value,
                    bool plainText, zantLisArg *argument) {
    if (!isFormatted(conversion) && !plainText) {
        argument->kind = ZANTLIS_DOUBLE;
        argument->first.real = value;
        return ZANTLIS_OK;
    }
    NumberText text;
    if (!formatReal(&text, layout, conversion.letter, value)) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    if (!isFormatted(conversion) && conversion.letter == 'f' && text.field.length() <= kRenderedReal) {
        argument->kind = ZANTLIS_DOUBLE;
        argument->first.real = value;
        return ZANTLIS_OK;
    }
    setNativeText(arena, text.field, argument);
    return ZANTLIS_OK;
}

void convertPointer(Arena *arena, const Conversion &conversion, const Layout &layout, const void *value,
                    zantLisArg *argument) {
    if (!isFormatted(conversion)) {
        argument->kind = ZANTLIS_POINTER;
        argument->first.word = reinterpret_cast<uintptr_t>(value);
        return;
    }
    NumberText text;
    formatPointer(&text, layout, value);
    setNativeText(arena, text.field, argument);
}

void convertError(Arena *arena, int32_t kind, uint8_t bits, int64_t code, bool plainText,
                  zantLisArg *argument) {
    setSized(argument, kind, bits, code);
    if (!plainText) {
        return;
    }
    NumberText text;
    formatSigned(&text, Layout{}, code);
    if (text.field.length() > kRenderedError) {
        setNativeText(arena, text.field, argument);
    }
}

void convertNarrowCharacter(Arena *arena, const Layout &layout, int32_t value, zantLisArg *argument) {
    const char character = static_cast<char>(value);
    TextField<char> field;
    field.body = &character;
    field.bodyLength = 1;
    pad(&field, layout);
    setNativeText(arena, field, argument);
}

void convertWideCharacter(Arena *arena, const Conversion &conversion, const Layout &layout, int32_t value,
                          zantLisArg *argument) {
    const wchar_t character = static_cast<wchar_t>(value);
    if (!isFormatted(conversion)) {
        argument->kind = ZANTLIS_WIDE_CHAR;
        argument->first.word = 0;
        argument->first.character = static_cast<uint16_t>(character);
        return;
    }
    TextField<wchar_t> field;
    field.body = &character;
    field.bodyLength = 1;
    pad(&field, layout);
    argument->kind = ZANTLIS_WIDE_STRING;
    argument->first.wide = storeField(arena, field);
}

// With a precision the text need not be terminated: nothing behind that many characters is looked at.
template <typename Character> size_t boundedLength(const Character *text, const Layout &layout) {
    size_t length = 0;
    while ((!layout.hasPrecision || length < layout.precision) && text[length] != 0) {
        ++length;
    }
    return length;
}

template <typename Character>
TextField<Character> stringField(const Character *text, size_t length, const Layout &layout) {
    TextField<Character> field;
    field.body = text;
    field.bodyLength = length;
    pad(&field, layout);
    return field;
}

size_t sequenceLength(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Leaves a character out that a precision has cut through.
size_t wholeUtf8Length(const char *text, size_t length) {
    for (size_t back = 1; back <= 3 && back <= length; ++back) {
        const auto byte = static_cast<unsigned char>(text[length - back]);
        if (byte >= 0x80 && byte < 0xC0) {
            continue; // behind the lead byte
        }
        return sequenceLength(text[length - back]) > back ? length - back : length;
    }
    return length;
}

size_t wholeWideLength(const wchar_t *text, size_t length) {
    const bool cutsPair = length > 0 && text[length - 1] >= 0xD800 && text[length - 1] < 0xDC00;
    return cutsPair ? length - 1 : length;
}

void convertNarrowString(Arena *arena, int32_t kind, const Layout &layout, const void *value,
                         zantLisArg *argument) {
    const char *text = value != nullptr ? static_cast<const char *>(value) : "(null)";
    size_t length = boundedLength(text, layout);
    if (kind == ZANTLIS_UTF8_STRING && layout.hasPrecision) {
        length = wholeUtf8Length(text, length);
    }
    argument->kind = kind;
    argument->first.narrow = storeField(arena, stringField(text, length, layout));
}

void convertWideString(Arena *arena, const Layout &layout, const void *value, zantLisArg *argument) {
    const wchar_t *text = value != nullptr ? static_cast<const wchar_t *>(value) : L"(null)";
    size_t length = boundedLength(text, layout);
    if (layout.hasPrecision) {
        length = wholeWideLength(text, length);
    }
    argument->kind = ZANTLIS_WIDE_STRING;
    argument->first.wide = storeField(arena, stringField(text, length, layout));
}

int32_t convertNested(Arena *arena, const void *value, zantLisArg *argument) {
    if (value == nullptr) {
        convertNarrowString(arena, ZANTLIS_NATIVE_STRING, Layout{}, nullptr, argument);
        return ZANTLIS_OK;
    }
    auto *place = static_cast<zantLis *>(arena->take(sizeof(zantLis), alignof(zantLis)));
    zantLis measured{};
    argument->kind = ZANTLIS_NESTED;
    argument->first.pointer = place;
    return copyObject(arena, static_cast<const zantLis *>(value), place != nullptr ? place : &measured);
}

int32_t takeAmount(ArgumentReader *reader, const Amount &amount) {
    return amount.source == Amount::Source::argument
               ? reader->take(amount.position, ArgumentClass::int32).int32
               : amount.value;
}

} // namespace

void convertLiteral(Arena *arena, const FormatPiece &piece, zantLisArg *argument) {
    argument->kind = ZANTLIS_NATIVE_STRING;
    auto *at = static_cast<char *>(arena->take(piece.length + 1, 1));
    argument->first.narrow = at;
    if (at == nullptr) {
        return;
    }
    for (const char *from = piece.begin; from != piece.end; ++from) {
        *at++ = *from;
        if (*from == '%') {
            ++from; // the second one of "%%"
        }
    }
    *at = '\0';
}

int32_t convertArgument(Arena *arena, const Conversion &conversion, ArgumentReader *reader, bool plainText,
                        zantLisArg *argument) {
    // In this order, which is that of the argument list.
    const int32_t width = takeAmount(reader, conversion.width);
    const int32_t precision = takeAmount(reader, conversion.precision);
    const ArgumentValue value = reader->take(conversion.position, argumentClass(conversion));
    const Layout layout = makeLayout(conversion, width, precision);
    switch (conversion.kind) {
    case ConversionKind::signedInteger:
        convertSigned(arena, conversion, layout, signedValue(conversion, value), argument);
        break;
    case ConversionKind::unsignedInteger:
        convertUnsigned(arena, conversion, layout, unsignedValue(conversion, value), plainText, argument);
        break;
    case ConversionKind::real:
        return convertReal(arena, conversion, layout, value.real, plainText, argument);
    case ConversionKind::pointer:
        convertPointer(arena, conversion, layout, value.pointer, argument);
        break;
    case ConversionKind::narrowCharacter:
        convertNarrowCharacter(arena, layout, value.int32, argument);
        break;
    case ConversionKind::wideCharacter:
        convertWideCharacter(arena, conversion, layout, value.int32, argument);
        break;
    case ConversionKind::nativeString:
        convertNarrowString(arena, ZANTLIS_NATIVE_STRING, layout, value.pointer, argument);
        break;
    case ConversionKind::utf8String:
        convertNarrowString(arena, ZANTLIS_UTF8_STRING, layout, value.pointer, argument);
        break;
    case ConversionKind::wideString:
        convertWideString(arena, layout, value.pointer, argument);
        break;
    case ConversionKind::osError:
        convertError(arena, ZANTLIS_OS_ERROR, 32, value.int32, plainText, argument);
        break;
    case ConversionKind::osErrorWide:
        convertError(arena, ZANTLIS_OS_ERROR_WIDE, 64, value.int64, plainText, argument);
        break;
    case ConversionKind::dateTime:
        argument->kind = ZANTLIS_DATE_TIME;
        argument->first.seconds = value.int64;
        break;
    case ConversionKind::nested:
        return convertNested(arena, value.pointer, argument);
    }
    return ZANTLIS_OK;
}

} // namespace zantlog::catalog
