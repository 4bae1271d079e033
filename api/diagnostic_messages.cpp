// Entry points of diagnostic messages.
#include "api/message_sending.h"
#include "api/shared_field.h"
#include "base/common_lock.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

using namespace zantlog;

namespace {

bool isFilteredOut(zantLogHandle *handle, int32_t level) {
    return level > readShared(handle->diagLevel);
}

} // namespace

uint32_t zantLogDiagMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who, uint32_t msgid,
                        const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result =
        zantLogDiagMsg2V(handle, 0, flags | ZANTLOG_AUTO_SEQUENCE, level, who, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogDiagMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                         uint32_t msgid, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogDiagMsg2V(handle, seq, flags, level, who, msgid, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogDiagMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                          uint32_t msgid, const char *fmt, va_list args) {
    if (handle == nullptr || fmt == nullptr || who == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    zantDynaLoadConfig(handle);
    if (isFilteredOut(handle, level)) {
        return ZANTLOG_OK;
    }
    MessageContent content;
    if (const uint32_t result = content.build(handle, flags, msgid, fmt, args); result != ZANTLOG_OK) {
        return result;
    }
    return zantLogDiagMsg2L(handle, seq, flags, level, who, content.text(), content.lis());
}

uint32_t zantLogDiagMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                          const char *text, zantLis *lis) {
    if (handle == nullptr || lis == nullptr || who == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if ((flags & ZANTLOG_RENDER_TEXT) != 0 && text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (isFilteredOut(handle, level)) {
        return ZANTLOG_OK;
    }
    OutgoingMessage message;
    message.type = ZANTLOG_MSG_DIAGNOSTIC;
    message.flags = flags;
    message.sequence = seq;
    message.level = level;
    message.who = who;
    message.text = text;
    message.lis = lis;
    const CommonLock lock("zantLogDiagMsg2L()");
    return sendMessage(handle, message);
}
