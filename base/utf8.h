// Conversions between UTF-8, UTF-16 and the process's code page.
#pragma once

#include "base/owned_text.h"

namespace zantlog {

// UTF-16 to UTF-8 into a buffer, terminated when there is room: *length is the length without terminator,
// also when it exceeds the capacity (then nothing useful is in the buffer; a null buffer with capacity 0
// measures). False for a lone surrogate.
[[nodiscard]] bool encodeUtf8(const wchar_t *text, size_t textLength, char *buffer, size_t capacity,
                              size_t *length);

// UTF-8 to UTF-16 into a buffer with room for one unit a byte and a terminator, which it gets. False for what
// is not UTF-8.
[[nodiscard]] bool decodeUtf8(const char *text, size_t bytes, wchar_t *buffer, size_t capacity,
                              size_t *length);

// UTF-16 to UTF-8 in new memory. Result codes: 0; 1 a lone surrogate; 4 out of memory.
[[nodiscard]] uint32_t utf8FromWide(const wchar_t *text, size_t textLength, OwnedText *out);

// UTF-8 to UTF-16 in new memory. Result codes: 0; 1 not UTF-8; 4 out of memory. An empty text gives an empty
// text.
[[nodiscard]] uint32_t wideFromUtf8(const char *text, OwnedWideText *out);

// Both ways between UTF-8 and the process's code page (os::codePageName()) in new memory. Result codes: 0; 1
// a text that cannot be converted without loss; 4 out of memory.
[[nodiscard]] uint32_t codePageFromUtf8(const char *text, OwnedText *out);
[[nodiscard]] uint32_t utf8FromCodePage(const char *text, OwnedText *out);

} // namespace zantlog
