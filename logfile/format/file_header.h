// The first line of a log file.
#pragma once

#include "logfile/os/file_layer.h"
#include "zantlog/discovery_types.h"

namespace zantlog {

inline constexpr size_t kHeaderLineBytes = 640;

// The first word of every header line.
inline constexpr char kHeaderTag[] = "$Header";

// Fills a header for a file that is created now: time, time zone and host name are taken from the system.
// Result codes: 0; 1 the host name cannot be read.
[[nodiscard]] uint32_t fillHeader(LogFileHeader *header, uint32_t version, uint32_t productId,
                                  uint32_t originatorId);

// The header as a line with its line feed. False for a version that has no header line.
[[nodiscard]] bool formatHeader(const LogFileHeader &header, char (&line)[kHeaderLineBytes], size_t *length);

// Writes the header line under the file's mutex, if the file is still empty then. Result codes: 0 (also when
// another process has written one); 1 unsupported version or write failure.
[[nodiscard]] uint32_t writeHeader(zantLogOsFile *file, const LogFileHeader &header);

} // namespace zantlog
