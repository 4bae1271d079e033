#include "tools/qzlogcfg/settings.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "zantlog/logging.h"

namespace zantlog::tools {

namespace {

std::string orNothing(const char *text) {
    return text == nullptr ? std::string() : text;
}

template <auto Member> std::string textOf(const zantLogCfg &cfg) {
    return orNothing(cfg.*Member);
}

template <auto Member> std::string numberOf(const zantLogCfg &cfg) {
    return std::to_string(cfg.*Member);
}

template <auto Member> std::string switchOf(const zantLogCfg &cfg) {
    return cfg.*Member != 0 ? "true" : "false";
}

template <uint32_t Flag> std::string outputOf(const zantLogCfg &cfg) {
    return (cfg.outputFlags & Flag) != 0 ? "true" : "false";
}

std::string onOffOf(const zantLogCfg &cfg) {
    return cfg.appMsgLogging != 0 ? "ON" : "OFF";
}

std::string modeOf(const zantLogCfg &cfg) {
    char buffer[ZANTLOG_ROLLOVER_MODE_TEXT] = "";
    return RolloverModeEnumToSettingString(cfg.rolloverMode, buffer);
}

std::string timeOf(const zantLogCfg &cfg) {
    const int64_t minutes = cfg.rolloverTime / 60;
    const auto twoDigits = [](int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return twoDigits(minutes / 60) + ":" + twoDigits(minutes % 60);
}

std::string sourceOf(const zantLogCfg &cfg) {
    return cfg.eventSource.name;
}

std::string categoryOf(const zantLogCfg &cfg) {
    return std::to_string(cfg.eventSource.category);
}

using Kind = SettingKind;
constexpr auto kBoth = SettingScope::both;
constexpr auto kProduct = SettingScope::product;
constexpr auto kLogSet = SettingScope::logSet;
constexpr uint32_t kLongText = 1024;
constexpr uint32_t kAnyText = UINT32_MAX;

const std::vector<Setting> &table() {
    static const std::vector<Setting> all = {
        {"LogDirectory",
         Kind::directory,
         kBoth,
         1,
         kLongText,
         {"directory", "dir"},
         "where log files go; a relative path goes below the inherited directory",
         textOf<&zantLogCfg::logDirectory>},
        {"OIDNames",
         Kind::text,
         kBoth,
         1,
         kLongText,
         {"names", "originator-names"},
         "names of the originators, separated by commas or blanks",
         textOf<&zantLogCfg::originatorNames>},
        {"L10nLib",
         Kind::text,
         kProduct,
         1,
         kAnyText,
         {"localizer"},
         "base name of the localisation library",
         textOf<&zantLogCfg::l10nLib>},
        {"L10nResource",
         Kind::text,
         kProduct,
         1,
         kAnyText,
         {"catalog"},
         "name of the message catalog",
         textOf<&zantLogCfg::l10nResource>},
        {"L10nResourceDir",
         Kind::text,
         kProduct,
         1,
         kAnyText,
         {"catalog-dir"},
         "directory of the message catalogs",
         textOf<&zantLogCfg::l10nResourceDir>},
        {"DebugLevel",
         Kind::level,
         kBoth,
         0,
         6,
         {"debug"},
         "debug messages up to this level are logged",
         numberOf<&zantLogCfg::debugLevel>},
        {"DiagnosticLevel",
         Kind::level,
         kBoth,
         0,
         6,
         {"diag", "diagnostic"},
         "diagnostic messages up to this level are logged",
         numberOf<&zantLogCfg::diagLevel>},
        {"DynaReloadInSec",
         Kind::seconds,
         kBoth,
         0,
         INT32_MAX,
         {"reload"},
         "how often running products read their levels again; 0 is never, less than 60 is 60",
         numberOf<&zantLogCfg::dynaReloadInSec>},
        {"LogToStdout",
         Kind::boolean,
         kBoth,
         0,
         1,
         {"stdout"},
         "also print messages on standard output",
         outputOf<ZANTLOG_TO_STDOUT>},
        {"LogToStderr",
         Kind::boolean,
         kBoth,
         0,
         1,
         {"stderr"},
         "also print messages on standard error",
         outputOf<ZANTLOG_TO_STDERR>},
        {"LogToOslog",
         Kind::boolean,
         kBoth,
         0,
         1,
         {"event-log"},
         "also report messages to the event log",
         outputOf<ZANTLOG_TO_EVENT_LOG>},
        {"FileName",
         Kind::text,
         kLogSet,
         1,
         kAnyText,
         {"file"},
         "base name of the log set's files",
         textOf<&zantLogCfg::logSetFileName>},
        {"AppMsgLogging",
         Kind::onOff,
         kBoth,
         0,
         1,
         {"app", "application"},
         "whether application messages are logged",
         onOffOf},
        {"OIDAppMsgLogging",
         Kind::text,
         kBoth,
         1,
         kAnyText,
         {},
         "for tools",
         textOf<&zantLogCfg::oidAppMsgLogging>},
        {"OIDDebugLogging",
         Kind::text,
         kBoth,
         1,
         kAnyText,
         {},
         "for tools",
         textOf<&zantLogCfg::oidDebugLogging>},
        {"OIDDiagLogging",
         Kind::text,
         kBoth,
         1,
         kAnyText,
         {},
         "for tools",
         textOf<&zantLogCfg::oidDiagLogging>},
        {"RolloverMode",
         Kind::rolloverMode,
         kBoth,
         0,
         0,
         {"rollover", "mode"},
         "when a new file is begun: None, FileSize, LocalTime, Periodic; size with one of the others",
         modeOf},
        {"LogRecycle",
         Kind::boolean,
         kBoth,
         0,
         1,
         {"recycle"},
         "whether a rollover deletes the oldest files above NumberOfLogFiles",
         switchOf<&zantLogCfg::logRecycle>},
        {"MaxLogFileSizeKB",
         Kind::kilobytes,
         kBoth,
         1,
         UINT32_MAX,
         {"max-size", "size"},
         "size at which mode FileSize begins a new file",
         numberOf<&zantLogCfg::maxLogFileSizeKB>},
        {"RolloverAtLocalTime",
         Kind::timeOfDay,
         kBoth,
         0,
         0,
         {"rollover-time", "at"},
         "time of day at which mode LocalTime begins a new file",
         timeOf},
        {"RolloverPeriodInSeconds",
         Kind::seconds,
         kBoth,
         1,
         UINT32_MAX,
         {"rollover-period", "period"},
         "time after which mode Periodic begins a new file",
         numberOf<&zantLogCfg::rolloverPeriod>},
        {"NumberOfLogFiles",
         Kind::number,
         kBoth,
         1,
         UINT32_MAX,
         {"files", "keep"},
         "files that recycling keeps",
         numberOf<&zantLogCfg::numberOfLogFiles>},
        {"NtEventLogSourceName",
         Kind::text,
         kBoth,
         1,
         ZANTLOG_EVENT_SOURCE_NAME - 1,
         {"event-source"},
         "event source of the messages in the event log",
         sourceOf},
        {"NtEventLogCategory",
         Kind::number,
         kBoth,
         1,
         UINT16_MAX,
         {"event-category"},
         "category of the messages in the event log",
         categoryOf},
        {"LogFileSDDL",
         Kind::securityDescriptor,
         kBoth,
         1,
         kAnyText,
         {"sddl", "security"},
         "security descriptor of new log files and directories",
         textOf<&zantLogCfg::logFileSDDL>},
    };
    return all;
}

std::string plain(std::string_view name) {
    std::string text = lowered(name);
    std::erase_if(text, [](char character) { return character == '-' || character == '_'; });
    return text;
}

bool isCalled(const Setting &setting, const std::string &name) {
    return plain(setting.key) == name ||
           std::any_of(setting.aliases.begin(), setting.aliases.end(),
                       [&](const std::string &alias) { return plain(alias) == name; });
}

} // namespace

bool Setting::isNumber() const {
    return kind == Kind::number || kind == Kind::kilobytes || kind == Kind::seconds || kind == Kind::level;
}

bool Setting::belongsTo(SectionKind section) const {
    return scope == kBoth || scope == (section == SectionKind::product ? kProduct : kLogSet);
}

std::span<const Setting> settings() {
    return table();
}

const Setting *settingWithKey(std::string_view key) {
    for (const Setting &setting : table()) {
        if (setting.key == key) {
            return &setting;
        }
    }
    return nullptr;
}

const Setting *findSetting(std::string_view name) {
    const std::string wanted = plain(name);
    for (const Setting &setting : table()) {
        if (isCalled(setting, wanted)) {
            return &setting;
        }
    }
    return nullptr;
}

const Setting &requireSetting(std::string_view name, SectionKind section) {
    const Setting *found = findSetting(name);
    if (found == nullptr) {
        std::vector<std::string> names;
        for (const Setting &setting : table()) {
            names.emplace_back(setting.key);
            names.insert(names.end(), setting.aliases.begin(), setting.aliases.end());
        }
        usageError("there is no setting \"" + std::string(name) + "\"" + didYouMean(nearest(name, names)));
    }
    if (!found->belongsTo(section)) {
        usageError(std::string(found->key) + (section == SectionKind::product
                                                  ? " is a setting of log sets; give --logset NAME"
                                                  : " is a setting of originators, not of log sets"));
    }
    return *found;
}

} // namespace zantlog::tools
