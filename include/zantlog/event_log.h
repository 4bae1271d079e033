/** @file
 * The operating system's event log, and libraries loaded by name.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

/**
 * Opens the local machine's event log.
 *
 * @param source  name and category
 * @param log     receives the category and the open handle; null in it after a failure
 * @return 0; -1 not opened; -3 null argument
 *
 * Takes no lock. Close it with osLogClose().
 */
ZANTLOG_API int32_t osLogOpen(const zantLogEventSource *source, zantLogEventLog *log);

/** The same operation as osLogOpen(). */
ZANTLOG_API int32_t osLogOpenEx(const zantLogEventSource *source, zantLogEventLog *log);

/**
 * Closes an event log, if one is open.
 *
 * @param eventLogHandle  address of the handle, which is cleared
 * @return 0; -3 null
 */
ZANTLOG_API int32_t osLogClose(void **eventLogHandle);

/**
 * Loads a library of the product by its base name. The file name is the base name, its file part (after the
 * last backslash) cut at the first "_" or ".", followed by "_3.dll": "zantLogFormatMsg" loads
 * zantLogFormatMsg_3.dll.
 *
 * @param module    receives the module, null after a failure; release it with SharedLibUnload()
 * @param baseName  may name a directory
 * @param fileName  null, or receives the file name, to be freed with zantLogFree(); null after a failure
 * @return 0; -2 null module or name, out of memory, or the library cannot be loaded
 */
ZANTLOG_API int32_t SharedLibLoad(void **module, const char *baseName, char **fileName);

/**
 * Releases a module.
 *
 * @return 0; -2 null
 */
ZANTLOG_API int32_t SharedLibUnload(void *module);

/**
 * Looks an export up.
 *
 * @param function  its name
 * @param out       receives its address, or null when the module has no such export
 * @return 0, also when there is no such export; -2 a null argument or an empty name
 */
ZANTLOG_API int32_t SharedLibResolveFunc(void *module, const char *function, void **out);

ZANTLOG_END_DECLS
