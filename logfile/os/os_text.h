// Texts in the code pages of the process. Wide text is UTF-16 in every implementation of the seam.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog::os {

// What a conversion that fails returns.
inline constexpr size_t kConversionFailed = SIZE_MAX;

// The runtime's mbstowcs() and wcstombs() in the current locale: the number of units written, without the
// terminator; a null destination asks for the number needed (in the "C" locale without a look at the
// characters: what cannot be converted shows only in the conversion). Not terminated when exactly `capacity`
// units are written.
size_t multiByteToWide(wchar_t *destination, const char *source, size_t capacity);
size_t wideToMultiByte(char *destination, const wchar_t *source, size_t capacity);

// One wide character as the runtime's "%lc" prints it into at most 16 bytes: the number of bytes, 0 for a
// character that it prints nothing for, or kConversionFailed.
size_t wideCharToMultiByte(char (&destination)[16], wchar_t character);

size_t wideLength(const wchar_t *text);

// strcoll() in the current locale.
int32_t collate(const char *left, const char *right);

// Comparison that ignores case in the multibyte code page (_mbsicmp): 0 when equal.
int32_t compareIgnoringCase(const char *left, const char *right);

// Name of the process's multibyte code page as ICU knows it ("windows-1252"); borrowed.
const char *codePageName();

// Name of the current locale of all categories; borrowed.
const char *localeName();

// Value of an environment variable, terminated, and its full length; false when it is not set. A variable set
// to the empty text is set. A value that does not fit (its length is not below the capacity) leaves the empty
// text.
[[nodiscard]] bool environmentVariable(const char *name, char *buffer, uint32_t capacity, uint32_t *length);

} // namespace zantlog::os
