#include "logfile/writer/retention.h"

#include "reader/file_list.h"
#include "zantlog/discovery.h"

namespace zantlog {

namespace {

uint32_t selectSurplus(const zantLogFile &state, LogFindContext *context) {
    return isLogSetFile(state) ? zantLogGetManageableLogFilesSL(state.productId, state.logSetName, context)
                               : zantLogGetManageableLogFiles(state.productId, state.originatorId, context);
}

} // namespace

void recycleOldFiles(const zantLogFile &state) {
    LogFindContext context{};
    if (selectSurplus(state, &context) != ZANTLOG_OK) {
        return;
    }
    // A file without a header that can be read is not fetched, and so not deleted. One that another process
    // still writes cannot be: it is reported, and the next rollover tries again.
    char *path = nullptr;
    while (zantLogFetchNextFile(&context, &path) == ZANTLOG_OK) {
        (void)zantLogDeleteFile(path);
        (void)zantLogFreeBuffer(&path);
    }
    freeSelection(&context);
}

} // namespace zantlog
