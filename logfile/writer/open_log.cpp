// Opening of a handle's log file.
#include <cstring>

#include "base/bounded_text.h"
#include "base/common_lock.h"
#include "base/owned_text.h"
#include "logfile/os/os_clock.h"
#include "logfile/writer/current_file.h"
#include "logfile/writer/handle_list.h"
#include "logfile/writer/shared_slot.h"

namespace zantlog {

namespace {

// A state that no handle is attached to has no other owner than the handle that brought it.
void dropState(zantLogHandle *handle) {
    if (handle->file != nullptr && handle->file->handles == nullptr) {
        freeWriterState(handle->file);
    }
    handle->file = nullptr;
}

// Copies of the configuration's texts that a state may need, made before anything is changed.
struct SettingTexts {
    OwnedText fileSecurity;
    OwnedText logSetName;
};

bool copySettingTexts(const zantLogCfg &cfg, SettingTexts *texts) {
    texts->fileSecurity = copyText(cfg.logFileSDDL);
    texts->logSetName = copyText(cfg.logSetName);
    return (texts->fileSecurity != nullptr || cfg.logFileSDDL == nullptr) &&
           (texts->logSetName != nullptr || cfg.logSetName == nullptr);
}

// The handle's state with the file configuration's ids: its own, or the one that handles of these ids share.
zantLogFile *chooseState(zantLogHandle *handle, const zantLogCfg &fileCfg) {
    zantLogFile *own = handle->file;
    own->productId = fileCfg.productId;
    own->originatorId = fileCfg.originatorId;
    zantLogFile *chosen = fileCfg.isLogSet == 1 ? own : shareState(own);
    if (chosen != own) {
        dropState(handle);
        handle->file = chosen;
    }
    return chosen;
}

void replaceText(char **field, OwnedText *text) {
    zantLogFree(*field);
    *field = text->release();
}

void copySettings(zantLogFile *state, const zantLogCfg &cfg, SettingTexts *texts) {
    state->isLogSet = cfg.isLogSet;
    (void)copyBounded(state->directory, sizeof state->directory, cfg.logDirectory);
    state->maximumSizeKB = cfg.maxLogFileSizeKB;
    state->rolloverMode = cfg.rolloverMode;
    state->recycle = cfg.logRecycle;
    state->period = cfg.rolloverPeriod;
    state->timeOfDay = cfg.rolloverTime;
    replaceText(&state->logSetName, &texts->logSetName);
    if (isFresh(*state)) {
        state->fileDay = {};
        replaceText(&state->fileSecurity, &texts->fileSecurity);
    }
}

void fillHandle(zantLogHandle *handle, const zantLogCfg &cfg) {
    handle->debugLevel = static_cast<int32_t>(cfg.debugLevel);
    handle->diagLevel = static_cast<int32_t>(cfg.diagLevel);
    handle->outputFlags = cfg.outputFlags;
    handle->noContext = 1;
    handle->sequence = 1;
    handle->openTime = os::nowSeconds();
    handle->lastReloadTime = handle->openTime;
    handle->reloadInterval = cfg.dynaReloadInSec;
    handle->originatorId = cfg.originatorId;
}

OwnedBlock<LogFileEntry> findLatestFile(zantLogFile *state) {
    LogFileEntry *entry = nullptr;
    const int64_t now = os::nowSeconds();
    if (isLogSetFile(*state)) {
        (void)zantLogFindLatestLogSL(state, state->productId, state->logSetName, 0, now, &entry);
    } else {
        (void)zantLogFindLatestLog(state, state->productId, state->originatorId, 0, now, &entry);
    }
    return OwnedBlock<LogFileEntry>(entry);
}

uint32_t openFirstFile(zantLogFile *state) {
    const OwnedBlock<LogFileEntry> latest = findLatestFile(state);
    FileOrigin origin{};
    return openCurrentFile(state, latest != nullptr ? latest->name : nullptr, &origin);
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogOpenFile(zantLogHandle *handle, zantLogCfg *handleCfg, zantLogCfg *fileCfg) {
    using namespace zantlog;
    if (handle == nullptr || handleCfg == nullptr || fileCfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (fileCfg->logDirectory[0] == '\0') {
        dropState(handle);
        return ZANTLOG_EMPTY_DIRECTORY;
    }
    if (handle->file == nullptr) {
        return ZANTLOG_NO_WRITER;
    }
    if (fileCfg->isLogSet == 1 && isLogSetValid(fileCfg->logSetName) == 0) {
        dropState(handle);
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogOpenFile()");
    SettingTexts texts;
    if (!copySettingTexts(*fileCfg, &texts)) {
        dropState(handle);
        return ZANTLOG_OUT_OF_MEMORY;
    }
    zantLogFile *state = chooseState(handle, *fileCfg);
    copySettings(state, *fileCfg, &texts);
    fillHandle(handle, *handleCfg);
    const uint32_t result = zantLogAddLogToFile(handle);
    return result == ZANTLOG_OK && isFresh(*state) ? openFirstFile(state) : result;
}
