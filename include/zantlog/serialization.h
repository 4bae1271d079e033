/** @file
 * The line that a message becomes in a log file, and the growable buffer that it is built in. None of these
 * functions takes a lock; a buffer is used by one thread at a time.
 */
#pragma once

#include "zantlog/message.h"

ZANTLOG_BEGIN_DECLS

enum { ZANTLOG_TEXT_INLINE = 4096 /**< bytes that a buffer holds without a heap block */ };

/** Versions of the header and of the record line. */
enum {
    ZANTLOG_FORMAT_OLDEST = 0x10004,  /**< 65540; up to 65542 they are read, and written on request only */
    ZANTLOG_FORMAT_PRODUCT = 0x10007, /**< 65543: files of a product and originator */
    ZANTLOG_FORMAT_LOGSET = 0x10008   /**< 65544: files of a log set */
};

/**
 * A growable buffer of bytes, in storage of the caller's. The content is the first `capacity - free` bytes at
 * `data`; it is not terminated. The buffer owns a heap block exactly when `capacity` is above
 * ::ZANTLOG_TEXT_INLINE. A buffer points into itself: it must not be copied as a whole.
 */
typedef struct text_msg {
    char inlineArea[ZANTLOG_TEXT_INLINE];
    char *data;        /**< the inline area, or an owned heap block */
    uint64_t free;     /**< bytes left after the content */
    uint64_t capacity; /**< bytes at `data` */
} text_msg;

ZANTLOG_FIELD_AT(text_msg, data, 4096);
ZANTLOG_FIELD_AT(text_msg, free, 4104);
ZANTLOG_FIELD_AT(text_msg, capacity, 4112);
ZANTLOG_RECORD_SIZE(text_msg, 4120);

/**
 * Builds the line of a message record, its line feed included. A line of up to 4095 bytes takes no memory
 * from the heap.
 *
 * The line holds, separated by commas: the numbers of the record (type, product id, originator id, file
 * originator id, sequence number, timestamp, process id, thread id; a log set's file has neither product id
 * nor file originator id, and versions below 65543 have no numbers at all); context token and text; the
 * fields of the record's type; and, except for debug messages, the arguments of the catalog object. Texts
 * stand behind their length in bytes, as "12:disk failure". They are converted to UTF-8 from the code page of
 * the process, unless the record's `catalogSelector` says that they are UTF-8 already; one that cannot be
 * converted, or for which memory is short, is replaced by "**UNABLE TO PROCESS LOG MESSAGE**". Line feeds
 * inside the line are stored as carriage returns.
 *
 * @param rec its `formatVersion` is one of 65540 to 65544; it is not changed
 * @param buffer initialised here, whatever it held before; release it with free_text_msg() after a success.
 * After a failure it is empty and holds no heap block.
 * @return 0; 1 another version, a type other than debug, diagnostic, application, context and audit, an
 * application severity outside 0 to 4, an argument of unknown kind, with a null text or list, with a wide
 * text that is not UTF-16, or nested more than 1000 times; 3 null argument; 4 out of memory
 */
ZANTLOG_API uint32_t zantLogMsgSerialize(zantLogMsgRec *rec, text_msg *buffer);

/** Makes a buffer an empty one; what it held before is not released. A null buffer is ignored. */
ZANTLOG_API void init_text_msg(text_msg *buffer);

/**
 * Takes bytes at the end of the content. A buffer grows also when the bytes would fill it to its last one.
 *
 * @param count bytes
 * @return where the bytes go, until the next growth; their values are undefined. Null for a null buffer, for
 * a count that cannot be added, and when memory is short (see grow_text_msg())
 */
ZANTLOG_API char *append_text_msg(text_msg *buffer, uint64_t count);

/**
 * Grows a buffer by 4096 bytes, or by 4096 bytes and the count where 4096 are not enough; the content stays.
 * append_text_msg() calls this where it is needed.
 *
 * @param count bytes that are to be appended next
 * @return 0; -1 null buffer, a count that cannot be added, or out of memory. A buffer whose heap block could
 * not grow for want of memory has lost it, and is empty; after any other failure it is as it was.
 */
ZANTLOG_API int32_t grow_text_msg(text_msg *buffer, uint64_t count);

/** Releases a buffer's heap block and makes the buffer an empty one. Null is ignored. */
ZANTLOG_API void free_text_msg(text_msg *buffer);

/**
 * Makes the content a line: every line feed in it becomes a carriage return, and a line feed is appended. A
 * comma at the end stays.
 *
 * @return 0; 3 null buffer; 4 out of memory
 */
ZANTLOG_API uint32_t terminate_text_msg(text_msg *buffer);

/**
 * Converts UTF-16 to UTF-8.
 *
 * @param out a new text, freed with zantLogFree(); null after a failure
 * @param text terminated
 * @return 0; 1 the text is not UTF-16 (a surrogate without its other half); 3 null argument; 4 out of memory
 */
ZANTLOG_API uint32_t wcs2utf8(char **out, const wchar_t *text);

/**
 * Converts a text of the process's code page, as the C runtime's current locale has it, to UTF-8.
 *
 * @param out a new text, freed with zantLogFree(); null after a failure
 * @return 0; 1 the text is malformed in its code page; 3 null argument; 4 out of memory
 */
ZANTLOG_API uint32_t mbs2utf8(char **out, const char *text);

ZANTLOG_END_DECLS
