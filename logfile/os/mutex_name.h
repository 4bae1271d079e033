// The mutex that belongs to a log file.
#pragma once

#include <cstddef>

#include "logfile/os/os_error.h"

namespace zantlog {

// Creates or opens the mutex of the file at `path`: its name is the path exactly as given, with every "\" as
// "_".
//
// Where the system refuses a name for its length (more than 260 characters), all processes agree on a shorter
// one: 16 hexadecimal digits of the 64-bit FNV-1a hash of the whole name, "_", and the name's last 200 bytes.
[[nodiscard]] os::SystemError createFileMutex(const char *path, void **mutex);

inline constexpr size_t kShortMutexName = 16 + 1 + 200 + 1; // with the terminator

// The shorter name; the path has 200 characters or more.
void shortMutexName(const char *path, size_t length, char (&name)[kShortMutexName]);

} // namespace zantlog
