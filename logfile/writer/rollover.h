// Change from one log file to the next.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

// Whether the current file must be left before a record of that many bytes is written.
bool isRolloverDue(zantLogFile *state, uint32_t recordLength);

// Leaves the current file for the next one. False when no file is open then.
[[nodiscard]] bool rollOver(zantLogFile *state);

// Closes the file and opens the file of the same number again, which is a new one on a new day. A log set's
// reopen begins a new file. False when no file is open then.
[[nodiscard]] bool reopenFile(zantLogFile *state);

} // namespace zantlog
