/** @file
 * Rendering of catalog objects to plain text.
 */
#pragma once

#include "zantlog/catalog.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API void strncatlis(char *buffer, size_t *size, zantLis *lis);
ZANTLOG_API void fstrncat(char *buffer, size_t capacity, const char *fmt, ...);
ZANTLOG_API uint32_t listxt_svnprintf(char **out, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogGetArg_asStringW(zantLisArgIter *iter, wchar_t **out);
ZANTLOG_API uint32_t zantLogMapLisResToLoggingRes(int32_t lisResult);

ZANTLOG_END_DECLS
