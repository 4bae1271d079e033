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
    uint32_t fid; /**< file originator id: the originator that the log file belongs to */
    uint32_t sequence;
    uint64_t timestamp; /**< milliseconds since 1970-01-01 00:00 UTC */
    uint32_t processId;
    uint32_t threadId;
    char *contextToken;
    char *text; /**< owned */
    uint8_t reserved[1536];
    uint32_t catalogSelector; /**< non-zero: the texts of the record are UTF-8 already */
    union {
        int32_t level;       /**< debug or diag level, severity, secure-audit level */
        char *contextString; /**< context records: the token, owned */
    } slot;
    char *who;        /**< component, or subject of an audit message */
    uint32_t outcome; /**< audit messages; 0 is success */
    zantLis lis;      /**< catalog object, owned */
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

/**
 * Begins a record for writing: zero-fills it, draws the handle's next sequence number, and stamps process,
 * thread and current time, the product id of the handle's log file, and the handle's originator id (both ids
 * 0 for a handle without a log file). While the handle has a live context, `contextToken` is the context's
 * own string, borrowed.
 *
 * @param rec     the record; whatever it held is overwritten, not freed
 * @param handle  the handle that the message will go through; null gives sequence number 0, ids 0 and no
 * context
 * @param type    message type
 * @param text    copied; null is allowed. A copy that cannot be allocated leaves the text null and is no
 * failure.
 * @return 0; 3 null record, or the handle's no-context flag is 0 but its context record is not of type 3
 * (number and time are taken by then, the text is not copied)
 *
 * Takes the common lock under "GetNextSequenceNumber()". Release the record with zantLogFreeMsg().
 */
ZANTLOG_API uint32_t zantLogInitMsg(zantLogMsgRec *rec, zantLogHandle *handle, uint32_t type,
                                    const char *text);

/**
 * Frees what the record owns and zero-fills it, so that a second call is harmless. Owned are the text and the
 * catalog object; the context string of a context record; and, when the reader built the record, the context
 * token and, except in secure-audit records, `who`.
 *
 * @return 0, also for null; 1 when zantLisFree() reported a failure (the record is freed all the same)
 */
ZANTLOG_API uint32_t zantLogFreeMsg(zantLogMsgRec *rec);

/**
 * Sets component and level of a diagnostic message.
 *
 * @param who    stored, not copied: it belongs to the caller and must outlive the record
 * @param level  1 to 6
 * @return 0; 1 a level out of range, stored all the same; 3 null record or null who (nothing is stored)
 */
ZANTLOG_API uint32_t zantLogSetDiagAttr(zantLogMsgRec *rec, const char *who, int32_t level);

/** The same operation as zantLogSetDiagAttr(), for debug messages. */
ZANTLOG_API uint32_t zantLogSetDebugAttr(zantLogMsgRec *rec, const char *who, int32_t level);

/**
 * Sets subject and outcome of an audit message.
 *
 * @param subject  stored, not copied; may be null
 * @param outcome  0 is success
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogSetAuditAttr(zantLogMsgRec *rec, const char *subject, uint32_t outcome);

/**
 * Sets level, subject and outcome of a secure-audit message.
 *
 * @param subject  stored, not copied; may be null
 * @param outcome  0 is success
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogSetSecureAuditAttr(zantLogMsgRec *rec, int32_t level, const char *subject,
                                               uint32_t outcome);

/**
 * Sets the severity of an application message; `who` stays as it is.
 *
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogSetAppAttr(zantLogMsgRec *rec, int32_t severity);

/**
 * Sets component and severity of an application message.
 *
 * @param who  stored, not copied; may be null
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogSetAppAttrEx(zantLogMsgRec *rec, const char *who, int32_t severity);

/**
 * Stores a copy of the token as the context string. The record owns it; a copy that stood there before is not
 * freed, so set it once.
 *
 * @return 0; 3 null record or null token; 4 out of memory (nothing is stored)
 */
ZANTLOG_API uint32_t zantLogSetContextAttr(zantLogMsgRec *rec, const char *token);

/**
 * @name Getters
 * Each stores one field through `out` and returns 0. When the record or `out` is null, or the record is of a
 * type that lacks the field, it stores nothing and returns 3. Strings are borrowed from the record. Fields
 * without a note exist in all types. None takes a lock.
 * @{
 */

/** Type of the message. */
ZANTLOG_API uint32_t zantLogGetMsgType(zantLogMsgRec *rec, uint32_t *out);

/** Product id of the log file. */
ZANTLOG_API uint32_t zantLogGetMsgProductId(zantLogMsgRec *rec, uint32_t *out);

/** Originator id of the handle. */
ZANTLOG_API uint32_t zantLogGetMsgOriginatorId(zantLogMsgRec *rec, uint32_t *out);

/** File originator id. */
ZANTLOG_API uint32_t zantLogGetMsgFid(zantLogMsgRec *rec, uint32_t *out);

/** Milliseconds since 1970-01-01 00:00 UTC. */
ZANTLOG_API uint32_t zantLogGetMsgTimestamp(zantLogMsgRec *rec, uint64_t *out);

/** Process id. */
ZANTLOG_API uint32_t zantLogGetMsgPid(zantLogMsgRec *rec, uint32_t *out);

/** Thread id. */
ZANTLOG_API uint32_t zantLogGetMsgTid(zantLogMsgRec *rec, uint32_t *out);

/** Null for a message without context. */
ZANTLOG_API uint32_t zantLogGetMsgContextToken(zantLogMsgRec *rec, const char **out);

/** Null for a message without text. */
ZANTLOG_API uint32_t zantLogGetMsgText(zantLogMsgRec *rec, const char **out);

/** Address of the catalog object inside the record. */
ZANTLOG_API uint32_t zantLogGetMsgLis(zantLogMsgRec *rec, zantLis **out);

/** Application messages. */
ZANTLOG_API uint32_t zantLogGetMsgAppAttrWho(zantLogMsgRec *rec, const char **out);

/** Debug messages. */
ZANTLOG_API uint32_t zantLogGetMsgDebugAttrWho(zantLogMsgRec *rec, const char **out);

/** Diagnostic messages. */
ZANTLOG_API uint32_t zantLogGetMsgDiagAttrWho(zantLogMsgRec *rec, const char **out);

/** Audit and secure-audit messages. */
ZANTLOG_API uint32_t zantLogGetMsgAuditAttrSubject(zantLogMsgRec *rec, const char **out);

/** Audit and secure-audit messages. */
ZANTLOG_API uint32_t zantLogGetMsgAuditAttrOutcome(zantLogMsgRec *rec, uint32_t *out);

/** Application messages. */
ZANTLOG_API uint32_t zantLogGetMsgAppAttrSeverity(zantLogMsgRec *rec, int32_t *out);

/** Debug messages. */
ZANTLOG_API uint32_t zantLogGetMsgDebugLevel(zantLogMsgRec *rec, int32_t *out);

/** The same operation as zantLogGetMsgDebugLevel(). */
ZANTLOG_API uint32_t zantLogGetMsgDebugAttrLevel(zantLogMsgRec *rec, int32_t *out);

/** Diagnostic messages. */
ZANTLOG_API uint32_t zantLogGetMsgDiagLevel(zantLogMsgRec *rec, int32_t *out);

/** The same operation as zantLogGetMsgDiagLevel(). */
ZANTLOG_API uint32_t zantLogGetMsgDiagAttrLevel(zantLogMsgRec *rec, int32_t *out);

/** Secure-audit messages only: an audit message has no level. */
ZANTLOG_API uint32_t zantLogGetMsgAuditLevel(zantLogMsgRec *rec, int32_t *out);

/** Context records: the token that the context announces. */
ZANTLOG_API uint32_t zantLogGetMsgContextAttrToken(zantLogMsgRec *rec, const char **out);

/** @} */

/**
 * Allocates `size` bytes, not zero-filled. Everything that the library hands out is allocated here.
 *
 * @return null for a size of 0 and when memory is short; free it with zantLogFree()
 */
ZANTLOG_API void *zantLogMalloc(size_t size);

/** Frees what zantLogMalloc() allocated; null is ignored. */
ZANTLOG_API void zantLogFree(void *pointer);

/**
 * Copies a string.
 *
 * @return the copy, to be freed with zantLogFree(); null for null and when memory is short
 */
ZANTLOG_API char *zantLogSafeStrdup(const char *text);

/**
 * Frees a text of the library's.
 *
 * @return 0; 3 null
 */
ZANTLOG_API uint32_t zantLogResFreeErrorMessage(char *text);

/** 1 when the originator id is not 0, else 0. */
ZANTLOG_API int32_t isOrigIdValid(uint32_t id);

/** 1 when the product id is not 0, else 0. */
ZANTLOG_API int32_t isProdIdValid(uint32_t id);

/** 1 when the log set's name is not null, else 0. */
ZANTLOG_API int32_t isLogSetValid(const char *name);

ZANTLOG_END_DECLS
