#include "catalog/text_field.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace zantlog::catalog {

namespace {

void setPrefix(NumberText *text, const char *prefix, size_t length) {
    std::memcpy(text->prefix, prefix, length);
    text->field.prefix = text->prefix;
    text->field.prefixLength = length;
}

const char *signOf(const Layout &layout, bool negative) {
    if (negative) {
        return "-";
    }
    return layout.plus ? "+" : layout.blank ? " " : "";
}

// The flag "0": the width is filled with zeros, behind the sign.
void fillWithZeros(TextField<char> *field, const Layout &layout) {
    const size_t length = field->length();
    if (layout.zero && !layout.left && layout.width > length) {
        field->zeros += layout.width - length;
    }
}

void writeDigits(NumberText *text, uint64_t magnitude, int base, bool upperCase) {
    char *begin = text->digits;
    char *end = std::to_chars(begin, begin + sizeof text->digits, magnitude, base).ptr;
    if (upperCase) {
        std::transform(begin, end, begin, [](char digit) {
            return digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
        });
    }
    text->field.body = begin;
    text->field.bodyLength = static_cast<size_t>(end - begin);
}

// The runtime's own digits, without sign and width.
bool printMagnitude(NumberText *text, const Layout &layout, char letter, double value) {
    char format[8] = "%";
    char *at = format + 1;
    if (layout.alternate) {
        *at++ = '#';
    }
    if (layout.hasPrecision) {
        *at++ = '.';
        *at++ = '*';
    }
    *at++ = letter;
    *at = '\0';
    const size_t capacity = sizeof text->digits;
    const double magnitude = std::fabs(value);
    const int length = layout.hasPrecision ? std::snprintf(text->digits, capacity, format,
                                                           static_cast<int>(layout.precision), magnitude)
                                           : std::snprintf(text->digits, capacity, format, magnitude);
    if (length <= 0 || static_cast<size_t>(length) >= capacity) {
        return false;
    }
    text->field.body = text->digits;
    text->field.bodyLength = static_cast<size_t>(length);
    return true;
}

} // namespace

Layout makeLayout(const Conversion &conversion, int32_t width, int32_t precision) {
    Layout layout;
    layout.left = conversion.left || width < 0;
    layout.plus = conversion.plus;
    layout.blank = conversion.blank;
    layout.alternate = conversion.alternate;
    layout.zero = conversion.zero;
    layout.width = static_cast<size_t>(width < 0 ? -static_cast<int64_t>(width) : width);
    layout.hasPrecision = conversion.precision.source != Amount::Source::absent && precision >= 0;
    layout.precision = layout.hasPrecision ? static_cast<size_t>(precision) : 0;
    return layout;
}

void formatInteger(NumberText *text, const Layout &layout, char letter, uint64_t magnitude, bool negative) {
    const bool hexadecimal = letter == 'x' || letter == 'X';
    const bool isSigned = letter == 'd' || letter == 'i';
    TextField<char> &field = text->field;
    writeDigits(text, magnitude, hexadecimal ? 16 : letter == 'o' ? 8 : 10, letter == 'X');
    if (layout.hasPrecision && layout.precision == 0 && magnitude == 0) {
        field.bodyLength = 0;
    }
    if (isSigned) {
        const char *sign = signOf(layout, negative);
        setPrefix(text, sign, std::strlen(sign));
    } else if (hexadecimal && layout.alternate && magnitude != 0) {
        setPrefix(text, letter == 'X' ? "0X" : "0x", 2);
    }
    if (layout.precision > field.bodyLength) {
        field.zeros = layout.precision - field.bodyLength;
    }
    if (letter == 'o' && layout.alternate && field.zeros == 0 && (magnitude != 0 || field.bodyLength == 0)) {
        field.zeros = 1;
    }
    if (!layout.hasPrecision) {
        fillWithZeros(&field, layout);
    }
    pad(&field, layout);
}

bool formatReal(NumberText *text, const Layout &layout, char letter, double value) {
    if (layout.precision > size_t{kMaximumRealPrecision} || !printMagnitude(text, layout, letter, value)) {
        return false;
    }
    char prefix[4];
    const char *sign = signOf(layout, std::signbit(value));
    size_t prefixLength = std::strlen(sign);
    std::copy_n(sign, prefixLength, prefix);
    if ((letter == 'a' || letter == 'A') && std::isfinite(value)) { // zeros go behind the "0x"
        prefix[prefixLength++] = text->digits[0];
        prefix[prefixLength++] = text->digits[1];
        text->field.body += 2;
        text->field.bodyLength -= 2;
    }
    setPrefix(text, prefix, prefixLength);
    if (std::isfinite(value)) {
        fillWithZeros(&text->field, layout);
    }
    pad(&text->field, layout);
    return true;
}

void formatPointer(NumberText *text, const Layout &layout, const void *value) {
    writeDigits(text, reinterpret_cast<uintptr_t>(value), 16, false);
    setPrefix(text, "0x", 2);
    if (layout.precision > text->field.bodyLength) {
        text->field.zeros = layout.precision - text->field.bodyLength;
    }
    if (!layout.hasPrecision) {
        fillWithZeros(&text->field, layout);
    }
    pad(&text->field, layout);
}

} // namespace zantlog::catalog
