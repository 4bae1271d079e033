// Ids of thread and process, critical sections, and the process's last words.
#include "logfile/os/os_thread.h"

#include <csignal>
#include <process.h>

#include <windows.h>

namespace zantlog::os {

namespace {

constexpr int kAbortExitCode = 3; // what the runtime's abort() ends with

static_assert(sizeof(CRITICAL_SECTION) == 40 && alignof(CRITICAL_SECTION) == alignof(void *));

CRITICAL_SECTION *asSection(void *section) {
    return static_cast<CRITICAL_SECTION *>(section);
}

} // namespace

uint32_t threadId() {
    return GetCurrentThreadId();
}

uint32_t processId() {
    return GetCurrentProcessId();
}

void initCriticalSection(void *section) {
    InitializeCriticalSection(asSection(section));
}

void enterCriticalSection(void *section) {
    EnterCriticalSection(asSection(section));
}

void leaveCriticalSection(void *section) {
    LeaveCriticalSection(asSection(section));
}

void deleteCriticalSection(void *section) {
    DeleteCriticalSection(asSection(section));
}

void yieldProcessor() {
    SwitchToThread();
}

void abortProcess() {
    // The steps of the runtime's abort() but for its message, which goes to the host's console or into a
    // dialogue.
    std::raise(SIGABRT);
    _exit(kAbortExitCode);
}

} // namespace zantlog::os
