#include "config/section_saver.h"

#include "base/bounded_text.h"
#include "config/section_loader.h"
#include "config/writable_store.h"

namespace zantlog {

namespace {

enum class SavedBy { Both, ProductSaver, LogSetSaver };

struct SavedKey {
    const char *name;
    uint32_t setting; // its bits of both masks
    SavedBy saver;
    uint32_t (*write)(PropertyStore *store, const char *name,
                      const zantLogCfg &cfg); // the store's own result
};

using Write = uint32_t(PropertyStore *, const char *, const zantLogCfg &);

// A null text is refused by the store, which ends the save.
template <auto Field> uint32_t writeText(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    return utiSetPropertyAsStr(store, name, cfg.*Field);
}

template <auto Field> uint32_t writeNumber(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    const auto low = static_cast<uint32_t>(cfg.*Field);
    return utiSetPropertyAsULong(store, name, &low);
}

template <uint32_t Flag>
uint32_t writeOutputFlag(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    const uint32_t on = (cfg.outputFlags & Flag) != 0 ? 1 : 0;
    return utiSetPropertyAsBool(store, name, &on);
}

uint32_t writeLogRecycle(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    return utiSetPropertyAsBool(store, name, &cfg.logRecycle);
}

uint32_t writeRolloverMode(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    char mode[ZANTLOG_ROLLOVER_MODE_TEXT] = {};
    return utiSetPropertyAsStr(store, name, RolloverModeEnumToSettingString(cfg.rolloverMode, mode));
}

// Kept: hours are not reduced to those of a day, so that what is stored says what the record held.
uint32_t writeRolloverTime(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    const int64_t hours = cfg.rolloverTime / 3600;
    char clock[32];
    BoundedText text(clock);
    text.twoPlaces(static_cast<int32_t>(hours)).character(':');
    text.twoPlaces(static_cast<int32_t>((cfg.rolloverTime - hours * 3600) / 60));
    return utiSetPropertyAsStr(store, name, clock);
}

uint32_t writeAppMsgLogging(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    return utiSetPropertyAsStr(store, name, cfg.appMsgLogging == 1 ? "ON" : "OFF");
}

uint32_t writeEventSource(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    return utiSetPropertyAsStr(store, name, cfg.eventSource.name);
}

uint32_t writeEventCategory(PropertyStore *store, const char *name, const zantLogCfg &cfg) {
    const uint32_t category = cfg.eventSource.category;
    return utiSetPropertyAsULong(store, name, &category);
}

using enum SavedBy;

// In the order in which they are saved: a failure leaves those before it written.
constexpr SavedKey kKeys[] = {
    {"LogDirectory", ZANTLOG_SETTING_LOG_DIRECTORY, Both, writeText<&zantLogCfg::logDirectory>},
    {"OIDNames", ZANTLOG_SETTING_OID_NAMES, Both, writeText<&zantLogCfg::originatorNames>},
    {"L10nLib", ZANTLOG_SETTING_L10N_LIB, ProductSaver, writeText<&zantLogCfg::l10nLib>},
    {"L10nResource", ZANTLOG_SETTING_L10N_RESOURCE, ProductSaver, writeText<&zantLogCfg::l10nResource>},
    {"L10nResourceDir", ZANTLOG_SETTING_L10N_RESOURCE_DIR, ProductSaver,
     writeText<&zantLogCfg::l10nResourceDir>},
    {"DebugLevel", ZANTLOG_SETTING_DEBUG_LEVEL, Both, writeNumber<&zantLogCfg::debugLevel>},
    {"DiagnosticLevel", ZANTLOG_SETTING_DIAG_LEVEL, Both, writeNumber<&zantLogCfg::diagLevel>},
    {"DynaReloadInSec", ZANTLOG_SETTING_DYNA_RELOAD, Both, writeNumber<&zantLogCfg::dynaReloadInSec>},
    {"LogToStdout", ZANTLOG_SETTING_LOG_TO_STDOUT, Both, writeOutputFlag<1>},
    {"LogToStderr", ZANTLOG_SETTING_LOG_TO_STDERR, Both, writeOutputFlag<2>},
    {"LogToOslog", ZANTLOG_SETTING_LOG_TO_OSLOG, Both, writeOutputFlag<4>},
    {"RolloverMode", ZANTLOG_SETTING_ROLLOVER_MODE, Both, writeRolloverMode},
    {"LogRecycle", ZANTLOG_SETTING_LOG_RECYCLE, Both, writeLogRecycle},
    {"MaxLogFileSizeKB", ZANTLOG_SETTING_MAX_FILE_SIZE, Both, writeNumber<&zantLogCfg::maxLogFileSizeKB>},
    {"RolloverAtLocalTime", ZANTLOG_SETTING_ROLLOVER_TIME, Both, writeRolloverTime},
    {"RolloverPeriodInSeconds", ZANTLOG_SETTING_ROLLOVER_PERIOD, Both,
     writeNumber<&zantLogCfg::rolloverPeriod>},
    {"NumberOfLogFiles", ZANTLOG_SETTING_NUMBER_OF_LOG_FILES, Both,
     writeNumber<&zantLogCfg::numberOfLogFiles>},
    {"AppMsgLogging", ZANTLOG_SETTING_APP_MSG_LOGGING, Both, writeAppMsgLogging},
    {"OIDAppMsgLogging", ZANTLOG_SETTING_OID_APP_MSG_LOGGING, LogSetSaver,
     writeText<&zantLogCfg::oidAppMsgLogging>},
    {"OIDDebugLogging", ZANTLOG_SETTING_OID_DEBUG_LOGGING, LogSetSaver,
     writeText<&zantLogCfg::oidDebugLogging>},
    {"OIDDiagLogging", ZANTLOG_SETTING_OID_DIAG_LOGGING, LogSetSaver, writeText<&zantLogCfg::oidDiagLogging>},
};

// What concerns the host comes last; nothing stops at it.
constexpr SavedKey kHostKeys[] = {
    {"NtEventLogSourceName", ZANTLOG_SETTING_EVENT_SOURCE, Both, writeEventSource},
    {"NtEventLogCategory", ZANTLOG_SETTING_EVENT_CATEGORY, Both, writeEventCategory},
    {"LogFileSDDL", ZANTLOG_SETTING_LOG_FILE_SDDL, Both, writeText<&zantLogCfg::logFileSDDL>},
};

// The store's own result; 0 for a key that is left alone.
uint32_t saveKey(PropertyStore *store, const SavedKey &key, const zantLogCfg &cfg) {
    if ((cfg.removeMask & key.setting) != 0) {
        return utiRemoveProperty(store, key.name);
    }
    return (cfg.changedMask & key.setting) != 0 ? key.write(store, key.name, cfg)
                                                : uint32_t{ZANTLOG_STORE_OK};
}

uint32_t saveKeys(PropertyStore *store, SavedBy saver, const zantLogCfg &cfg) {
    for (const SavedKey &key : kKeys) {
        if (key.saver != Both && key.saver != saver) {
            continue;
        }
        const uint32_t result = saveKey(store, key, cfg);
        if (result != ZANTLOG_STORE_OK) {
            return utipsres2zantlogres(result);
        }
    }
    return ZANTLOG_OK;
}

void saveHostKeys(PropertyStore *store, const zantLogCfg &cfg) {
    for (const SavedKey &key : kHostKeys) {
        (void)saveKey(store, key, cfg);
    }
}

bool isMarked(uint32_t mask, uint32_t setting) {
    return (mask & setting) != 0;
}

} // namespace

uint32_t saveSection(const char *path, const char *section, const zantLogCfg &cfg) {
    WritableStore target;
    if (!target.openOrCreate(path, section)) {
        return ZANTLOG_FAILURE;
    }
    const uint32_t result = saveKeys(target.store(), ProductSaver, cfg);
    if (result == ZANTLOG_OK) {
        saveHostKeys(target.store(), cfg);
    }
    return result;
}

uint32_t saveLogSet(const char *logSetsPath, const char *logSet, const zantLogCfg &cfg) {
    LogSetSection section;
    WritableStore target;
    if (!nameLogSetSection(logSetsPath, logSet, &section) ||
        !target.openOrCreate(logSetsPath, section.name)) {
        return ZANTLOG_FAILURE;
    }
    uint32_t result = saveKeys(target.store(), LogSetSaver, cfg);
    if (result != ZANTLOG_OK) {
        return result;
    }
    if (isMarked(cfg.removeMask, ZANTLOG_SETTING_FILE_NAME)) {
        result = ZANTLOG_NOTHING_TO_SAVE; // kept: the name of existing files is not to be forgotten
    } else if (isMarked(cfg.changedMask, ZANTLOG_SETTING_FILE_NAME)) {
        // Kept: the save ends here, and the keys for the host take another one.
        return utipsres2zantlogres(utiSetPropertyAsStr(target.store(), "FileName", cfg.logSetFileName));
    }
    saveHostKeys(target.store(), cfg);
    return result;
}

} // namespace zantlog
