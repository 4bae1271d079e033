// One message on its way to the log file and the other sinks.
#include "zantlog/dispatch.h"

#include "api/lis_text.h"
#include "api/sinks.h"
#include "base/common_lock.h"
#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

// A plain text arrives as an object without message id; it is rendered once, and a record that cannot be
// rendered is written without text.
void renderPlainText(zantLogMsgRec *rec) {
    if (rec->text != nullptr || rec->lis.textId != 0) {
        return;
    }
    rec->text = renderLis(&rec->lis).release();
    zantLisFree(&rec->lis);
    rec->lis = zantLis{};
}

bool goesToConsole(uint32_t flags, uint32_t type) {
    if ((flags & ZANTLOG_TO_STDOUT) != 0) {
        return true;
    }
    return (flags & ZANTLOG_TO_STDERR) != 0 &&
           (type == ZANTLOG_MSG_DIAGNOSTIC || type == ZANTLOG_MSG_APPLICATION);
}

uint32_t dispatchToSinks(zantLogHandle *handle, uint32_t callFlags, zantLogMsgRec *rec) {
    const uint32_t flags = handle->outputFlags | callFlags;
    uint32_t result = ZANTLOG_OK;
    if (goesToConsole(flags, rec->type)) {
        result = printMessage(handle, flags, rec);
    }
    if ((flags & ZANTLOG_TO_EVENT_LOG) == 0) {
        return result;
    }
    if (rec->type == ZANTLOG_MSG_APPLICATION) {
        // The log file has the message; its event is a copy that may be missed.
        (void)reportMessage(handle, rec);
    } else if (rec->type == ZANTLOG_MSG_SECURE_AUDIT) {
        result = static_cast<uint32_t>(reportMessage(handle, rec));
    }
    return result;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogMsg(zantLogHandle *handle, uint32_t flags, zantLogMsgRec *rec) {
    if (handle == nullptr || rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const bool secureAudit = rec->type == ZANTLOG_MSG_SECURE_AUDIT;
    if (secureAudit && handle->file != nullptr) {
        return ZANTLOG_SECURE_AUDIT_TO_FILE;
    }
    rec->catalogSelector = handle->catalogSelector;
    const CommonLock lock("zantLogMsg()");
    renderPlainText(rec);
    // A handle without a log file gets the writer's own refusal.
    uint32_t fileResult = ZANTLOG_OK;
    if (!secureAudit) {
        fileResult = zantLogWriteMsgWithRolloverToFile(handle->file, rec);
    }
    const uint32_t sinkResult = dispatchToSinks(handle, flags, rec);
    return fileResult != ZANTLOG_OK ? fileResult : sinkResult;
}
