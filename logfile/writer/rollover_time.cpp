#include "logfile/writer/rollover_time.h"

#include <algorithm>

#include "logfile/os/os_clock.h"

namespace zantlog {

namespace {

constexpr int64_t kSecondsPerDay = 86400;
constexpr int64_t kSecondsPerHour = 3600;
constexpr int64_t kSecondsPerMinute = 60;
constexpr int64_t kMostHours = 1000000; // keeps every time of day within a tm

// Start times come out of file headers, which can hold any number.
int64_t addSaturated(int64_t time, int64_t seconds) {
    int64_t sum = 0;
    if (__builtin_add_overflow(time, seconds, &sum)) {
        return seconds > 0 ? INT64_MAX : INT64_MIN;
    }
    return sum;
}

// The time of day on the local day of `start`. Kept: the daylight-saving flag stays that of `start`, so on a
// day on which the clocks change between the two the candidate is an hour off the wall clock.
bool timeOnDayOf(int64_t start, int64_t timeOfDay, int64_t *candidate) {
    std::tm local{};
    if (!os::localTime(start, &local)) {
        return false;
    }
    local.tm_sec = 0;
    local.tm_hour = static_cast<int>(std::clamp(timeOfDay / kSecondsPerHour, -kMostHours, kMostHours));
    local.tm_min = static_cast<int>(timeOfDay % kSecondsPerHour / kSecondsPerMinute);
    *candidate = os::fromLocalTime(&local);
    return true;
}

int64_t nextLocalTime(int64_t timeOfDay, int64_t start, int64_t now) {
    int64_t candidate = 0;
    if (!timeOnDayOf(start, timeOfDay, &candidate)) {
        return now; // a start that no calendar holds: only a new file can cure that
    }
    if (now < candidate) {
        return candidate;
    }
    const bool begunAfterIt = candidate <= start;
    const bool withinADay = now < addSaturated(start, kSecondsPerDay);
    return withinADay && begunAfterIt ? addSaturated(candidate, kSecondsPerDay) : now;
}

} // namespace

int64_t nextRolloverTime(const RolloverSchedule &schedule, int64_t start, int64_t now) {
    if ((schedule.mode & ZANTLOG_ROLLOVER_LOCAL_TIME) != 0) {
        return nextLocalTime(schedule.timeOfDay, start, now);
    }
    // A period that is not positive would make every new file due at once.
    return schedule.period > 0 ? addSaturated(start, schedule.period) : kNoRolloverTime;
}

} // namespace zantlog
