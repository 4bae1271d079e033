#include "zantlog/zantlog.h"
#include <stdio.h>

int main(void) {
    static zantLogHandle log;
    uint32_t result = zantLogOpen(12, 3, &log); /* product 12, originator 3 */
    if (result == ZANTLOG_OK)
        result = zantLogAppMsg(&log, 0, 2, 0, "disk %s is %d %% full", "C:", 93);
    if (result != ZANTLOG_OK)
        fprintf(stderr, "zantlog: result %u\n", (unsigned)result);
    zantLogClose(&log);
    return result != ZANTLOG_OK;
}
