// Named mutexes, shared by all processes of all users.
#pragma once

#include "logfile/os/os_error.h"

namespace zantlog::os {

// Creates the mutex or opens the existing one of that name; not owned, open to every user, not inheritable.
// kErrorNameTooLong for a name of more than 260 characters.
[[nodiscard]] SystemError createNamedMutex(const char *name, void **mutex);

// Waits without a limit. A mutex that its holder abandoned by dying has been taken: success.
[[nodiscard]] SystemError acquireMutex(void *mutex);

void releaseMutex(void *mutex);
void closeMutex(void *mutex);

} // namespace zantlog::os
