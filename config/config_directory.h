// The log directory of a configuration record.
#pragma once

#include "zantlog/config.h"

namespace zantlog {

// A drive letter, ":" and "\", or two backslashes. "E:x", "E:/x" and "E:" are relative.
[[nodiscard]] bool isAbsolutePath(const char *path);

// Takes a stored directory over: it replaces the record's when it is absolute or when the caller says so,
// else it is appended to it. One that does not fit is ignored.
void storeDirectory(zantLogCfg *cfg, const char *directory, bool replace);

} // namespace zantlog
