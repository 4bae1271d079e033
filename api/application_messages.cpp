// Entry points of application messages.
#include "api/message_sending.h"
#include "base/common_lock.h"
#include "zantlog/results.h"

using namespace zantlog;

uint32_t zantLogAppMsg(zantLogHandle *handle, uint32_t flags, int32_t severity, uint32_t msgid,
                       const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result =
        zantLogAppMsg2VEx(handle, 0, flags | ZANTLOG_AUTO_SEQUENCE, severity, kNoWho, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAppMsgEx(zantLogHandle *handle, uint32_t flags, int32_t severity, const char *who,
                         uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result =
        zantLogAppMsg2VEx(handle, 0, flags | ZANTLOG_AUTO_SEQUENCE, severity, who, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAppMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, uint32_t msgid,
                        const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogAppMsg2VEx(handle, seq, flags, severity, kNoWho, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAppMsg2Ex(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                          const char *who, uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogAppMsg2VEx(handle, seq, flags, severity, who, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogAppMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                         uint32_t msgid, const char *fmt, va_list args) {
    return zantLogAppMsg2VEx(handle, seq, flags, severity, kNoWho, msgid, fmt, args);
}

uint32_t zantLogAppMsg2VEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                           const char *who, uint32_t msgid, const char *fmt, va_list args) {
    if (handle == nullptr || fmt == nullptr || who == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    MessageContent content;
    if (const uint32_t result = content.build(handle, flags, msgid, fmt, args); result != ZANTLOG_OK) {
        return result;
    }
    return zantLogAppMsg2LEx(handle, seq, flags, severity, who, content.text(), content.lis());
}

uint32_t zantLogAppMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                         const char *text, zantLis *lis) {
    return zantLogAppMsg2LEx(handle, seq, flags, severity, kNoWho, text, lis);
}

uint32_t zantLogAppMsg2LEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                           const char *who, const char *text, zantLis *lis) {
    if (handle == nullptr || lis == nullptr || who == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if ((flags & ZANTLOG_RENDER_TEXT) != 0 && text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    OutgoingMessage message;
    message.type = ZANTLOG_MSG_APPLICATION;
    message.flags = flags;
    message.sequence = seq;
    message.level = severity;
    message.who = who;
    message.text = text;
    message.lis = lis;
    const CommonLock lock("zantLogAppMsg2LEx()");
    return sendMessage(handle, message);
}
