/** @file
 * The thin layer between log files and the operating system.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

struct tm;

enum { ZANTLOG_READ_BLOCK = 32768 /**< bytes of a file that are read at once */ };

/** How zantLogOs_open() opens a file. */
enum {
    ZANTLOG_OPEN_APPEND = 0, /**< append; created if missing */
    ZANTLOG_OPEN_READ = 1,   /**< read only */
    ZANTLOG_OPEN_CREATE = 2  /**< create anew, truncating */
};

/** An open file. */
typedef struct zantLogOsFile {
    void *file;                      /**< null when closed */
    void *mutex;                     /**< files opened for writing */
    char buffer[ZANTLOG_READ_BLOCK]; /**< block that the reader works through */
    int32_t position;                /**< next unread byte of `buffer`; -1: nothing is buffered */
    int32_t length;                  /**< valid bytes of `buffer` */
} zantLogOsFile;

ZANTLOG_FIELD_AT(zantLogOsFile, mutex, 8);
ZANTLOG_FIELD_AT(zantLogOsFile, buffer, 16);
ZANTLOG_FIELD_AT(zantLogOsFile, position, 32784);
ZANTLOG_FIELD_AT(zantLogOsFile, length, 32788);
ZANTLOG_RECORD_SIZE(zantLogOsFile, 32792);

ZANTLOG_API int32_t zantLogOs_open(zantLogOsFile *file, const char *path, int32_t mode, const char *sddl);
ZANTLOG_API int32_t zantLogOs_append(zantLogOsFile *file, const void *bytes, uint32_t count);
ZANTLOG_API int32_t zantLogOs_read(zantLogOsFile *file, void *buffer, uint32_t count);
ZANTLOG_API int32_t zantLogOs_fsize(zantLogOsFile *file, uint32_t *size);
ZANTLOG_API int32_t zantLogOs_close(zantLogOsFile *file);
ZANTLOG_API int32_t zantLogOs_remove(const char *path);
ZANTLOG_API struct tm *zantLogOs_localtime_r(const int64_t *time, struct tm *out);
ZANTLOG_API struct tm *zantLogOs_gmtime_r(const int64_t *time, struct tm *out);
ZANTLOG_API uint32_t getTID(void);
ZANTLOG_API uint32_t getPID(void);
ZANTLOG_API int32_t osSocketStartup(void);
ZANTLOG_API int32_t osSocketCleanup(void);

ZANTLOG_END_DECLS
