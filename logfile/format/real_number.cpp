#include "logfile/format/real_number.h"

#include <charconv>
#include <clocale>
#include <cstring>

namespace zantlog {

namespace {

constexpr ptrdiff_t kDecimals = 6;

// Bytes that a decimal point may have beyond the usual one.
constexpr size_t kPointSpare = 15;

// Puts the locale's decimal point in the place of "."; returns the new end.
char *localisePoint(char *point, char *end) {
    const char *text = std::localeconv()->decimal_point;
    const size_t length = std::strlen(text);
    if (length == 0 || length > kPointSpare) {
        return end;
    }
    std::memmove(point + length, point + 1, static_cast<size_t>(end - point - 1));
    std::memcpy(point, text, length);
    return end + length - 1;
}

} // namespace

size_t formatReal(char (&area)[kRealNumberBytes], double value) {
    // Not snprintf: the runtimes' own ones stop at 17 digits or take heap blocks for the rest.
    char *end =
        std::to_chars(area, area + kRealNumberBytes - kPointSpare, value, std::chars_format::fixed, kDecimals)
            .ptr;
    // Infinities and what is no number have none.
    constexpr ptrdiff_t kPointBeforeEnd = kDecimals + 1;
    if (end - area > kPointBeforeEnd && *(end - kPointBeforeEnd) == '.') {
        end = localisePoint(end - kPointBeforeEnd, end);
    }
    return static_cast<size_t>(end - area);
}

} // namespace zantlog
