// What qzlogview does once its command line has been read.
#pragma once

#include "tools/qzlogview/options.h"

namespace zantlog::view {

// The exit code of the process.
int view(const ViewOptions &options);

} // namespace zantlog::view
