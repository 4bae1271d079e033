// Times as people write and read them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zantlog::view {

// Where times are local: this machine's zone, or a fixed offset.
struct Zone {
    bool local = true;
    int64_t offset = 0; // of a fixed zone: seconds that local time is ahead of UTC

    bool operator==(const Zone &) const = default;
};

inline constexpr Zone kUtc = {false, 0};

// "local", "utc", "Z", "+01:00", "-0530", "+1".
std::optional<Zone> zoneFromText(std::string_view text);

// Milliseconds since 1970-01-01 00:00 UTC of a time that is written as a date, with a time of day or without
// ("2026-11-20", "2026-11-20 14:03", "2026-11-20T14:03:05.250"), as a time of today ("14:03:05"), as "now",
// "today" or "yesterday", or as a time before now ("-90m", "-3h", "-2d", "-1w"). A zone may stand behind a
// date and time ("Z",
// "+01:00"); else the given one counts. A local time that comes twice is the first of the two; one that does
// not come is as much later as the clock jumps. A usage error says what is wrong with a text that is none of
// these.
int64_t timeFromText(std::string_view text, int64_t now, const Zone &zone);

// Seconds that local time is ahead of UTC at a time in seconds.
int64_t offsetAt(const Zone &zone, int64_t seconds);

// Writes times as "2026-11-20 14:03:05.250". Keeps what it knows of the last minute, since records come in
// the order of their times.
class TimeFormatter {
public:
    explicit TimeFormatter(const Zone &zone) : zone_(zone) {}
    void append(int64_t milliseconds, std::string *out);

private:
    Zone zone_;
    int64_t minute_ = INT64_MIN; // of `text_`, since 1970
    char text_[32] = {};         // up to the minute
    size_t length_ = 0;
};

} // namespace zantlog::view
