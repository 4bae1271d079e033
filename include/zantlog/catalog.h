/** @file
 * The message-catalog library, qzlis_3.dll: objects that hold the typed arguments of a message.
 *
 * zantlog_3.dll imports the functions below; any library that exports them under these names, with these
 * records and results, can stand in for the reference implementation that comes with zantlog. What is marked
 * "reference implementation" is that one's own.
 *
 * An object is either a catalog message (an id in a message catalog, and the arguments that its text needs)
 * or a plain text (id 0; the arguments, rendered one after the other, are the text). Every function is safe
 * to call from several threads as long as no object is freed while another thread reads it. No function takes
 * a lock or throws.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

/** Kinds of a catalog argument. */
enum {
    ZANTLIS_WIDE_CHAR = 0,     /**< first slot: a 16-bit character */
    ZANTLIS_SIGNED = 1,        /**< first slot: width in bits; second slot: the value */
    ZANTLIS_UNSIGNED = 2,      /**< first slot: width in bits; second slot: the value */
    ZANTLIS_DOUBLE = 3,        /**< first slot: a double */
    ZANTLIS_POINTER = 4,       /**< first slot: the address */
    ZANTLIS_WIDE_STRING = 5,   /**< first slot: UTF-16 text */
    ZANTLIS_OS_ERROR = 6,      /**< first slot: width in bits; second slot: the error code */
    ZANTLIS_OS_ERROR_WIDE = 7, /**< the same, the second kind of error code */
    ZANTLIS_DATE_TIME = 8,     /**< first slot: seconds since 1970-01-01 00:00 UTC */
    ZANTLIS_NESTED = 9,        /**< first slot: a zantLis */
    ZANTLIS_UTF8_STRING = 10,  /**< first slot: UTF-8 text */
    ZANTLIS_NATIVE_STRING = 11 /**< first slot: text in the process's code page */
};

typedef struct zantLisArg zantLisArg;

/** One typed argument of a catalog object. */
struct zantLisArg {
    int32_t kind;
    union {
        uint16_t width;     /**< sized integers: width in bits */
        uint16_t character; /**< wide character */
        double real;
        uint64_t word;
        int64_t seconds;
        const char *narrow;
        const wchar_t *wide;
        void *pointer;
    } first;
    union {
        int64_t number;
        uint64_t word;
    } second;
    zantLisArg *next;
};

/** A catalog object: message id (0 for a plain text) and a chain of typed arguments. */
typedef struct zantLis {
    uint32_t textId;
    uint32_t argCount;
    zantLisArg *first;
} zantLis;

/** Position in the arguments of an object; opaque to the caller. */
typedef struct zantLisArgIter {
    uint64_t words[2];
} zantLisArgIter;

ZANTLOG_FIELD_AT(zantLisArg, first, 8);
ZANTLOG_FIELD_AT(zantLisArg, second, 16);
ZANTLOG_FIELD_AT(zantLisArg, next, 24);
ZANTLOG_RECORD_SIZE(zantLisArg, 32);
ZANTLOG_FIELD_AT(zantLis, argCount, 4);
ZANTLOG_FIELD_AT(zantLis, first, 8);
ZANTLOG_RECORD_SIZE(zantLis, 16);
ZANTLOG_RECORD_SIZE(zantLisArgIter, 16);

/** Results of the catalog library. */
enum {
    ZANTLIS_OK = 0,                /**< success */
    ZANTLIS_OTHER = -1,            /**< any other failure */
    ZANTLIS_INVALID_ARGUMENT = -2, /**< null argument or malformed format */
    ZANTLIS_OUT_OF_MEMORY = -3,    /**< an allocation failed */
    ZANTLIS_CATALOG_FAILURE = -4   /**< the catalog could not be used */
};

/**
 * Builds the object of a catalog message. Only what the conversions of the format name is kept; its literal
 * text is not, since the text is the catalog's.
 *
 * Formats are those of printf, with positions ("%2$s") and a few more conversions (reference implementation):
 *
 * | conversion | argument | kind |
 * |---|---|---|
 * | `d i` | signed integer | 1 |
 * | `u x X o` | unsigned integer | 2 |
 * | `f F e E g G a A` | double | 3 |
 * | `p` | pointer | 4 |
 * | `s`, `hs` | text in the process's code page | 11 |
 * | `ls`, `ws`, `S` | UTF-16 text | 5 |
 * | `U` | UTF-8 text | 10 |
 * | `c`, `hc` | character in the process's code page, passed as int | 11 |
 * | `lc`, `wc`, `C` | UTF-16 character, passed as int | 0 |
 * | `r` | error code of the operating system, 32 bits | 6 |
 * | `R` | error code, 64 bits | 7 |
 * | `T` | date and time: seconds since 1970 UTC, 64 bits | 8 |
 * | `N` | object: `const zantLis *`; copied with all that it holds, it stays the caller's | 9 |
 *
 * Integers have 8 bits with `hh`, 16 with `h`, 32 with none, `l` or `I32`, 64 with `ll`, `I64`, `I`, `j`, `z`
 * or `t`.
 *
 * `l` means 32 bits, as `long` has on Windows. A conversion with flags, width or precision (numbers, "*", or
 * "*1$") becomes a text that looks as printf would show it: of kind 5 for wide characters and strings, 10 for
 * UTF-8, 11 for everything else. Null texts and objects read "(null)". Texts are copied. Refused are `%n`,
 * `%Lf`, unknown conversions, sizes that do not fit their conversion, an unfinished conversion, flags, width
 * or precision with `r R T N`, positions mixed with their absence, above 100, with gaps or with one argument
 * passed in two ways, and a double's precision above 1100.
 *
 * @param lis       overwritten, not freed before; empty after a failure. Free it with zantLisFree().
 * @param selector  which catalog; 0 as a rule. Ignored by the reference implementation.
 * @param msgid     message id
 * @param fmt       format, in the process's code page
 * @param args      arguments; none is read before the whole format has been found well-formed
 * @return 0; -2 null object or format, a malformed format, or an object nested more than 32 times; -3 out of
 * memory; -4 the catalog could not be used (never by the reference implementation); -1 any other failure (a
 * text became longer while it was being copied)
 */
ZANTLIS_API int32_t zantLisVEx(zantLis *lis, uint32_t selector, uint32_t msgid, const char *fmt,
                               va_list args);

/**
 * Builds the object of a plain text: literal pieces ("%%" is one percent sign) become arguments of kind 11
 * between those of the conversions. Formats and results are those of zantLisVEx(). So that the text renders
 * as printf would print it, `x X o F e E g G a A` become texts too, and so do doubles and error codes that
 * are longer than the renderer's room for them.
 */
ZANTLIS_API int32_t zantLisTextV(zantLis *lis, const char *fmt, va_list args);

/** Stores the message id, 0 for a plain text. @return 0; -2 null argument */
ZANTLIS_API int32_t zantLisGetTextId(const zantLis *lis, uint32_t *id);

/** Stores the number of arguments. @return 0; -2 null argument */
ZANTLIS_API int32_t zantLisGetArgCount(const zantLis *lis, uint32_t *count);

/**
 * Puts an iterator on the first argument.
 *
 * @return 0; -1 the object has no arguments; -2 null argument
 */
ZANTLIS_API int32_t zantLisGetArgsBegin(const zantLis *lis, zantLisArgIter *iter);

/** Stores the kind of the current argument. @return 0; -2 null argument, or the iterator is at the end */
ZANTLIS_API int32_t zantLisGetArgTypeId(const zantLisArgIter *iter, int32_t *typeId);

/** Advances. @return 0; -1 there is no further argument, the iterator is at the end; -2 null argument */
ZANTLIS_API int32_t zantLisGetNextArg(zantLisArgIter *iter);

/**
 * Stores the value of the current argument if it is a wide character (kind 0). All fetchers work alike, each
 * for its kind. Texts and nested objects are borrowed: they live until the object is freed, and are not to be
 * freed themselves.
 *
 * @return 0; -2 null argument, an iterator at the end, or an argument of another kind (nothing is stored)
 */
ZANTLIS_API int32_t zantLisGetArg_wchar(const zantLisArgIter *iter, wchar_t *value);

/** A signed integer of any width (kind 1). */
ZANTLIS_API int32_t zantLisGetArg_longlong(const zantLisArgIter *iter, int64_t *value);

/** An unsigned integer of any width (kind 2). */
ZANTLIS_API int32_t zantLisGetArg_ulonglong(const zantLisArgIter *iter, uint64_t *value);

/** A double (kind 3). */
ZANTLIS_API int32_t zantLisGetArg_double(const zantLisArgIter *iter, double *value);

/** A pointer (kind 4). */
ZANTLIS_API int32_t zantLisGetArg_pointer(const zantLisArgIter *iter, void **value);

/** A UTF-16 text (kind 5). */
ZANTLIS_API int32_t zantLisGetArg_wstring(const zantLisArgIter *iter, const wchar_t **value);

/** An error code of the operating system (kinds 6 and 7). */
ZANTLIS_API int32_t zantLisGetArg_os_error(const zantLisArgIter *iter, int64_t *value);

/** A date and time (kind 8), in seconds since 1970 UTC. */
ZANTLIS_API int32_t zantLisGetArg_datetime(const zantLisArgIter *iter, int64_t *value);

/** A nested object (kind 9): a view of it, not to be freed. */
ZANTLIS_API int32_t zantLisGetArg_lis(const zantLisArgIter *iter, zantLis *value);

/** A UTF-8 text (kind 10). */
ZANTLIS_API int32_t zantLisGetArg_utf8string(const zantLisArgIter *iter, const char **value);

/** A text in the process's code page (kind 11). */
ZANTLIS_API int32_t zantLisGetArg_nativeString(const zantLisArgIter *iter, const char **value);

/**
 * Frees what the object holds and clears it. An object of zeros, and one that has been freed, is freed with
 * result 0; a copy of an object that has been freed must not be freed again.
 *
 * @return 0; -2 null object
 */
ZANTLIS_API int32_t zantLisFree(zantLis *lis);

ZANTLOG_END_DECLS
