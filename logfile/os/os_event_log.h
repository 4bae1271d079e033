// The system's event log.
#pragma once

#include "logfile/os/os_error.h"

namespace zantlog::os {

// Opens the log of the local machine for a source; null on failure.
void *openEventLog(const char *source);
void closeEventLog(void *log);

struct Event {
    uint16_t type;
    uint16_t category;
    uint32_t id;
    uint16_t stringCount;
    const wchar_t **strings;
};

[[nodiscard]] SystemError reportEvent(void *log, const Event &event);

} // namespace zantlog::os
