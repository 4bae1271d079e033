// The records of many files as one stream in the order of their times.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tools/qzlogview/file_reader.h"

namespace zantlog::view {

struct MergeOptions {
    size_t mostOpenFiles = 128; // others wait, closed, with their records that are read already
    size_t lookAhead = 8192;    // records of all files together that are held
    std::function<void(uint64_t bytes)> progress; // bytes read so far; may be empty
};

// Hands the records of all files to the function, until it answers false. Sources outlive the call.
void mergeFiles(const std::vector<Source> &sources, const RecordFilter &filter, const DamageSink &damage,
                const MergeOptions &options, const std::function<bool(const Entry &)> &take);

} // namespace zantlog::view
