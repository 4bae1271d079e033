/** @file
 * The thin layer between log files and the operating system: files that several processes append to at once,
 * files that are read in blocks, broken-down times, ids of thread and process, sockets.
 *
 * None of these functions takes the common lock. Results that are not described as something else are 0 for
 * success or one of the negative codes of results.h.
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

/**
 * An open file, in storage of the caller's. A zero-filled record is a closed file; zantLogOs_open() fills any
 * record, whatever it held before, so an open one must be closed first.
 */
typedef struct zantLogOsFile {
    void *file;                      /**< null when closed */
    void *mutex;                     /**< files opened for writing; not cleared by zantLogOs_close() */
    char buffer[ZANTLOG_READ_BLOCK]; /**< block that the reader works through */
    int32_t position;                /**< next unread byte of `buffer`; -1: nothing is buffered */
    int32_t length;                  /**< valid bytes of `buffer` */
} zantLogOsFile;

ZANTLOG_FIELD_AT(zantLogOsFile, mutex, 8);
ZANTLOG_FIELD_AT(zantLogOsFile, buffer, 16);
ZANTLOG_FIELD_AT(zantLogOsFile, position, 32784);
ZANTLOG_FIELD_AT(zantLogOsFile, length, 32788);
ZANTLOG_RECORD_SIZE(zantLogOsFile, 32792);

/**
 * Opens a file; others may read and write it at the same time, and child processes do not inherit it.
 *
 * A file opened for writing gets the named mutex that all processes use to append to it. Its name is the path
 * exactly as given here, with every "\" as "_"; so writers of one file must give one spelling of its path.
 * (Where the system refuses the name for its length: a hash of it in 16 hexadecimal digits, "_", and its last
 * 200 bytes.)
 *
 * @param file filled; after a failure it is a closed file
 * @param path in the process's code page
 * @param mode ::ZANTLOG_OPEN_APPEND, ::ZANTLOG_OPEN_READ or ::ZANTLOG_OPEN_CREATE
 * @param sddl security descriptor text for a file that is created by this call; null, or a text that does not
 * parse, stands for the default security. Not used for reading.
 * @return 0; -3 null file or path; -1 the mutex could not be made, and the file was not touched; -7 the path
 * was not found or access was denied; -6 any other failure, an unknown mode among them
 */
ZANTLOG_API int32_t zantLogOs_open(zantLogOsFile *file, const char *path, int32_t mode, const char *sddl);

/**
 * Appends a block to a file opened for writing: waits, without a limit, for the mutex of the file, writes at
 * the end, and sets the file's last-write time. Blocks of several threads and processes never interleave. A
 * mutex that its holder died with is taken over.
 *
 * @param bytes may be null when `count` is 0
 * @param count in bytes, at most 2147483647
 * @return the number of bytes appended, which is `count`; -3 null argument; -1 any failure, a write that took
 * only a part of the block among them: then no part of it is left in the file
 */
ZANTLOG_API int32_t zantLogOs_append(zantLogOsFile *file, const void *bytes, uint32_t count);

/**
 * Reads the next block of a file, at most `count` bytes, and notes it as buffered: `position` 0 and `length`
 * the bytes read, or -1 and 0 at the end of the file and after a failure. Takes no lock.
 *
 * @param buffer as a rule the record's own
 * @param count in bytes, at most 2147483647
 * @return the number of bytes read; 0 at the end of the file; -3 null argument; -1 failure
 */
ZANTLOG_API int32_t zantLogOs_read(zantLogOsFile *file, void *buffer, uint32_t count);

/**
 * The size of an open file at this moment.
 *
 * @param size in bytes, the low 32 bits only: a file of 4 GiB or more is seen modulo 4 GiB. Untouched on
 * failure.
 * @return 0; -3 null argument; -1 failure
 */
ZANTLOG_API int32_t zantLogOs_fsize(zantLogOsFile *file, uint32_t *size);

/**
 * Moves the reading of a file to another place: what is buffered is dropped, and the next read begins there.
 *
 * @param offset in bytes from the beginning; behind the end, the next read is at the end of the file
 * @return 0; -3 null argument; -1 failure, a closed file among them
 */
ZANTLOG_API int32_t zantLogOs_seek(zantLogOsFile *file, uint64_t offset);

/**
 * Closes a file and its mutex. The `file` field becomes null; the `mutex` field keeps its value, which means
 * nothing any more. A closed file is left as it is.
 *
 * @return 0; -3 null argument
 */
ZANTLOG_API int32_t zantLogOs_close(zantLogOsFile *file);

/**
 * Deletes a file.
 *
 * @return 0; -1 failure: null path, no such file, or a file that is open anywhere
 */
ZANTLOG_API int32_t zantLogOs_remove(const char *path);

/**
 * Breaks a time down as local time.
 *
 * @param time seconds since 1970-01-01 00:00 UTC
 * @return `out`; null for a null argument or a time that cannot be broken down
 */
ZANTLOG_API struct tm *zantLogOs_localtime_r(const int64_t *time, struct tm *out);

/**
 * Breaks a time down as UTC.
 *
 * @param time seconds since 1970-01-01 00:00 UTC
 * @return `out`; null for a null argument or a time that cannot be broken down
 */
ZANTLOG_API struct tm *zantLogOs_gmtime_r(const int64_t *time, struct tm *out);

/** The id of the calling thread. */
ZANTLOG_API uint32_t getTID(void);

/** The id of the process. */
ZANTLOG_API uint32_t getPID(void);

/**
 * Starts the sockets (version 2.2) for this process. Calls nest; each one that succeeded is undone by one
 * osSocketCleanup().
 *
 * @return 0; 1 failure
 */
ZANTLOG_API int32_t osSocketStartup(void);

/**
 * Undoes one osSocketStartup().
 *
 * @return 0
 */
ZANTLOG_API int32_t osSocketCleanup(void);

ZANTLOG_END_DECLS
