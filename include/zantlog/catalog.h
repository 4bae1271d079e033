/** @file
 * The message-catalog library, qzlis_3.dll, as this library imports it: records and functions.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

/** Kinds of a catalog argument. */
enum {
    ZANTLIS_WIDE_CHAR = 0,      /**< first slot: a 16-bit character */
    ZANTLIS_SIGNED = 1,         /**< first slot: width in bits; second slot: the value */
    ZANTLIS_UNSIGNED = 2,       /**< first slot: width in bits; second slot: the value */
    ZANTLIS_DOUBLE = 3,         /**< first slot: a double */
    ZANTLIS_POINTER = 4,        /**< first slot: the address */
    ZANTLIS_WIDE_STRING = 5,    /**< first slot: UTF-16 text */
    ZANTLIS_OS_ERROR = 6,       /**< first slot: width in bits; second slot: the error code */
    ZANTLIS_OS_ERROR_WIDE = 7,  /**< the same, the second kind of error code */
    ZANTLIS_DATE_TIME = 8,      /**< first slot: seconds since 1970-01-01 00:00 UTC */
    ZANTLIS_NESTED = 9,         /**< first slot: a zantLis */
    ZANTLIS_UTF8_STRING = 10,   /**< first slot: UTF-8 text */
    ZANTLIS_NATIVE_STRING = 11  /**< first slot: text in the process's code page */
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

ZANTLIS_API int32_t zantLisVEx(zantLis *lis, uint32_t selector, uint32_t msgid, const char *fmt, va_list args);
ZANTLIS_API int32_t zantLisTextV(zantLis *lis, const char *fmt, va_list args);
ZANTLIS_API int32_t zantLisGetTextId(const zantLis *lis, uint32_t *id);
ZANTLIS_API int32_t zantLisGetArgCount(const zantLis *lis, uint32_t *count);
ZANTLIS_API int32_t zantLisGetArgsBegin(const zantLis *lis, zantLisArgIter *iter);
ZANTLIS_API int32_t zantLisGetArgTypeId(const zantLisArgIter *iter, int32_t *typeId);
ZANTLIS_API int32_t zantLisGetNextArg(zantLisArgIter *iter);
ZANTLIS_API int32_t zantLisGetArg_wchar(const zantLisArgIter *iter, wchar_t *value);
ZANTLIS_API int32_t zantLisGetArg_longlong(const zantLisArgIter *iter, int64_t *value);
ZANTLIS_API int32_t zantLisGetArg_ulonglong(const zantLisArgIter *iter, uint64_t *value);
ZANTLIS_API int32_t zantLisGetArg_double(const zantLisArgIter *iter, double *value);
ZANTLIS_API int32_t zantLisGetArg_pointer(const zantLisArgIter *iter, void **value);
ZANTLIS_API int32_t zantLisGetArg_nativeString(const zantLisArgIter *iter, const char **value);
ZANTLIS_API int32_t zantLisGetArg_utf8string(const zantLisArgIter *iter, const char **value);
ZANTLIS_API int32_t zantLisGetArg_wstring(const zantLisArgIter *iter, const wchar_t **value);
ZANTLIS_API int32_t zantLisGetArg_os_error(const zantLisArgIter *iter, int64_t *value);
ZANTLIS_API int32_t zantLisGetArg_datetime(const zantLisArgIter *iter, int64_t *value);
ZANTLIS_API int32_t zantLisGetArg_lis(const zantLisArgIter *iter, zantLis *value);
ZANTLIS_API int32_t zantLisFree(zantLis *lis);

ZANTLOG_END_DECLS
