// The system's event log.
#include "logfile/os/os_event_log.h"

#include <windows.h>

namespace zantlog::os {

void *openEventLog(const char *source) {
    return OpenEventLogA(nullptr, source);
}

void closeEventLog(void *log) {
    CloseEventLog(log);
}

SystemError reportEvent(void *log, const Event &event) {
    // Kept: events are reported through a handle of OpenEventLog(), as the handles in the callers' records
    // are.
    if (!ReportEventW(log, event.type, event.category, event.id, nullptr, event.stringCount, 0, event.strings,
                      nullptr)) {
        return GetLastError();
    }
    return kErrorNone;
}

} // namespace zantlog::os
