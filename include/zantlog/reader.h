/** @file
 * Reading log files back: records, headers, file entries.
 */
#pragma once

#include "zantlog/discovery_types.h"
#include "zantlog/os_layer.h"
#include "zantlog/serialization.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API int32_t readrecord(zantLogOsFile *file, text_msg *buffer);
ZANTLOG_API uint32_t ReadHeaderEx(zantLogOsFile *file, LogFileHeader *header);
ZANTLOG_API uint32_t ReadHeader(LogFileEntry *entry, LogFileHeader *header);
ZANTLOG_API LogFileEntry *alloc_file(zantLogListing *listing);

ZANTLOG_END_DECLS
