// Contexts: second handles on a log, which stamp a token into what is logged through them.
#include "zantlog/context.h"

#include "base/common_lock.h"
#include "base/owned_text.h"
#include "zantlog/log_file.h"
#include "zantlog/rendering.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

uint32_t buildTitleObject(zantLis *lis, uint32_t selector, uint32_t msgid, const char *fmt, va_list args) {
    const int32_t built =
        msgid != 0 ? zantLisVEx(lis, selector, msgid, fmt, args) : zantLisTextV(lis, fmt, args);
    if (built != ZANTLIS_OK) {
        *lis = zantLis{}; // an object that was not built is nothing to free
    }
    return zantLogMapLisResToLoggingRes(built);
}

// The title of a message without id stands in the record twice, as text and as object; kept: readers know
// both.
OwnedText renderTitle(const char *fmt, va_list args) {
    char *title = nullptr;
    listxt_svnprintf(&title, fmt, args);
    return OwnedText(title);
}

uint32_t buildContextRecord(zantLogMsgRec *rec, zantLogHandle *parent, const char *token, uint32_t msgid,
                            const char *fmt, va_list args) {
    va_list again;
    va_copy(again, args);
    OwnedText title;
    if (msgid == 0) {
        title = renderTitle(fmt, again);
    }
    va_end(again);
    uint32_t result = zantLogInitMsg(rec, parent, ZANTLOG_MSG_CONTEXT, title.get());
    if (result == ZANTLOG_OK) {
        result = zantLogSetContextAttr(rec, token);
    }
    if (result == ZANTLOG_OK) {
        result = buildTitleObject(&rec->lis, parent->catalogSelector, msgid, fmt, args);
    }
    if (result != ZANTLOG_OK) {
        zantLogFreeMsg(rec);
    }
    return result;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogCreateContext(zantLogHandle *parent, zantLogHandle *context, const char *token,
                              uint32_t msgid, const char *fmt, ...) {
    if (parent == nullptr || context == nullptr || fmt == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    va_list args;
    va_start(args, fmt);
    const uint32_t result = buildContextRecord(&context->context, parent, token, msgid, fmt, args);
    va_end(args);
    if (result != ZANTLOG_OK) {
        return result;
    }
    return zantLogCreateContextToFile(parent, context, &context->context);
}

uint32_t zantLogDestroyContext(zantLogHandle *context) {
    if (context == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Until it is detached, a rollover on another thread would write the record again.
    const CommonLock lock("zantLogDestroyContext()");
    zantLogFreeMsg(&context->context);
    context->noContext = 1;
    return zantLogCloseFile(context);
}
