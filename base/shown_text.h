// Text for people to read: what the code page does not have is shown as "?", so that nothing fails.
#pragma once

#include <cstddef>

#include "base/owned_text.h"

namespace zantlog {

// Result codes: 0; 1 the code page has no converter, or the text is too long; 4 out of memory. The text that
// is given need not be terminated, and need not be well-formed.
[[nodiscard]] uint32_t shownInCodePage(const char *utf8, size_t bytes, OwnedText *out, size_t *length);
[[nodiscard]] uint32_t shownInCodePage(const wchar_t *wide, size_t units, OwnedText *out, size_t *length);

} // namespace zantlog
