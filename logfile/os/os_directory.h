// Directory listings.
#pragma once

#include "logfile/os/os_error.h"
#include "zantlog/discovery_types.h"

namespace zantlog::os {

// Finds the first file that matches the pattern ("C:\logs\*.log"). *find is null after a failure.
[[nodiscard]] SystemError findFirst(const char *pattern, void **find, zantLogFindData *data);

// kErrorNoMoreFiles at the end.
[[nodiscard]] SystemError findNext(void *find, zantLogFindData *data);

void findClose(void *find);

} // namespace zantlog::os
