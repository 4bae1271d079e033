// Ids of thread and process, critical sections, and the process's last words.
#pragma once

#include <cstdint>

namespace zantlog::os {

uint32_t threadId();
uint32_t processId();

// A re-entrant critical section in 40 bytes of the caller's, pointer-aligned.
void initCriticalSection(void *section);
void enterCriticalSection(void *section);
void leaveCriticalSection(void *section);
void deleteCriticalSection(void *section);

// Lets another thread run.
void yieldProcessor();

// Ends the process as the runtime's abort() does, without its message.
[[noreturn]] void abortProcess();

} // namespace zantlog::os
