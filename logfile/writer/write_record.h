// Writing of records into the current file.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

// Writes a record into the file as it is, without rollover and reopen.
// Result codes: 0; 1, 4 the record cannot be serialised; 5 write failed; 54 disk full.
[[nodiscard]] uint32_t writeRecord(zantLogFile *state, zantLogMsgRec *record);

} // namespace zantlog
