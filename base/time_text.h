// Splitting of texts such as "10:30:15" into their numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zantlog {

// Cuts the text in place at the delimiters (runs of them count as one, leading ones are skipped) and converts
// the first pieces to numbers, as far as the span reaches; numbers without a piece become 0. Further pieces
// are ignored.
void splitNumbers(char *text, const char *delimiters, std::span<uint32_t> numbers);

} // namespace zantlog
