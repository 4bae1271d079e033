/** @file
 * The entry points: five families of messages.
 *
 * Names say what a form takes: `2` a sequence number, `V` an argument list in place of the arguments, `L` a
 * built catalog object, `Ex` a component. The message record is built and dispatched under the common lock;
 * formats are worked through before it is taken. A message that is dropped by its level costs no lock.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

/** Flags of a call; the handle's output flags are added to them. */
enum {
    ZANTLOG_TO_STDOUT = 1,      /**< print every message except audit messages on standard output */
    ZANTLOG_TO_STDERR = 2,      /**< print diagnostic and application messages on standard error */
    ZANTLOG_TO_EVENT_LOG = 4,   /**< report application and secure-audit messages to the event log */
    ZANTLOG_RENDER_TEXT = 8,    /**< render the text at the call; a text is then required */
    ZANTLOG_AUTO_SEQUENCE = 16, /**< keep the automatic sequence number */
    ZANTLOG_SECURE_EVENT = 64   /**< events carry the secure prefix */
};

/**
 * Logs an application message with the automatic sequence number and without a component:
 * zantLogAppMsg2VEx() with flag 16.
 */
ZANTLOG_API uint32_t zantLogAppMsg(zantLogHandle *handle, uint32_t flags, int32_t severity, uint32_t msgid,
                                   const char *fmt, ...);

/** The same with a component. */
ZANTLOG_API uint32_t zantLogAppMsgEx(zantLogHandle *handle, uint32_t flags, int32_t severity, const char *who,
                                     uint32_t msgid, const char *fmt, ...);

/** zantLogAppMsg2VEx() without a component. */
ZANTLOG_API uint32_t zantLogAppMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                    uint32_t msgid, const char *fmt, ...);

/** zantLogAppMsg2VEx() with the arguments themselves. */
ZANTLOG_API uint32_t zantLogAppMsg2Ex(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                      const char *who, uint32_t msgid, const char *fmt, ...);

/** zantLogAppMsg2VEx() without a component. */
ZANTLOG_API uint32_t zantLogAppMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                     uint32_t msgid, const char *fmt, va_list args);

/**
 * Logs an application message given as a format and an argument list; the other application forms with a
 * format call it.
 *
 * With a message id the message is a catalog message: its typed arguments are logged, and with flag 8 its
 * text as well. Without one (0) the text is rendered and logged. A text that cannot be rendered, because the
 * format is malformed or memory is short, is logged as none. Application messages are filtered by no level.
 *
 * @param handle    an open handle
 * @param seq       sequence number, unless flag 16 keeps the automatic one (a number is drawn either way)
 * @param flags     ZANTLOG_TO_... for this message on top of the handle's output flags;
 *                  ZANTLOG_RENDER_TEXT; ZANTLOG_AUTO_SEQUENCE
 * @param severity  0 information, 1 warning, 2 to 4 errors
 * @param who       the emitting component; may be empty
 * @param msgid     id in the product's message catalog; 0: none
 * @param fmt       format of the catalog library, see zantLisVEx()
 * @param args      its arguments; the list must not be used again, only ended
 * @return 0; 3 null handle, who or format, flag 8 and no text came of the format, or a damaged context of
 * the handle; 1 a severity out of 0 to 4; 57 the handle writes no file; when the catalog object could not be
 * built 3 (a malformed format), 4 (out of memory), 2 or 10 (other failures of the catalog library); else what
 * zantLogMsg() returned, among it 5, 32, 51 and 54 of the log file
 *
 * Takes the common lock under "zantLogAppMsg2LEx()", after format and arguments have been worked through.
 */
ZANTLOG_API uint32_t zantLogAppMsg2VEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                       const char *who, uint32_t msgid, const char *fmt, va_list args);

/** zantLogAppMsg2LEx() without a component. */
ZANTLOG_API uint32_t zantLogAppMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                     const char *text, zantLis *lis);

/**
 * Logs an application message from a text and a catalog object. The text is copied. The object passes to the
 * library as soon as the arguments have been found good: it is freed there, whatever the result, and `lis` is
 * cleared.
 *
 * @param text  may be null without flag 8: a plain object is then rendered, a catalog message logged without
 * @param lis   the object; an empty one for a text alone
 * @return 0; 3 null handle, who or lis, or flag 8 without a text (the object stays with the caller), or a
 * damaged context of the handle; else as zantLogAppMsg2VEx() but for the building of an object
 */
ZANTLOG_API uint32_t zantLogAppMsg2LEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity,
                                       const char *who, const char *text, zantLis *lis);

/** zantLogDiagMsg2V() with the automatic sequence number. */
ZANTLOG_API uint32_t zantLogDiagMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who,
                                    uint32_t msgid, const char *fmt, ...);

/** zantLogDiagMsg2V() with the arguments themselves. */
ZANTLOG_API uint32_t zantLogDiagMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                                     const char *who, uint32_t msgid, const char *fmt, ...);

/**
 * Logs a diagnostic message given as a format and an argument list. First gives zantDynaLoadConfig() a chance
 * to refresh the levels; a message whose level is above the handle's diag level is then dropped with result
 * 0. All else is as zantLogAppMsg2VEx() has it.
 *
 * @param level  1 to 6; levels below 1 pass the filter and are refused
 * @param who    the emitting component, required
 * @return 0 logged or dropped; 1 a level out of 1 to 6 (nothing is logged); 3 null handle, who or format, or
 * flag 8 and no text came of the format; else as zantLogAppMsg2VEx()
 *
 * Takes the common lock under "zantLogDiagMsg2L()".
 */
ZANTLOG_API uint32_t zantLogDiagMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                                      const char *who, uint32_t msgid, const char *fmt, va_list args);

/**
 * Logs a diagnostic message from a text and a catalog object, filtered by the handle's diag level as it is:
 * no reload. The object of a dropped message stays with the caller; of every other it passes to the library
 * as with zantLogAppMsg2LEx(), also when the level is refused with 1.
 *
 * @return as zantLogDiagMsg2V(), and 3 for a null lis or flag 8 without a text (the object stays with the
 * caller)
 */
ZANTLOG_API uint32_t zantLogDiagMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                                      const char *who, const char *text, zantLis *lis);

/** zantLogAuditMsg2V() with the automatic sequence number. */
ZANTLOG_API uint32_t zantLogAuditMsg(zantLogHandle *handle, uint32_t flags, const char *subject,
                                     uint32_t outcome, uint32_t msgid, const char *fmt, ...);

/** zantLogAuditMsg2V() with the arguments themselves. */
ZANTLOG_API uint32_t zantLogAuditMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags,
                                      const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt,
                                      ...);

/**
 * Logs an audit message. Audit messages are catalog messages, filtered by no level; no text is rendered, flag
 * 8 is ignored.
 *
 * @param subject  whose action it was; may be null
 * @param outcome  0 is success
 * @param msgid    id in the product's message catalog, not 0
 * @return 0; 3 null handle or format, or msgid 0; else as zantLogAppMsg2VEx()
 *
 * Takes the common lock under "zantLogAuditMsg2L()".
 */
ZANTLOG_API uint32_t zantLogAuditMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags,
                                       const char *subject, uint32_t outcome, uint32_t msgid, const char *fmt,
                                       va_list args);

/**
 * Logs an audit message from a catalog object, which passes to the library as with zantLogAppMsg2LEx().
 *
 * @return 0; 3 null handle or lis (the object stays with the caller), or a damaged context of the handle;
 * else as zantLogAuditMsg2V() but for the building of an object
 */
ZANTLOG_API uint32_t zantLogAuditMsg2L(zantLogHandle *handle, uint32_t seq, uint32_t flags,
                                       const char *subject, uint32_t outcome, zantLis *lis);

/** zantLogSecureAuditMsgV() with the arguments themselves. */
ZANTLOG_API uint32_t zantLogSecureAuditMsg(zantLogHandle *handle, int32_t level, const char *subject,
                                           uint32_t outcome, uint32_t msgid, const char *fmt, ...);

/**
 * Reports a secure-audit message to the event log, through a handle of zantLogSecureOpen(). It goes there
 * whatever the handle's output flags say, and to no file. Its record carries sequence number 0, but the
 * handle's number advances.
 *
 * @param level    a message above the handle's secure-audit level is dropped
 * @param subject  whose action it was; may be null
 * @param outcome  0 is success
 * @param msgid    id in the product's message catalog, not 0
 * @return 0 reported or dropped; 3 null handle or format, or msgid 0; 58 the handle writes a log file (and
 * the message was not dropped); when the catalog object could not be built 2, 3, 4 or 10 as with
 * zantLogAppMsg2VEx(); -1 as unsigned: the event log refused it
 *
 * Takes the common lock under "zantLogSecureAuditMsgL()".
 */
ZANTLOG_API uint32_t zantLogSecureAuditMsgV(zantLogHandle *handle, int32_t level, const char *subject,
                                            uint32_t outcome, uint32_t msgid, const char *fmt, va_list args);

/**
 * Reports a secure-audit message from a catalog object. The object passes to the library and `lis` is
 * cleared, except when an argument is null, when the message is dropped, or when the handle's context is
 * damaged (3): then it stays with the caller.
 *
 * @return as zantLogSecureAuditMsgV() but for the building of an object; 3 null handle or lis
 */
ZANTLOG_API uint32_t zantLogSecureAuditMsgL(zantLogHandle *handle, int32_t level, const char *subject,
                                            uint32_t outcome, zantLis *lis);

/** zantLogDebugMsg2V() with the automatic sequence number. */
ZANTLOG_API uint32_t zantLogDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level, const char *who,
                                     const char *fmt, ...);

/** zantLogDebugMsg2V() with the arguments themselves. */
ZANTLOG_API uint32_t zantLogDebugMsg2(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                                      const char *who, const char *fmt, ...);

/**
 * Logs a debug message, which is a text and nothing else. First gives zantDynaLoadConfig() a chance to
 * refresh the levels; a message whose level is above the handle's debug level is then dropped with result 0.
 * A text that cannot be rendered is logged as none; flag 8 is ignored.
 *
 * @param seq    sequence number, unless flag 16 keeps the automatic one
 * @param level  1 to 6; levels below 1 pass the filter and are refused
 * @param who    the emitting component, required
 * @param fmt    format of the catalog library, see zantLisTextV()
 * @return 0 logged or dropped; 1 a level out of 1 to 6 (nothing is logged); 3 null handle, who or format, or
 * a damaged context of the handle; 57 the handle writes no file; else what zantLogMsg() returned
 *
 * Takes the common lock under "zantLogDebugMsg2V()".
 */
ZANTLOG_API uint32_t zantLogDebugMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level,
                                       const char *who, const char *fmt, va_list args);

/**
 * Logs a ready text as a debug message, with the automatic sequence number, whatever the handle's debug
 * level: the caller has filtered before it made the text.
 *
 * @param text  not a format; copied
 * @return as zantLogDebugMsg2V(); 3 for a null text too
 *
 * Takes the common lock under "zantLogFormattedDebugMsg()".
 */
ZANTLOG_API uint32_t zantLogFormattedDebugMsg(zantLogHandle *handle, uint32_t flags, int32_t level,
                                              const char *who, const char *text);

ZANTLOG_END_DECLS
