// Log files as the rest of the library sees them: appended to under a mutex, read in blocks.
#include "logfile/os/file_layer.h"

#include "logfile/os/mutex_name.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_host.h"
#include "logfile/os/os_mutex.h"
#include "logfile/os/os_thread.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

// Read as int32_t by the interface: a longer block could not report its length.
constexpr uint32_t kLongestBlock = INT32_MAX;

// Holds the mutex of a file for a scope.
class FileMutex {
public:
    explicit FileMutex(void *mutex) : mutex_(mutex), held_(os::acquireMutex(mutex) == os::kErrorNone) {}
    ~FileMutex() {
        if (held_) {
            os::releaseMutex(mutex_);
        }
    }
    FileMutex(const FileMutex &) = delete;
    FileMutex &operator=(const FileMutex &) = delete;

    [[nodiscard]] bool held() const { return held_; }

private:
    void *mutex_;
    bool held_;
};

AppendOutcome failedAppend(os::SystemError error) {
    return error == os::kErrorDiskFull ? AppendOutcome::DiskFull : AppendOutcome::Failed;
}

// A write that took only a part does not say why; the attempt to write the rest does.
AppendOutcome failedShortAppend(void *file, const void *bytes, uint32_t count, uint32_t written) {
    uint32_t ignored = 0;
    return failedAppend(
        os::writeFile(file, static_cast<const char *>(bytes) + written, count - written, &ignored));
}

// The mutex is held and the file stands at its end, `position`.
AppendOutcome writeAtEnd(void *file, uint64_t position, const void *bytes, uint32_t count) {
    uint32_t written = 0;
    const os::SystemError error = os::writeFile(file, bytes, count, &written);
    AppendOutcome outcome = AppendOutcome::Written;
    if (error != os::kErrorNone) {
        outcome = failedAppend(error);
    } else if (written < count) {
        outcome = failedShortAppend(file, bytes, count, written);
    }
    if (outcome != AppendOutcome::Written) {
        // Readers meet whole records only. Should this fail too, nothing more can be done.
        static_cast<void>(os::truncateFile(file, position));
    }
    os::stampLastWrite(file);
    return outcome;
}

enum class AppendTo { AnyFile, EmptyFile };

AppendOutcome append(zantLogOsFile *file, const void *bytes, uint32_t count, AppendTo target) {
    // A closed record keeps the number of its mutex, which may be somebody else's handle by now.
    if (file->file == nullptr || count > kLongestBlock) {
        return AppendOutcome::Failed;
    }
    const FileMutex mutex(file->mutex);
    if (!mutex.held()) {
        return AppendOutcome::Failed;
    }
    uint64_t position = 0;
    if (os::seekToEnd(file->file, &position) != os::kErrorNone) {
        return AppendOutcome::Failed;
    }
    if (target == AppendTo::EmptyFile && position != 0) {
        return AppendOutcome::Skipped;
    }
    return writeAtEnd(file->file, position, bytes, count);
}

bool fileModeOf(int32_t mode, os::FileMode *out) {
    switch (mode) {
    case ZANTLOG_OPEN_APPEND:
        *out = os::FileMode::Append;
        return true;
    case ZANTLOG_OPEN_READ:
        *out = os::FileMode::Read;
        return true;
    case ZANTLOG_OPEN_CREATE:
        *out = os::FileMode::Truncate;
        return true;
    default:
        return false;
    }
}

void nothingBuffered(zantLogOsFile *file) {
    file->position = -1;
    file->length = 0;
}

} // namespace

AppendOutcome appendBlock(zantLogOsFile *file, const void *bytes, uint32_t count) {
    return append(file, bytes, count, AppendTo::AnyFile);
}

AppendOutcome appendIfEmpty(zantLogOsFile *file, const void *bytes, uint32_t count) {
    return append(file, bytes, count, AppendTo::EmptyFile);
}

void resetOsFile(zantLogOsFile *file) {
    file->file = nullptr;
    file->mutex = nullptr;
    nothingBuffered(file);
}

} // namespace zantlog

using namespace zantlog;

int32_t zantLogOs_open(zantLogOsFile *file, const char *path, int32_t mode, const char *sddl) {
    if (file == nullptr || path == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    resetOsFile(file);
    os::FileMode fileMode{};
    if (!fileModeOf(mode, &fileMode)) {
        return ZANTLOG_OS_OPEN_FAILED;
    }
    if (fileMode != os::FileMode::Read && createFileMutex(path, &file->mutex) != os::kErrorNone) {
        return ZANTLOG_OS_FAILED;
    }
    const os::SystemError error = os::openFile(path, fileMode, sddl, &file->file);
    if (error == os::kErrorNone) {
        return ZANTLOG_OS_OK;
    }
    if (file->mutex != nullptr) {
        os::closeMutex(file->mutex);
        file->mutex = nullptr;
    }
    const bool denied = error == os::kErrorPathNotFound || error == os::kErrorAccessDenied;
    return denied ? ZANTLOG_OS_PATH_DENIED : ZANTLOG_OS_OPEN_FAILED;
}

int32_t zantLogOs_append(zantLogOsFile *file, const void *bytes, uint32_t count) {
    if (file == nullptr || (bytes == nullptr && count != 0)) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    const AppendOutcome outcome = appendBlock(file, bytes, count);
    return outcome == AppendOutcome::Written ? static_cast<int32_t>(count) : ZANTLOG_OS_FAILED;
}

int32_t zantLogOs_read(zantLogOsFile *file, void *buffer, uint32_t count) {
    if (file == nullptr || (buffer == nullptr && count != 0)) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    nothingBuffered(file);
    uint32_t read = 0;
    if (file->file == nullptr || count > kLongestBlock ||
        os::readFile(file->file, buffer, count, &read) != os::kErrorNone) {
        return ZANTLOG_OS_FAILED;
    }
    if (read != 0) {
        file->position = 0;
        file->length = static_cast<int32_t>(read);
    }
    return static_cast<int32_t>(read);
}

int32_t zantLogOs_fsize(zantLogOsFile *file, uint32_t *size) {
    if (file == nullptr || size == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    uint64_t bytes = 0;
    if (file->file == nullptr || os::fileSize(file->file, &bytes) != os::kErrorNone) {
        return ZANTLOG_OS_FAILED;
    }
    // Kept: sizes are handed out modulo 4 GiB, which is what the interface's 32 bits hold.
    *size = static_cast<uint32_t>(bytes);
    return ZANTLOG_OS_OK;
}

int32_t zantLogOs_seek(zantLogOsFile *file, uint64_t offset) {
    if (file == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    nothingBuffered(file);
    const bool moved = file->file != nullptr && os::seekTo(file->file, offset) == os::kErrorNone;
    return moved ? ZANTLOG_OS_OK : ZANTLOG_OS_FAILED;
}

int32_t zantLogOs_close(zantLogOsFile *file) {
    if (file == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    if (file->file == nullptr) {
        return ZANTLOG_OS_OK;
    }
    os::closeFile(file->file);
    file->file = nullptr;
    if (file->mutex != nullptr) {
        // Kept: the field stays as it was, and tells a file that was written from one that was read.
        os::closeMutex(file->mutex);
    }
    return ZANTLOG_OS_OK;
}

int32_t zantLogOs_remove(const char *path) {
    if (path == nullptr) {
        return ZANTLOG_OS_FAILED;
    }
    return os::deleteFile(path) == os::kErrorNone ? ZANTLOG_OS_OK : ZANTLOG_OS_FAILED;
}

struct tm *zantLogOs_localtime_r(const int64_t *time, struct tm *out) {
    return time != nullptr && out != nullptr && os::localTime(*time, out) ? out : nullptr;
}

struct tm *zantLogOs_gmtime_r(const int64_t *time, struct tm *out) {
    return time != nullptr && out != nullptr && os::utcTime(*time, out) ? out : nullptr;
}

uint32_t getTID(void) {
    return os::threadId();
}

uint32_t getPID(void) {
    return os::processId();
}

int32_t osSocketStartup(void) {
    return os::startSockets() ? 0 : 1;
}

int32_t osSocketCleanup(void) {
    os::cleanUpSockets();
    return 0;
}
