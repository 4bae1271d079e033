/** @file
 * Reading log files back: records, headers, file entries. None of these functions takes a lock; an open file
 * is read by one thread at a time. A file may be read while others append to it.
 */
#pragma once

#include "zantlog/discovery_types.h"
#include "zantlog/os_layer.h"
#include "zantlog/serialization.h"

ZANTLOG_BEGIN_DECLS

/**
 * Takes the next record, one line, out of a log file. The file is read in blocks of ::ZANTLOG_READ_BLOCK
 * bytes.
 *
 * @param file open for reading; reading begins at the system's position in the file when nothing is buffered
 * (`position` -1), else with the buffered bytes
 * @param buffer initialised by the caller, as a rule anew for each record: the record is appended to what it
 * holds. It receives the line without its line feed, with a terminator, and with line feeds for the carriage
 * returns that stand for them in the file. The caller releases it with free_text_msg() in every case.
 * @return 1 a record was read; 0 the file is at its end (a last line without a line feed is no record; what
 * was read of it is dropped); -1 the read failed, or memory is short; -3 null argument
 */
ZANTLOG_API int32_t readrecord(zantLogOsFile *file, text_msg *buffer);

/**
 * Reads and parses the header of a log file.
 *
 * A header of version 65543 has product id, originator id, start time, time-zone offset and text; versions
 * 65540 to 65542 have the same without the offset, version 65544 has offset and text only. A field that is
 * missing, or is not what it should be, ends the parsing with success: it and those behind it stay 0, empty,
 * or -1 for the offset. The text is taken up to its first blank and cut at 511 bytes.
 *
 * @param file open for reading at its beginning; what is buffered is dropped, and the records can be read
 * from it afterwards
 * @param header cleared before anything is read
 * @return 0; 1 the file has no whole first line, or that does not begin with the word "$Header"; 3 null
 * argument; 48 the header has another version, or none
 */
ZANTLOG_API uint32_t ReadHeaderEx(zantLogOsFile *file, LogFileHeader *header);

/**
 * Reads and parses the header of a file entry's log file, and records version and time-zone offset (-1 for a
 * version that carries none) in the entry. After a failure the entry is as it was.
 *
 * @param entry its `file` is open for reading, at its beginning; for null `header` is cleared and the answer
 * is 1
 * @param header as for ReadHeaderEx(); null: the entry alone is filled
 * @return what ReadHeaderEx() returns; 3 only when both arguments are null
 */
ZANTLOG_API uint32_t ReadHeader(LogFileEntry *entry, LogFileHeader *header);

/**
 * Makes a file entry of the current file of a listing.
 *
 * @return a new entry with name and creation time, all else zero; freed with zantLogFree(). Null for a null
 * listing and when memory is short.
 */
ZANTLOG_API LogFileEntry *alloc_file(zantLogListing *listing);

ZANTLOG_END_DECLS
