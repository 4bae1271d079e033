#include "tools/qzlogview/time_text.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "tools/common/ascii.h"
#include "tools/common/tool_error.h"
#include "zantlog/os_layer.h"

namespace zantlog::view {

namespace {

constexpr int64_t kSecond = 1000;
constexpr int64_t kMinute = 60;
constexpr int64_t kHour = 3600;
constexpr int64_t kDay = 86400;

using Days = std::chrono::sys_days;

struct Civil {
    int64_t days = 0;    // since 1970-01-01
    int64_t seconds = 0; // of the day
    int64_t milliseconds = 0;
};

int64_t floorDivide(int64_t value, int64_t by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

// Digits of a fixed number, or of any number up to the most.
bool takeDigits(std::string_view *rest, size_t least, size_t most, int64_t *value) {
    size_t count = 0;
    *value = 0;
    while (count < most && count < rest->size() && tools::isDigit((*rest)[count])) {
        *value = *value * 10 + ((*rest)[count] - '0');
        ++count;
    }
    rest->remove_prefix(count);
    return count >= least;
}

bool takeLiteral(std::string_view *rest, char literal) {
    const bool there = rest->starts_with(literal);
    rest->remove_prefix(there ? 1 : 0);
    return there;
}

[[noreturn]] void refuse(std::string_view text, const std::string &why) {
    tools::usageError("\"" + std::string(text) + "\" is no time: " + why);
}

// "2026-11-20"; false when the text begins with no date.
bool takeDate(std::string_view *rest, std::string_view whole, Civil *civil) {
    std::string_view taken = *rest;
    int64_t year = 0;
    int64_t month = 0;
    int64_t day = 0;
    if (!takeDigits(&taken, 4, 4, &year) || !takeLiteral(&taken, '-') || !takeDigits(&taken, 1, 2, &month) ||
        !takeLiteral(&taken, '-') || !takeDigits(&taken, 1, 2, &day)) {
        return false;
    }
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok()) {
        refuse(whole, "there is no such day");
    }
    civil->days = Days(date).time_since_epoch().count();
    *rest = taken;
    return true;
}

// ".25" of a second, or nothing.
bool takeFraction(std::string_view *rest, int64_t *milliseconds) {
    if (!takeLiteral(rest, '.')) {
        return true;
    }
    const size_t before = rest->size();
    if (!takeDigits(rest, 1, 3, milliseconds)) {
        return false;
    }
    for (size_t digits = before - rest->size(); digits < 3; ++digits) {
        *milliseconds *= 10;
    }
    return true;
}

// "14:03", "14:03:05", "14:03:05.250".
bool takeTimeOfDay(std::string_view *rest, std::string_view whole, Civil *civil) {
    int64_t hours = 0;
    int64_t minutes = 0;
    int64_t seconds = 0;
    if (!takeDigits(rest, 1, 2, &hours) || !takeLiteral(rest, ':') || !takeDigits(rest, 2, 2, &minutes)) {
        return false;
    }
    if (takeLiteral(rest, ':') &&
        (!takeDigits(rest, 2, 2, &seconds) || !takeFraction(rest, &civil->milliseconds))) {
        return false;
    }
    if (hours > 23 || minutes > 59 || seconds > 59) {
        refuse(whole, "a day has 24 hours, an hour 60 minutes and a minute 60 seconds");
    }
    civil->seconds = hours * kHour + minutes * kMinute + seconds;
    return true;
}

int64_t fromCivil(const Civil &civil, const Zone &zone) {
    const int64_t wall = civil.days * kDay + civil.seconds;
    if (!zone.local) {
        return (wall - zone.offset) * kSecond + civil.milliseconds;
    }
    // The offsets of the day before and after: of the two times that they make, the right one has its own
    // offset.
    const int64_t before = wall - offsetAt(zone, wall - kDay);
    const int64_t after = wall - offsetAt(zone, wall + kDay);
    const int64_t first = std::min(before, after);
    const int64_t second = std::max(before, after);
    for (const int64_t candidate : {first, second}) {
        if (candidate + offsetAt(zone, candidate) == wall) {
            return candidate * kSecond + civil.milliseconds;
        }
    }
    // The clock jumps over it: as many minutes behind the jump as it would have been.
    return second * kSecond + civil.milliseconds;
}

Civil today(int64_t now, const Zone &zone) {
    const int64_t seconds = floorDivide(now, kSecond);
    return {floorDivide(seconds + offsetAt(zone, seconds), kDay), 0, 0};
}

// "-3h"; nothing for any other text.
std::optional<int64_t> beforeNow(std::string_view text, int64_t now) {
    struct Unit {
        char name;
        int64_t seconds;
    };
    constexpr Unit kUnits[] = {{'s', 1}, {'m', kMinute}, {'h', kHour}, {'d', kDay}, {'w', 7 * kDay}};
    if (text.size() < 3 || text.front() != '-') {
        return std::nullopt;
    }
    constexpr int64_t kMost = 1000000000; // of any unit: no log is that old
    const auto count = tools::wholeNumber(text.substr(1, text.size() - 2));
    for (const Unit &unit : kUnits) {
        if (count && *count <= kMost && unit.name == text.back()) {
            return now - static_cast<int64_t>(*count) * unit.seconds * kSecond;
        }
    }
    return std::nullopt;
}

std::optional<int64_t> byWord(const std::string &word, int64_t now, const Zone &zone) {
    if (word == "now") {
        return now;
    }
    if (word == "today") {
        return fromCivil(today(now, zone), zone);
    }
    if (word == "yesterday") {
        Civil day = today(now, zone);
        --day.days;
        return fromCivil(day, zone);
    }
    return beforeNow(word, now);
}

} // namespace

std::optional<Zone> zoneFromText(std::string_view text) {
    const std::string word = tools::lowered(text);
    if (word == "local") {
        return Zone{};
    }
    if (word == "utc" || word == "z") {
        return kUtc;
    }
    std::string_view rest = text;
    const bool west = rest.starts_with('-');
    if (!takeLiteral(&rest, '-') && !takeLiteral(&rest, '+')) {
        return std::nullopt;
    }
    int64_t hours = 0;
    int64_t minutes = 0;
    if (!takeDigits(&rest, 1, 2, &hours)) {
        return std::nullopt;
    }
    const bool hasMinutes = takeLiteral(&rest, ':') || !rest.empty();
    if ((hasMinutes && !takeDigits(&rest, 2, 2, &minutes)) || !rest.empty() || minutes > 59) {
        return std::nullopt;
    }
    constexpr int64_t kFarthest = 14 * kHour;
    const int64_t offset = hours * kHour + minutes * kMinute;
    if (offset > kFarthest) {
        return std::nullopt;
    }
    return Zone{false, west ? -offset : offset};
}

int64_t timeFromText(std::string_view text, int64_t now, const Zone &zone) {
    if (const auto time = byWord(tools::lowered(text), now, zone)) {
        return *time;
    }
    Civil civil;
    std::string_view rest = text;
    const bool hasDate = takeDate(&rest, text, &civil);
    bool understood = hasDate;
    if (!hasDate || takeLiteral(&rest, ' ') || takeLiteral(&rest, 'T')) {
        understood = takeTimeOfDay(&rest, text, &civil);
    }
    (void)takeLiteral(&rest, ' ');
    const std::optional<Zone> own = rest.empty() ? zone : zoneFromText(rest);
    if (!understood || !own) {
        refuse(text,
               "write 2026-11-20, \"2026-11-20 14:03\", 14:03:05, now, today, yesterday, -90m, -3h or -2d");
    }
    if (!hasDate) {
        civil.days = today(now, *own).days;
    }
    return fromCivil(civil, *own);
}

int64_t offsetAt(const Zone &zone, int64_t seconds) {
    if (!zone.local) {
        return zone.offset;
    }
    std::tm parts = {};
    if (zantLogOs_localtime_r(&seconds, &parts) == nullptr) {
        return 0;
    }
    const std::chrono::year_month_day date(std::chrono::year(parts.tm_year + 1900),
                                           std::chrono::month(static_cast<unsigned>(parts.tm_mon + 1)),
                                           std::chrono::day(static_cast<unsigned>(parts.tm_mday)));
    const int64_t wall = Days(date).time_since_epoch().count() * kDay + parts.tm_hour * kHour +
                         parts.tm_min * kMinute + parts.tm_sec;
    return wall - seconds;
}

void TimeFormatter::append(int64_t milliseconds, std::string *out) {
    // Years of four digits; a damaged record may say anything.
    constexpr int64_t kEarliest = -62167132800000;
    constexpr int64_t kLatest = 253402214399999;
    if (milliseconds < kEarliest || milliseconds > kLatest) {
        *out += std::to_string(milliseconds) + " ms";
        return;
    }
    const int64_t minute = floorDivide(milliseconds, kMinute * kSecond);
    if (minute != minute_) {
        // Zones are ahead by whole minutes, but for some of long ago.
        const int64_t seconds = minute * kMinute;
        const int64_t wall = floorDivide(seconds + offsetAt(zone_, seconds), kMinute);
        const std::chrono::year_month_day date{Days(std::chrono::days(floorDivide(wall, kDay / kMinute)))};
        const int64_t ofDay = wall - floorDivide(wall, kDay / kMinute) * (kDay / kMinute);
        const int length =
            std::snprintf(text_, sizeof text_, "%04d-%02u-%02u %02d:%02d:", static_cast<int>(date.year()),
                          static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                          static_cast<int>(ofDay / 60), static_cast<int>(ofDay % 60));
        length_ = static_cast<size_t>(length);
        minute_ = minute;
    }
    const int64_t rest = milliseconds - minute * kMinute * kSecond;
    const auto digit = [](int64_t value) { return static_cast<char>('0' + value % 10); };
    const char behind[] = {digit(rest / 10000), digit(rest / 1000), '.',
                           digit(rest / 100),   digit(rest / 10),   digit(rest)};
    out->append(text_, length_);
    out->append(behind, sizeof behind);
}

} // namespace zantlog::view
