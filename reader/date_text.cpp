// Dates and times of day as users write them.
#include <cstring>

#include "base/owned_text.h"
#include "logfile/os/os_clock.h"
#include "zantlog/config_store.h"
#include "zantlog/discovery.h"
#include "zantlog/log_file.h"

namespace zantlog {

namespace {

constexpr int64_t kNoTime = -1;

// "2026-11-21", and what follows a first ":" does not count.
[[nodiscard]] bool readDate(const char *text, std::tm *time) {
    const OwnedText date = copyText(text);
    if (date == nullptr) {
        return false;
    }
    date.get()[std::strcspn(date.get(), ":")] = '\0';
    int32_t day = 0;
    int32_t month = 0;
    int32_t year = 0;
    if (zantLogGetDate(date.get(), &day, &month, &year) == 0) {
        return false;
    }
    time->tm_mday = day;
    time->tm_mon = month;
    time->tm_year = year;
    time->tm_hour = 0;
    time->tm_min = 0;
    time->tm_sec = 0;
    return true;
}

// "10:30:15", on the day that `time` says.
[[nodiscard]] bool readTimeOfDay(const char *text, std::tm *time) {
    uint32_t hours = 0;
    uint32_t minutes = 0;
    uint32_t seconds = 0;
    if (zantLogGetTime(text, &hours, &minutes, &seconds) == 0) {
        return false;
    }
    time->tm_hour = static_cast<int>(hours);
    time->tm_min = static_cast<int>(minutes);
    time->tm_sec = static_cast<int>(seconds);
    return true;
}

} // namespace

} // namespace zantlog

extern "C" int32_t zantLogGetDate(const char *text, int32_t *day, int32_t *month, int32_t *year) {
    if (day == nullptr || month == nullptr || year == nullptr) {
        return 0;
    }
    uint32_t parts[3];
    if (zantLogStrTimeToT(text, "-", &parts[0], &parts[1], &parts[2]) == 0) {
        return 0;
    }
    *year = static_cast<int32_t>(parts[0] - 1900);
    *month = static_cast<int32_t>(parts[1] - 1);
    *day = static_cast<int32_t>(parts[2]);
    return 1;
}

extern "C" int64_t zantLogStrDateTimeToT(const char *text) {
    using namespace zantlog;
    std::tm time{};
    if (text == nullptr || !os::localTime(os::nowSeconds(), &time)) {
        return kNoTime;
    }
    bool known = false;
    if (std::strchr(text, '-') != nullptr) {
        known = readDate(text, &time);
    } else if (std::strchr(text, ':') != nullptr) {
        known = readTimeOfDay(text, &time);
    }
    if (!known) {
        return kNoTime;
    }
    // Kept: a time in summer is taken one hour off, as those in log set file names are.
    time.tm_isdst = 0;
    return os::fromLocalTime(&time);
}
