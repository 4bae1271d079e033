// Calendar time and the local time zone.
#include "logfile/os/os_clock.h"

#include "logfile/os/filetime_windows.h"

#include <cwchar>

namespace zantlog::os {

namespace {

constexpr size_t kAscTimeLength = 26; // "Sun Nov 16 00:26:40 2025\n" and its terminator

int64_t unitsNow() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return unitsSince1970(now);
}

bool within(int value, int least, int most) {
    return value >= least && value <= most;
}

// The runtime's formatters call its invalid-parameter handler for anything else.
bool isExpressible(const std::tm &time) {
    return within(time.tm_year, -1900, 8099) && within(time.tm_mon, 0, 11) && within(time.tm_mday, 1, 31) &&
           within(time.tm_hour, 0, 23) && within(time.tm_min, 0, 59) && within(time.tm_sec, 0, 59) &&
           within(time.tm_wday, 0, 6) && within(time.tm_yday, 0, 365);
}

} // namespace

int64_t nowSeconds() {
    return unitsNow() / kFileTimePerSecond;
}

uint64_t nowMilliseconds() {
    return static_cast<uint64_t>(unitsNow() / kFileTimePerMillisecond);
}

bool localTime(int64_t time, std::tm *out) {
    const __time64_t value = time;
    return _localtime64_s(out, &value) == 0;
}

bool utcTime(int64_t time, std::tm *out) {
    const __time64_t value = time;
    return _gmtime64_s(out, &value) == 0;
}

int64_t fromLocalTime(std::tm *time) {
    return _mktime64(time);
}

bool formatAscTime(const std::tm &time, char (&buffer)[32]) {
    static_assert(sizeof(buffer) >= kAscTimeLength);
    return isExpressible(time) && asctime_s(buffer, sizeof(buffer), &time) == 0;
}

bool formatLocaleTimeWide(const std::tm &time, wchar_t *buffer, uint32_t capacity) {
    if (!isExpressible(time)) {
        return false;
    }
    // Not every runtime counts the terminator towards what must fit.
    const size_t length = wcsftime(buffer, capacity, L"%c", &time);
    return length != 0 && length < capacity;
}

void sleepMilliseconds(uint32_t milliseconds) {
    Sleep(milliseconds);
}

} // namespace zantlog::os
