/** @file
 * Contexts: handles that stamp a token into their messages.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API uint32_t zantLogCreateContext(zantLogHandle *parent, zantLogHandle *context, const char *token, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogDestroyContext(zantLogHandle *context);

ZANTLOG_END_DECLS
