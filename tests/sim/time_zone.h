// Time zones with daylight saving on either half of the earth, and calendar arithmetic as Windows' runtime
// does it.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace zantlog::sim {

// A day like "the last Sunday in March", and a time of that day by the clock that is then in force.
struct ClockChange {
    int month = 1;            // 1 to 12
    int week = 1;             // 1 to 4; 5: the last one
    int weekday = 0;          // 0: Sunday
    int32_t timeOfDay = 7200; // seconds
};

struct TimeZone {
    int32_t bias = 0; // seconds, UTC minus standard time: east is negative
    bool hasDaylightSaving = false;
    int32_t saving = 3600; // seconds
    ClockChange toDaylight;
    ClockChange toStandard; // before the other one in the year on the southern half
};

TimeZone centralEurope();    // CET and CEST, from the last Sunday in March to the last one in October
TimeZone easternAustralia(); // AEST and AEDT, from the first Sunday in October to the first one in April

// A text as the variable TZ has it, "CET-1CEST": without rules behind it, those of North America hold, as the
// runtime has it; "CET-1CEST,M3.5.0,M10.5.0/3" names its own. None when it cannot be understood.
std::optional<TimeZone> timeZoneFromText(const std::string &text);

// Days since 1970-01-01 of a date; the month may be any number, 0 being January.
int64_t daysOfDate(int64_t year, int64_t month, int64_t day);

// As _gmtime64_s(), _localtime64_s() and _mktime64(): false, or -1, outside the times that the runtime knows.
bool breakDownUtc(int64_t time, std::tm *out);
bool breakDownLocal(const TimeZone &zone, int64_t time, std::tm *out);
int64_t composeLocal(const TimeZone &zone, std::tm *time);

} // namespace zantlog::sim
