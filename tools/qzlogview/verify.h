// Whether files are whole: every line a record, no number missing.
#pragma once

#include <string>
#include <vector>

#include "tools/qzlogview/file_reader.h"

namespace zantlog::view {

// Reads everything and reports each damaged place, the files in the order in which they were begun. Returns
// the number of records.
uint64_t verifyFiles(const std::vector<std::string> &paths, const DamageSink &damage);

} // namespace zantlog::view
