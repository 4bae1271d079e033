// Closing of a handle's log file.
#include "base/common_lock.h"
#include "logfile/writer/handle_list.h"
#include "logfile/writer/shared_slot.h"

extern "C" uint32_t zantLogCloseFile(zantLogHandle *handle) {
    using namespace zantlog;
    if (handle == nullptr || handle->file == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogCloseFile()");
    if (!detachHandle(handle)) {
        return ZANTLOG_FAILURE;
    }
    zantLogFile *state = handle->file;
    if (state->handles != nullptr) {
        return ZANTLOG_OK; // the handle keeps its state, and so is told apart from one that never had any
    }
    if (!isLogSetFile(*state)) {
        emptySlot(*state);
    }
    freeWriterState(state);
    handle->file = nullptr;
    return ZANTLOG_OK;
}
