// Removal of surplus log files after a rollover.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

// Deletes the files in excess of the configured number. No failure matters to the rollover. Called with
// recycling on only, once the new file is open.
void recycleOldFiles(const zantLogFile &state);

} // namespace zantlog
