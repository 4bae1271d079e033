/** @file
 * Query trees over log files.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API int32_t isterm(int32_t kind);
ZANTLOG_API int32_t eval(int32_t operatorCode, uint32_t a, uint32_t b);
ZANTLOG_API int32_t evalString(int32_t operatorCode, const char *a, const char *b);
ZANTLOG_API uint32_t HashString(const char *text, uint32_t modulus);
ZANTLOG_API uint32_t updateQueryForTZ(QueryNode *root, int32_t queryOffset);
ZANTLOG_API uint32_t GetIdFromName(zantLogCfg **array, uint32_t count, uint32_t fieldCode, const char *text);
ZANTLOG_API ContextTitle *SearchContextTitleInList(const zantLogMsgRec *context, const char *title,
                                                   const char *key, ContextTitle **table);

ZANTLOG_END_DECLS
