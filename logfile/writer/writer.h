// What handles need of the log file writer beyond its exported functions.
#pragma once

#include "zantlog/log_file.h"

namespace zantlog {

// A fresh writer state, zero-filled, with nothing buffered; null when memory is short.
[[nodiscard]] zantLogFile *allocateWriterState();

// Product id of the log file that a state writes.
uint32_t writerProductId(const zantLogFile *file);

} // namespace zantlog
