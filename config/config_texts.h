// Texts that a configuration record owns.
#pragma once

#include <cstdint>

namespace zantlog {

// Copies the text, which may be the field's own, before the old one is freed. Result codes: 0; 4 out of
// memory, the field is null then.
[[nodiscard]] uint32_t replaceText(char **field, const char *text);

// Hands out a copy of a field; null for a null field. Result codes: 0; 4 out of memory, nothing is stored
// then.
[[nodiscard]] uint32_t handOutText(const char *field, char **out);

} // namespace zantlog
