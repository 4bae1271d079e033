#include "logfile/writer/handle_list.h"

#include "base/common_lock.h"

namespace zantlog {

void attachHandle(zantLogHandle *handle) {
    zantLogFile *state = handle->file;
    for (const zantLogHandle *at = state->handles; at != nullptr; at = at->next) {
        if (at == handle) {
            return;
        }
    }
    handle->next = state->handles;
    state->handles = handle;
}

bool detachHandle(zantLogHandle *handle) {
    for (zantLogHandle **link = &handle->file->handles; *link != nullptr; link = &(*link)->next) {
        if (*link == handle) {
            *link = handle->next;
            handle->next = nullptr;
            return true;
        }
    }
    return false;
}

} // namespace zantlog

extern "C" uint32_t zantLogAddLogToFile(zantLogHandle *handle) {
    if (handle == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (handle->file == nullptr) {
        return ZANTLOG_NO_WRITER;
    }
    const zantlog::CommonLock lock("zantLogAddLogToFile()");
    zantlog::attachHandle(handle);
    return ZANTLOG_OK;
}
