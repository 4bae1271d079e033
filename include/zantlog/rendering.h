/** @file
 * Rendering of catalog objects to plain text.
 */
#pragma once

#include "zantlog/catalog.h"

ZANTLOG_BEGIN_DECLS

/**
 * Renders a catalog object as plain text, in two passes. Without a buffer it measures: `*size` becomes the
 * sum of fixed reserves, terminator included. With a zero-filled buffer of that size it appends the text, cut
 * at the size.
 *
 * An object with a message id becomes "[Cannot find catalog for message id=N] " and its arguments separated
 * by commas; an object without one its arguments side by side:
 *
 * | kind | text | reserve in bytes |
 * |---|---|---|
 * | wide character | "%lc" | 2 |
 * | signed, unsigned | decimal | 20 |
 * | double | "%f" | 15 |
 * | pointer | "0x" and lower-case hexadecimal | 20 |
 * | wide string | in the process's code page | its length there + 1 |
 * | error | low 32 bits, signed decimal | 10 |
 * | date and time | local time as asctime() and a blank; see below | 25 |
 * | nested object | rendered in place | its own |
 * | UTF-8, native string | unchanged | its length + 1 |
 * | any other | ends the object there | 0 |
 *
 * The marker reserves 51, a comma 1. A piece longer than its reserve uses what others left; the end is cut.
 * The text of asctime() ends with a line feed; a date that has no local time adds and reserves nothing.
 *
 * @param buffer  null to measure
 * @param size    out when measuring, else the buffer's capacity; all bits set after a failure (an id, a kind
 * or an argument cannot be read, a wide string has no form in the code page, objects nest more than 1000
 * deep); then the buffer's content is of no use
 * @param lis     the object, unchanged; null fails
 */
ZANTLOG_API void strncatlis(char *buffer, size_t *size, zantLis *lis);

/**
 * Formats as printf() does and appends the text to the string in `buffer`, which holds `capacity` bytes and
 * stays terminated; what does not fit is cut. Nothing happens when there is no room, when a pointer is null,
 * or when a temporary of `capacity` bytes cannot be allocated.
 */
ZANTLOG_API void fstrncat(char *buffer, size_t capacity, const char *fmt, ...);

/**
 * Renders a format with its arguments through the catalog library, which knows its own conversions.
 *
 * @param out   receives the text, to be freed with zantLogFree(), or null when nothing is to be rendered,
 * when rendering fails and when memory is short; untouched when zantLisTextV() fails
 * @param args  consumed
 * @return 0, always
 */
ZANTLOG_API uint32_t listxt_svnprintf(char **out, const char *fmt, va_list args);

/**
 * Converts the current argument of an iteration to a wide string. The formats are those of strncatlis(), but
 * for: a pointer by "%#I64x" (a null is "0"); an error by all its 64 bits; a date as wcsftime() prints "%c",
 * empty when it has no local time.
 *
 * @param out  receives the string, to be freed with zantLogFree(); stored on success only
 * @return 0; 3 null argument; 1 kind or value cannot be read or converted (an empty native string counts as
 * that), a nested object, an unknown kind; 4 out of memory
 */
ZANTLOG_API uint32_t zantLogGetArg_asStringW(zantLisArgIter *iter, wchar_t **out);

/** Maps a result of the catalog library: 0 to 0, -2 to 3, -3 to 4, -4 to 2, any other to 10. */
ZANTLOG_API uint32_t zantLogMapLisResToLoggingRes(int32_t lisResult);

ZANTLOG_END_DECLS
