/** @file
 * Discovery and selection of log files.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

ZANTLOG_BEGIN_DECLS

/**
 * Begins the listing of a directory's log files: of all names that match "*.log". Takes no lock, and neither
 * do the other functions of a listing.
 *
 * @param listing filled; zantLogOsListLogFilesEnd() closes it, also after a failure
 * @param directory the pattern is put right behind it: it ends in a separator
 * @return 0 the listing holds the first file; 1 there is none; 0xFFFFFFFF any other failure, as of a
 * directory that is missing or too long; 0xFFFFFFFD null argument
 */
ZANTLOG_API uint32_t zantLogOsListLogFilesBegin(zantLogListing *listing, const char *directory);

/**
 * Goes on to the next file of a listing.
 *
 * @return 0 the listing holds it; 1 there is no further one; 0xFFFFFFFF any other failure, as of a listing
 * that is not open; 0xFFFFFFFD null listing
 */
ZANTLOG_API uint32_t zantLogOsListLogFilesNext(zantLogListing *listing);

/**
 * Closes a listing, if it is open.
 *
 * @return 0; 0xFFFFFFFD null listing
 */
ZANTLOG_API uint32_t zantLogOsListLogFilesEnd(zantLogListing *listing);

/** Name of a listing's current file, without the directory; borrowed from the listing. Null for a null
 * listing. */
ZANTLOG_API const char *zantLogOsListLogFilesName(zantLogListing *listing);

/** Copies what a listing says of its current file. Does nothing when an argument is null. */
ZANTLOG_API void CopyLogOsListLogFiles(const zantLogListing *listing, zantLogListCopy *copy);

ZANTLOG_API uint32_t GetLogFiles(zantLogCfg **array, uint32_t count, LogFindContext *context);
ZANTLOG_API uint32_t zantLogFetchNextFileEx(LogFindContext *context, LogFileEntry **out);
ZANTLOG_API uint32_t zantLogFetchNextFile(LogFindContext *context, char **out);
ZANTLOG_API uint32_t zantLogFreeBuffer(char **buffer);
ZANTLOG_API uint32_t zantLogGetManageableLogFiles(uint32_t productId, uint32_t originatorId,
                                                  LogFindContext *context);
ZANTLOG_API uint32_t zantLogGetManageableLogFilesSL(uint32_t productId, const char *logSet,
                                                    LogFindContext *context);
ZANTLOG_API int32_t zantLogGetDate(const char *text, int32_t *day, int32_t *month, int32_t *year);
ZANTLOG_API int64_t zantLogStrDateTimeToT(const char *text);

ZANTLOG_END_DECLS
