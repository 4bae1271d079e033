// Calendar time and the local time zone.
#include "logfile/os/os_clock.h"

#include <cstdio>

#include "tests/sim/clock.h"
#include "tests/sim/faults.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

constexpr const char *kWeekdays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr const char *kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

bool within(int value, int least, int most) {
    return value >= least && value <= most;
}

bool isExpressible(const std::tm &time) {
    return within(time.tm_year, -1900, 8099) && within(time.tm_mon, 0, 11) && within(time.tm_mday, 1, 31) &&
           within(time.tm_hour, 0, 23) && within(time.tm_min, 0, 59) && within(time.tm_sec, 0, 59) &&
           within(time.tm_wday, 0, 6) && within(time.tm_yday, 0, 365);
}

} // namespace

int64_t nowSeconds() {
    return sim::clock().seconds();
}

uint64_t nowMilliseconds() {
    return static_cast<uint64_t>(sim::clock().now() / sim::kUnitsPerMillisecond);
}

bool localTime(int64_t time, std::tm *out) {
    return sim::breakDownLocal(sim::localZone(), time, out);
}

bool utcTime(int64_t time, std::tm *out) {
    return sim::breakDownUtc(time, out);
}

int64_t fromLocalTime(std::tm *time) {
    return sim::composeLocal(sim::localZone(), time);
}

bool formatAscTime(const std::tm &time, char (&buffer)[32]) {
    if (!isExpressible(time)) {
        return false;
    }
    std::snprintf(buffer, sizeof(buffer), "%s %s %02d %02d:%02d:%02d %d\n", kWeekdays[time.tm_wday],
                  kMonths[time.tm_mon], time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec,
                  1900 + time.tm_year);
    return true;
}

bool formatLocaleTimeWide(const std::tm &time, wchar_t *buffer, uint32_t capacity) {
    if (!isExpressible(time)) {
        return false;
    }
    char narrow[32];
    const int length =
        std::snprintf(narrow, sizeof(narrow), "%02d/%02d/%02d %02d:%02d:%02d", time.tm_mon + 1, time.tm_mday,
                      time.tm_year % 100, time.tm_hour, time.tm_min, time.tm_sec);
    if (static_cast<uint32_t>(length) >= capacity) {
        return false;
    }
    for (int i = 0; i <= length; ++i) {
        buffer[i] = static_cast<wchar_t>(narrow[i]);
    }
    return true;
}

void sleepMilliseconds(uint32_t milliseconds) {
    sim::enter(sim::Call::Sleep);
    sim::sleepFor(milliseconds);
}

} // namespace zantlog::os
