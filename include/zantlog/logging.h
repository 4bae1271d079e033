/** @file
 * The entry points: five families of messages.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

/** Flags of a call; the handle's output flags are added to them. */
enum {
    ZANTLOG_TO_STDOUT = 1,       /**< print every message except audit messages on standard output */
    ZANTLOG_TO_STDERR = 2,       /**< print diagnostic and application messages on standard error */
    ZANTLOG_TO_EVENT_LOG = 4,    /**< report application and secure-audit messages to the event log */
    ZANTLOG_RENDER_TEXT = 8,     /**< render the text at the call; a text is then required */
    ZANTLOG_AUTO_SEQUENCE = 16,  /**< keep the automatic sequence number */
    ZANTLOG_SECURE_EVENT = 64    /**< events carry the secure prefix */
};

ZANTLOG_API uint32_t zantLogAppMsg(zantLogHandle *handle, uint32_t flags, int32_t severity, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAppMsgEx(zantLogHandle *handle, uint32_t flags, int32_t severity, const char *who, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAppMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAppMsg2Ex(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *who, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAppMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, uint32_t msgid, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogAppMsg2VEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *who, uint32_t msgid, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogAppMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *text, zantLis *lis);
ZANTLOG_API uint32_t zantLogAppMsg2LEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *who, const char *text, zantLis *lis);
ZANTLOG_API uint32_t zantLogDiagMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogDiagMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogDiagMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who, uint32_t msgid, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogDiagMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who, const char *text, zantLis *lis);
ZANTLOG_API uint32_t zantLogAuditMsg(zantLogHandle *handle, uint32_t flags, const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAuditMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogAuditMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogAuditMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject, uint32_t outcome, zantLis *lis);
ZANTLOG_API uint32_t zantLogSecureAuditMsg(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogSecureAuditMsgV(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogSecureAuditMsgL(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome, zantLis *lis);
ZANTLOG_API uint32_t zantLogDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogDebugMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who, const char *fmt, ...);
ZANTLOG_API uint32_t zantLogDebugMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who, const char *fmt, va_list args);
ZANTLOG_API uint32_t zantLogFormattedDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who, const char *text);

ZANTLOG_END_DECLS
