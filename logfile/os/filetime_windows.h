// The system's file times as calendar times.
#pragma once

#include <cstdint>

#include <windows.h>

namespace zantlog::os {

inline constexpr int64_t kUnixEpochAsFileTime = 116444736000000000; // 1970 in 100 ns units since 1601
inline constexpr int64_t kFileTimePerSecond = 10000000;
inline constexpr int64_t kFileTimePerMillisecond = 10000;

// 100 ns units since 1970-01-01 UTC.
inline int64_t unitsSince1970(const FILETIME &time) {
    const uint64_t units = static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<int64_t>(units) - kUnixEpochAsFileTime;
}

inline int64_t secondsSince1970(const FILETIME &time) {
    return unitsSince1970(time) / kFileTimePerSecond;
}

} // namespace zantlog::os
