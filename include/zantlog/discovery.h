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

/**
 * Selects the log files of a set of configurations.
 *
 * Of each configuration's directory the files "*.log" are taken whose names are those of its product and
 * originator ("<product>-<originator>-...") or, where it is a log set's, of its product and log set
 * ("<product>-<log set>-..."; a log set whose name has a "-" is never found). A file that was last written
 * more than a day in the future is left out. The query of the context, if there is one, is then asked at file
 * level (see zantlog/query.h) with the ids of the name, creation and last write of the listing (for a log
 * set's file originator 0 and, as its creation, the date in its name as local time without daylight saving),
 * and the log set file name of the configuration. Only for a query that holds the header text field the
 * headers are read, one file open at a time: a file that cannot be opened is left out, so is one whose header
 * is of an unsupported version, and one without a header has an empty text.
 *
 * The entries are in ascending order of the creation time in the listing. Equal times are in the order of a
 * table of 300 chains: by HashString(directory followed by name, 300), and those of one chain with the file
 * found last in front. A file that several configurations name is selected once. An entry takes 34 KB: it
 * holds the buffer that its file is read through.
 *
 * A directory that is missing, or cannot be listed (any further), contributes what it has given until then.
 * When memory for an entry is short, its directory ends there.
 *
 * @param array the configurations; null elements are skipped
 * @param count their number
 * @param context its query is kept, all else overwritten (not freed): `head` and `current` receive the first
 * entry, `badHeaderSeen` 1 when a header of an unsupported version was met. Each entry of the list is freed
 * with zantLogFree().
 * @return 0 at least one file; 3 null argument; 30 memory was too short to begin with; 45 no file. `head` is
 * null unless the result is 0. Takes no lock; two selections with one query exclude each other.
 */
ZANTLOG_API uint32_t GetLogFiles(zantLogCfg **array, uint32_t count, LogFindContext *context);

/**
 * Hands out the next selected file whose header can be read and passes the context's query at header level
 * (see zantlog/query.h), without a query every one. Files that cannot be opened or have no header are passed
 * over, and so are those with a header of an unsupported version, which sets `badHeaderSeen` to 1. Of a log
 * set's file product and start time are those of its name, as far as that is a log set file's.
 *
 * @param context goes on to the entry behind the one handed out. When none is left that matches, it stays at
 * the last entry that was tried, and another fetch tries that one again.
 * @param out the entry; it stays part of the list. Header version and time-zone offset are filled, its file
 * is closed. Unchanged after a failure.
 * @return 0; 3 null argument; 9 no more files. Takes no lock.
 */
ZANTLOG_API uint32_t zantLogFetchNextFileEx(LogFindContext *context, LogFileEntry **out);

/**
 * As zantLogFetchNextFileEx(), and hands out the file's path.
 *
 * @param out a buffer of 8192 bytes with directory and name, zero behind them, to be freed with
 * zantLogFreeBuffer(). Unchanged after a failure.
 * @return as zantLogFetchNextFileEx(); 4 out of memory, and another fetch finds the same file
 */
ZANTLOG_API uint32_t zantLogFetchNextFile(LogFindContext *context, char **out);

/**
 * Frees a buffer of zantLogFetchNextFile() and sets the pointer to null, which may be so already.
 *
 * @return 0; 3 null argument
 */
ZANTLOG_API uint32_t zantLogFreeBuffer(char **buffer);

/**
 * Selects the files of products that are more than the configured number ("NumberOfLogFiles"); the ones to be
 * deleted when there is to be room.
 *
 * With both ids the configuration of that product and originator is read and its directory looked at; with an
 * id of 0 all configurations are, 1024 at most, and 0 stands for any. The files of each product and
 * originator are a group; what a group has beyond the number of its configuration is selected, its oldest
 * files by creation time (of equal ones the first in the order of GetLogFiles()). Files of all hosts count.
 * Each selected file goes to the front of the list, group after group in the order of their oldest files and
 * within a group from the oldest file on, so that the list begins with the youngest surplus file of the last
 * group. Files of log sets are not selected, whatever the ids.
 *
 * @param context cleared (nothing is freed), so that it has no query; then as GetLogFiles() leaves it
 * @return 0, also when no group has too many files (`head` is null); 3 null context; 4 out of memory; what
 * zantLogReadCfg() or zantLogReadAllCfg() returned, as 6 and 39; what GetLogFiles() returned, as 45. Takes
 * the common lock while the configuration is read, as these functions do.
 */
ZANTLOG_API uint32_t zantLogGetManageableLogFiles(uint32_t productId, uint32_t originatorId,
                                                  LogFindContext *context);

/**
 * The same for the files of one log set, which are one group.
 *
 * @param productId product of the log set
 * @param logSet name of the log set; "Default" is the default log set
 * @param context as for zantLogGetManageableLogFiles()
 * @return 0; 3 null argument or product 0; 4 out of memory; what zantLogReadlogsetCfg() returned, as 6; what
 * GetLogFiles() returned, as 45
 */
ZANTLOG_API uint32_t zantLogGetManageableLogFilesSL(uint32_t productId, const char *logSet,
                                                    LogFindContext *context);

/**
 * Reads a date, "2026-11-21". Runs of hyphens count as one, further pieces do not count, a piece that is
 * missing or no number is 0.
 *
 * @param text the date
 * @param day receives the day of the month
 * @param month receives the month less 1, as `tm_mon` has it
 * @param year receives the year less 1900, as `tm_year` has it
 * @return 1; 0 a null argument, or memory is short: nothing is stored then. Takes no lock.
 */
ZANTLOG_API int32_t zantLogGetDate(const char *text, int32_t *day, int32_t *month, int32_t *year);

/**
 * Converts a date or a time of day to a time. A text with a "-" is a date, read with zantLogGetDate() up to
 * its first ":", and stands for the midnight it begins with; any other text with a ":" is a time of day
 * ("10:30:15", "10:30") of today. Both are local times for which daylight saving is taken to be off, in
 * summer too.
 *
 * @return seconds since 1970-01-01 00:00 UTC; -1 for null, for any other text, for a time that cannot be
 * expressed, and when memory is short. Takes no lock.
 */
ZANTLOG_API int64_t zantLogStrDateTimeToT(const char *text);

ZANTLOG_END_DECLS
