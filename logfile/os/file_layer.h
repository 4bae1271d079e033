// What the library itself needs of the file layer beyond its exported functions.
#pragma once

#include "zantlog/os_layer.h"

namespace zantlog {

enum class AppendOutcome {
    Written,  // all bytes are at the end of the file
    Skipped,  // appendIfEmpty: the file was not empty
    Failed,   // nothing of the block is in the file
    DiskFull, // the same, and the disk is full
};

// Appends a block as one write under the file's mutex.
[[nodiscard]] AppendOutcome appendBlock(zantLogOsFile *file, const void *bytes, uint32_t count);

// The same, only if the file holds nothing yet once the mutex is held: of several processes that create a
// file at once, one writes its first block.
[[nodiscard]] AppendOutcome appendIfEmpty(zantLogOsFile *file, const void *bytes, uint32_t count);

// Marks the record as closed with nothing buffered.
void resetOsFile(zantLogOsFile *file);

} // namespace zantlog
