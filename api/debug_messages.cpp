// Entry points of debug messages. They carry a text and never a catalog object.
#include "api/message_sending.h"
#include "api/shared_field.h"
#include "base/common_lock.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

using namespace zantlog;

namespace {

OutgoingMessage debugMessage(uint32_t flags, int32_t level, const char *who, const char *text) {
    OutgoingMessage message;
    message.type = ZANTLOG_MSG_DEBUG;
    message.flags = flags;
    message.level = level;
    message.who = who;
    message.text = text;
    return message;
}

} // namespace

uint32_t zantLogDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who,
                         const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result =
        zantLogDebugMsg2V(handle, 0, flags | ZANTLOG_AUTO_SEQUENCE, level, who, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogDebugMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                          const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = zantLogDebugMsg2V(handle, seq, flags, level, who, fmt, args);
    va_end(args);
    return result;
}

uint32_t zantLogDebugMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                           const char *who, const char *fmt, va_list args) {
    if (handle == nullptr || who == nullptr || fmt == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    zantDynaLoadConfig(handle);
    if (level > readShared(handle->debugLevel)) {
        return ZANTLOG_OK;
    }
    MessageContent content;
    content.buildText(fmt, args);
    OutgoingMessage message = debugMessage(flags, level, who, content.text());
    message.sequence = seq;
    const CommonLock lock("zantLogDebugMsg2V()");
    return sendMessage(handle, message);
}

uint32_t zantLogFormattedDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who,
                                  const char *text) {
    if (handle == nullptr || who == nullptr || text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Whatever the handle's level: the caller has decided when it made the text.
    const OutgoingMessage message = debugMessage(flags | ZANTLOG_AUTO_SEQUENCE, level, who, text);
    const CommonLock lock("zantLogFormattedDebugMsg()");
    return sendMessage(handle, message);
}
