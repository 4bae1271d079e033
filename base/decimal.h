// Decimal digits, without the runtime's formatter.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog {

inline constexpr size_t kDecimalDigits = 21; // "-9223372036854775808" and a byte to spare

// Writes the digits right-aligned and returns the first one; the text ends at area + kDecimalDigits, without
// terminator.
inline char *formatUnsigned(char (&area)[kDecimalDigits], uint64_t value) {
    char *at = area + kDecimalDigits;
    do {
        *--at = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    return at;
}

inline char *formatSigned(char (&area)[kDecimalDigits], int64_t value) {
    const auto magnitude = static_cast<uint64_t>(value);
    if (value >= 0) {
        return formatUnsigned(area, magnitude);
    }
    char *at = formatUnsigned(area, ~magnitude + 1);
    *--at = '-';
    return at;
}

} // namespace zantlog
