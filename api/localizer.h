// The localisation library, loaded by name when a sink first needs it.
#pragma once

#include "zantlog/handle.h"

namespace zantlog {

// Its one export. Returns 0 and a text that zantLogFree() releases, or a result of its own.
using LogFormatMessage = uint32_t (*)(zantLogLocalizerList *list, uint32_t reserved1, const char *locale,
                                      uint32_t reserved2, uint32_t flags, uint32_t reserved3,
                                      zantLogMsgRec *rec, zantLogHandle *handle, char **text);

// Null while the library or its export is missing. Call it under the common lock.
LogFormatMessage localizerFormatter();

} // namespace zantlog
