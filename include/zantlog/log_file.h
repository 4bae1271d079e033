/** @file
 * Log files: identity of host and time zone, the writer, copies, and the latest file.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/handle.h"
#include "zantlog/reader.h"

ZANTLOG_BEGIN_DECLS

/**
 * The number that stands for this host in names of product files: of the first of its addresses that gives
 * one. An IPv4 address is read as a little-endian number (10.1.2.3 is 50462986), of an IPv6 address the last
 * eight bytes as two big-endian numbers that are added; loopback addresses give none. A host without another
 * address, or whose name cannot be resolved, has the number of 127.0.0.1, 16777343. Takes no lock; starts and
 * cleans up the process's sockets around its look-up, which may take as long as name resolution does.
 *
 * @return the number; 0 when the host's name cannot be read
 */
ZANTLOG_API uint32_t zantLogHostId(void);

/**
 * The name of this host, as log file headers carry it. Starts and cleans up the process's sockets around the
 * call. Takes no lock.
 *
 * @param buffer receives the name, terminated
 * @param size bytes at `buffer`; 512 are enough for every name
 * @return 0; -1 the name cannot be read or does not fit (the buffer's content is undefined then); -3 null
 * buffer or size 0
 */
ZANTLOG_API int32_t osGetHostName(char *buffer, uint32_t size);

/**
 * The offset of the local time zone now, in seconds: UTC minus local time, so -3600 one hour east of
 * Greenwich. 0 when the current time cannot be broken down. Takes no lock.
 */
ZANTLOG_API int32_t getLocalTZOffsetFromGMT(void);

/**
 * Reads an offset as "GMT", "GMT+1:00" or "GMT-5:30". Hour 0 counts as west: "GMT+0:30" is -1800. What is
 * missing after "GMT", or is no number, counts as 0. Takes no lock.
 *
 * @param out seconds, positive for hours above 0; not touched by a failure
 * @return 0; 1 the text does not begin with "GMT"; 3 null argument
 */
ZANTLOG_API uint32_t TimeZoneToOffset(const char *text, int32_t *out);

/**
 * Opens the log file of a handle: goes on with the latest file of the product and file originator (or of the
 * log set), or begins a new one. zantLogOpen() and its siblings call this; it is of little use to others.
 *
 * Handles for the same product and file originator share one writer state, as long as no other product file
 * took the process's one shared place first. A handle that joins an open state brings its own directory,
 * size, mode, period, time of day and recycling for all. The time at which the open file is due by the clock
 * stays as it was; a file that was opened without a clock mode is due at once when a handle brings one.
 *
 * Takes the common lock with the label "zantLogOpenFile()", and inside it "zantLogAddLogToFile()".
 *
 * @param handle its `file` holds a writer state of its own, made by the open; levels, output flags,
 * originator, reload interval, numbers and times of the handle are set here
 * @param handleCfg decides on levels, output flags, originator id and reload interval
 * @param fileCfg decides on the file: directory, ids, rollover, recycling, security descriptor, log set. Both
 * records stay the caller's; what is kept of them is copied.
 * @return 0; 1 the directory, the host's name or number, the header or the file's mutex could not be made or
 * read; 3 null argument, a log set without a name, or a directory of more than 1024 characters; 4 out of
 * memory; 32 the file could not be opened; 51 its path was not found or access was denied; 53 `fileCfg` names
 * no directory; 57 the handle has no writer state. After 1, 3 for the directory's length, 32 and 51 the
 * handle is attached all the same: each write tries to begin the next file, and fails with 5 as long as that
 * fails. After 53, 4 and 3 for a log set without a name the handle's state is freed and its `file` null.
 */
ZANTLOG_API uint32_t zantLogOpenFile(zantLogHandle *handle, zantLogCfg *handleCfg, zantLogCfg *fileCfg);

/**
 * Detaches a handle from its log file; the last handle of a file closes it and frees the writer state, the
 * security descriptor text with it. The handle's `file` is null then. Takes the common lock with the label
 * "zantLogCloseFile()".
 *
 * @return 0; 1 the handle is not attached to its state; 3 null handle, or a handle without writer state
 */
ZANTLOG_API uint32_t zantLogCloseFile(zantLogHandle *handle);

/**
 * Attaches a handle to the writer state in its `file`, as the most recent one. A handle that is attached
 * already stays as it is. Takes the common lock with the label "zantLogAddLogToFile()".
 *
 * @return 0; 3 null handle; 57 no writer state
 */
ZANTLOG_API uint32_t zantLogAddLogToFile(zantLogHandle *handle);

/**
 * Writes a record into a log file: stamps it with the file's format version and file originator, rolls the
 * file over first when size, clock or a header that is not current call for it, reopens it when the record is
 * more than ten minutes younger than the last reopen, and appends the record's line with one write under the
 * file's mutex. After a change of file the records of all live contexts are written before it (product files
 * only). That a rollover fails shows in the result of the write alone.
 *
 * The caller holds the common lock; zantLogMsg() does.
 *
 * @param file a writer state, from a handle
 * @param rec its `formatVersion` and `fid` are set
 * @return 0; 1 null record, or one that cannot be serialized; 4 out of memory; 5 the write failed; 54 the
 * disk is full; 57 null state. After 5 and 54 no part of the record is in the file, and the next write may
 * succeed.
 */
ZANTLOG_API uint32_t zantLogWriteMsgWithRolloverToFile(zantLogFile *file, zantLogMsgRec *rec);

/**
 * Gives a context's handle its parent's log file, levels, output flags, originator, localizer, event log,
 * times and secure configuration (all shared), with sequence number 1, and writes the context's record. With
 * that done the context is live (`noContext` 0) and attached to the file; before, `noContext` is 1. The
 * secure-audit level and the catalog selector of the context's handle stay as they were.
 * zantLogCreateContext() calls this.
 *
 * Takes the common lock with the label "zantLogCreateContextToFile()", and inside it "zantLogAddLogToFile()".
 *
 * @param contextRec a record of type 3, as a rule `context->context`
 * @return 3 null handle; else what zantLogWriteMsgWithRolloverToFile() returns for the record
 */
ZANTLOG_API uint32_t zantLogCreateContextToFile(zantLogHandle *parent, zantLogHandle *context,
                                                zantLogMsgRec *contextRec);

/**
 * Copies a log file into a directory with the system's own file copy; an existing copy is overwritten. The
 * copy's path is the directory followed by the source's part from its last "\" on.
 *
 * @param source path with at least one "\"
 * @param directory without a separator at the end
 * @return 0; 3 null argument; 4 out of memory; 34 the copy failed, for want of a "\" in `source` too
 */
ZANTLOG_API uint32_t zantLogCopyFileEx(const char *source, const char *directory);

/**
 * Copies a log file into a directory; the copy is written under its own file mutex, so that nobody appends to
 * it in between. An existing copy is overwritten. What is appended to the source meanwhile is not copied.
 *
 * @param source without a "\" it is put behind the directory as it stands
 * @param directory as for zantLogCopyFileEx()
 * @return 0; 3 null argument; 4 out of memory; 31 the size of the source could not be read; 32 the source
 * could not be opened, or the copy not be created; 33 the source ended early; 34 the copy could not be
 * written, or is the source itself; 47 the directory was not found or access was denied; 54 the disk is full.
 * A source of 4 GiB or more is copied modulo 4 GiB.
 */
ZANTLOG_API uint32_t zantLogCopyFile(const char *source, const char *directory);

/**
 * Deletes a log file. When that fails, "<path> File Deletion failed" and a line end are printed on standard
 * output.
 *
 * @return 0, also when the deletion failed; 3 null path
 */
ZANTLOG_API uint32_t zantLogDeleteFile(const char *path);

/**
 * Finds the latest file of a product and file originator in a writer state's directory: of the latest day in
 * its name and of the highest number on that day. Files of other hosts do not count. Takes no lock.
 *
 * @param reserved not looked at
 * @param now not looked at
 * @param out a new entry with name and creation time, freed with zantLogFree(); null when nothing is found
 * @return 1 found; 0 not found, null argument, or out of memory
 */
ZANTLOG_API int32_t zantLogFindLatestLog(zantLogFile *file, uint32_t productId, uint32_t originatorId,
                                         uint64_t reserved, int64_t now, LogFileEntry **out);

/**
 * Finds the latest file of a log set in a writer state's directory: of the latest date in its name, the first
 * listed of equal ones. One name that begins as the log set's files do and goes on without a date of twelve
 * digits ends the search with nothing found. Takes no lock.
 *
 * @param logSet name of the log set; names with "-" are never found
 * @param reserved not looked at
 * @param now not looked at
 * @param out a new entry, freed with zantLogFree(), whose creation time is the date in the name, as local
 * time without daylight saving; null when nothing is found
 * @return 1 found; 0 not found, null argument, or out of memory
 */
ZANTLOG_API int32_t zantLogFindLatestLogSL(zantLogFile *file, uint32_t productId, const char *logSet,
                                           uint64_t reserved, int64_t now, LogFileEntry **out);

/**
 * Reads up to three numbers out of a text such as "10:30:15". Runs of delimiters count as one, leading ones
 * are skipped, and what follows the third piece is ignored. Takes no lock.
 *
 * @param delimiters each of these characters ends a piece
 * @param first number that the first piece begins with; 0 when there is no such piece, or it begins with none
 * @param second likewise of the second piece
 * @param third likewise of the third piece
 * @return 1; 0 null argument or out of memory, and nothing is stored
 */
ZANTLOG_API int32_t zantLogStrTimeToT(const char *text, const char *delimiters, uint32_t *first,
                                      uint32_t *second, uint32_t *third);

ZANTLOG_END_DECLS
