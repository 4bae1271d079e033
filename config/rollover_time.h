// The time of day of a local-time rollover.
#pragma once

#include <cstdint>

namespace zantlog {

// "HH:MM", hours 0 to 23 and minutes 0 to 59; what follows is not looked at. False when the text is no such
// time.
[[nodiscard]] bool parseRolloverTime(const char *text, int64_t *secondsAfterMidnight);

} // namespace zantlog
