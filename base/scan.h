// Reading numbers and words out of texts as the runtime's scanf family does, without it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog {

// A position in a text. Every read moves past what it took; a read that fails leaves the position where it
// found it, after the white space, as scanf does.
struct Scanner {
    const char *at;

    // "%lu": optional white space and sign, decimal digits; 32 bits, negated for "-"; 0xFFFFFFFF when the
    // digits say more, with either sign. A width counts sign and digits; 0 is no limit.
    [[nodiscard]] bool unsigned32(uint32_t *value, int maximumWidth = 0);
    // "%d", "%ld", the nearest number of 32 bits when the digits say more.
    [[nodiscard]] bool signed32(int32_t *value, int maximumWidth = 0);
    // "%I64d", the nearest number of 64 bits when the digits say more.
    [[nodiscard]] bool signed64(int64_t *value, int maximumWidth = 0);
    // "%<capacity - 1>s": white space, then non-blank characters, terminated. The buffer is untouched at the
    // end of the text.
    [[nodiscard]] bool word(char *buffer, size_t capacity);
    // A literal character of the format.
    [[nodiscard]] bool literal(char expected);
};

// Decimal conversions of the leading number of a text as strtoul/atol do it, in 32 bits: white space, sign,
// digits; 0 without digits; what follows is not looked at.
uint32_t leadingUnsigned32(const char *text);

} // namespace zantlog
