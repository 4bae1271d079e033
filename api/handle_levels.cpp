// Levels and sequence numbers of a log handle.
#include "api/shared_field.h"
#include "base/common_lock.h"
#include "zantlog/config_store.h"
#include "zantlog/handle.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

template <typename T>
uint32_t setField(zantLogHandle *handle, T zantLogHandle::*field, T value, const char *label) {
    if (handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock(label);
    writeShared(handle->*field, value);
    return ZANTLOG_OK;
}

template <typename T>
uint32_t getField(zantLogHandle *handle, T zantLogHandle::*field, T *out, const char *label) {
    if (handle == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock(label);
    *out = readShared(handle->*field);
    return ZANTLOG_OK;
}

// The reload comes first, so that a level changed in the store is seen.
uint32_t getReloadedLevel(zantLogHandle *handle, int32_t zantLogHandle::*field, int32_t *out,
                          const char *label) {
    if (handle == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock(label);
    zantDynaLoadConfig(handle);
    *out = readShared(handle->*field);
    return ZANTLOG_OK;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogSetDebugLevel(zantLogHandle *handle, int32_t level) {
    return setField(handle, &zantLogHandle::debugLevel, level, "zantLogSetDebugLevel()");
}

uint32_t zantLogGetDebugLevel(zantLogHandle *handle, int32_t *level) {
    return getReloadedLevel(handle, &zantLogHandle::debugLevel, level, "zantLogGetDebugLevel()");
}

uint32_t zantLogSetDiagLevel(zantLogHandle *handle, int32_t level) {
    return setField(handle, &zantLogHandle::diagLevel, level, "zantLogSetDiagLevel()");
}

uint32_t zantLogGetDiagLevel(zantLogHandle *handle, int32_t *level) {
    return getReloadedLevel(handle, &zantLogHandle::diagLevel, level, "zantLogGetDiagLevel()");
}

uint32_t zantLogSetSecureAuditLevel(zantLogHandle *handle, int32_t level) {
    return setField(handle, &zantLogHandle::secureAuditLevel, level, "zantLogSetSecureAuditLevel()");
}

uint32_t zantLogGetSecureAuditLevel(zantLogHandle *handle, int32_t *level) {
    return getField(handle, &zantLogHandle::secureAuditLevel, level, "zantLogGetSecureAuditLevel()");
}

uint32_t zantLogSetSequenceNumber(zantLogHandle *handle, uint32_t number) {
    return setField(handle, &zantLogHandle::sequence, number, "zantLogSetSequenceNumber()");
}

uint32_t zantLogGetSequenceNumber(zantLogHandle *handle, uint32_t *number) {
    // The setter's label; kept: dumps of the holders show one name for both.
    return getField(handle, &zantLogHandle::sequence, number, "zantLogSetSequenceNumber()");
}

uint32_t GetNextSequenceNumber(zantLogHandle *handle) {
    if (handle == nullptr) {
        return 0;
    }
    const CommonLock lock("GetNextSequenceNumber()");
    const uint32_t number = readShared(handle->sequence);
    writeShared(handle->sequence, number + 1);
    return number;
}

void InitializeLocalizerList(zantLogLocalizerList *list) {
    if (list == nullptr) {
        return;
    }
    list->words[0] = nullptr;
    list->words[1] = nullptr;
}
