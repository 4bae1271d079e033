// A message as one line of a log file.
#include <initializer_list>

#include "logfile/format/argument_list.h"
#include "logfile/format/text_field.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

// From this version on an application message names its component.
constexpr uint32_t kFirstVersionWithWho = 0x10006;

constexpr int32_t kHighestSeverity = 4;

bool isSupported(uint32_t version) {
    return version >= ZANTLOG_FORMAT_OLDEST && version <= ZANTLOG_FORMAT_LOGSET;
}

template <typename Number> char *putNumberField(char *at, Number value) {
    char *end = putDecimal(at, value);
    *end = ',';
    return end + 1;
}

// The numbers that every record begins with. The buffer is fresh: they fit. Versions below 65543 have none.
void writePrefix(const zantLogMsgRec &rec, text_msg *buffer) {
    const bool product = rec.formatVersion == ZANTLOG_FORMAT_PRODUCT;
    if (!product && rec.formatVersion != ZANTLOG_FORMAT_LOGSET) {
        return;
    }
    char *at = buffer->data;
    at = putNumberField(at, rec.type);
    if (product) {
        at = putNumberField(at, rec.productId);
    }
    at = putNumberField(at, rec.originatorId);
    if (product) {
        at = putNumberField(at, rec.fid);
    }
    at = putNumberField(at, rec.sequence);
    at = putNumberField(at, static_cast<int64_t>(rec.timestamp));
    at = putNumberField(at, rec.processId);
    at = putNumberField(at, rec.threadId);
    buffer->free = buffer->capacity - static_cast<uint64_t>(at - buffer->data);
}

[[nodiscard]] uint32_t appendField(const zantLogMsgRec &rec, text_msg *buffer, const char *text) {
    return appendTextField(buffer, text, rec.catalogSelector != 0);
}

[[nodiscard]] uint32_t appendNumberField(text_msg *buffer, int32_t value) {
    return appendSigned(buffer, value, ',') ? ZANTLOG_OK : ZANTLOG_OUT_OF_MEMORY;
}

[[nodiscard]] uint32_t appendFieldAndNumber(const zantLogMsgRec &rec, text_msg *buffer, const char *text,
                                            int32_t value) {
    const uint32_t result = appendField(rec, buffer, text);
    return result == ZANTLOG_OK ? appendNumberField(buffer, value) : result;
}

[[nodiscard]] uint32_t appendApplicationFields(const zantLogMsgRec &rec, text_msg *buffer) {
    const int32_t severity = rec.slot.level;
    if (severity < 0 || severity > kHighestSeverity) {
        return ZANTLOG_FAILURE;
    }
    if (rec.formatVersion < kFirstVersionWithWho) {
        return appendNumberField(buffer, severity);
    }
    return appendFieldAndNumber(rec, buffer, rec.who, severity);
}

[[nodiscard]] uint32_t appendTypeFields(const zantLogMsgRec &rec, text_msg *buffer) {
    switch (rec.type) {
    case ZANTLOG_MSG_DEBUG:
    case ZANTLOG_MSG_DIAGNOSTIC:
        return appendFieldAndNumber(rec, buffer, rec.who, rec.slot.level);
    case ZANTLOG_MSG_APPLICATION:
        return appendApplicationFields(rec, buffer);
    case ZANTLOG_MSG_CONTEXT:
        return appendField(rec, buffer, rec.slot.contextString);
    case ZANTLOG_MSG_AUDIT:
        return appendFieldAndNumber(rec, buffer, rec.who, static_cast<int32_t>(rec.outcome));
    default:
        // Secure-audit messages too: no file holds them.
        return ZANTLOG_FAILURE;
    }
}

// The line without its end.
[[nodiscard]] uint32_t writeFields(const zantLogMsgRec &rec, text_msg *buffer) {
    if (!isSupported(rec.formatVersion)) {
        return ZANTLOG_FAILURE;
    }
    writePrefix(rec, buffer);
    for (const char *text : {rec.contextToken, rec.text}) {
        const uint32_t result = appendField(rec, buffer, text);
        if (result != ZANTLOG_OK) {
            return result;
        }
    }
    const uint32_t result = appendTypeFields(rec, buffer);
    if (result != ZANTLOG_OK || rec.type == ZANTLOG_MSG_DEBUG) {
        return result;
    }
    return appendArgumentList(buffer, rec.lis);
}

void dropTrailingComma(text_msg *buffer) {
    if (contentLength(buffer) != 0 && contentEnd(buffer)[-1] == ',') {
        buffer->free += 1;
    }
}

} // namespace

uint32_t zantLogMsgSerialize(zantLogMsgRec *rec, text_msg *buffer) {
    init_text_msg(buffer);
    if (rec == nullptr || buffer == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    uint32_t result = writeFields(*rec, buffer);
    if (result == ZANTLOG_OK) {
        dropTrailingComma(buffer);
        result = terminate_text_msg(buffer);
    }
    if (result != ZANTLOG_OK) {
        free_text_msg(buffer);
    }
    return result;
}
