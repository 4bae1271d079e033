/** @file
 * Dispatch of one message to its sinks, and the common lock of the process.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

enum { ZANTLOG_LOCK_DEPTH = 10 /**< holders that a lock can have at once */ };

/** One holder of a lock. */
typedef struct zantLogLockHolder {
    uint32_t thread;
    const char *label;
} zantLogLockHolder;

/** A re-entrant lock that checks that its holders release in reverse order. */
typedef struct zantLogLockRec {
    void *criticalSection[5];                      /**< the platform's critical section */
    uint32_t initialised;                          /**< 1 once made, 0 before and when destroyed */
    int32_t depth;                                 /**< holders now */
    zantLogLockHolder holders[ZANTLOG_LOCK_DEPTH]; /**< the innermost one last */
} zantLogLockRec;

ZANTLOG_FIELD_AT(zantLogLockRec, initialised, 40);
ZANTLOG_FIELD_AT(zantLogLockRec, depth, 44);
ZANTLOG_FIELD_AT(zantLogLockRec, holders, 48);
ZANTLOG_RECORD_SIZE(zantLogLockRec, 208);

/**
 * Sends a built message to its sinks, under the common lock: renders a plain text that is still a catalog
 * object, writes the record to the handle's log file, prints it and reports it to the event log, as the
 * output flags say.
 *
 * Text: when the record has no text and its catalog object has no message id, the rendered object becomes the
 * record's text, and the object is released. What cannot be rendered is logged without text. Console: with
 * flag 1 everything but audit messages goes to standard output; with flag 2 diagnostic and application
 * messages go to standard error; formatted by the localisation library and followed by a newline. Without
 * that library nothing is printed. Event log: with flag 4 application and secure-audit messages are reported.
 *
 * @param handle  an open handle
 * @param flags   call flags, added to the handle's output flags for this message
 * @param rec     the record; it stays the caller's, to be freed with zantLogFreeMsg()
 * @return 0; 3 null argument; 58 a secure-audit message through a handle that writes a log file (nothing is
 * written); 57 another message through a handle that writes none; else the first of: a failure of the writer,
 * which does not keep the sinks from running; for a secure-audit message with flag 4 the result of its report
 * (-1 as unsigned when the event log refused it); the result of the localisation library
 *
 * Takes the common lock under "zantLogMsg()".
 */
ZANTLOG_API uint32_t zantLogMsg(zantLogHandle *handle, uint32_t flags, zantLogMsgRec *rec);

/**
 * Makes a lock of a record of zeros. It need not be called: the first zantLogLock() of such a record makes
 * the lock, also when several threads come at once.
 *
 * A null `lock` ends the process (abort), here and in the functions below.
 */
ZANTLOG_API void zantLogLockInit(zantLogLockRec *lock);

/**
 * Takes the lock, waiting for another thread that holds it. The thread that holds it may take it again, to a
 * depth of 10. An eleventh holder ends the process (abort).
 *
 * @param label  a constant string that names the caller, as a rule its name followed by "()"
 */
ZANTLOG_API void zantLogLock(zantLogLockRec *lock, const char *label);

/**
 * Releases the innermost hold. The process ends (abort) when the lock is not held, when the calling thread is
 * not its innermost holder, or when `label` is not the very address that the matching lock was given.
 */
ZANTLOG_API void zantLogUnlock(zantLogLockRec *lock, const char *label);

/** Destroys a lock. A lock that is held, or was never made, ends the process (abort). */
ZANTLOG_API void zantLogDestroyLock(zantLogLockRec *lock);

/**
 * The common lock: the one lock of the process, which every operation takes that reads or changes a handle, a
 * context, the configuration or a log file. Open to other code of the same product; the rules are those of
 * zantLogLock(), zantLogUnlock() and zantLogDestroyLock(). The library itself never destroys it.
 */
ZANTLOG_API void zantLockCommon(const char *label);

/** Releases the common lock: zantLogUnlock(). */
ZANTLOG_API void zantUnlockCommon(const char *label);

/** Destroys the common lock: zantLogDestroyLock(). The next lock makes it anew. */
ZANTLOG_API void zantDestroyCommonLock(void);

ZANTLOG_END_DECLS
