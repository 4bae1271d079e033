// Texts of settings and what they are read as: rollover mode, times of day, time zones, short names,
// directories. The first line of an input holds the delimiters of a time, the rest is the text.
#include <cstring>
#include <memory>

#include "config/config_directory.h"
#include "config/rollover_time.h"
#include "tests/fuzz/directory_model.h"
#include "tests/fuzz/operations.h"
#include "tests/fuzz/scan_model.h"
#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/log_file.h"
#include "zantlog/message.h"

namespace {

using namespace zantlog;
using namespace zantlog::fuzz;

constexpr uint32_t kInvalid = 3;

bool has(const std::string &text, const char *word) {
    return text.find(word) != std::string::npos;
}

void checkMode(const std::string &text) {
    const uint32_t size = has(text, "FileSize") ? 1 : 0;
    const uint32_t time = has(text, "LocalTime") ? 2 : has(text, "Periodic") ? 4 : 0;
    requireNumber(size + time, SettingStringToRolloverModeEnum(text.c_str()), "mode of " + shown(text));
}

// The words of a mode go behind what the buffer holds, as far as there is room.
void checkModeText(const std::string &before, uint32_t mode) {
    char buffer[ZANTLOG_ROLLOVER_MODE_TEXT] = "";
    std::string expected = before.substr(0, sizeof buffer - 1);
    expected.copy(buffer, expected.size());
    const auto add = [&](const char *word, const char *separator) {
        expected += (expected.empty() ? "" : separator) + std::string(word);
    };
    if (mode == 0) {
        add("None", "");
    }
    if ((mode & 1) != 0) {
        add("FileSize", "");
    }
    if ((mode & 2) != 0) {
        add("LocalTime", " | ");
    }
    if ((mode & 4) != 0) {
        add("Periodic", " | ");
    }
    require(RolloverModeEnumToSettingString(mode, buffer) == buffer, "the buffer is what comes back");
    requireText(expected.substr(0, sizeof buffer - 1), buffer, "text of mode " + std::to_string(mode));
    if (before.empty() && mode < 6) {
        requireNumber(mode, SettingStringToRolloverModeEnum(buffer), "mode there and back");
    }
}

void checkRolloverTime(const std::string &text) {
    Rest rest{text};
    const int32_t hours = rest.signed32();
    rest.literal(':');
    const int32_t minutes = rest.signed32();
    const bool valid = !rest.failed && hours >= 0 && hours < 24 && minutes >= 0 && minutes < 60;
    int64_t seconds = -7;
    require(parseRolloverTime(text.c_str(), &seconds) == valid, "rollover time or not: " + shown(text));
    requireNumber(valid ? hours * 3600 + minutes * 60 : -7, seconds, "rollover time");
}

void checkTimeOfDay(const std::string &text, const std::string &delimiters) {
    uint32_t expected[3] = {};
    size_t at = 0;
    for (uint32_t &number : expected) {
        at = std::min(text.find_first_not_of(delimiters, at), text.size());
        const size_t end = std::min(text.find_first_of(delimiters, at), text.size());
        number = leadingNumber(text.substr(at, end - at));
        at = end;
    }
    uint32_t got[3] = {7, 7, 7};
    requireNumber(1, zantLogStrTimeToT(text.c_str(), delimiters.c_str(), &got[0], &got[1], &got[2]),
                  "result");
    for (int i = 0; i < 3; ++i) {
        requireNumber(expected[i], got[i], "number of " + shown(text) + " cut at " + shown(delimiters));
    }
    uint32_t again[3] = {7, 7, 7};
    requireNumber(1, zantLogGetTime(text.c_str(), &again[0], &again[1], &again[2]), "result with a colon");
    require(delimiters != ":" || std::memcmp(got, again, sizeof got) == 0, "a colon is the separator");
}

void checkZone(const std::string &text) {
    int32_t offset = 77;
    const uint32_t result = TimeZoneToOffset(text.c_str(), &offset);
    if (text.substr(0, 3) != "GMT") {
        requireNumber(1, result, "text of another kind");
        return requireNumber(77, offset, "offset that is not stored");
    }
    Rest rest{text.substr(3)};
    const int64_t hours = rest.signed32();
    rest.literal(':');
    const int64_t minutes = rest.signed32();
    const int64_t sum = hours * 60 + (hours >= 1 ? minutes : -minutes);
    requireNumber(0, result, "result of a zone");
    requireNumber(static_cast<int32_t>(static_cast<uint32_t>(sum * 60)), offset, "offset of " + shown(text));
}

void checkShortName(zantLogCfg &cfg, const std::string &text) {
    const std::string kept = text.substr(0, sizeof cfg.productNames - 1);
    std::memcpy(cfg.productNames, kept.c_str(), kept.size() + 1);
    std::memcpy(cfg.originatorNames, kept.c_str(), kept.size() + 1);
    const size_t end = has(kept, ",") ? kept.find(',') : kept.find(' ');
    for (const uint32_t which : {uint32_t{ZANTLOG_PRODUCT_NAMES}, 264u}) {
        char *name = nullptr;
        requireNumber(0, LogCfgGetShortNames(&cfg, which, &name), "short name");
        require((name == nullptr) == kept.empty(), "no name of no text");
        requireText(kept.substr(0, end), name != nullptr ? name : "", "short name of " + shown(kept));
        zantLogFree(name);
    }
}

void checkDirectory(zantLogCfg &cfg, const std::string &text) {
    require(isAbsolutePath(text.c_str()) == isAbsolute(text), "absolute or not: " + shown(text));
    std::string expected = cfg.logDirectory;
    for (const bool append : {false, true, true}) {
        char *position = append ? cfg.logDirectory + expected.size() : nullptr;
        const uint32_t result = zantLogCfgSetDirectory(&cfg, text.c_str(), position);
        const std::string whole = text.empty() ? "" : (append ? expected : "") + collapsed(text);
        const bool fits = !text.empty() && whole.size() < sizeof cfg.logDirectory;
        requireNumber(fits ? 0 : kInvalid, result, "directory of " + std::to_string(text.size()));
        expected = fits ? whole : expected;
        requireText(expected, cfg.logDirectory, "directory");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string input = std::string(data, data + size).c_str();
    const size_t lineEnd = input.find('\n');
    const bool twoParts = lineEnd != std::string::npos;
    const std::string delimiters = twoParts ? input.substr(0, lineEnd) : ":";
    const std::string text = twoParts ? input.substr(lineEnd + 1) : input;
    const sim::Census before = sim::takeCensus();

    checkMode(text);
    checkModeText("", static_cast<uint32_t>(size % 9));
    checkModeText(text, static_cast<uint32_t>(delimiters.size() % 9));
    checkRolloverTime(text);
    checkTimeOfDay(text, delimiters);
    checkZone(text);
    const auto cfg = std::make_unique<zantLogCfg>();
    checkShortName(*cfg, text);
    checkDirectory(*cfg, text);
    requireText("", sim::leftSince(before), "what was left behind");
    return 0;
}
