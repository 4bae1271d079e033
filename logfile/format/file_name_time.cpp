// The date and time in the name of a log set file.
#include "base/scan.h"
#include "logfile/format/file_name.h"
#include "logfile/os/os_clock.h"

namespace zantlog {

namespace {

constexpr int64_t kNoTime = -1;

// The four digits of "20" and a two-character year.
bool readYear(const char (&twoDigits)[3], int32_t *year) {
    const char digits[] = {'2', '0', twoDigits[0], twoDigits[1], '\0'};
    Scanner scan{digits};
    return scan.signed32(year, 4);
}

} // namespace

int64_t parseFileNameTime(const char *text) {
    if (text == nullptr) {
        return kNoTime;
    }
    Scanner scan{text};
    char twoDigits[3] = "";
    int32_t year = 0;
    std::tm time{};
    const bool complete = scan.word(twoDigits, sizeof twoDigits) && readYear(twoDigits, &year) &&
                          scan.signed32(&time.tm_mon, 2) && scan.signed32(&time.tm_mday, 2) &&
                          scan.signed32(&time.tm_hour, 2) && scan.signed32(&time.tm_min, 2) &&
                          scan.signed32(&time.tm_sec, 2);
    if (!complete) {
        return kNoTime;
    }
    time.tm_year = year - 1900;
    time.tm_mon -= 1;
    // Kept: names made during summer time convert one hour off. Such times are compared only with each other.
    time.tm_isdst = 0;
    return os::fromLocalTime(&time);
}

} // namespace zantlog
