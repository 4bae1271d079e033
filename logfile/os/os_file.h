// Files and directories.
#pragma once

#include "logfile/os/os_error.h"

namespace zantlog::os {

enum class FileMode {
    Append,   // write access, created if missing
    Read,     // read access, must exist
    Truncate, // write access, created anew
};

// Opens a file, shared for reading and writing, not inheritable. The security descriptor text (SDDL) is
// applied to files opened for writing; null, or a text that does not parse, stands for the default security.
[[nodiscard]] SystemError openFile(const char *path, FileMode mode, const char *sddl, void **file);
void closeFile(void *file);

// Moves to the end; *position receives the size of the file there.
[[nodiscard]] SystemError seekToEnd(void *file, uint64_t *position);

// Moves to a position, which may lie behind the end.
[[nodiscard]] SystemError seekTo(void *file, uint64_t position);

// One write at the current position; fewer bytes than asked for is not an error here.
[[nodiscard]] SystemError writeFile(void *file, const void *bytes, uint32_t count, uint32_t *written);

// One read at the current position; 0 bytes read is the end of the file.
[[nodiscard]] SystemError readFile(void *file, void *buffer, uint32_t count, uint32_t *read);

[[nodiscard]] SystemError fileSize(void *file, uint64_t *size);

// Cuts the file at `size` bytes.
[[nodiscard]] SystemError truncateFile(void *file, uint64_t size);

// Sets the last-write time to the current system time; creation and access times stay.
void stampLastWrite(void *file);

[[nodiscard]] SystemError deleteFile(const char *path);

// Copies, overwriting an existing destination.
[[nodiscard]] SystemError copyFile(const char *source, const char *destination);

// Renames onto an existing file in one step.
[[nodiscard]] SystemError replaceFile(const char *source, const char *destination);

[[nodiscard]] SystemError createDirectory(const char *path, const char *sddl);

struct FileStatus {
    bool regular;
    int64_t lastWrite; // seconds since 1970
};

[[nodiscard]] SystemError fileStatus(const char *path, FileStatus *status);

} // namespace zantlog::os
