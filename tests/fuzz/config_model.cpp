#include "tests/fuzz/config_model.h"

#include "tests/fuzz/conf_model.h"
#include "tests/fuzz/directory_model.h"
#include "tests/fuzz/operations.h"
#include "tests/fuzz/scan_model.h"

namespace zantlog::fuzz {

namespace {

struct Section {
    ConfModel file;
    ExpectedConfig *cfg;

    // A value that is there counts, unless `counted` is false.
    std::optional<std::string> value(const char *key, bool counted) {
        const std::optional<std::string> raw = file.find(key);
        cfg->found += raw && counted ? 1 : 0;
        return raw;
    }

    std::optional<std::string> text(const char *key, bool counted = true) {
        const std::optional<std::string> raw = file.find(key);
        std::string converted;
        const Conversion conversion = raw ? codePageOf(*raw, &converted) : Conversion::Refused;
        cfg->unsure = cfg->unsure || conversion == Conversion::Unsure;
        if (conversion == Conversion::Refused) {
            return std::nullopt;
        }
        while (!converted.empty() && converted.back() == ' ') {
            converted.pop_back();
        }
        cfg->found += counted ? 1 : 0;
        return converted;
    }

    void setText(const char *key, std::optional<std::string> *field) {
        const std::optional<std::string> read = text(key);
        *field = read && !read->empty() ? read : *field;
    }

    // Values between these two are taken over.
    void setNumber(const char *key, uint32_t least, uint32_t most, uint32_t *field) {
        if (const std::optional<std::string> raw = value(key, true)) {
            const uint32_t number = numberOf(*raw);
            *field = number >= least && number <= most ? number : *field;
        }
    }

    void setFlag(const char *key, uint32_t bit) {
        if (const std::optional<std::string> raw = value(key, true)) {
            cfg->outputFlags = (cfg->outputFlags & ~bit) | (*raw == "true" ? bit : 0);
        }
    }
};

void loadDirectory(Section &section, bool replaces) {
    const std::optional<std::string> directory = section.text("LogDirectory");
    if (!directory || directory->empty()) {
        return;
    }
    std::string &field = section.cfg->logDirectory;
    const std::string whole = (replaces || isAbsolute(*directory) ? "" : field) + collapsed(*directory);
    field = whole.size() < ZANTLOG_TEXT_FIELD ? whole : field;
}

void loadRolloverTexts(Section &section) {
    if (const std::optional<std::string> mode = section.text("RolloverMode")) {
        const auto has = [&](const char *word) { return mode->find(word) != std::string::npos; };
        section.cfg->rolloverMode = (has("FileSize") ? 1u : 0u) + (has("LocalTime")  ? 2u
                                                                   : has("Periodic") ? 4u
                                                                                     : 0u);
    }
    const std::optional<std::string> time = section.text("RolloverAtLocalTime", false);
    Rest rest{time.value_or("")};
    const int64_t hours = rest.signed32();
    rest.literal(':');
    const int64_t minutes = rest.signed32();
    if (time && !rest.failed && hours >= 0 && hours < 24 && minutes >= 0 && minutes < 60) {
        section.cfg->rolloverTime = hours * 3600 + minutes * 60;
        ++section.cfg->found;
    }
}

// These three do not count.
void loadHostKeys(Section &section) {
    ExpectedConfig &cfg = *section.cfg;
    const std::optional<std::string> source = section.text("NtEventLogSourceName", false);
    cfg.eventSource = source && !source->empty() ? source->substr(0, 79) : cfg.eventSource;
    const std::optional<std::string> category = section.value("NtEventLogCategory", false);
    const uint32_t number = category ? numberOf(*category) & 0xffffu : 0;
    cfg.eventCategory = number != 0 ? number : cfg.eventCategory;
    const std::optional<std::string> sddl = section.text("LogFileSDDL", false);
    cfg.logFileSDDL = sddl ? sddl : cfg.logFileSDDL;
}

void loadNumbers(Section &section) {
    ExpectedConfig &cfg = *section.cfg;
    section.setNumber("DebugLevel", 0, 6, &cfg.debugLevel);
    section.setNumber("DiagnosticLevel", 0, 6, &cfg.diagLevel);
    auto reload = static_cast<uint32_t>(cfg.dynaReloadInSec);
    section.setNumber("DynaReloadInSec", 0, INT32_MAX, &reload);
    cfg.dynaReloadInSec = reload;
    section.setNumber("MaxLogFileSizeKB", 1, UINT32_MAX, &cfg.maxLogFileSizeKB);
    section.setNumber("NumberOfLogFiles", 1, UINT32_MAX, &cfg.numberOfLogFiles);
    auto period = static_cast<uint32_t>(cfg.rolloverPeriod);
    section.setNumber("RolloverPeriodInSeconds", 1, UINT32_MAX, &period);
    cfg.rolloverPeriod = period;
    section.setFlag("LogToStdout", 1);
    section.setFlag("LogToStderr", 2);
    section.setFlag("LogToOslog", 4);
    if (const std::optional<std::string> recycle = section.value("LogRecycle", true)) {
        cfg.logRecycle = *recycle == "true" ? 1 : 0;
    }
}

void requireOwned(const std::optional<std::string> &expected, const char *text, const std::string &what) {
    require(expected.has_value() == (text != nullptr), what + " is there or not");
    requireText(expected.value_or(""), text != nullptr ? text : "", what);
}

void requireTexts(const ExpectedConfig &expected, const zantLogCfg &cfg) {
    requireText(expected.logDirectory, cfg.logDirectory, "log directory");
    requireOwned(expected.logFileSDDL, cfg.logFileSDDL, "SDDL");
    requireNumber(expected.rolloverMode, cfg.rolloverMode, "rollover mode");
    requireNumber(expected.rolloverTime, cfg.rolloverTime, "rollover time");
    requireText(expected.eventSource, cfg.eventSource.name, "event source");
    requireText(expected.originatorNames, cfg.originatorNames, "originator names");
    requireOwned(expected.l10nLib, cfg.l10nLib, "localisation library");
    requireOwned(expected.l10nResource, cfg.l10nResource, "localisation resource");
    requireOwned(expected.l10nResourceDir, cfg.l10nResourceDir, "localisation folder");
    requireOwned(expected.logSetName, cfg.logSetName, "log set name");
    requireOwned(expected.logSetFileName, cfg.logSetFileName, "log set file name");
    requireNumber(expected.appMsgLogging, cfg.appMsgLogging, "application messages");
    requireOwned(expected.oidAppMsgLogging, cfg.oidAppMsgLogging, "application messages of originators");
    requireOwned(expected.oidDebugLogging, cfg.oidDebugLogging, "debug messages of originators");
    requireOwned(expected.oidDiagLogging, cfg.oidDiagLogging, "diagnostic messages of originators");
}

} // namespace

void loadSection(ExpectedConfig *cfg, const std::string &file, const std::string &name) {
    Section section{{file, "", 0, false}, cfg};
    section.file.open(name);
    cfg->found = 0;
    const bool isLogSet = name.substr(0, 7) == "LOGSET.";
    loadDirectory(section, name == "Default" || name == "LOGSET.Default");
    const std::optional<std::string> names = section.text("OIDNames");
    cfg->originatorNames = names && !names->empty() ? *names : cfg->originatorNames;
    if (isLogSet) {
        cfg->logSetName = name.substr(7);
        const std::optional<std::string> fileName = section.text("FileName");
        if (!fileName || !fileName->empty()) {
            cfg->logSetFileName = fileName ? fileName : cfg->logSetName;
        }
    } else {
        section.setText("L10nLib", &cfg->l10nLib);
        section.setText("L10nResource", &cfg->l10nResource);
        section.setText("L10nResourceDir", &cfg->l10nResourceDir);
    }
    if (const std::optional<std::string> messages = section.text("AppMsgLogging")) {
        cfg->appMsgLogging = *messages == "ON" ? 1 : 0;
    }
    section.setText("OIDAppMsgLogging", &cfg->oidAppMsgLogging);
    section.setText("OIDDebugLogging", &cfg->oidDebugLogging);
    section.setText("OIDDiagLogging", &cfg->oidDiagLogging);
    loadNumbers(section);
    loadRolloverTexts(section);
    loadHostKeys(section);
}

void requireConfig(const ExpectedConfig &expected, const zantLogCfg &cfg) {
    requireSane(cfg);
    requireNumber(expected.debugLevel, cfg.debugLevel, "debug level");
    requireNumber(expected.diagLevel, cfg.diagLevel, "diagnostic level");
    requireNumber(expected.outputFlags, cfg.outputFlags, "output flags");
    requireNumber(expected.maxLogFileSizeKB, cfg.maxLogFileSizeKB, "size");
    requireNumber(expected.rolloverPeriod, cfg.rolloverPeriod, "rollover period");
    requireNumber(expected.numberOfLogFiles, cfg.numberOfLogFiles, "number of files");
    requireNumber(expected.logRecycle, cfg.logRecycle, "recycling");
    requireNumber(expected.eventCategory, cfg.eventSource.category, "event category");
    requireNumber(expected.dynaReloadInSec, cfg.dynaReloadInSec, "reload interval");
    if (!expected.unsure) {
        requireTexts(expected, cfg);
    }
}

void requireSane(const zantLogCfg &cfg) {
    require(cfg.debugLevel <= 6 && cfg.diagLevel <= 6, "levels are 0 to 6");
    require(cfg.secureAuditLevel == 0, "the secure-audit level is not loaded");
    require((cfg.outputFlags & ~7u) == 0, "output flags are 1, 2 and 4");
    require(cfg.maxLogFileSizeKB != 0 && cfg.numberOfLogFiles != 0, "limits are not 0");
    require(cfg.rolloverMode <= 5, "rollover mode is 0 to 5");
    require(cfg.rolloverPeriod > 0 && cfg.rolloverPeriod <= INT64_C(0xffffffff), "rollover period");
    require(cfg.rolloverTime >= 0 && cfg.rolloverTime < 86400, "rollover time is one of a day");
    require(cfg.logRecycle <= 1 && cfg.appMsgLogging <= 1 && cfg.isLogSet <= 1, "switches are 0 or 1");
    require(cfg.dynaReloadInSec >= 0, "reload interval");
    require(cfg.changedMask == 0 && cfg.removeMask == 0, "nothing is marked");
    const size_t length = strnlen(cfg.logDirectory, sizeof cfg.logDirectory);
    require(length < sizeof cfg.logDirectory, "the directory is terminated");
    require(length == 0 || cfg.logDirectory[length - 1] == '\\', "the directory ends in a backslash");
    require(strnlen(cfg.productNames, sizeof cfg.productNames) < sizeof cfg.productNames, "product names");
    require(strnlen(cfg.originatorNames, sizeof cfg.originatorNames) < sizeof cfg.originatorNames, "names");
    require(cfg.eventSource.name[0] != '\0', "there is an event source");
    require(strnlen(cfg.eventSource.name, ZANTLOG_EVENT_SOURCE_NAME) < ZANTLOG_EVENT_SOURCE_NAME, "its end");
    require((cfg.isLogSet != 0) == (cfg.logSetName != nullptr), "a log set has a name");
}

} // namespace zantlog::fuzz
