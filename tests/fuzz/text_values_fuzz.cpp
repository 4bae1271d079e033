// Any text is read as a rollover mode, a time of day, a time zone and a number.
#include <optional>

#include "base/scan.h"
#include "config/rollover_time.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/log_file.h"

namespace {

using namespace zantlog;

// What the runtime's scanf("%d") takes, without it: the position behind it, or none.
std::optional<size_t> scanNumber(const std::string &text, size_t at, int64_t *value) {
    while (at < text.size() && (text[at] == ' ' || (text[at] >= '\t' && text[at] <= '\r'))) {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        ++at;
    }
    const size_t first = at;
    int64_t number = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        if (number < 100000000000) {
            number = number * 10 + (text[at] - '0');
        }
    }
    if (at == first) {
        return std::nullopt;
    }
    *value = negative ? -number : number;
    return at;
}

std::optional<int64_t> timeOfDay(const std::string &text) {
    int64_t hours = 0;
    int64_t minutes = 0;
    const auto afterHours = scanNumber(text, 0, &hours);
    if (!afterHours || *afterHours >= text.size() || text[*afterHours] != ':' ||
        !scanNumber(text, *afterHours + 1, &minutes)) {
        return std::nullopt;
    }
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) {
        return std::nullopt;
    }
    return hours * 3600 + minutes * 60;
}

void readTimeOfDay(const std::string &text) {
    int64_t seconds = -7;
    const bool read = parseRolloverTime(text.c_str(), &seconds);
    const auto expected = timeOfDay(text);
    fuzz::expectEqual(read, expected.has_value(), "a time of day, or not");
    fuzz::expectEqual(seconds, expected.value_or(-7), "its seconds, or nothing stored");
}

void readMode(const std::string &text) {
    const auto holds = [&text](const char *word) { return text.find(word) != std::string::npos; };
    uint32_t expected = holds("FileSize") ? ZANTLOG_ROLLOVER_FILE_SIZE : 0;
    expected |= holds("LocalTime")  ? ZANTLOG_ROLLOVER_LOCAL_TIME
                : holds("Periodic") ? ZANTLOG_ROLLOVER_PERIODIC
                                    : 0;
    fuzz::expectEqual(SettingStringToRolloverModeEnum(text.c_str()), expected, "mode");

    // It is appended to what the buffer holds, as far as there is room.
    char buffer[ZANTLOG_ROLLOVER_MODE_TEXT] = {};
    const std::string before = text.substr(0, sizeof buffer - 1);
    before.copy(buffer, before.size());
    fuzz::expect(RolloverModeEnumToSettingString(expected, buffer) == buffer, "the buffer is handed back");
    const std::string after(buffer, strnlen(buffer, sizeof buffer));
    fuzz::expect(after.size() < sizeof buffer, "the text is terminated");
    fuzz::expectEqual(after.substr(0, before.size()), before, "what was there stays");
    char own[ZANTLOG_ROLLOVER_MODE_TEXT] = {};
    fuzz::expectEqual(SettingStringToRolloverModeEnum(RolloverModeEnumToSettingString(expected, own)),
                      expected, "a mode's own text is that mode");
}

void readNumbers(const std::string &text, const std::string &delimiters) {
    uint32_t numbers[3] = {7, 7, 7};
    fuzz::expectEqual(
        zantLogStrTimeToT(text.c_str(), delimiters.c_str(), &numbers[0], &numbers[1], &numbers[2]), 1,
        "any text has three numbers");
    size_t at = 0;
    for (const uint32_t number : numbers) {
        at = std::min(text.find_first_not_of(delimiters, at), text.size());
        const size_t end = std::min(text.find_first_of(delimiters, at), text.size());
        fuzz::expectEqual(number, leadingUnsigned32(text.substr(at, end - at).c_str()), "the piece's number");
        at = end;
    }
}

void readZone(const std::string &text) {
    int32_t offset = 77;
    const uint32_t result = TimeZoneToOffset(text.c_str(), &offset);
    const bool greenwich = text.compare(0, 3, "GMT") == 0;
    fuzz::expectEqual(result, greenwich ? 0 : 1, "a zone begins with GMT");
    fuzz::expect(greenwich || offset == 77, "nothing is stored for another text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const std::string delimiters = input.below(2) == 0 ? ":" : input.text().substr(0, 4);
    const std::string rest = input.rest();
    const std::string text = rest.substr(0, rest.find('\0'));
    readTimeOfDay(text);
    readMode(text);
    readNumbers(text, delimiters);
    readZone(text);
    return 0;
}
