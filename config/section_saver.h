// Saving of one section of the property store from a configuration record: what its masks say, key by key.
#pragma once

#include "zantlog/config.h"

namespace zantlog {

// A section of a product's configuration. Result codes of zantLogWriteCfg(), without 3 and 6.
[[nodiscard]] uint32_t saveSection(const char *path, const char *section, const zantLogCfg &cfg);

// A log set below `logSetsPath`. Result codes of zantLogWritelogSetCfg(), without 3 and 6.
[[nodiscard]] uint32_t saveLogSet(const char *logSetsPath, const char *logSet, const zantLogCfg &cfg);

} // namespace zantlog
