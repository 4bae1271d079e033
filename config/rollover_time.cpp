#include "config/rollover_time.h"

#include "base/scan.h"
#include "zantlog/config_store.h"
#include "zantlog/log_file.h"

namespace zantlog {

bool parseRolloverTime(const char *text, int64_t *secondsAfterMidnight) {
    int32_t hours = 0;
    int32_t minutes = 0;
    Scanner scanner{text};
    if (!scanner.signed32(&hours) || !scanner.literal(':') || !scanner.signed32(&minutes)) {
        return false;
    }
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) {
        return false;
    }
    *secondsAfterMidnight = (int64_t{hours} * 60 + minutes) * 60;
    return true;
}

} // namespace zantlog

extern "C" int32_t zantLogGetTime(const char *text, uint32_t *hours, uint32_t *minutes, uint32_t *seconds) {
    return zantLogStrTimeToT(text, ":", hours, minutes, seconds);
}
