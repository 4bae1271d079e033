#include "config/config_record.h"

#include "base/bounded_text.h"
#include "base/owned_text.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr uint32_t kDefaultMaxLogFileSizeKB = 10240;
constexpr int64_t kDefaultRolloverPeriod = 43200;
constexpr uint32_t kNoLimitOfLogFiles = 0xFFFFFFFF;
constexpr char kDefaultEventSource[] = "Application";

void clear(zantLogCfg *cfg) {
    *cfg = zantLogCfg{};
}

// False when there is a text and it could not be copied.
bool duplicate(char **destination, const char *source) {
    *destination = copyText(source).release();
    return *destination != nullptr || source == nullptr;
}

} // namespace

uint32_t initialiseConfig(uint32_t productId, uint32_t originatorId, const char *logSet, zantLogCfg *cfg) {
    if (cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    clear(cfg);
    cfg->productId = productId;
    cfg->originatorId = originatorId;
    cfg->appMsgLogging = 1;
    cfg->maxLogFileSizeKB = kDefaultMaxLogFileSizeKB;
    cfg->rolloverPeriod = kDefaultRolloverPeriod;
    cfg->numberOfLogFiles = kNoLimitOfLogFiles;
    copyBounded(cfg->eventSource.name, sizeof cfg->eventSource.name, kDefaultEventSource);
    if (logSet == nullptr) {
        return ZANTLOG_OK;
    }
    cfg->isLogSet = 1;
    if (!duplicate(&cfg->logSetName, logSet) || !duplicate(&cfg->logSetFileName, logSet)) {
        (void)zantLogFreeCfg(cfg);
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return ZANTLOG_OK;
}

uint32_t copyConfig(zantLogCfg *destination, const zantLogCfg *source) {
    // Kept: recycling, reload interval, secure-audit level, event category, masks and what only log sets have
    // are not inherited; the records that tools are shown of originators rely on it.
    clear(destination);
    destination->productId = source->productId;
    destination->originatorId = source->originatorId;
    destination->debugLevel = source->debugLevel;
    destination->diagLevel = source->diagLevel;
    destination->appMsgLogging = source->appMsgLogging;
    destination->outputFlags = source->outputFlags;
    destination->numberOfLogFiles = source->numberOfLogFiles;
    copyBounded(destination->logDirectory, sizeof destination->logDirectory, source->logDirectory);
    copyBounded(destination->originatorNames, sizeof destination->originatorNames, source->originatorNames);
    copyBounded(destination->productNames, sizeof destination->productNames, source->productNames);
    destination->maxLogFileSizeKB = source->maxLogFileSizeKB;
    destination->rolloverMode = source->rolloverMode;
    destination->rolloverPeriod = source->rolloverPeriod;
    destination->rolloverTime = source->rolloverTime;
    copyBounded(destination->eventSource.name, sizeof destination->eventSource.name,
                source->eventSource.name);
    if (!duplicate(&destination->l10nLib, source->l10nLib) ||
        !duplicate(&destination->l10nResource, source->l10nResource) ||
        !duplicate(&destination->l10nResourceDir, source->l10nResourceDir) ||
        !duplicate(&destination->logFileSDDL, source->logFileSDDL)) {
        (void)zantLogFreeCfg(destination);
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return ZANTLOG_OK;
}

} // namespace zantlog

extern "C" uint32_t zantLogFreeCfg(zantLogCfg *cfg) {
    if (cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    (void)FreeFileSecuritySetting(&cfg->logFileSDDL);
    zantLogFree(cfg->l10nLib);
    zantLogFree(cfg->l10nResource);
    zantLogFree(cfg->l10nResourceDir);
    zantLogFree(cfg->logSetName);
    zantLogFree(cfg->logSetFileName);
    zantLogFree(cfg->oidAppMsgLogging);
    zantLogFree(cfg->oidDebugLogging);
    zantLogFree(cfg->oidDiagLogging);
    zantlog::clear(cfg);
    return ZANTLOG_OK;
}
