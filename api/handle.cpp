// Opening and closing log handles.
#include "zantlog/handle.h"

#include <cstring>

#include "api/sinks.h"
#include "base/owned_text.h"
#include "config/config_record.h"
#include "logfile/writer/writer.h"
#include "zantlog/config_store.h"
#include "zantlog/event_log.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

// A configuration record that frees its texts.
struct ScopedCfg {
    zantLogCfg record;

    ScopedCfg() { std::memset(&record, 0, sizeof record); }
    ~ScopedCfg() { zantLogFreeCfg(&record); }
    ScopedCfg(const ScopedCfg &) = delete;
    ScopedCfg &operator=(const ScopedCfg &) = delete;
};

uint32_t openEventLogFor(zantLogHandle *handle, const zantLogCfg &cfg) {
    return osLogOpen(&cfg.eventSource, &handle->eventLog) == ZANTLOG_OS_OK ? ZANTLOG_OK
                                                                           : ZANTLOG_EVENT_LOG_UNAVAILABLE;
}

// Levels and flags come from the first configuration, the log file from the second.
uint32_t openWithConfigurations(zantLogHandle *handle, zantLogCfg *handleCfg, zantLogCfg *fileCfg) {
    handle->file = allocateWriterState();
    if (handle->file == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    const uint32_t result = zantLogOpenFile(handle, handleCfg, fileCfg);
    if (result != ZANTLOG_OK || (handleCfg->outputFlags & ZANTLOG_TO_EVENT_LOG) == 0) {
        return result;
    }
    return openEventLogFor(handle, *handleCfg);
}

void finishOpen(zantLogHandle *handle) {
    InitializeLocalizerList(&handle->localizer);
    handle->secureConfig = nullptr;
}

uint32_t openProductLog(uint32_t productId, uint32_t originatorId, uint32_t fileOriginatorId,
                        zantLogHandle *handle) {
    ScopedCfg handleCfg;
    uint32_t result = zantLogReadCfg(productId, originatorId, &handleCfg.record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    ScopedCfg fileCfg;
    result = zantLogReadCfg(productId, fileOriginatorId, &fileCfg.record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    return openWithConfigurations(handle, &handleCfg.record, &fileCfg.record);
}

uint32_t openLogSet(uint32_t productId, uint32_t originatorId, const char *logSet, zantLogHandle *handle) {
    ScopedCfg handleCfg;
    uint32_t result = zantLogReadCfg(productId, originatorId, &handleCfg.record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    ScopedCfg fileCfg;
    result = zantLogReadlogsetCfg(productId, logSet, &fileCfg.record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    return openWithConfigurations(handle, &handleCfg.record, &fileCfg.record);
}

// A copy that cannot be had is no failure of the open: events then carry ids of 0.
zantLogCfg *privateCopy(const zantLogCfg &cfg) {
    OwnedBlock<zantLogCfg> copy = allocateBlock<zantLogCfg>(1);
    if (!copy || copyConfig(copy.get(), &cfg) != ZANTLOG_OK) {
        return nullptr;
    }
    return copy.release();
}

void releaseSecureConfig(zantLogHandle *handle) {
    const OwnedConfig released(handle->secureConfig);
    handle->secureConfig = nullptr;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogOpen(uint32_t productId, uint32_t originatorId, zantLogHandle *handle) {
    return zantLogOpen2(productId, originatorId, originatorId, handle);
}

uint32_t zantLogOpen2(uint32_t productId, uint32_t originatorId, uint32_t fileOriginatorId,
                      zantLogHandle *handle) {
    if (isProdIdValid(productId) == 0 || isOrigIdValid(originatorId) == 0 ||
        isOrigIdValid(fileOriginatorId) == 0 || handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memset(handle, 0, sizeof *handle);
    const uint32_t result = openProductLog(productId, originatorId, fileOriginatorId, handle);
    finishOpen(handle);
    return result;
}

uint32_t zantLogOpenLogSet(uint32_t productId, uint32_t originatorId, const char *logSet,
                           zantLogHandle *handle) {
    if (isProdIdValid(productId) == 0 || isOrigIdValid(originatorId) == 0 || isLogSetValid(logSet) == 0 ||
        handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memset(handle, 0, sizeof *handle);
    const uint32_t result = openLogSet(productId, originatorId, logSet, handle);
    finishOpen(handle);
    return result;
}

uint32_t zantLogSecureOpen(uint32_t productId, uint32_t originatorId, uint64_t, zantLogCfg *cfg,
                           zantLogHandle *handle) {
    if (isProdIdValid(productId) == 0 || isOrigIdValid(originatorId) == 0 || cfg == nullptr ||
        handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memset(handle, 0, sizeof *handle);
    handle->noContext = 1;
    handle->secureAuditLevel = static_cast<int32_t>(cfg->secureAuditLevel);
    handle->outputFlags = (cfg->outputFlags & ZANTLOG_SECURE_EVENT) | ZANTLOG_TO_EVENT_LOG;
    const uint32_t result = openEventLogFor(handle, *cfg);
    InitializeLocalizerList(&handle->localizer);
    cfg->productId = productId;
    cfg->originatorId = originatorId;
    handle->secureConfig = privateCopy(*cfg);
    return result;
}

uint32_t zantLogClose(zantLogHandle *handle) {
    if (handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    osLogClose(&handle->eventLog.handle);
    releaseSecureConfig(handle);
    return zantLogCloseFile(handle);
}
