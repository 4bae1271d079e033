/** @file
 * Discovery and selection of log files.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API uint32_t zantLogOsListLogFilesBegin(zantLogListing *listing, const char *directory);
ZANTLOG_API uint32_t zantLogOsListLogFilesNext(zantLogListing *listing);
ZANTLOG_API uint32_t zantLogOsListLogFilesEnd(zantLogListing *listing);
ZANTLOG_API const char *zantLogOsListLogFilesName(zantLogListing *listing);
ZANTLOG_API void CopyLogOsListLogFiles(const zantLogListing *listing, zantLogListCopy *copy);
ZANTLOG_API uint32_t GetLogFiles(zantLogCfg **array, uint32_t count, LogFindContext *context);
ZANTLOG_API uint32_t zantLogFetchNextFileEx(LogFindContext *context, LogFileEntry **out);
ZANTLOG_API uint32_t zantLogFetchNextFile(LogFindContext *context, char **out);
ZANTLOG_API uint32_t zantLogFreeBuffer(char **buffer);
ZANTLOG_API uint32_t zantLogGetManageableLogFiles(uint32_t productId, uint32_t originatorId, LogFindContext *context);
ZANTLOG_API uint32_t zantLogGetManageableLogFilesSL(uint32_t productId, const char *logSet, LogFindContext *context);
ZANTLOG_API int32_t zantLogGetDate(const char *text, int32_t *day, int32_t *month, int32_t *year);
ZANTLOG_API int64_t zantLogStrDateTimeToT(const char *text);

ZANTLOG_END_DECLS
