// Where a message goes beside the log file. All of them are called under the common lock.
#pragma once

#include "zantlog/logging.h"

namespace zantlog {

// Prints the localised text. Result codes: 0, also without a localisation library; else the formatter's.
[[nodiscard]] uint32_t printMessage(zantLogHandle *handle, uint32_t flags, zantLogMsgRec *rec);

// Reports the message to the event log. 0; -1 the report failed; -3 null argument; else the formatter's
// result, or 1 for a text that has no wide form.
[[nodiscard]] int32_t reportMessage(zantLogHandle *handle, zantLogMsgRec *rec);

} // namespace zantlog
