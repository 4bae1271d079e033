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
    zantLogFile *file; /**< null for a secure handle */
    int32_t debugLevel;
    int32_t diagLevel;
    int32_t secureAuditLevel;
    uint32_t outputFlags;
    uint32_t noContext; /**< 0: `context` holds a live context record */
    zantLogMsgRec context;
    zantLogEventLog eventLog;
    zantLogHandle *next; /**< next handle on the same file */
    zantLogLocalizerList localizer;
    uint32_t sequence;        /**< number of the next message */
    int64_t openTime;         /**< seconds since 1970 */
    int64_t lastReloadTime;   /**< seconds since 1970 */
    int64_t reloadInterval;   /**< low 32 bits: signed number of seconds; 0: never */
    zantLogCfg *secureConfig; /**< secure handles only, owned */
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

/** zantLogOpen2() with the originator id given twice. */
ZANTLOG_API uint32_t zantLogOpen(uint32_t productId, uint32_t originatorId, zantLogHandle *handle);

/**
 * Opens a handle: reads the configuration of both originators, opens or continues the log file, and opens the
 * event log when the configuration asks for it. The handle is zero-filled first. Levels, output flags and
 * reload interval come from the first originator's configuration; the log file, its directory and its
 * rollover from the second's. Handles of one process for the same product and file originator share one file.
 *
 * @param productId         not 0
 * @param originatorId      not 0; stamped into every message
 * @param fileOriginatorId  not 0; the originator that the log file belongs to
 * @param handle            storage of the caller's, zero-filled and filled by the open
 * @return 0; 3 an id is 0 or the handle is null (the handle is untouched); 4 out of memory; 6 the product is
 * not registered; 22 the event log could not be opened (the handle is open and usable otherwise); 1, 32, 51,
 * 53 as zantLogOpenFile() returns them; other results of zantLogReadCfg(). After 1, 32 and 51 the handle is
 * attached to its file state and must be closed; after any other failure zantLogClose() is harmless.
 *
 * Takes the common lock under the labels of zantLogReadCfg() and zantLogOpenFile(). Close it with
 * zantLogClose().
 */
ZANTLOG_API uint32_t zantLogOpen2(uint32_t productId, uint32_t originatorId, uint32_t fileOriginatorId,
                                  zantLogHandle *handle);

/**
 * Opens a handle that writes no log file and serves secure-audit messages, which it sends to the event log.
 * The handle's secure-audit level is the configuration's, its output flags are 4 and the configuration's
 * flag 64.
 *
 * @param productId     not 0
 * @param originatorId  not 0
 * @param reserved      ignored
 * @param cfg           the caller's; both ids are written into it, and the handle keeps a copy
 * @param handle        storage of the caller's, zero-filled and filled by the open
 * @return 0; 3 an id is 0 or a pointer is null; 22 the event log could not be opened (the handle is open all
 * the same). A copy of the configuration that cannot be allocated is no failure: events then carry ids of 0.
 *
 * Takes no lock. Close it with zantLogClose().
 */
ZANTLOG_API uint32_t zantLogSecureOpen(uint32_t productId, uint32_t originatorId, uint64_t reserved,
                                       zantLogCfg *cfg, zantLogHandle *handle);

/**
 * Closes a handle: closes the event log, frees the private configuration and detaches the handle from its log
 * file. The last handle of a file closes the file. Destroy a handle's contexts before.
 *
 * @return 0; 1 the handle is not attached to its file; 3 null, or a handle without a log file: for a secure
 * handle this is the regular answer, after everything has been released
 *
 * Takes the common lock under "zantLogCloseFile()". The handle's other fields are left; it must be opened
 * again before further use.
 */
ZANTLOG_API uint32_t zantLogClose(zantLogHandle *handle);

/**
 * Sets the highest debug level that is logged, from the next message on and until the next reload of the
 * configuration.
 *
 * @return 0; 3 the handle is null
 *
 * Takes the common lock under its own name followed by "()", as the other setters and the getters do.
 */
ZANTLOG_API uint32_t zantLogSetDebugLevel(zantLogHandle *handle, int32_t level);

/**
 * Gives the highest debug level that is logged, after zantDynaLoadConfig() has had a chance to refresh it.
 *
 * @return 0; 3 the handle or `level` is null (nothing is stored)
 *
 * Takes the common lock under its own name followed by "()".
 */
ZANTLOG_API uint32_t zantLogGetDebugLevel(zantLogHandle *handle, int32_t *level);

/** Sets the highest diagnostic level that is logged. Results and lock as for zantLogSetDebugLevel(). */
ZANTLOG_API uint32_t zantLogSetDiagLevel(zantLogHandle *handle, int32_t level);

/** Gives the highest diagnostic level that is logged, as zantLogGetDebugLevel() does for debug messages. */
ZANTLOG_API uint32_t zantLogGetDiagLevel(zantLogHandle *handle, int32_t *level);

/** Sets the highest secure-audit level that is logged. Results and lock as for zantLogSetDebugLevel(). */
ZANTLOG_API uint32_t zantLogSetSecureAuditLevel(zantLogHandle *handle, int32_t level);

/** Gives the highest secure-audit level that is logged. Results and lock as for zantLogGetDebugLevel(),
 * without a reload. */
ZANTLOG_API uint32_t zantLogGetSecureAuditLevel(zantLogHandle *handle, int32_t *level);

/** Sets the number that the next message will carry. Results and lock as for zantLogSetDebugLevel(). */
ZANTLOG_API uint32_t zantLogSetSequenceNumber(zantLogHandle *handle, uint32_t number);

/**
 * Gives the number that the next message will carry. Results as for zantLogGetDebugLevel(), without a reload.
 * Takes the common lock under "zantLogSetSequenceNumber()".
 */
ZANTLOG_API uint32_t zantLogGetSequenceNumber(zantLogHandle *handle, uint32_t *number);

/**
 * Draws a sequence number: returns the handle's number and advances it, from 0xFFFFFFFF to 0.
 *
 * @return the number; 0 for a null handle
 *
 * Takes the common lock under "GetNextSequenceNumber()".
 */
ZANTLOG_API uint32_t GetNextSequenceNumber(zantLogHandle *handle);

/** Clears both words of the list; null is ignored. Nothing is allocated. */
ZANTLOG_API void InitializeLocalizerList(zantLogLocalizerList *list);

/**
 * Opens a handle that writes a log set's file: zantLogOpen2() with the file's configuration read by
 * zantLogReadlogsetCfg(). Levels, flags and originator id come from the originator's configuration.
 *
 * @param logSet  name of the log set; "Default" is the default log set
 * @return as zantLogOpen2(); 3 also for a null name; 6 also for an unknown log set
 */
ZANTLOG_API uint32_t zantLogOpenLogSet(uint32_t productId, uint32_t originatorId, const char *logSet,
                                       zantLogHandle *handle);

ZANTLOG_END_DECLS
