// Reading fields of message records.
#include "zantlog/message.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

bool anyType(uint32_t) {
    return true;
}

template <uint32_t kType> bool ofType(uint32_t type) {
    return type == kType;
}

bool auditType(uint32_t type) {
    return type == ZANTLOG_MSG_AUDIT || type == ZANTLOG_MSG_SECURE_AUDIT;
}

template <typename Field, typename Out>
uint32_t getField(const zantLogMsgRec *rec, Field zantLogMsgRec::*field, bool (*allowed)(uint32_t),
                  Out *out) {
    if (rec == nullptr || out == nullptr || !allowed(rec->type)) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = rec->*field;
    return ZANTLOG_OK;
}

template <uint32_t kType> uint32_t getLevel(const zantLogMsgRec *rec, int32_t *out) {
    if (rec == nullptr || out == nullptr || rec->type != kType) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = rec->slot.level;
    return ZANTLOG_OK;
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogGetMsgType(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::type, anyType, out);
}

uint32_t zantLogGetMsgProductId(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::productId, anyType, out);
}

uint32_t zantLogGetMsgOriginatorId(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::originatorId, anyType, out);
}

uint32_t zantLogGetMsgFid(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::fid, anyType, out);
}

uint32_t zantLogGetMsgTimestamp(zantLogMsgRec *rec, uint64_t *out) {
    return getField(rec, &zantLogMsgRec::timestamp, anyType, out);
}

uint32_t zantLogGetMsgPid(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::processId, anyType, out);
}

uint32_t zantLogGetMsgTid(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::threadId, anyType, out);
}

uint32_t zantLogGetMsgContextToken(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::contextToken, anyType, out);
}

uint32_t zantLogGetMsgText(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::text, anyType, out);
}

uint32_t zantLogGetMsgLis(zantLogMsgRec *rec, zantLis **out) {
    if (rec == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = &rec->lis;
    return ZANTLOG_OK;
}

uint32_t zantLogGetMsgAppAttrWho(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::who, ofType<ZANTLOG_MSG_APPLICATION>, out);
}

uint32_t zantLogGetMsgDebugAttrWho(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::who, ofType<ZANTLOG_MSG_DEBUG>, out);
}

uint32_t zantLogGetMsgDiagAttrWho(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::who, ofType<ZANTLOG_MSG_DIAGNOSTIC>, out);
}

uint32_t zantLogGetMsgAuditAttrSubject(zantLogMsgRec *rec, const char **out) {
    return getField(rec, &zantLogMsgRec::who, auditType, out);
}

uint32_t zantLogGetMsgAuditAttrOutcome(zantLogMsgRec *rec, uint32_t *out) {
    return getField(rec, &zantLogMsgRec::outcome, auditType, out);
}

uint32_t zantLogGetMsgAppAttrSeverity(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_APPLICATION>(rec, out);
}

uint32_t zantLogGetMsgDebugLevel(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_DEBUG>(rec, out);
}

uint32_t zantLogGetMsgDebugAttrLevel(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_DEBUG>(rec, out);
}

uint32_t zantLogGetMsgDiagLevel(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_DIAGNOSTIC>(rec, out);
}

uint32_t zantLogGetMsgDiagAttrLevel(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_DIAGNOSTIC>(rec, out);
}

uint32_t zantLogGetMsgAuditLevel(zantLogMsgRec *rec, int32_t *out) {
    return getLevel<ZANTLOG_MSG_SECURE_AUDIT>(rec, out);
}

uint32_t zantLogGetMsgContextAttrToken(zantLogMsgRec *rec, const char **out) {
    if (rec == nullptr || out == nullptr || rec->type != ZANTLOG_MSG_CONTEXT) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = rec->slot.contextString;
    return ZANTLOG_OK;
}
