// Libraries loaded by name.
#pragma once

#include "logfile/os/os_error.h"

namespace zantlog::os {

// With an altered search path: the directory of a full path is searched for what the library itself needs.
[[nodiscard]] SystemError loadModule(const char *fileName, void **module);
void unloadModule(void *module);

// Null when the module has no such export.
void *resolveFunction(void *module, const char *name);

} // namespace zantlog::os
