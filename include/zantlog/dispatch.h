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
    void *criticalSection[5]; /**< the platform's critical section */
    uint32_t initialised;
    int32_t depth;
    zantLogLockHolder holders[ZANTLOG_LOCK_DEPTH];
} zantLogLockRec;

ZANTLOG_FIELD_AT(zantLogLockRec, initialised, 40);
ZANTLOG_FIELD_AT(zantLogLockRec, depth, 44);
ZANTLOG_FIELD_AT(zantLogLockRec, holders, 48);
ZANTLOG_RECORD_SIZE(zantLogLockRec, 208);

ZANTLOG_API uint32_t zantLogMsg(zantLogHandle *handle, uint32_t flags, zantLogMsgRec *rec);
ZANTLOG_API void zantLogLockInit(zantLogLockRec *lock);
ZANTLOG_API void zantLogLock(zantLogLockRec *lock, const char *label);
ZANTLOG_API void zantLogUnlock(zantLogLockRec *lock, const char *label);
ZANTLOG_API void zantLogDestroyLock(zantLogLockRec *lock);
ZANTLOG_API void zantLockCommon(const char *label);
ZANTLOG_API void zantUnlockCommon(const char *label);
ZANTLOG_API void zantDestroyCommonLock(void);

ZANTLOG_END_DECLS
