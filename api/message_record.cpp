// Building and releasing message records.
#include <cstring>

#include "base/owned_text.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_thread.h"
#include "logfile/writer/writer.h"
#include "zantlog/handle.h"
#include "zantlog/message.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr int32_t kLowestLevel = 1;
constexpr int32_t kHighestLevel = 6;

void stampSource(zantLogMsgRec *rec, zantLogHandle *handle) {
    rec->sequence = GetNextSequenceNumber(handle);
    rec->processId = os::processId();
    rec->threadId = os::threadId();
    if (handle != nullptr && handle->file != nullptr) {
        rec->productId = writerProductId(handle->file);
        rec->originatorId = handle->originatorId;
    }
    rec->timestamp = os::nowMilliseconds();
}

// The token stays the context's: a message never outlives the handle that it is logged through.
[[nodiscard]] uint32_t borrowContextToken(zantLogMsgRec *rec, zantLogHandle *handle) {
    if (handle == nullptr || handle->noContext != 0) {
        return ZANTLOG_OK;
    }
    const char *token = nullptr;
    const uint32_t result = zantLogGetMsgContextAttrToken(&handle->context, &token);
    rec->contextToken = const_cast<char *>(token);
    return result;
}

bool readerOwnsWho(uint32_t type) {
    // The subject of a secure-audit record is left alone; kept: callers free it themselves.
    return type == ZANTLOG_MSG_DEBUG || type == ZANTLOG_MSG_DIAGNOSTIC || type == ZANTLOG_MSG_APPLICATION ||
           type == ZANTLOG_MSG_AUDIT;
}

uint32_t setWhoAndLevel(zantLogMsgRec *rec, const char *who, int32_t level) {
    if (rec == nullptr || who == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    rec->who = const_cast<char *>(who);
    rec->slot.level = level;
    return level < kLowestLevel || level > kHighestLevel ? ZANTLOG_FAILURE : ZANTLOG_OK;
}

void setSubjectAndOutcome(zantLogMsgRec *rec, const char *subject, uint32_t outcome) {
    rec->who = const_cast<char *>(subject);
    rec->outcome = outcome;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogInitMsg(zantLogMsgRec *rec, zantLogHandle *handle, uint32_t type, const char *text) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memset(rec, 0, sizeof *rec);
    rec->type = type;
    stampSource(rec, handle);
    if (const uint32_t result = borrowContextToken(rec, handle); result != ZANTLOG_OK) {
        return result;
    }
    rec->text = zantLogSafeStrdup(text);
    return ZANTLOG_OK;
}

uint32_t zantLogFreeMsg(zantLogMsgRec *rec) {
    if (rec == nullptr) {
        return ZANTLOG_OK;
    }
    if (rec->type == ZANTLOG_MSG_CONTEXT) {
        zantLogFree(rec->slot.contextString);
    }
    if (rec->origin == ZANTLOG_ORIGIN_READER) {
        zantLogFree(rec->contextToken);
        if (readerOwnsWho(rec->type)) {
            zantLogFree(rec->who);
        }
    }
    zantLogFree(rec->text);
    const int32_t released = zantLisFree(&rec->lis);
    std::memset(rec, 0, sizeof *rec);
    return released == ZANTLIS_OK ? ZANTLOG_OK : ZANTLOG_FAILURE;
}

uint32_t zantLogSetDiagAttr(zantLogMsgRec *rec, const char *who, int32_t level) {
    return setWhoAndLevel(rec, who, level);
}

uint32_t zantLogSetDebugAttr(zantLogMsgRec *rec, const char *who, int32_t level) {
    return setWhoAndLevel(rec, who, level);
}

uint32_t zantLogSetAuditAttr(zantLogMsgRec *rec, const char *subject, uint32_t outcome) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    setSubjectAndOutcome(rec, subject, outcome);
    return ZANTLOG_OK;
}

uint32_t zantLogSetSecureAuditAttr(zantLogMsgRec *rec, int32_t level, const char *subject, uint32_t outcome) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    rec->slot.level = level;
    setSubjectAndOutcome(rec, subject, outcome);
    return ZANTLOG_OK;
}

uint32_t zantLogSetAppAttr(zantLogMsgRec *rec, int32_t severity) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    rec->slot.level = severity;
    return ZANTLOG_OK;
}

uint32_t zantLogSetAppAttrEx(zantLogMsgRec *rec, const char *who, int32_t severity) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    rec->who = const_cast<char *>(who);
    rec->slot.level = severity;
    return ZANTLOG_OK;
}

uint32_t zantLogSetContextAttr(zantLogMsgRec *rec, const char *token) {
    if (rec == nullptr || token == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    OwnedText copy = copyText(token);
    if (!copy) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    rec->slot.contextString = copy.release();
    return ZANTLOG_OK;
}
