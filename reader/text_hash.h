// The hash of the library's tables, for texts in pieces.
#pragma once

#include <cstdint>

namespace zantlog {

// Goes on with a hash: the hash of a text that follows another one begins with that one's; the first begins
// with 0. HashString() is this hash, modulo something.
uint32_t hashOn(uint32_t hash, const char *text);

} // namespace zantlog
