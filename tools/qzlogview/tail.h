// The last records of many files, without reading all of them.
#pragma once

#include <vector>

#include "tools/qzlogview/file_reader.h"

namespace zantlog::view {

// The last `count` wanted records of all files together, in order. `ends` receives the offset behind the last
// whole line of each file.
std::vector<EntryPointer> lastRecords(const std::vector<Source> &sources, size_t count,
                                      const RecordFilter &filter, const DamageSink &damage,
                                      std::vector<uint64_t> *ends);

} // namespace zantlog::view
