// How a formatted conversion is laid out as text: padding, sign or prefix, zeros, body, padding.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "catalog/format_parser.h"

namespace zantlog::catalog {

// Flags, width and precision of one conversion, with the arguments of "*" filled in.
struct Layout {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    bool hasPrecision = false;
    size_t width = 0;
    size_t precision = 0;
};

// A negative width means "-" and its magnitude, a negative precision none.
[[nodiscard]] Layout makeLayout(const Conversion &conversion, int32_t width, int32_t precision);

template <typename Character> struct TextField {
    size_t before = 0; // blanks
    const Character *prefix = nullptr;
    size_t prefixLength = 0;
    size_t zeros = 0;
    const Character *body = nullptr;
    size_t bodyLength = 0;
    size_t after = 0; // blanks

    [[nodiscard]] size_t length() const { return before + prefixLength + zeros + bodyLength + after; }

    // Writes length() characters and a terminator.
    void write(Character *at) const {
        at = std::fill_n(at, before, static_cast<Character>(' '));
        at = std::copy_n(prefix, prefixLength, at);
        at = std::fill_n(at, zeros, static_cast<Character>('0'));
        at = std::copy_n(body, bodyLength, at);
        at = std::fill_n(at, after, static_cast<Character>(' '));
        *at = 0;
    }
};

// Puts blanks around what the field holds, up to the layout's width.
template <typename Character> void pad(TextField<Character> *field, const Layout &layout) {
    const size_t length = field->length();
    const size_t missing = layout.width > length ? layout.width - length : 0;
    (layout.left ? field->after : field->before) = missing;
}

// A number as text; the field's pointers lead into it.
struct NumberText {
    NumberText() = default;
    NumberText(const NumberText &) = delete;
    NumberText &operator=(const NumberText &) = delete;

    char prefix[4];
    char digits[1536];
    TextField<char> field;
};

// Letter: d i u x X o.
void formatInteger(NumberText *text, const Layout &layout, char letter, uint64_t magnitude, bool negative);
// Letter: f F e E g G a A. False for a precision above kMaximumRealPrecision.
[[nodiscard]] bool formatReal(NumberText *text, const Layout &layout, char letter, double value);
// As addresses look in rendered messages: "0x1f".
void formatPointer(NumberText *text, const Layout &layout, const void *value);

} // namespace zantlog::catalog
