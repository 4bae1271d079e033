// Entry points of audit messages.
#include "api/message_sending.h"
#include "base/common_lock.h"
#include "zantlog/results.h"

using namespace zantlog;

uint32_t zantLogAuditMsg(zantLogHandle *handle, uint32_t flags, const char *subject, uint32_t outcome,
                         uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result =
        zantLogAuditMsg2V(handle, 0, flags | ZANTLOG_AUTO_SEQUENCE, subject, outcome, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAuditMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject,
                          uint32_t outcome, uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogAuditMsg2V(handle, seq, flags, subject, outcome, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAuditMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject,
                           uint32_t outcome, uint32_t msgid, const char *fmt, va_list args) {
    if (handle == nullptr || fmt == nullptr || msgid == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    MessageContent content;
    if (const uint32_t result = content.buildObject(handle, msgid, fmt, args); result != ZANTLOG_OK) {
        return result;
    }
    return zantLogAuditMsg2L(handle, seq, flags, subject, outcome, content.lis());
}

uint32_t zantLogAuditMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject,
                           uint32_t outcome, zantLis *lis) {
    if (handle == nullptr || lis == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    OutgoingMessage message;
    message.type = ZANTLOG_MSG_AUDIT;
    message.flags = flags;
    message.sequence = seq;
    message.who = subject;
    message.outcome = outcome;
    message.lis = lis;
    const CommonLock lock("zantLogAuditMsg2L()");
    return sendMessage(handle, message);
}
