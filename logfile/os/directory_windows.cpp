// Directory listings.
#include "logfile/os/os_directory.h"

#include <cstring>

#include <windows.h>

namespace zantlog::os {

namespace {

// The interface carries the platform's record under names of its own.
static_assert(sizeof(zantLogFindData) == sizeof(WIN32_FIND_DATAA));
static_assert(offsetof(zantLogFindData, attributes) == offsetof(WIN32_FIND_DATAA, dwFileAttributes));
static_assert(offsetof(zantLogFindData, creation) == offsetof(WIN32_FIND_DATAA, ftCreationTime));
static_assert(offsetof(zantLogFindData, lastAccess) == offsetof(WIN32_FIND_DATAA, ftLastAccessTime));
static_assert(offsetof(zantLogFindData, lastWrite) == offsetof(WIN32_FIND_DATAA, ftLastWriteTime));
static_assert(offsetof(zantLogFindData, sizeHigh) == offsetof(WIN32_FIND_DATAA, nFileSizeHigh));
static_assert(offsetof(zantLogFindData, sizeLow) == offsetof(WIN32_FIND_DATAA, nFileSizeLow));
static_assert(offsetof(zantLogFindData, reserved) == offsetof(WIN32_FIND_DATAA, dwReserved0));
static_assert(offsetof(zantLogFindData, name) == offsetof(WIN32_FIND_DATAA, cFileName));
static_assert(offsetof(zantLogFindData, shortName) == offsetof(WIN32_FIND_DATAA, cAlternateFileName));
static_assert(sizeof(zantLogFileTime) == sizeof(FILETIME));

void store(const WIN32_FIND_DATAA &found, zantLogFindData *data) {
    std::memcpy(data, &found, sizeof(found));
}

} // namespace

SystemError findFirst(const char *pattern, void **find, zantLogFindData *data) {
    *find = nullptr;
    WIN32_FIND_DATAA found{};
    HANDLE handle = FindFirstFileA(pattern, &found);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    *find = handle;
    store(found, data);
    return kErrorNone;
}

SystemError findNext(void *find, zantLogFindData *data) {
    WIN32_FIND_DATAA found{};
    if (!FindNextFileA(find, &found)) {
        return GetLastError();
    }
    store(found, data);
    return kErrorNone;
}

void findClose(void *find) {
    FindClose(find);
}

} // namespace zantlog::os
