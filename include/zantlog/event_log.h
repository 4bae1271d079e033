/** @file
 * The operating system's event log, and libraries loaded by name.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API int32_t osLogOpen(const zantLogEventSource *source, zantLogEventLog *log);
ZANTLOG_API int32_t osLogOpenEx(const zantLogEventSource *source, zantLogEventLog *log);
ZANTLOG_API int32_t osLogClose(void **eventLogHandle);
ZANTLOG_API int32_t SharedLibLoad(void **module, const char *baseName, char **fileName);
ZANTLOG_API int32_t SharedLibUnload(void *module);
ZANTLOG_API int32_t SharedLibResolveFunc(void *module, const char *function, void **out);

ZANTLOG_END_DECLS
