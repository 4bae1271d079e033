/** @file
 * The log handle: how a product opens its log, and the levels and numbers that the handle carries.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/message.h"

ZANTLOG_BEGIN_DECLS

/** State of an open log file; shared by handles of the same file. */
typedef struct zantLogFile zantLogFile;

/** What the localisation library keeps per handle. */
typedef struct zantLogLocalizerList {
    void *words[2];
} zantLogLocalizerList;

/** An open event log and the category of its events. */
typedef struct zantLogEventLog {
    void *handle;
    uint64_t category; /**< low 16 bits used */
} zantLogEventLog;

/** A log handle. The caller owns its storage, an open fills it. */
struct zantLogHandle {
    zantLogFile *file;              /**< null for a secure handle */
    int32_t debugLevel;
    int32_t diagLevel;
    int32_t secureAuditLevel;
    uint32_t outputFlags;
    uint32_t noContext;             /**< 0: `context` holds a live context record */
    zantLogMsgRec context;
    zantLogEventLog eventLog;
    zantLogHandle *next;            /**< next handle on the same file */
    zantLogLocalizerList localizer;
    uint32_t sequence;              /**< number of the next message */
    int64_t openTime;               /**< seconds since 1970 */
    int64_t lastReloadTime;         /**< seconds since 1970 */
    int64_t reloadInterval;         /**< low 32 bits: signed number of seconds; 0: never */
    zantLogCfg *secureConfig;       /**< secure handles only, owned */
    uint32_t catalogSelector;
    uint32_t originatorId;
};

ZANTLOG_FIELD_AT(zantLogEventLog, category, 8);
ZANTLOG_RECORD_SIZE(zantLogEventLog, 16);

ZANTLOG_RECORD_SIZE(zantLogLocalizerList, 16);

ZANTLOG_FIELD_AT(zantLogHandle, debugLevel, 8);
ZANTLOG_FIELD_AT(zantLogHandle, diagLevel, 12);
ZANTLOG_FIELD_AT(zantLogHandle, secureAuditLevel, 16);
ZANTLOG_FIELD_AT(zantLogHandle, outputFlags, 20);
ZANTLOG_FIELD_AT(zantLogHandle, noContext, 24);
ZANTLOG_FIELD_AT(zantLogHandle, context, 32);
ZANTLOG_FIELD_AT(zantLogHandle, eventLog, 1680);
ZANTLOG_FIELD_AT(zantLogHandle, next, 1696);
ZANTLOG_FIELD_AT(zantLogHandle, localizer, 1704);
ZANTLOG_FIELD_AT(zantLogHandle, sequence, 1720);
ZANTLOG_FIELD_AT(zantLogHandle, openTime, 1728);
ZANTLOG_FIELD_AT(zantLogHandle, lastReloadTime, 1736);
ZANTLOG_FIELD_AT(zantLogHandle, reloadInterval, 1744);
ZANTLOG_FIELD_AT(zantLogHandle, secureConfig, 1752);
ZANTLOG_FIELD_AT(zantLogHandle, catalogSelector, 1760);
ZANTLOG_FIELD_AT(zantLogHandle, originatorId, 1764);
ZANTLOG_RECORD_SIZE(zantLogHandle, 1768);

ZANTLOG_API uint32_t zantLogOpen(uint32_t productId, uint32_t originatorId, zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogOpen2(uint32_t productId, uint32_t originatorId, uint32_t fileOriginatorId, zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogSecureOpen(uint32_t productId, uint32_t originatorId, uint64_t reserved, zantLogCfg *cfg, zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogClose(zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogSetDebugLevel(zantLogHandle *handle, int32_t level);
ZANTLOG_API uint32_t zantLogGetDebugLevel(zantLogHandle *handle, int32_t *level);
ZANTLOG_API uint32_t zantLogSetDiagLevel(zantLogHandle *handle, int32_t level);
ZANTLOG_API uint32_t zantLogGetDiagLevel(zantLogHandle *handle, int32_t *level);
ZANTLOG_API uint32_t zantLogSetSecureAuditLevel(zantLogHandle *handle, int32_t level);
ZANTLOG_API uint32_t zantLogGetSecureAuditLevel(zantLogHandle *handle, int32_t *level);
ZANTLOG_API uint32_t zantLogSetSequenceNumber(zantLogHandle *handle, uint32_t number);
ZANTLOG_API uint32_t zantLogGetSequenceNumber(zantLogHandle *handle, uint32_t *number);
ZANTLOG_API uint32_t GetNextSequenceNumber(zantLogHandle *handle);
ZANTLOG_API void InitializeLocalizerList(zantLogLocalizerList *list);
ZANTLOG_API uint32_t zantLogOpenLogSet(uint32_t productId, uint32_t originatorId, const char *logSet, zantLogHandle *handle);

ZANTLOG_END_DECLS
