// Creation of a directory with all its parents.
#include "logfile/os/directory_tree.h"

#include "logfile/os/os_file.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

constexpr size_t kLongestPath = 1024;
constexpr size_t kFirstSeparator = 4;

bool createOne(const char *path, const char *sddl) {
    const os::SystemError error = os::createDirectory(path, sddl);
    return error == os::kErrorNone || error == os::kErrorAlreadyExists;
}

} // namespace

uint32_t createDirectoryTree(const char *path, const char *sddl) {
    if (path == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const size_t length = std::strlen(path);
    if (length > kLongestPath) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    char prefix[kLongestPath + 1];
    std::memcpy(prefix, path, length + 1);
    for (size_t i = kFirstSeparator; i <= length; ++i) {
        if (path[i] != '\\' && path[i] != '\0') {
            continue;
        }
        prefix[i] = '\0';
        if (!createOne(prefix, sddl)) {
            return ZANTLOG_FAILURE;
        }
        prefix[i] = path[i];
    }
    return ZANTLOG_OK;
}

} // namespace zantlog
