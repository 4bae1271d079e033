// Calendar time and the local time zone.
#pragma once

#include <cstdint>
#include <ctime>

namespace zantlog::os {

// Seconds since 1970-01-01 00:00 UTC.
int64_t nowSeconds();

// Milliseconds since 1970-01-01 00:00 UTC.
uint64_t nowMilliseconds();

// False when the time cannot be broken down.
[[nodiscard]] bool localTime(int64_t time, std::tm *out);
[[nodiscard]] bool utcTime(int64_t time, std::tm *out);

// Seconds since 1970 of a local time; tm_isdst as for mktime. Normalises the fields; -1 when it cannot be
// represented.
int64_t fromLocalTime(std::tm *time);

// Local date and time as the runtime's asctime() and wcsftime("%c") put it. False, and nothing stored, when
// it does not fit or the time cannot be expressed.
[[nodiscard]] bool formatAscTime(const std::tm &time, char (&buffer)[32]);
[[nodiscard]] bool formatLocaleTimeWide(const std::tm &time, wchar_t *buffer, uint32_t capacity);

void sleepMilliseconds(uint32_t milliseconds);

} // namespace zantlog::os
