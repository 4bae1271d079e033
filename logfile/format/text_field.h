// Pieces of a record line: numbers, and texts with their length before them.
#pragma once

#include <charconv>

#include "logfile/format/text_message.h"

namespace zantlog {

// Digits of a number in decimal.
inline size_t decimalLength(uint64_t value) {
    size_t length = 1;
    for (;;) {
        if (value < 10) {
            return length;
        }
        if (value < 100) {
            return length + 1;
        }
        if (value < 1000) {
            return length + 2;
        }
        if (value < 10000) {
            return length + 3;
        }
        value /= 10000;
        length += 4;
    }
}

// Writes a number in decimal where there is room for it; returns the end.
template <typename Number> char *putDecimal(char *at, Number value) {
    constexpr ptrdiff_t kMostDigits = 20; // with the sign
    return std::to_chars(at, at + kMostDigits, value).ptr;
}

// "<number>" and a closing character. False when memory is short.
[[nodiscard]] bool appendSigned(text_msg *buffer, int64_t value, char closing);
[[nodiscard]] bool appendUnsigned(text_msg *buffer, uint64_t value, char closing);

// "<length>:", behind a code letter unless that is 0, and room for the bytes and one closing character;
// returns where the bytes go, null when memory is short.
[[nodiscard]] char *openCounted(text_msg *buffer, char code, size_t length);

// "<length>:<bytes>,": a text of the record as UTF-8. A text that cannot be converted is replaced by a fixed
// one. Result codes: 0; 4 out of memory.
[[nodiscard]] uint32_t appendTextField(text_msg *buffer, const char *text, bool isUtf8);

} // namespace zantlog
