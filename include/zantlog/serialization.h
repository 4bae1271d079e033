/** @file
 * The line that a message becomes in a log file, and the growable buffer that it is built in.
 */
#pragma once

#include "zantlog/message.h"

ZANTLOG_BEGIN_DECLS

enum { ZANTLOG_TEXT_INLINE = 4096 /**< bytes that a buffer holds without a heap block */ };

/** Versions of the header and of the record line. */
enum {
    ZANTLOG_FORMAT_OLDEST = 0x10004,
    ZANTLOG_FORMAT_PRODUCT = 0x10007, /**< files of a product and originator */
    ZANTLOG_FORMAT_LOGSET = 0x10008   /**< files of a log set */
};

/** A growable buffer of bytes. */
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

ZANTLOG_API uint32_t zantLogMsgSerialize(zantLogMsgRec *rec, text_msg *buffer);
ZANTLOG_API void init_text_msg(text_msg *buffer);
ZANTLOG_API char *append_text_msg(text_msg *buffer, uint64_t count);
ZANTLOG_API int32_t grow_text_msg(text_msg *buffer, uint64_t count);
ZANTLOG_API void free_text_msg(text_msg *buffer);
ZANTLOG_API uint32_t terminate_text_msg(text_msg *buffer);
ZANTLOG_API uint32_t wcs2utf8(char **out, const wchar_t *text);
ZANTLOG_API uint32_t mbs2utf8(char **out, const char *text);

ZANTLOG_END_DECLS
