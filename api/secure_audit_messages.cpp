// Entry points of secure-audit messages.
#include "api/message_sending.h"
#include "api/shared_field.h"
#include "base/common_lock.h"
#include "zantlog/results.h"

using namespace zantlog;

namespace {

bool isFilteredOut(zantLogHandle *handle, int32_t level) {
    return level > readShared(handle->secureAuditLevel);
}

} // namespace

uint32_t zantLogSecureAuditMsg(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome,
                               uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogSecureAuditMsgV(handle, level, subject, outcome, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogSecureAuditMsgV(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome,
                                uint32_t msgid, const char *fmt, va_list args) {
    if (handle == nullptr || fmt == nullptr || msgid == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (isFilteredOut(handle, level)) {
        return ZANTLOG_OK;
    }
    MessageContent content;
    if (const uint32_t result = content.buildObject(handle, msgid, fmt, args); result != ZANTLOG_OK) {
        return result;
    }
    return zantLogSecureAuditMsgL(handle, level, subject, outcome, content.lis());
}

uint32_t zantLogSecureAuditMsgL(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome,
                                zantLis *lis) {
    if (handle == nullptr || lis == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (isFilteredOut(handle, level)) {
        return ZANTLOG_OK;
    }
    OutgoingMessage message;
    message.type = ZANTLOG_MSG_SECURE_AUDIT;
    // Always to the event log and nowhere else. The number of every secure-audit record is 0; kept: readers
    // of the event log expect it. The handle's counter advances all the same.
    message.flags = ZANTLOG_TO_EVENT_LOG;
    message.sequence = 0;
    message.level = level;
    message.who = subject;
    message.outcome = outcome;
    message.lis = lis;
    const CommonLock lock("zantLogSecureAuditMsgL()");
    return sendMessage(handle, message);
}
