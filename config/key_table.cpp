#include "config/key_table.h"

#include "base/bounded_text.h"
#include "config/config_directory.h"
#include "config/config_texts.h"
#include "config/rollover_time.h"

#include <cstring>

namespace zantlog {

namespace {

// A value that its setter refuses leaves the record alone; the key counts as found all the same.

template <uint32_t (*Set)(zantLogCfg *, const char *)>
bool storeText(zantLogCfg *cfg, const KeyValue &value) {
    (void)Set(cfg, value.text);
    return true;
}

template <typename Number, uint32_t (*Set)(zantLogCfg *, Number)>
bool storeNumber(zantLogCfg *cfg, const KeyValue &value) {
    (void)Set(cfg, static_cast<Number>(value.number));
    return true;
}

template <uint32_t (*Enable)(zantLogCfg *), uint32_t (*Disable)(zantLogCfg *)>
bool storeSwitch(zantLogCfg *cfg, const KeyValue &value) {
    (void)(value.number != 0 ? Enable : Disable)(cfg);
    return true;
}

// A log set that has nothing but keys of this kind counts as not existing.
template <bool (*Store)(zantLogCfg *, const KeyValue &)>
bool uncounted(zantLogCfg *cfg, const KeyValue &value) {
    (void)Store(cfg, value);
    return false;
}

bool storeLogDirectory(zantLogCfg *cfg, const KeyValue &value) {
    storeDirectory(cfg, value.text, value.inDefaultSection);
    return true;
}

bool storeOriginatorNames(zantLogCfg *cfg, const KeyValue &value) {
    if (*value.text != '\0') {
        copyBounded(cfg->originatorNames, sizeof cfg->originatorNames, value.text);
    }
    return true;
}

bool storeAppMsgLogging(zantLogCfg *cfg, const KeyValue &value) {
    cfg->appMsgLogging = std::strcmp(value.text, "ON") == 0 ? 1 : 0;
    return true;
}

bool storeRolloverMode(zantLogCfg *cfg, const KeyValue &value) {
    (void)zantLogCfgSetRolloverMode(cfg, SettingStringToRolloverModeEnum(value.text));
    return true;
}

bool storeRolloverTime(zantLogCfg *cfg, const KeyValue &value) {
    int64_t seconds = 0;
    if (!parseRolloverTime(value.text, &seconds)) {
        return false;
    }
    (void)zantLogCfgSetRolloverTime(cfg, seconds);
    return true;
}

void nameFilesAfterLogSet(zantLogCfg *cfg) {
    (void)replaceText(&cfg->logSetFileName, cfg->logSetName);
}

using enum KeyType;
using enum KeyScope;

constexpr ConfigKey kKeys[] = {
    {"LogDirectory", Text, Both, ZANTLOG_SETTING_LOG_DIRECTORY, storeLogDirectory},
    {"OIDNames", Text, Both, ZANTLOG_SETTING_OID_NAMES, storeOriginatorNames},
    {"L10nLib", Text, Product, ZANTLOG_SETTING_L10N_LIB, storeText<zantLogCfgSetL10nLib>},
    {"L10nResource", Text, Product, ZANTLOG_SETTING_L10N_RESOURCE, storeText<zantLogCfgSetL10nResource>},
    {"L10nResourceDir", Text, Product, ZANTLOG_SETTING_L10N_RESOURCE_DIR,
     storeText<zantLogCfgSetL10nResourceDir>},
    {"DebugLevel", Number, Both, ZANTLOG_SETTING_DEBUG_LEVEL, storeNumber<uint32_t, zantLogCfgSetDebugLevel>},
    {"DiagnosticLevel", Number, Both, ZANTLOG_SETTING_DIAG_LEVEL,
     storeNumber<uint32_t, zantLogCfgSetDiagLevel>},
    {"DynaReloadInSec", Number, Both, ZANTLOG_SETTING_DYNA_RELOAD,
     storeNumber<int32_t, zantLogCfgSetDynaSetting>},
    {"LogToStdout", Boolean, Both, ZANTLOG_SETTING_LOG_TO_STDOUT,
     storeSwitch<zantLogCfgEnableLogToStdout, zantLogCfgDisableLogToStdout>},
    {"LogToStderr", Boolean, Both, ZANTLOG_SETTING_LOG_TO_STDERR,
     storeSwitch<zantLogCfgEnableLogToStderr, zantLogCfgDisableLogToStderr>},
    {"LogToOslog", Boolean, Both, ZANTLOG_SETTING_LOG_TO_OSLOG,
     storeSwitch<zantLogCfgEnableLogToOslog, zantLogCfgDisableLogToOslog>},
    {"FileName", Text, LogSet, ZANTLOG_SETTING_FILE_NAME, storeText<zantLogCfgSetLogsetFilename>,
     nameFilesAfterLogSet},
    {"AppMsgLogging", Text, Both, ZANTLOG_SETTING_APP_MSG_LOGGING, storeAppMsgLogging},
    {"OIDAppMsgLogging", Text, Both, ZANTLOG_SETTING_OID_APP_MSG_LOGGING,
     storeText<zantLogCfgSetLogsetOIDappMsgLogging>},
    {"OIDDebugLogging", Text, Both, ZANTLOG_SETTING_OID_DEBUG_LOGGING,
     storeText<zantLogCfgSetLogsetOIDDebugLogging>},
    {"OIDDiagLogging", Text, Both, ZANTLOG_SETTING_OID_DIAG_LOGGING,
     storeText<zantLogCfgSetLogsetOIDDiagLogging>},
    {"RolloverMode", Text, Both, ZANTLOG_SETTING_ROLLOVER_MODE, storeRolloverMode},
    {"LogRecycle", Boolean, Both, ZANTLOG_SETTING_LOG_RECYCLE,
     storeSwitch<zantLogCfgEnableLogRecycling, zantLogCfgDisableLogRecycling>},
    {"MaxLogFileSizeKB", Number, Both, ZANTLOG_SETTING_MAX_FILE_SIZE,
     storeNumber<uint32_t, zantLogCfgSetMaxFileSize>},
    {"RolloverAtLocalTime", Text, Both, ZANTLOG_SETTING_ROLLOVER_TIME, storeRolloverTime},
    {"RolloverPeriodInSeconds", Number, Both, ZANTLOG_SETTING_ROLLOVER_PERIOD,
     storeNumber<int64_t, zantLogCfgSetRolloverPeriod>},
    {"NumberOfLogFiles", Number, Both, ZANTLOG_SETTING_NUMBER_OF_LOG_FILES,
     storeNumber<uint32_t, zantLogCfgSetNumberOfLogFiles>},
    {"NtEventLogSourceName", Text, Both, ZANTLOG_SETTING_EVENT_SOURCE,
     uncounted<storeText<zantLogCfgSetNtEventSource>>},
    {"NtEventLogCategory", Number, Both, ZANTLOG_SETTING_EVENT_CATEGORY,
     uncounted<storeNumber<uint16_t, zantLogCfgSetNtEventCategory>>},
    {"LogFileSDDL", Text, Both, ZANTLOG_SETTING_LOG_FILE_SDDL,
     uncounted<storeText<zantLogCfgSetLogFileSDDL>>},
};

} // namespace

std::span<const ConfigKey> configKeys() {
    return kKeys;
}

} // namespace zantlog
