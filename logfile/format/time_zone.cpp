// The distance of the local time zone from UTC.
#include <cstring>

#include "base/scan.h"
#include "logfile/os/os_clock.h"
#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace {

constexpr char kGreenwich[] = "GMT";
constexpr size_t kGreenwichLength = sizeof kGreenwich - 1;

constexpr uint32_t kMinutesInHour = 60;
constexpr uint32_t kSecondsInMinute = 60;

// Wraps where hours and minutes are beyond all reason.
int32_t offsetInSeconds(int32_t hours, int32_t minutes) {
    const uint32_t hourPart = static_cast<uint32_t>(hours) * kMinutesInHour;
    const auto minutePart = static_cast<uint32_t>(minutes);
    // Kept: the sign of the hours is that of the minutes, and hour 0 counts as west ("GMT+0:30" is -1800).
    const uint32_t offset = hours >= 1 ? hourPart + minutePart : hourPart - minutePart;
    return static_cast<int32_t>(offset * kSecondsInMinute);
}

} // namespace

int32_t getLocalTZOffsetFromGMT(void) {
    const int64_t now = zantlog::os::nowSeconds();
    std::tm broken{};
    if (!zantlog::os::utcTime(now, &broken)) {
        return 0;
    }
    broken.tm_isdst = -1;
    const int64_t asIfLocal = zantlog::os::fromLocalTime(&broken);
    return asIfLocal != -1 ? static_cast<int32_t>(asIfLocal - now) : 0;
}

uint32_t TimeZoneToOffset(const char *text, int32_t *out) {
    if (text == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (std::strncmp(text, kGreenwich, kGreenwichLength) != 0) {
        return ZANTLOG_FAILURE;
    }
    int32_t hours = 0;
    int32_t minutes = 0;
    zantlog::Scanner scan{text + kGreenwichLength};
    // What is missing stays 0, so a bare "GMT" is 0 too.
    static_cast<void>(scan.signed32(&hours) && scan.literal(':') && scan.signed32(&minutes));
    *out = offsetInSeconds(hours, minutes);
    return ZANTLOG_OK;
}
