/** @file
 * How the names of the interface are declared: undecorated C names with the one calling convention of the
 * platform, in C11 and in C++20.
 */
#pragma once

#if defined(__cplusplus)
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#define ZANTLOG_BEGIN_DECLS extern "C" {
#define ZANTLOG_END_DECLS }
#define ZANTLOG_STATIC_ASSERT(condition, text) static_assert(condition, text)
#else
#include <stdarg.h>
#include <stddef.h>
#include <stdint.h>
#define ZANTLOG_BEGIN_DECLS
#define ZANTLOG_END_DECLS
#define ZANTLOG_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#endif

/** Marks a function of zantlog_3.dll. Define ZANTLOG_STATIC when its objects are linked in directly. */
#if defined(_WIN32) && !defined(ZANTLOG_STATIC)
#define ZANTLOG_API __declspec(dllimport)
#else
#define ZANTLOG_API
#endif

/** Marks a function of qzlis_3.dll. Define ZANTLIS_STATIC when its objects are linked in directly. */
#if defined(_WIN32) && !defined(ZANTLIS_STATIC)
#define ZANTLIS_API __declspec(dllimport)
#else
#define ZANTLIS_API
#endif

/** Holds a field of a record to the offset that the binary interface gives it. */
#define ZANTLOG_FIELD_AT(record, field, offset)                                                              \
    ZANTLOG_STATIC_ASSERT(offsetof(record, field) == (offset), #record "." #field " has moved")

/** Holds a record to the size that the binary interface gives it. */
#define ZANTLOG_RECORD_SIZE(record, size)                                                                    \
    ZANTLOG_STATIC_ASSERT(sizeof(record) == (size), #record " has changed its size")
