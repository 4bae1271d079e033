// Loading of one section of the store over what a record already holds.
#pragma once

#include "base/owned_text.h"
#include "zantlog/config.h"

namespace zantlog {

// The section of a product or an originator. A section that does not exist is none to fail for: the record
// stays as it was. Result codes: 0, or another than 6 that the store's result maps to.
[[nodiscard]] uint32_t loadSection(const char *path, const char *section, zantLogCfg *cfg);

// A log set; returns the number of keys found. The record is left alone when the log set cannot be opened.
[[nodiscard]] uint32_t loadLogSet(const char *logSetsPath, const char *logSet, zantLogCfg *cfg);

// Name of a log set's section below the path of its product's log sets. False when it does not fit.
struct LogSetSection {
    char name[1024]; // more than a name in either back end can have
};
[[nodiscard]] bool nameLogSetSection(const char *logSetsPath, const char *logSet, LogSetSection *section);

// Whether a path names a configuration file; else it is a registry path.
[[nodiscard]] bool isConfigFile(const char *path);

// Where the log sets of a product are whose configuration is at `path`; null when memory is short.
[[nodiscard]] OwnedText logSetsPath(const char *path);

} // namespace zantlog
