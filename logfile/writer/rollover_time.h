// When a log file that rolls over by the clock is due.
#pragma once

#include <cstdint>

#include "zantlog/config.h"

namespace zantlog {

inline bool usesClock(uint32_t rolloverMode) {
    return (rolloverMode & (ZANTLOG_ROLLOVER_LOCAL_TIME | ZANTLOG_ROLLOVER_PERIODIC)) != 0;
}

struct RolloverSchedule {
    uint32_t mode;     // one that uses the clock
    int64_t timeOfDay; // seconds after local midnight
    int64_t period;    // seconds
};

// Later than every clock.
inline constexpr int64_t kNoRolloverTime = INT64_MAX;

// The time, in seconds since 1970, from which a file that was begun at `start` is due, seen at `now`.
int64_t nextRolloverTime(const RolloverSchedule &schedule, int64_t start, int64_t now);

} // namespace zantlog
