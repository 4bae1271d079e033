// Files and directories.
#include "logfile/os/os_file.h"

#include "logfile/os/filetime_windows.h"
#include "logfile/os/security_windows.h"

namespace zantlog::os {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

SystemError outcome(BOOL succeeded) {
    return succeeded ? kErrorNone : GetLastError();
}

HANDLE openForWriting(const char *path, DWORD disposition, const char *sddl) {
    SecurityFromText security(sddl);
    return CreateFileA(path, GENERIC_WRITE, kShared, security.get(), disposition, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

} // namespace

SystemError openFile(const char *path, FileMode mode, const char *sddl, void **file) {
    *file = nullptr;
    HANDLE handle = INVALID_HANDLE_VALUE;
    switch (mode) {
    case FileMode::Append:
        handle = openForWriting(path, OPEN_ALWAYS, sddl);
        break;
    case FileMode::Truncate:
        handle = openForWriting(path, CREATE_ALWAYS, sddl);
        break;
    case FileMode::Read:
        handle =
            CreateFileA(path, GENERIC_READ, kShared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        break;
    }
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    *file = handle;
    return kErrorNone;
}

void closeFile(void *file) {
    CloseHandle(file);
}

SystemError seekToEnd(void *file, uint64_t *position) {
    LONG high = 0;
    const DWORD low = SetFilePointer(file, 0, &high, FILE_END);
    if (low == INVALID_SET_FILE_POINTER) {
        const DWORD error = GetLastError();
        if (error != NO_ERROR) {
            return error;
        }
    }
    *position = static_cast<uint64_t>(static_cast<uint32_t>(high)) << 32 | low;
    return kErrorNone;
}

SystemError seekTo(void *file, uint64_t position) {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(position);
    return SetFilePointerEx(file, distance, nullptr, FILE_BEGIN) != 0 ? kErrorNone : GetLastError();
}

SystemError writeFile(void *file, const void *bytes, uint32_t count, uint32_t *written) {
    DWORD done = 0;
    const SystemError error = outcome(WriteFile(file, bytes, count, &done, nullptr));
    *written = done;
    return error;
}

SystemError readFile(void *file, void *buffer, uint32_t count, uint32_t *read) {
    DWORD done = 0;
    const SystemError error = outcome(ReadFile(file, buffer, count, &done, nullptr));
    *read = done;
    return error;
}

SystemError fileSize(void *file, uint64_t *size) {
    LARGE_INTEGER value{};
    if (!GetFileSizeEx(file, &value)) {
        return GetLastError();
    }
    *size = static_cast<uint64_t>(value.QuadPart);
    return kErrorNone;
}

SystemError truncateFile(void *file, uint64_t size) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(size);
    if (!SetFilePointerEx(file, position, nullptr, FILE_BEGIN)) {
        return GetLastError();
    }
    return outcome(SetEndOfFile(file));
}

void stampLastWrite(void *file) {
    SYSTEMTIME now{};
    FILETIME lastWrite{};
    GetSystemTime(&now);
    if (SystemTimeToFileTime(&now, &lastWrite)) {
        SetFileTime(file, nullptr, nullptr, &lastWrite);
    }
}

SystemError deleteFile(const char *path) {
    return outcome(DeleteFileA(path));
}

SystemError copyFile(const char *source, const char *destination) {
    return outcome(CopyFileA(source, destination, FALSE));
}

SystemError replaceFile(const char *source, const char *destination) {
    return outcome(MoveFileExA(source, destination, MOVEFILE_REPLACE_EXISTING));
}

SystemError createDirectory(const char *path, const char *sddl) {
    SecurityFromText security(sddl);
    return outcome(CreateDirectoryA(path, security.get()));
}

SystemError fileStatus(const char *path, FileStatus *status) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExA(path, GetFileExInfoStandard, &data)) {
        return GetLastError();
    }
    status->regular = (data.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
    status->lastWrite = secondsSince1970(data.ftLastWriteTime);
    return kErrorNone;
}

} // namespace zantlog::os
