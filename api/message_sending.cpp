#include "api/message_sending.h"

#include "zantlog/dispatch.h"
#include "zantlog/rendering.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

bool isEmpty(const zantLis &lis) {
    return lis.textId == 0 && lis.argCount == 0 && lis.first == nullptr;
}

uint32_t setAttributes(zantLogMsgRec *rec, const OutgoingMessage &message) {
    switch (message.type) {
    case ZANTLOG_MSG_APPLICATION:
        return zantLogSetAppAttrEx(rec, message.who, message.level);
    case ZANTLOG_MSG_AUDIT:
        return zantLogSetAuditAttr(rec, message.who, message.outcome);
    case ZANTLOG_MSG_SECURE_AUDIT:
        return zantLogSetSecureAuditAttr(rec, message.level, message.who, message.outcome);
    default:
        return zantLogSetDiagAttr(rec, message.who, message.level);
    }
}

// The object is the library's from here on, also when the message is refused. The caller's copy is emptied,
// so that freeing it once more is harmless.
void takeObject(zantLogMsgRec *rec, zantLis *lis) {
    if (lis == nullptr) {
        return;
    }
    rec->lis = *lis;
    *lis = zantLis{};
}

} // namespace

MessageContent::~MessageContent() {
    if (!isEmpty(lis_)) {
        zantLisFree(&lis_);
    }
}

uint32_t MessageContent::build(const zantLogHandle *handle, uint32_t flags, uint32_t msgid, const char *fmt,
                               va_list args) {
    uint32_t built = ZANTLOG_OK;
    if (msgid != 0) {
        built = buildObject(handle, msgid, fmt, args);
    }
    const bool enough = msgid != 0 && built == ZANTLOG_OK && (flags & ZANTLOG_RENDER_TEXT) == 0;
    if (!enough) {
        buildText(fmt, args);
    }
    return built;
}

uint32_t MessageContent::buildObject(const zantLogHandle *handle, uint32_t msgid, const char *fmt,
                                     va_list args) {
    va_list copy; // the arguments may be needed for a text as well
    va_copy(copy, args);
    const int32_t result = zantLisVEx(&lis_, handle->catalogSelector, msgid, fmt, copy);
    va_end(copy);
    if (result != ZANTLIS_OK) {
        lis_ = zantLis{}; // an object that was not built is nothing to free
    }
    return zantLogMapLisResToLoggingRes(result);
}

void MessageContent::buildText(const char *fmt, va_list args) {
    char *text = nullptr;
    va_list copy;
    va_copy(copy, args);
    // Always succeeds; a text that cannot be rendered is none.
    (void)listxt_svnprintf(&text, fmt, copy);
    va_end(copy);
    text_.reset(text);
}

uint32_t sendMessage(zantLogHandle *handle, const OutgoingMessage &message) {
    zantLogMsgRec rec;
    if (const uint32_t result = zantLogInitMsg(&rec, handle, message.type, message.text);
        result != ZANTLOG_OK) {
        // A secure-audit message's object stays with the caller; kept: callers of that form free it
        // themselves.
        if (message.lis != nullptr && message.type != ZANTLOG_MSG_SECURE_AUDIT) {
            zantLisFree(message.lis);
        }
        return result;
    }
    takeObject(&rec, message.lis);
    if ((message.flags & ZANTLOG_AUTO_SEQUENCE) == 0) {
        rec.sequence = message.sequence;
    }
    uint32_t result = setAttributes(&rec, message);
    if (result == ZANTLOG_OK) {
        result = zantLogMsg(handle, message.flags, &rec);
    }
    (void)zantLogFreeMsg(&rec); // what was logged is logged
    return result;
}

} // namespace zantlog
