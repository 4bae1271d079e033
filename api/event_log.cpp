// Opening and closing the event log for a handle.
#include "zantlog/event_log.h"

#include <cstring>

#include "logfile/os/os_event_log.h"
#include "zantlog/results.h"

using namespace zantlog;

int32_t osLogOpen(const zantLogEventSource *source, zantLogEventLog *log) {
    if (source == nullptr || log == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    char name[ZANTLOG_EVENT_SOURCE_NAME + 1] = {}; // a name that fills its field has no terminator there
    std::memcpy(name, source->name, ZANTLOG_EVENT_SOURCE_NAME);
    log->category = source->category;
    log->handle = os::openEventLog(name);
    return log->handle != nullptr ? ZANTLOG_OS_OK : ZANTLOG_OS_FAILED;
}

int32_t osLogOpenEx(const zantLogEventSource *source, zantLogEventLog *log) {
    return osLogOpen(source, log);
}

int32_t osLogClose(void **eventLogHandle) {
    if (eventLogHandle == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    if (*eventLogHandle != nullptr) {
        os::closeEventLog(*eventLogHandle);
    }
    *eventLogHandle = nullptr;
    return ZANTLOG_OS_OK;
}
