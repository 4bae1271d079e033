#include "tests/sim/time_zone.h"

#include <cctype>
#include <cstdlib>

namespace zantlog::sim {

namespace {

constexpr int64_t kSecondsPerDay = 86400;
// The bounds of Windows' runtime; Wine's knows times before 1970 as well.
constexpr int64_t kLatestTime = 32535215999; // the end of the year 3000
constexpr int64_t kUtcBefore = 12 * 3600;    // so far the zones reach beyond either bound
constexpr int64_t kUtcAfter = 13 * 3600;
constexpr int kFirstYear = 69; // of tm_year in _mktime64(), whose result decides in the end
constexpr int kLastYear = 1101;

int64_t floorDivide(int64_t value, int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

struct Date {
    int64_t year;
    int month; // 0 to 11
    int day;
};

Date dateOfDays(int64_t days) {
    int64_t year = 1970 + floorDivide(days, 365);
    while (daysOfDate(year, 0, 1) > days) {
        --year;
    }
    while (daysOfDate(year + 1, 0, 1) <= days) {
        ++year;
    }
    int month = 0;
    while (month < 11 && daysOfDate(year, month + 1, 1) <= days) {
        ++month;
    }
    return {year, month, static_cast<int>(days - daysOfDate(year, month, 1)) + 1};
}

int weekdayOf(int64_t days) {
    return static_cast<int>(((days + 4) % 7 + 7) % 7); // the first of January 1970 was a Thursday
}

std::tm brokenDown(int64_t time) {
    const int64_t days = floorDivide(time, kSecondsPerDay);
    const auto second = static_cast<int>(time - days * kSecondsPerDay);
    const Date date = dateOfDays(days);
    std::tm out{};
    out.tm_year = static_cast<int>(date.year - 1900);
    out.tm_mon = date.month;
    out.tm_mday = date.day;
    out.tm_hour = second / 3600;
    out.tm_min = second / 60 % 60;
    out.tm_sec = second % 60;
    out.tm_wday = weekdayOf(days);
    out.tm_yday = static_cast<int>(days - daysOfDate(date.year, 0, 1));
    return out;
}

// The instant of a change in a year, as local time of the clock in force before it.
int64_t changeIn(int64_t year, const ClockChange &change) {
    const int64_t first = daysOfDate(year, change.month - 1, 1);
    const int64_t next = daysOfDate(year, change.month, 1);
    int64_t day = first + (change.weekday - weekdayOf(first) + 7) % 7 + 7 * (change.week - 1);
    while (day >= next) {
        day -= 7;
    }
    return day * kSecondsPerDay + change.timeOfDay;
}

bool isDaylightSaving(const TimeZone &zone, int64_t time) {
    if (!zone.hasDaylightSaving) {
        return false;
    }
    const int64_t standard = time - zone.bias;
    const int64_t year = brokenDown(standard).tm_year + 1900;
    const int64_t begin = changeIn(year, zone.toDaylight);
    const int64_t end = changeIn(year, zone.toStandard) - zone.saving;
    return begin < end ? standard >= begin && standard < end : standard >= begin || standard < end;
}

int32_t savingAt(const TimeZone &zone, int64_t time) {
    return isDaylightSaving(zone, time) ? zone.saving : 0;
}

// Reads what a TZ text is made of, from left to right.
class ZoneText {
public:
    explicit ZoneText(const std::string &text) : at_(text.c_str()) {}

    bool name() {
        const char *begin = at_;
        while (std::isalpha(static_cast<unsigned char>(*at_)) != 0) {
            ++at_;
        }
        return at_ - begin >= 3;
    }
    bool skip(char character) {
        if (*at_ != character) {
            return false;
        }
        ++at_;
        return true;
    }
    bool number(int *value) {
        if (std::isdigit(static_cast<unsigned char>(*at_)) == 0) {
            return false;
        }
        char *end = nullptr;
        *value = static_cast<int>(std::strtol(at_, &end, 10));
        at_ = end;
        return true;
    }
    bool time(int32_t *seconds) {
        const bool negative = skip('-');
        if (!negative) {
            skip('+');
        }
        int hours = 0;
        int minutes = 0;
        if (!number(&hours) || (skip(':') && !number(&minutes))) {
            return false;
        }
        *seconds = (hours * 60 + minutes) * 60 * (negative ? -1 : 1);
        return true;
    }
    bool change(ClockChange *out) {
        return skip(',') && skip('M') && number(&out->month) && skip('.') && number(&out->week) &&
               skip('.') && number(&out->weekday) && (!skip('/') || time(&out->timeOfDay));
    }
    [[nodiscard]] bool atEnd() const { return *at_ == '\0'; }
    [[nodiscard]] bool atOffset() const { return *at_ != ',' && !atEnd(); }

private:
    const char *at_;
};

// The fields' sum as if they were UTC, or nothing where a field is beyond the runtime's years.
std::optional<int64_t> sumOfFields(const std::tm &time) {
    const int64_t year = static_cast<int64_t>(time.tm_year) + floorDivide(time.tm_mon, 12);
    if (year < kFirstYear || year > kLastYear) {
        return std::nullopt;
    }
    const int64_t days =
        daysOfDate(1900 + static_cast<int64_t>(time.tm_year), time.tm_mon, 1) + time.tm_mday - 1;
    return ((days * 24 + time.tm_hour) * 60 + time.tm_min) * 60 + time.tm_sec;
}

} // namespace

int64_t daysOfDate(int64_t year, int64_t month, int64_t day) {
    year += floorDivide(month, 12);
    month -= floorDivide(month, 12) * 12;
    constexpr int kBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int64_t past = year - 1;
    const int64_t leapDays = floorDivide(past, 4) - floorDivide(past, 100) + floorDivide(past, 400) -
                             (1969 / 4 - 1969 / 100 + 1969 / 400);
    return (year - 1970) * 365 + leapDays + kBefore[month] + (leap && month > 1 ? 1 : 0) + day - 1;
}

TimeZone centralEurope() {
    return {-3600, true, 3600, {3, 5, 0, 7200}, {10, 5, 0, 10800}};
}

TimeZone easternAustralia() {
    return {-36000, true, 3600, {10, 1, 0, 7200}, {4, 1, 0, 10800}};
}

std::optional<TimeZone> timeZoneFromText(const std::string &text) {
    ZoneText rest(text);
    TimeZone zone;
    if (!rest.name() || !rest.time(&zone.bias)) {
        return std::nullopt;
    }
    if (rest.atEnd()) {
        return zone;
    }
    zone.hasDaylightSaving = true;
    zone.toDaylight = {3, 2, 0, 7200};
    zone.toStandard = {11, 1, 0, 7200};
    int32_t daylightBias = zone.bias - zone.saving;
    if (!rest.name() || (rest.atOffset() && !rest.time(&daylightBias))) {
        return std::nullopt;
    }
    zone.saving = zone.bias - daylightBias;
    if (!rest.atEnd() &&
        (!rest.change(&zone.toDaylight) || !rest.change(&zone.toStandard) || !rest.atEnd())) {
        return std::nullopt;
    }
    return zone;
}

bool breakDownUtc(int64_t time, std::tm *out) {
    if (time < -kUtcBefore || time > kLatestTime + kUtcAfter) {
        return false;
    }
    *out = brokenDown(time);
    return true;
}

bool breakDownLocal(const TimeZone &zone, int64_t time, std::tm *out) {
    if (time < 0 || time > kLatestTime) {
        return false;
    }
    const int32_t saving = savingAt(zone, time);
    *out = brokenDown(time - zone.bias + saving);
    out->tm_isdst = saving != 0 ? 1 : 0;
    return true;
}

// Windows' way: the fields are taken for standard time; if daylight saving is in force at that instant, or
// the caller says that it is, the saving is subtracted. So of an hour that comes twice the second one is
// meant, and an hour that is skipped is the one before the change.
int64_t composeLocal(const TimeZone &zone, std::tm *time) {
    const std::optional<int64_t> sum = sumOfFields(*time);
    if (!sum) {
        return -1;
    }
    int64_t instant = *sum + zone.bias;
    const bool saving = time->tm_isdst > 0 || (time->tm_isdst < 0 && isDaylightSaving(zone, instant));
    instant -= saving ? zone.saving : 0;
    std::tm normalised{};
    if (!breakDownLocal(zone, instant, &normalised)) {
        return -1;
    }
    *time = normalised;
    return instant;
}

} // namespace zantlog::sim
