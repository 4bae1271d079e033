// Copying and deleting log files.
#include <algorithm>
#include <cstring>

#include "base/owned_text.h"
#include "logfile/os/file_layer.h"
#include "logfile/os/os_console.h"
#include "logfile/os/os_file.h"
#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr uint32_t kCopyBlock = 1022;

// The source's name with the separator before it; null when there is none.
const char *lastComponent(const char *source) {
    return std::strrchr(source, '\\');
}

// Kept: the directory is a prefix, so a source without a separator joins its last name.
OwnedText destinationPath(const char *directory, const char *component) {
    const size_t directoryLength = std::strlen(directory);
    const size_t componentLength = std::strlen(component);
    OwnedText path = allocateBlock<char>(directoryLength + componentLength + 1);
    if (path != nullptr) {
        std::memcpy(path.get(), directory, directoryLength);
        std::memcpy(path.get() + directoryLength, component, componentLength + 1);
    }
    return path;
}

char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

// The same path but for case and doubled separators.
bool isSamePath(const char *left, const char *right) {
    while (lowered(*left) == lowered(*right)) {
        if (*left == '\0') {
            return true;
        }
        const bool separator = *left == '\\';
        do {
            ++left;
        } while (separator && *left == '\\');
        do {
            ++right;
        } while (separator && *right == '\\');
    }
    return false;
}

// An open file, closed at the end of the scope. The record is large and so lives on the heap.
class OpenFile {
public:
    OpenFile() : file_(allocateBlock<zantLogOsFile>(1)) {
        if (file_ != nullptr) {
            resetOsFile(file_.get());
        }
    }
    ~OpenFile() { (void)zantLogOs_close(file_.get()); }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    [[nodiscard]] zantLogOsFile *get() const { return file_.get(); }

private:
    OwnedBlock<zantLogOsFile> file_;
};

uint32_t copyBlock(zantLogOsFile *source, zantLogOsFile *destination, uint32_t count) {
    char block[kCopyBlock];
    if (zantLogOs_read(source, block, count) != static_cast<int32_t>(count)) {
        return ZANTLOG_COPY_READ_FAILED;
    }
    switch (appendBlock(destination, block, count)) {
    case AppendOutcome::Written:
        return ZANTLOG_OK;
    case AppendOutcome::DiskFull:
        return ZANTLOG_DISK_FULL;
    default:
        return ZANTLOG_COPY_FAILED;
    }
}

uint32_t copyBytes(zantLogOsFile *source, zantLogOsFile *destination, uint32_t size) {
    uint32_t result = ZANTLOG_OK;
    while (size != 0 && result == ZANTLOG_OK) {
        const uint32_t count = std::min(size, kCopyBlock);
        result = copyBlock(source, destination, count);
        size -= count;
    }
    return result;
}

uint32_t copyToPath(zantLogOsFile *source, const char *path, uint32_t size) {
    const OpenFile destination;
    if (destination.get() == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    const int32_t opened = zantLogOs_open(destination.get(), path, ZANTLOG_OPEN_CREATE, nullptr);
    if (opened != ZANTLOG_OS_OK) {
        return opened == ZANTLOG_OS_PATH_DENIED ? ZANTLOG_COPY_DESTINATION_DENIED : ZANTLOG_FILE_NOT_OPENED;
    }
    return copyBytes(source, destination.get(), size);
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogCopyFileEx(const char *source, const char *directory) {
    using namespace zantlog;
    if (source == nullptr || directory == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const char *component = lastComponent(source);
    if (component == nullptr) {
        return ZANTLOG_COPY_FAILED;
    }
    const OwnedText path = destinationPath(directory, component);
    if (path == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return os::copyFile(source, path.get()) == os::kErrorNone ? ZANTLOG_OK : ZANTLOG_COPY_FAILED;
}

extern "C" uint32_t zantLogCopyFile(const char *source, const char *directory) {
    using namespace zantlog;
    if (source == nullptr || directory == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const OpenFile file;
    if (file.get() == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (zantLogOs_open(file.get(), source, ZANTLOG_OPEN_READ, nullptr) != ZANTLOG_OS_OK) {
        return ZANTLOG_FILE_NOT_OPENED;
    }
    uint32_t size = 0;
    if (zantLogOs_fsize(file.get(), &size) != ZANTLOG_OS_OK) {
        return ZANTLOG_COPY_SIZE_UNREADABLE;
    }
    const char *component = lastComponent(source);
    const OwnedText path = destinationPath(directory, component != nullptr ? component : source);
    if (path == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (isSamePath(source, path.get())) {
        return ZANTLOG_COPY_FAILED; // creating the destination would empty the source
    }
    return copyToPath(file.get(), path.get(), size);
}

extern "C" uint32_t zantLogDeleteFile(const char *path) {
    using namespace zantlog;
    if (path == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (os::deleteFile(path) != os::kErrorNone) {
        os::printToStdout(path, " File Deletion failed\n");
    }
    // Kept: recycling goes on with the next file.
    return ZANTLOG_OK;
}
