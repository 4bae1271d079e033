#include "tools/qzlogcfg/setting_value.h"

#include <algorithm>
#include <cstdint>

#include "tools/common/ascii.h"
#include "tools/common/tool_error.h"

namespace zantlog::tools {

namespace {

struct Unit {
    std::string_view name; // in lower case
    uint64_t factor;
};

constexpr Unit kSizes[] = {{"", 1},          {"k", 1},          {"kb", 1},          {"kib", 1},
                           {"m", 1024},      {"mb", 1024},      {"mib", 1024},      {"g", 1024 * 1024},
                           {"gb", 1048576U}, {"gib", 1048576U}, {"t", 1073741824U}, {"tb", 1073741824U}};
constexpr Unit kTimes[] = {{"", 1},   {"s", 1},    {"sec", 1},   {"min", 60},
                           {"m", 60}, {"h", 3600}, {"d", 86400}, {"w", 604800}};

[[noreturn]] void refuse(const Setting &setting, std::string_view written, const std::string &what) {
    usageError(std::string(setting.key) + " takes " + what + ", not \"" + std::string(written) + "\"");
}

std::string rangeText(const Setting &setting) {
    return "from " + std::to_string(setting.lowest) + " to " + std::to_string(setting.highest);
}

// What a number of this setting may look like.
std::string formText(const Setting &setting) {
    switch (setting.kind) {
    case SettingKind::kilobytes:
        return "a size in KB, or with a unit (512KB, 10MB, 1GB), " + rangeText(setting) + " KB";
    case SettingKind::seconds:
        return "a time in seconds, or with a unit (90s, 15min, 12h, 1d), " + rangeText(setting) + " seconds";
    case SettingKind::level:
        return "a level from 0 (none) to 6 (all)";
    default:
        return "a number " + rangeText(setting);
    }
}

template <size_t Count> std::optional<uint64_t> factorOf(const Unit (&units)[Count], std::string_view name) {
    for (const Unit &unit : units) {
        if (unit.name == name) {
            return unit.factor;
        }
    }
    return std::nullopt;
}

std::optional<uint64_t> unitOf(const Setting &setting, std::string_view name) {
    if (setting.kind == SettingKind::kilobytes) {
        return factorOf(kSizes, name);
    }
    if (setting.kind == SettingKind::seconds) {
        return factorOf(kTimes, name);
    }
    return name.empty() ? std::optional<uint64_t>(1) : std::nullopt;
}

std::string storedNumber(const Setting &setting, std::string_view written) {
    if (setting.kind == SettingKind::level) {
        const std::string word = lowered(written);
        if (word == "off" || word == "none") {
            return "0";
        }
        if (word == "all") {
            return "6";
        }
    }
    const auto digits =
        static_cast<size_t>(std::find_if_not(written.begin(), written.end(), isDigit) - written.begin());
    const std::optional<uint64_t> number = wholeNumber(written.substr(0, digits));
    std::string unit = lowered(written.substr(digits));
    unit.erase(0, unit.find_first_not_of(' ') == std::string::npos ? 0 : unit.find_first_not_of(' '));
    const std::optional<uint64_t> factor = unitOf(setting, unit);
    const bool fits = number && factor && *number <= UINT64_MAX / *factor;
    if (!fits || *number * *factor < setting.lowest || *number * *factor > setting.highest) {
        refuse(setting, written, formText(setting));
    }
    return std::to_string(*number * *factor);
}

std::optional<bool> switchOf(std::string_view written) {
    const std::string word = lowered(written);
    if (word == "true" || word == "on" || word == "yes" || word == "1") {
        return true;
    }
    if (word == "false" || word == "off" || word == "no" || word == "0") {
        return false;
    }
    return std::nullopt;
}

std::string storedSwitch(const Setting &setting, std::string_view written, const char *on, const char *off) {
    const std::optional<bool> value = switchOf(written);
    if (!value) {
        refuse(setting, written, "on or off");
    }
    return *value ? on : off;
}

uint32_t modeOfWord(std::string_view word) {
    if (word == "filesize" || word == "size") {
        return ZANTLOG_ROLLOVER_FILE_SIZE;
    }
    if (word == "localtime" || word == "daily" || word == "time") {
        return ZANTLOG_ROLLOVER_LOCAL_TIME;
    }
    if (word == "periodic" || word == "period") {
        return ZANTLOG_ROLLOVER_PERIODIC;
    }
    return ZANTLOG_ROLLOVER_NONE;
}

std::string modeText(uint32_t mode) {
    char buffer[ZANTLOG_ROLLOVER_MODE_TEXT] = "";
    return RolloverModeEnumToSettingString(mode, buffer);
}

// Words with anything that is no letter between them.
std::string storedMode(const Setting &setting, std::string_view written) {
    constexpr uint32_t kTimed = ZANTLOG_ROLLOVER_LOCAL_TIME | ZANTLOG_ROLLOVER_PERIODIC;
    const std::string text = lowered(written);
    const auto isLetter = [](char character) { return character >= 'a' && character <= 'z'; };
    uint32_t mode = ZANTLOG_ROLLOVER_NONE;
    size_t words = 0;
    bool none = false;
    bool wrong = false;
    for (auto begin = std::find_if(text.begin(), text.end(), isLetter); begin != text.end();) {
        const auto end = std::find_if_not(begin, text.end(), isLetter);
        const std::string word(begin, end);
        none = none || word == "none";
        wrong = wrong || (word != "none" && modeOfWord(word) == ZANTLOG_ROLLOVER_NONE);
        mode |= modeOfWord(word);
        ++words;
        begin = std::find_if(end, text.end(), isLetter);
    }
    if (words == 0 || wrong || (none && words > 1) || (mode & kTimed) == kTimed) {
        refuse(setting, written,
               "None, FileSize, LocalTime or Periodic, or FileSize and one of the other two");
    }
    return modeText(mode);
}

// "H:MM" and "HH:MM".
std::optional<std::string> timeOfDay(std::string_view written) {
    const size_t colon = written.find(':');
    if (colon == std::string_view::npos || colon > 2 || written.size() != colon + 3) {
        return std::nullopt;
    }
    const std::optional<uint64_t> hours = wholeNumber(written.substr(0, colon));
    const std::optional<uint64_t> minutes = wholeNumber(written.substr(colon + 1));
    if (!hours || !minutes || *hours > 23 || *minutes > 59) {
        return std::nullopt;
    }
    return (colon == 1 ? "0" : "") + std::string(written);
}

std::string storedText(const Setting &setting, std::string_view written) {
    if (written.size() < setting.lowest) {
        usageError(std::string(setting.key) +
                   " takes a text that is not empty; to remove the setting, use unset");
    }
    if (written.size() > setting.highest) {
        usageError(std::string(setting.key) + " takes at most " + std::to_string(setting.highest) +
                   " bytes, and this text has " + std::to_string(written.size()));
    }
    const bool control = std::any_of(written.begin(), written.end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == 0x7f;
    });
    if (control) {
        usageError(std::string(setting.key) + " takes a text without line ends and other control characters");
    }
    return std::string(written);
}

std::optional<std::string> problemOfNumber(const Setting &setting, std::string_view stored) {
    std::string_view digits = stored;
    const bool negative = !digits.empty() && digits.front() == '-';
    digits.remove_prefix(negative ? 1 : 0);
    const std::optional<uint64_t> magnitude = wholeNumber(digits);
    if (!magnitude || *magnitude > UINT32_MAX) {
        return "\"" + std::string(stored) + "\", which is no number that the library reads";
    }
    // Large numbers stand in a file as negative ones.
    const auto number = static_cast<uint32_t>(negative ? 0 - *magnitude : *magnitude);
    if (number < setting.lowest || number > setting.highest) {
        return std::to_string(number) + ", out of the range " + rangeText(setting);
    }
    return std::nullopt;
}

std::optional<std::string> problemOfMode(std::string_view stored) {
    const std::string text(stored);
    constexpr uint32_t kTimed = ZANTLOG_ROLLOVER_LOCAL_TIME | ZANTLOG_ROLLOVER_PERIODIC;
    const uint32_t mode = SettingStringToRolloverModeEnum(text.c_str());
    if (mode == ZANTLOG_ROLLOVER_NONE && text != "None") {
        return "\"" + text + "\", which reads as None";
    }
    const bool both =
        text.find("LocalTime") != std::string::npos && text.find("Periodic") != std::string::npos;
    if (both && (mode & kTimed) != 0) {
        return "\"" + text + "\", of which LocalTime counts and Periodic does not";
    }
    return std::nullopt;
}

std::optional<std::string> problemOfText(const Setting &setting, std::string_view stored) {
    if (stored.size() < setting.lowest) {
        return std::string("empty, so it does not count");
    }
    if (stored.size() > setting.highest) {
        return "longer than the " + std::to_string(setting.highest) + " bytes that the library keeps";
    }
    return std::nullopt;
}

} // namespace

std::string storedDirectory(std::string_view directory) {
    std::string text;
    for (size_t i = 0; i < directory.size();) {
        if (directory[i] != '\\') {
            text += directory[i++];
            continue;
        }
        const size_t end = std::min(directory.find_first_not_of('\\', i), directory.size());
        const size_t run = end - i;
        text.append(run == 1 ? 1 : 2 * run, '\\');
        i = end;
    }
    return text;
}

std::string storedValue(const Setting &setting, std::string_view written) {
    switch (setting.kind) {
    case SettingKind::number:
    case SettingKind::kilobytes:
    case SettingKind::seconds:
    case SettingKind::level:
        return storedNumber(setting, written);
    case SettingKind::boolean:
        return storedSwitch(setting, written, "true", "false");
    case SettingKind::onOff:
        return storedSwitch(setting, written, "ON", "OFF");
    case SettingKind::rolloverMode:
        return storedMode(setting, written);
    case SettingKind::timeOfDay:
        if (const std::optional<std::string> time = timeOfDay(written)) {
            return *time;
        }
        refuse(setting, written, "a time of day from 00:00 to 23:59");
    case SettingKind::directory:
        return storedDirectory(storedText(setting, written));
    case SettingKind::text:
    case SettingKind::securityDescriptor:
        break;
    }
    return storedText(setting, written);
}

std::optional<std::string> problemOfStoredValue(const Setting &setting, std::string_view stored) {
    switch (setting.kind) {
    case SettingKind::number:
    case SettingKind::kilobytes:
    case SettingKind::seconds:
    case SettingKind::level:
        return problemOfNumber(setting, stored);
    case SettingKind::boolean:
        if (stored != "true" && stored != "false") {
            return "\"" + std::string(stored) + "\", which is neither true nor false and reads as false";
        }
        return std::nullopt;
    case SettingKind::onOff:
        if (stored != "ON" && stored != "OFF") {
            return "\"" + std::string(stored) + "\", which is neither ON nor OFF and reads as OFF";
        }
        return std::nullopt;
    case SettingKind::rolloverMode:
        return problemOfMode(stored);
    case SettingKind::timeOfDay:
        if (!timeOfDay(stored)) {
            return "\"" + std::string(stored) + "\", which is no time of day from 00:00 to 23:59";
        }
        return std::nullopt;
    case SettingKind::text:
    case SettingKind::directory:
    case SettingKind::securityDescriptor:
        break;
    }
    return problemOfText(setting, stored);
}

} // namespace zantlog::tools
