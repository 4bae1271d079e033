// Times of listed files.
#pragma once

#include "zantlog/discovery_types.h"

namespace zantlog {

// Seconds since 1970-01-01 00:00 UTC.
int64_t secondsOf(const zantLogFileTime &time);

} // namespace zantlog
