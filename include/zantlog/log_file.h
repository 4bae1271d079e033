/** @file
 * Log files: identity of host and time zone, the writer, copies, and the latest file.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/handle.h"
#include "zantlog/reader.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API uint32_t zantLogHostId(void);
ZANTLOG_API int32_t osGetHostName(char *buffer, uint32_t size);
ZANTLOG_API int32_t getLocalTZOffsetFromGMT(void);
ZANTLOG_API uint32_t TimeZoneToOffset(const char *text, int32_t *out);

ZANTLOG_API uint32_t zantLogOpenFile(zantLogHandle *handle, zantLogCfg *handleCfg, zantLogCfg *fileCfg);
ZANTLOG_API uint32_t zantLogCloseFile(zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogAddLogToFile(zantLogHandle *handle);
ZANTLOG_API uint32_t zantLogWriteMsgWithRolloverToFile(zantLogFile *file, zantLogMsgRec *rec);
ZANTLOG_API uint32_t zantLogCreateContextToFile(zantLogHandle *parent, zantLogHandle *context, zantLogMsgRec *contextRec);

ZANTLOG_API uint32_t zantLogCopyFileEx(const char *source, const char *directory);
ZANTLOG_API uint32_t zantLogCopyFile(const char *source, const char *directory);
ZANTLOG_API uint32_t zantLogDeleteFile(const char *path);
ZANTLOG_API int32_t zantLogFindLatestLog(zantLogFile *file, uint32_t productId, uint32_t originatorId, uint64_t reserved, int64_t now, LogFileEntry **out);
ZANTLOG_API int32_t zantLogFindLatestLogSL(zantLogFile *file, uint32_t productId, const char *logSet, uint64_t reserved, int64_t now, LogFileEntry **out);
ZANTLOG_API int32_t zantLogStrTimeToT(const char *text, const char *delimiters, uint32_t *first, uint32_t *second, uint32_t *third);

ZANTLOG_END_DECLS
