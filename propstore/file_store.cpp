// Opening, creating and replacing the file of a store.
#include "propstore/file_store.h"

#include <string_view>

#include "base/bounded_text.h"
#include "logfile/os/directory_tree.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_stream.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr char kBanner[] = "###############################################\n"
                           "# Caution! Do not update/modify file by hand. \n"
                           "# Use qzlogcfg tool to update/modify this file\n"
                           "###############################################\n";

constexpr size_t kLongestDirectory = 1024; // createDirectoryTree() refuses longer ones

constexpr int kReplaceAttempts = 5;
constexpr uint32_t kReplacePauseMilliseconds = 10;

bool isMissing(const char *path) {
    os::FileStatus status{};
    const os::SystemError error = os::fileStatus(path, &status);
    return error == os::kErrorFileNotFound || error == os::kErrorPathNotFound;
}

bool writeBanner(const char *path) {
    void *stream = os::openTextStream(path, os::StreamMode::Write);
    if (stream == nullptr) {
        return false;
    }
    const bool written = os::writeText(stream, kBanner);
    return os::closeStream(stream) && written;
}

// False also for a path without a backslash.
bool createDirectoryOf(const char *path) {
    const std::string_view whole = path;
    const size_t separator = whole.rfind('\\');
    if (separator == std::string_view::npos) {
        return false;
    }
    char directory[kLongestDirectory + 1];
    if (BoundedText(directory).bytes(path, separator).cut()) {
        return false;
    }
    return createDirectoryTree(directory, nullptr) == ZANTLOG_OK;
}

} // namespace

uint32_t fileOpenPropertyStore(const char *path, const char *root, PropertyFile *file) {
    if (path == nullptr || root == nullptr || file == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    file->stream = os::openTextStream(path, os::StreamMode::Read);
    if (file->stream == nullptr) {
        return ZANTLOG_STORE_CANNOT_OPEN;
    }
    copyBounded(file->root, sizeof file->root, root);
    // A path that is cut here names another file. No change gets at that one: see fileOpenTempStore().
    copyBounded(file->path, sizeof file->path, path);
    return ZANTLOG_STORE_OK;
}

uint32_t fileReopenPropertyStore(PropertyFile *file) {
    file->stream = os::openTextStream(file->path, os::StreamMode::Read);
    return file->stream != nullptr ? ZANTLOG_STORE_OK : ZANTLOG_STORE_CANNOT_OPEN;
}

uint32_t fileCreatePropertyStore(const char *path, const char *root, PropertyFile *file) {
    if (path == nullptr || root == nullptr || file == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (!isMissing(path)) {
        // It could not be opened for a moment. Made anew it would lose all that it holds.
        return fileOpenPropertyStore(path, root, file);
    }
    if (!createDirectoryOf(path) || !writeBanner(path)) {
        return ZANTLOG_STORE_CANNOT_CREATE;
    }
    return fileOpenPropertyStore(path, root, file);
}

uint32_t fileClosePropertyStore(PropertyFile *file) {
    if (file == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    // A store is open for reading: closing it has nothing to write, and so nothing to report.
    if (file->stream != nullptr) {
        static_cast<void>(os::closeStream(file->stream));
    }
    file->stream = nullptr;
    return ZANTLOG_STORE_OK;
}

uint32_t fileOpenTempStore(const char *path, const char *root, PropertyFile *temporary) {
    if (path == nullptr || root == nullptr || temporary == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    // A name without room for its end could be the store's own, or belong to a store whose path was cut.
    if (BoundedText(temporary->path).text(path).text(".tmp").cut()) {
        return ZANTLOG_STORE_CANNOT_CREATE;
    }
    static_cast<void>(os::deleteFile(temporary->path));
    temporary->stream = os::openTextStream(temporary->path, os::StreamMode::Write);
    if (temporary->stream == nullptr) {
        return ZANTLOG_STORE_CANNOT_CREATE;
    }
    copyBounded(temporary->root, sizeof temporary->root, root);
    return ZANTLOG_STORE_OK;
}

uint32_t fileReplaceStore(const char *temporaryPath, const char *path) {
    for (int attempt = 0; attempt < kReplaceAttempts; ++attempt) {
        const os::SystemError error = os::replaceFile(temporaryPath, path);
        if (error == os::kErrorNone) {
            return ZANTLOG_STORE_OK;
        }
        if (error != os::kErrorAccessDenied) {
            static_cast<void>(os::deleteFile(temporaryPath));
            return ZANTLOG_STORE_FAILED;
        }
        // Another process has the file open at this moment; it keeps it open for one read only.
        os::sleepMilliseconds(kReplacePauseMilliseconds);
    }
    static_cast<void>(os::deleteFile(temporaryPath));
    return ZANTLOG_STORE_DENIED;
}

} // namespace zantlog
