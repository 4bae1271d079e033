// Reading numbers and words out of texts as the runtime's scanf family does, without it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog {

// A position in a text. Every read moves past what it took; a read that fails leaves the position where it found it,
// after the white space, as scanf does.
struct Scanner {
    const char *at;

    // "%lu": optional white space and sign, decimal digits; 32 bits, saturating at 0xFFFFFFFF, negated for "-".
    [[nodiscard]] bool unsigned32(uint32_t *value, int maximumWidth = 0);
    // "%d", "%ld"
    [[nodiscard]] bool signed32(int32_t *value, int maximumWidth = 0);
    // "%I64d"
    [[nodiscard]] bool signed64(int64_t *value, int maximumWidth = 0);
    // "%<capacity - 1>s": white space, then non-blank characters, terminated.
    [[nodiscard]] bool word(char *buffer, size_t capacity);
    // A literal character of the format.
    [[nodiscard]] bool literal(char expected);
};

// Decimal conversions of the leading number of a text as strtoul/atol do it, in 32 bits: white space, sign, digits;
// 0 without digits; what follows is not looked at.
uint32_t leadingUnsigned32(const char *text);

} // namespace zantlog
