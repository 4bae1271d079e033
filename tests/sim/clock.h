// The clock of the simulated machine. It stands still until a test or a sleep moves it.
#pragma once

#include <atomic>
#include <cstdint>

#include "tests/sim/time_zone.h"

namespace zantlog::sim {

inline constexpr int64_t kUnitsPerMillisecond = 10000; // of 100 ns
inline constexpr int64_t kUnitsPerSecond = 1000 * kUnitsPerMillisecond;

class Clock {
public:
    // In units of 100 ns since 1970-01-01 00:00 UTC.
    [[nodiscard]] int64_t now() const { return now_.load(std::memory_order_relaxed); }
    void set(int64_t units) { now_.store(units, std::memory_order_relaxed); }
    void advance(int64_t units) { now_.fetch_add(units, std::memory_order_relaxed); }

    [[nodiscard]] int64_t seconds() const { return now() / kUnitsPerSecond; }
    void setSeconds(int64_t seconds) { set(seconds * kUnitsPerSecond); }
    void advanceSeconds(int64_t seconds) { advance(seconds * kUnitsPerSecond); }

private:
    std::atomic<int64_t> now_{1763253000 * kUnitsPerSecond}; // 2025-11-16 00:30 UTC
};

Clock &clock();

// The machine's zone, which holds for processes that have no variable TZ; UTC unless a test sets another one.
// Not to be set while other threads run.
TimeZone &machineZone();

// The zone of the calling process.
TimeZone localZone();

} // namespace zantlog::sim
