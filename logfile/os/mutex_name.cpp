// The mutex that belongs to a log file.
#include "logfile/os/mutex_name.h"

#include "logfile/os/os_mutex.h"

#include <cstdint>
#include <cstring>

namespace zantlog {

namespace {

// Four bytes for each of the 260 characters that the system takes: a longer path cannot be a name.
constexpr size_t kLongestName = 4 * size_t{260};
constexpr size_t kHashDigits = 16;
constexpr size_t kTail = 200;

char nameCharacter(char pathCharacter) {
    return pathCharacter == '\\' ? '_' : pathCharacter;
}

void copyAsName(char *name, const char *path, size_t length) {
    for (size_t i = 0; i < length; ++i) {
        name[i] = nameCharacter(path[i]);
    }
    name[length] = '\0';
}

uint64_t hashOfName(const char *path, size_t length) {
    uint64_t hash = 0xcbf29ce484222325u;
    for (size_t i = 0; i < length; ++i) {
        hash = (hash ^ static_cast<unsigned char>(nameCharacter(path[i]))) * 0x100000001b3u;
    }
    return hash;
}

} // namespace

void shortMutexName(const char *path, size_t length, char (&name)[kShortMutexName]) {
    uint64_t hash = hashOfName(path, length);
    for (size_t i = kHashDigits; i-- > 0; hash >>= 4) {
        name[i] = "0123456789abcdef"[hash & 0xf];
    }
    name[kHashDigits] = '_';
    copyAsName(name + kHashDigits + 1, path + length - kTail, kTail);
}

os::SystemError createFileMutex(const char *path, void **mutex) {
    const size_t length = std::strlen(path);
    if (length <= kLongestName) {
        char name[kLongestName + 1];
        copyAsName(name, path, length);
        const os::SystemError error = os::createNamedMutex(name, mutex);
        if (error != os::kErrorNameTooLong || length < kTail) {
            return error;
        }
    }
    char name[kShortMutexName];
    shortMutexName(path, length, name);
    return os::createNamedMutex(name, mutex);
}

} // namespace zantlog
