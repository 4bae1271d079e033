// The handles that are attached to a writer state.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

// Puts a handle at the head of its state's list; a handle that is on the list already stays where it is.
// Under the common lock.
void attachHandle(zantLogHandle *handle);

// False when the handle is not on its state's list. Under the common lock.
[[nodiscard]] bool detachHandle(zantLogHandle *handle);

} // namespace zantlog
