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
 * Takes a record apart: makes the message record that its line was made of.
 *
 * Numbers and texts are those of the line. Texts are UTF-8, and zantLogMsgRec::catalogSelector says so; an
 * empty one is null. `lis` holds the arguments, with message id 0: the line does not carry the id. It is one
 * of zeros when there are none; else zantLisVEx() makes it, in integers of the line's width where C has them
 * and the number fits, else of 64 bits. A wide character above U+007F is U+FFFD, since the line does not hold
 * all of it.
 *
 * What a version does not carry is taken from the header, or is 0: product and file originator in version
 * 65544; and in versions 65540 to 65542 all numbers but level, severity and outcome, and the type. That is
 * told by the form of the line then: 2 for a number and a list, 3 for a text and a list, 0 for a text and a
 * number, and 1 for a text, a number and a list, though audit messages and those of type 2 in version 65542
 * look the same.
 *
 * @param header  as ReadHeaderEx() has read it from the file of the record
 * @param line    the record as readrecord() gives it: without its line feed, carriage returns turned back. No
 * terminator is needed
 * @param length  bytes of the line; of what readrecord() leaves in the buffer, without the terminator
 * @param rec     overwritten without being freed; its origin is ::ZANTLOG_ORIGIN_READER, and the caller
 * releases it with zantLogFreeMsg(). After a failure it is all zeros, and freeing it is harmless.
 * @return 0; 1 the line is no record of that version, or holds a NUL byte, or lists nested more than 32
 * times; 3 null argument; 4 out of memory; 48 the header has no version that can be read. Takes no lock.
 */
ZANTLOG_API uint32_t zantLogParseRecord(const LogFileHeader *header, const char *line, uint64_t length,
                                        zantLogMsgRec *rec);

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
