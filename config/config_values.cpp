// Accessors of the numbers and switches of a configuration record.
#include "zantlog/config.h"
#include "zantlog/logging.h"
#include "zantlog/results.h"

namespace {

constexpr uint32_t kHighestLevel = 6;
constexpr uint32_t kHighestRolloverMode = ZANTLOG_ROLLOVER_PERIODIC | ZANTLOG_ROLLOVER_FILE_SIZE;

template <typename Value>
uint32_t store(zantLogCfg *cfg, Value zantLogCfg::*field, Value value, uint32_t setting) {
    cfg->*field = value;
    cfg->changedMask |= setting;
    return ZANTLOG_OK;
}

template <typename Value> uint32_t fetch(const zantLogCfg *cfg, Value zantLogCfg::*field, Value *out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = cfg->*field;
    return ZANTLOG_OK;
}

uint32_t enable(zantLogCfg *cfg, uint32_t flag, uint32_t setting) {
    return store(cfg, &zantLogCfg::outputFlags, cfg->outputFlags | flag, setting);
}

uint32_t disable(zantLogCfg *cfg, uint32_t flag, uint32_t setting) {
    return store(cfg, &zantLogCfg::outputFlags, cfg->outputFlags & ~flag, setting);
}

} // namespace

extern "C" {

uint32_t zantLogCfgSetRolloverMode(zantLogCfg *cfg, uint32_t mode) {
    constexpr uint32_t kBothTimes = ZANTLOG_ROLLOVER_LOCAL_TIME | ZANTLOG_ROLLOVER_PERIODIC;
    if (cfg == nullptr || mode > kHighestRolloverMode) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Local time would win over the period, were the two together not refused above.
    if ((mode & kBothTimes) == kBothTimes) {
        mode &= ~uint32_t{ZANTLOG_ROLLOVER_PERIODIC};
    }
    return store(cfg, &zantLogCfg::rolloverMode, mode, ZANTLOG_SETTING_ROLLOVER_MODE);
}

uint32_t zantLogCfgGetRolloverMode(zantLogCfg *cfg, uint32_t *mode) {
    return fetch(cfg, &zantLogCfg::rolloverMode, mode);
}

uint32_t zantLogCfgSetMaxFileSize(zantLogCfg *cfg, uint32_t kb) {
    if (cfg == nullptr || kb == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::maxLogFileSizeKB, kb, ZANTLOG_SETTING_MAX_FILE_SIZE);
}

uint32_t zantLogCfgGetMaxFileSize(zantLogCfg *cfg, uint32_t *kb) {
    return fetch(cfg, &zantLogCfg::maxLogFileSizeKB, kb);
}

uint32_t zantLogCfgSetRolloverPeriod(zantLogCfg *cfg, int64_t seconds) {
    if (cfg == nullptr || seconds == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::rolloverPeriod, seconds, ZANTLOG_SETTING_ROLLOVER_PERIOD);
}

uint32_t zantLogCfgGetRolloverPeriod(zantLogCfg *cfg, int64_t *seconds) {
    return fetch(cfg, &zantLogCfg::rolloverPeriod, seconds);
}

uint32_t zantLogCfgSetRolloverTime(zantLogCfg *cfg, int64_t seconds) {
    if (cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::rolloverTime, seconds, ZANTLOG_SETTING_ROLLOVER_TIME);
}

uint32_t zantLogCfgGetRolloverTime(zantLogCfg *cfg, int64_t *seconds) {
    return fetch(cfg, &zantLogCfg::rolloverTime, seconds);
}

uint32_t zantLogCfgSetNumberOfLogFiles(zantLogCfg *cfg, uint32_t count) {
    if (cfg == nullptr || count == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::numberOfLogFiles, count, ZANTLOG_SETTING_NUMBER_OF_LOG_FILES);
}

uint32_t zantLogCfgGetNumberOfLogFiles(zantLogCfg *cfg, uint32_t *count) {
    return fetch(cfg, &zantLogCfg::numberOfLogFiles, count);
}

uint32_t zantLogCfgSetDebugLevel(zantLogCfg *cfg, uint32_t level) {
    if (cfg == nullptr || level > kHighestLevel) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::debugLevel, level, ZANTLOG_SETTING_DEBUG_LEVEL);
}

uint32_t zantLogCfgGetDebugLevel(zantLogCfg *cfg, uint32_t *level) {
    return fetch(cfg, &zantLogCfg::debugLevel, level);
}

uint32_t zantLogCfgSetDiagLevel(zantLogCfg *cfg, uint32_t level) {
    if (cfg == nullptr || level > kHighestLevel) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::diagLevel, level, ZANTLOG_SETTING_DIAG_LEVEL);
}

uint32_t zantLogCfgGetDiagLevel(zantLogCfg *cfg, uint32_t *level) {
    return fetch(cfg, &zantLogCfg::diagLevel, level);
}

uint32_t zantLogCfgSetDynaSetting(zantLogCfg *cfg, int32_t seconds) {
    if (cfg == nullptr || seconds < 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return store(cfg, &zantLogCfg::dynaReloadInSec, seconds, ZANTLOG_SETTING_DYNA_RELOAD);
}

uint32_t zantLogCfgGetDynaSetting(zantLogCfg *cfg, int32_t *seconds) {
    return fetch(cfg, &zantLogCfg::dynaReloadInSec, seconds);
}

uint32_t zantLogCfgGetFlags(zantLogCfg *cfg, uint32_t *flags) {
    return fetch(cfg, &zantLogCfg::outputFlags, flags);
}

uint32_t zantLogCfgSetFlags(zantLogCfg *cfg, uint32_t flags) {
    if (cfg == nullptr || static_cast<int32_t>(flags) < 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    (void)((flags & ZANTLOG_TO_STDOUT) != 0 ? zantLogCfgEnableLogToStdout
                                            : zantLogCfgDisableLogToStdout)(cfg);
    (void)((flags & ZANTLOG_TO_STDERR) != 0 ? zantLogCfgEnableLogToStderr
                                            : zantLogCfgDisableLogToStderr)(cfg);
    (void)((flags & ZANTLOG_TO_EVENT_LOG) != 0 ? zantLogCfgEnableLogToOslog
                                               : zantLogCfgDisableLogToOslog)(cfg);
    (void)((flags & ZANTLOG_SECURE_EVENT) != 0 ? zantLogCfgEnableLogToOslogX
                                               : zantLogCfgDisableLogToOslogX)(cfg);
    return ZANTLOG_OK;
}

uint32_t zantLogCfgEnableLogRecycling(zantLogCfg *cfg) {
    return store(cfg, &zantLogCfg::logRecycle, 1U, ZANTLOG_SETTING_LOG_RECYCLE);
}

uint32_t zantLogCfgDisableLogRecycling(zantLogCfg *cfg) {
    return store(cfg, &zantLogCfg::logRecycle, 0U, ZANTLOG_SETTING_LOG_RECYCLE);
}

uint32_t zantLogCfgEnableAppMsgLogging(zantLogCfg *cfg) {
    return store(cfg, &zantLogCfg::appMsgLogging, 1U, ZANTLOG_SETTING_APP_MSG_LOGGING);
}

uint32_t zantLogCfgDisableAppMsgLogging(zantLogCfg *cfg) {
    return store(cfg, &zantLogCfg::appMsgLogging, 0U, ZANTLOG_SETTING_APP_MSG_LOGGING);
}

uint32_t zantLogCfgEnableLogToStdout(zantLogCfg *cfg) {
    return enable(cfg, ZANTLOG_TO_STDOUT, ZANTLOG_SETTING_LOG_TO_STDOUT);
}

uint32_t zantLogCfgDisableLogToStdout(zantLogCfg *cfg) {
    return disable(cfg, ZANTLOG_TO_STDOUT, ZANTLOG_SETTING_LOG_TO_STDOUT);
}

uint32_t zantLogCfgEnableLogToStderr(zantLogCfg *cfg) {
    return enable(cfg, ZANTLOG_TO_STDERR, ZANTLOG_SETTING_LOG_TO_STDERR);
}

uint32_t zantLogCfgDisableLogToStderr(zantLogCfg *cfg) {
    return disable(cfg, ZANTLOG_TO_STDERR, ZANTLOG_SETTING_LOG_TO_STDERR);
}

uint32_t zantLogCfgEnableLogToOslog(zantLogCfg *cfg) {
    return enable(cfg, ZANTLOG_TO_EVENT_LOG, ZANTLOG_SETTING_LOG_TO_OSLOG);
}

uint32_t zantLogCfgDisableLogToOslog(zantLogCfg *cfg) {
    return disable(cfg, ZANTLOG_TO_EVENT_LOG, ZANTLOG_SETTING_LOG_TO_OSLOG);
}

// The extended event record has no key in the store, so nothing is marked as changed.
uint32_t zantLogCfgEnableLogToOslogX(zantLogCfg *cfg) {
    return enable(cfg, ZANTLOG_SECURE_EVENT, 0);
}

uint32_t zantLogCfgDisableLogToOslogX(zantLogCfg *cfg) {
    return disable(cfg, ZANTLOG_SECURE_EVENT, 0);
}

} // extern "C"
