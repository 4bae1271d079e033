/** @file
 * Contexts: handles that stamp a token into their messages.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

/**
 * Makes a context: a second handle on the parent's log file and sinks, whose messages carry a token. Writes
 * one context message with token and title to the log file. The context's own sequence numbers start at 1;
 * its secure-audit level is what its storage holds.
 *
 * @param parent   an open handle; a context may be one
 * @param context  storage of the caller's, zero-filled
 * @param token    copied
 * @param msgid    message id of the title in the product's catalog; 0: `fmt` itself is the title
 * @param fmt      format of the title, then its arguments
 * @return 0; 3 null parent, context or fmt, or null token (a sequence number has been drawn then); 4 out of
 * memory; 2, 3, 4, 10 the title's catalog object could not be built; a result of the log file writer: the
 * context is usable then, but its messages carry no token
 *
 * After a writer's failure and after success, zantLogDestroyContext() releases it, before its parent is
 * closed and, for a context of a context, before the outer one. Takes the common lock under
 * "zantLogCreateContextToFile()".
 */
ZANTLOG_API uint32_t zantLogCreateContext(zantLogHandle *parent, zantLogHandle *context, const char *token,
                                          uint32_t msgid, const char *fmt, ...);

/**
 * Releases a context: its token and title, and its place among the handles of the log file.
 *
 * @return 0; 1 the context is not attached to its log file; 3 null, or a context without a log file
 *
 * Takes the common lock under "zantLogDestroyContext()".
 */
ZANTLOG_API uint32_t zantLogDestroyContext(zantLogHandle *context);

ZANTLOG_END_DECLS
