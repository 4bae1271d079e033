// The lock that checks its holders, and the one of the process.
#include "base/common_lock.h"

#include "logfile/os/os_thread.h"

#include <atomic>

using namespace zantlog;

namespace {

// Values of zantLogLockRec::initialised.
constexpr uint32_t kUninitialised = 0;
constexpr uint32_t kInitialised = 1;
constexpr uint32_t kBeingInitialised = 2; // seen by threads that come while the first one is at it

constinit zantLogLockRec commonLock{};

using State = std::atomic_ref<uint32_t>;

void require(bool condition) {
    if (!condition) {
        os::abortProcess();
    }
}

// The first of several threads that meet a fresh lock initialises it; the others wait for that.
void initialiseOnFirstUse(zantLogLockRec *lock) {
    State state(lock->initialised);
    uint32_t seen = state.load(std::memory_order_acquire);
    while (seen != kInitialised) {
        // Anything else is no lock: waiting for it would never end.
        require(seen == kUninitialised || seen == kBeingInitialised);
        if (seen == kUninitialised && state.compare_exchange_strong(seen, kBeingInitialised)) {
            zantLogLockInit(lock);
            return;
        }
        os::yieldProcessor();
        seen = state.load(std::memory_order_acquire);
    }
}

} // namespace

void zantLogLockInit(zantLogLockRec *lock) {
    require(lock != nullptr);
    os::initCriticalSection(lock->criticalSection);
    State(lock->initialised).store(kInitialised, std::memory_order_release);
}

void zantLogLock(zantLogLockRec *lock, const char *label) {
    require(lock != nullptr);
    initialiseOnFirstUse(lock);
    os::enterCriticalSection(lock->criticalSection);
    // A negative depth is nothing that this lock can have come to.
    require(lock->depth >= 0 && lock->depth < ZANTLOG_LOCK_DEPTH);
    lock->holders[lock->depth] = {os::threadId(), label};
    ++lock->depth;
}

void zantLogUnlock(zantLogLockRec *lock, const char *label) {
    require(lock != nullptr);
    require(lock->depth >= 1);
    --lock->depth;
    require(State(lock->initialised).load(std::memory_order_acquire) == kInitialised);
    zantLogLockHolder &holder = lock->holders[lock->depth];
    require(holder.thread == os::threadId());
    // The address, not the text: a release belongs to the one acquisition that was given this very constant.
    require(holder.label == label);
    holder = {};
    os::leaveCriticalSection(lock->criticalSection);
}

void zantLogDestroyLock(zantLogLockRec *lock) {
    require(lock != nullptr);
    require(State(lock->initialised).load(std::memory_order_acquire) == kInitialised);
    require(lock->depth == 0);
    os::deleteCriticalSection(lock->criticalSection);
    State(lock->initialised).store(kUninitialised, std::memory_order_release);
}

void zantLockCommon(const char *label) {
    zantLogLock(&commonLock, label);
}

void zantUnlockCommon(const char *label) {
    zantLogUnlock(&commonLock, label);
}

void zantDestroyCommonLock(void) {
    zantLogDestroyLock(&commonLock);
}
