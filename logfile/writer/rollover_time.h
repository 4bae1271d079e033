// When a log file that rolls over by the clock is due.
#pragma once

#include <cstdint>

namespace zantlog {

struct RolloverSchedule {
    uint32_t mode;
    int64_t timeOfDay; // seconds after local midnight
    int64_t period;    // seconds
};

// Later than every clock.
inline constexpr int64_t kNoRolloverTime = INT64_MAX;

// The time, in seconds since 1970, from which a file that was begun at `start` is due, seen at `now`.
int64_t nextRolloverTime(const RolloverSchedule &schedule, int64_t start, int64_t now);

} // namespace zantlog
