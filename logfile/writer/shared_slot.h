// The one product file of the process whose state is shared by every handle that is opened for it.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

// The state that a handle for this state's product file is to use: the one in the slot when that belongs to
// the same product and originator; else the given one, which takes the slot if it is empty. Under the common
// lock.
zantLogFile *shareState(zantLogFile *state);

// Empties the slot when it holds a state of the same product and originator as this one. Under the common
// lock.
void emptySlot(const zantLogFile &state);

} // namespace zantlog
