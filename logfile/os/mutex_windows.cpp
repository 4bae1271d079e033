// Named mutexes.
#include "logfile/os/os_mutex.h"

#include <windows.h>

namespace zantlog::os {

SystemError createNamedMutex(const char *name, void **mutex) {
    *mutex = nullptr;
    // A null access list lets processes of every user wait on the mutex; the default one would shut the
    // others out.
    SECURITY_DESCRIPTOR everybody;
    if (!InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION) ||
        !SetSecurityDescriptorDacl(&everybody, TRUE, nullptr, FALSE)) {
        return GetLastError();
    }
    SECURITY_ATTRIBUTES attributes{};
    attributes.nLength = sizeof(attributes);
    attributes.lpSecurityDescriptor = &everybody;
    attributes.bInheritHandle = FALSE;

    HANDLE handle = CreateMutexA(&attributes, FALSE, name);
    if (handle == nullptr) {
        return GetLastError();
    }
    *mutex = handle;
    return kErrorNone;
}

SystemError acquireMutex(void *mutex) {
    switch (WaitForSingleObject(mutex, INFINITE)) {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:
        return kErrorNone;
    default:
        return GetLastError();
    }
}

void releaseMutex(void *mutex) {
    ReleaseMutex(mutex);
}

void closeMutex(void *mutex) {
    CloseHandle(mutex);
}

} // namespace zantlog::os
