/** @file
 * The message record: one message on its way to a log file or out of one; and the allocator of everything
 * that the library hands out.
 */
#pragma once

#include "zantlog/catalog.h"

ZANTLOG_BEGIN_DECLS

typedef struct zantLogHandle zantLogHandle;

/** Types of a message. */
enum {
    ZANTLOG_MSG_DEBUG = 0,
    ZANTLOG_MSG_DIAGNOSTIC = 1,
    ZANTLOG_MSG_APPLICATION = 2,
    ZANTLOG_MSG_CONTEXT = 3,
    ZANTLOG_MSG_AUDIT = 4,
    ZANTLOG_MSG_SECURE_AUDIT = 5
};

/** Who built a message record, and so who owns its texts. */
enum {
    ZANTLOG_ORIGIN_WRITER = 0, /**< built for writing: token, who and subject belong to the caller */
    ZANTLOG_ORIGIN_READER = 1  /**< built by a log reader: the record owns them */
};

/** One message. */
typedef struct zantLogMsgRec {
    uint32_t origin;
    uint32_t formatVersion;
    uint32_t type;
    uint32_t productId;
    uint32_t originatorId;
    uint32_t fid;            /**< file originator id: the originator that the log file belongs to */
    uint32_t sequence;
    uint64_t timestamp;      /**< milliseconds since 1970-01-01 00:00 UTC */
    uint32_t processId;
    uint32_t threadId;
    char *contextToken;
    char *text;              /**< owned */
    uint8_t reserved[1536];
    uint32_t catalogSelector; /**< non-zero: the texts of the record are UTF-8 already */
    union {
        int32_t level;       /**< debug or diag level, severity, secure-audit level */
        char *contextString; /**< context records: the token, owned */
    } slot;
    char *who;               /**< component, or subject of an audit message */
    uint32_t outcome;        /**< audit messages; 0 is success */
    zantLis lis;             /**< catalog object, owned */
} zantLogMsgRec;

ZANTLOG_FIELD_AT(zantLogMsgRec, formatVersion, 4);
ZANTLOG_FIELD_AT(zantLogMsgRec, type, 8);
ZANTLOG_FIELD_AT(zantLogMsgRec, productId, 12);
ZANTLOG_FIELD_AT(zantLogMsgRec, originatorId, 16);
ZANTLOG_FIELD_AT(zantLogMsgRec, fid, 20);
ZANTLOG_FIELD_AT(zantLogMsgRec, sequence, 24);
ZANTLOG_FIELD_AT(zantLogMsgRec, timestamp, 32);
ZANTLOG_FIELD_AT(zantLogMsgRec, processId, 40);
ZANTLOG_FIELD_AT(zantLogMsgRec, threadId, 44);
ZANTLOG_FIELD_AT(zantLogMsgRec, contextToken, 48);
ZANTLOG_FIELD_AT(zantLogMsgRec, text, 56);
ZANTLOG_FIELD_AT(zantLogMsgRec, reserved, 64);
ZANTLOG_FIELD_AT(zantLogMsgRec, catalogSelector, 1600);
ZANTLOG_FIELD_AT(zantLogMsgRec, slot, 1608);
ZANTLOG_FIELD_AT(zantLogMsgRec, who, 1616);
ZANTLOG_FIELD_AT(zantLogMsgRec, outcome, 1624);
ZANTLOG_FIELD_AT(zantLogMsgRec, lis, 1632);
ZANTLOG_RECORD_SIZE(zantLogMsgRec, 1648);

ZANTLOG_API uint32_t zantLogInitMsg(zantLogMsgRec *rec, zantLogHandle *handle, uint32_t type, const char *text);
ZANTLOG_API uint32_t zantLogFreeMsg(zantLogMsgRec *rec);
ZANTLOG_API uint32_t zantLogSetDiagAttr(zantLogMsgRec *rec, const char *who, int32_t level);
ZANTLOG_API uint32_t zantLogSetDebugAttr(zantLogMsgRec *rec, const char *who, int32_t level);
ZANTLOG_API uint32_t zantLogSetAuditAttr(zantLogMsgRec *rec, const char *subject, uint32_t outcome);
ZANTLOG_API uint32_t zantLogSetSecureAuditAttr(zantLogMsgRec *rec, int32_t level, const char *subject, uint32_t outcome);
ZANTLOG_API uint32_t zantLogSetAppAttr(zantLogMsgRec *rec, int32_t severity);
ZANTLOG_API uint32_t zantLogSetAppAttrEx(zantLogMsgRec *rec, const char *who, int32_t severity);
ZANTLOG_API uint32_t zantLogSetContextAttr(zantLogMsgRec *rec, const char *token);
ZANTLOG_API uint32_t zantLogGetMsgType(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgProductId(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgOriginatorId(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgFid(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgTimestamp(zantLogMsgRec *rec, uint64_t *out);
ZANTLOG_API uint32_t zantLogGetMsgPid(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgTid(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgContextToken(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgText(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgLis(zantLogMsgRec *rec, zantLis **out);
ZANTLOG_API uint32_t zantLogGetMsgAppAttrWho(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgDebugAttrWho(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgDiagAttrWho(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgAuditAttrSubject(zantLogMsgRec *rec, const char **out);
ZANTLOG_API uint32_t zantLogGetMsgAuditAttrOutcome(zantLogMsgRec *rec, uint32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgAppAttrSeverity(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgDebugLevel(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgDebugAttrLevel(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgDiagLevel(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgDiagAttrLevel(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgAuditLevel(zantLogMsgRec *rec, int32_t *out);
ZANTLOG_API uint32_t zantLogGetMsgContextAttrToken(zantLogMsgRec *rec, const char **out);
ZANTLOG_API void *zantLogMalloc(size_t size);
ZANTLOG_API void zantLogFree(void *pointer);
ZANTLOG_API char *zantLogSafeStrdup(const char *text);
ZANTLOG_API uint32_t zantLogResFreeErrorMessage(char *text);
ZANTLOG_API int32_t isOrigIdValid(uint32_t id);
ZANTLOG_API int32_t isProdIdValid(uint32_t id);
ZANTLOG_API int32_t isLogSetValid(const char *name);

ZANTLOG_END_DECLS
