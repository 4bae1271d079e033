#include "tests/sim/scheduler.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "tests/sim/clock.h"
#include "tests/sim/turns.h"

namespace zantlog::sim {

namespace {

constexpr auto kLongestRealSleep = std::chrono::milliseconds(50);

} // namespace

ProcessRecord &currentProcess() {
    return *self().process;
}

uint32_t currentProcessId() {
    return self().process->id;
}

bool isFirstProcess() {
    return self().process == scheduler().ring.front().get();
}

uint32_t currentThreadId() {
    return self().id;
}

void waitForTurn() {
    ThreadSelf &thread = self();
    if (!scheduler().several.load(std::memory_order_relaxed)) {
        return;
    }
    Lock lock(scheduler().lock);
    if (scheduler().current == thread.process && thread.process->state != ProcessState::Ended) {
        return;
    }
    const WaitingThread waiting;
    awaitTurn(lock);
}

void waitUntil(const std::function<bool()> &condition) {
    if (scheduler().several && self().main) {
        Lock lock(scheduler().lock);
        passTurnUntil(lock, condition, {}, false);
        return;
    }
    const WaitingThread waiting;
    {
        Lock lock(scheduler().changesLock);
        scheduler().changes.wait(lock, condition);
    }
    waitForTurn();
}

void conditionsChanged() {
    // Whoever has just found its condition false is waiting once the lock is free.
    { const std::lock_guard guard(scheduler().changesLock); }
    scheduler().changes.notify_all();
}

void sleepFor(uint32_t milliseconds) {
    if (scheduler().several && self().main) {
        Lock lock(scheduler().lock);
        passTurnUntil(lock, nullptr, clock().now() + milliseconds * kUnitsPerMillisecond, false);
        return;
    }
    clock().advance(milliseconds * kUnitsPerMillisecond);
    // Other threads are real ones: whoever sleeps to let them come on must do so in real time.
    if (!self().main || otherThreadsRun()) {
        std::this_thread::sleep_for(
            std::min<std::chrono::microseconds>(std::chrono::milliseconds(milliseconds), kLongestRealSleep));
    }
}

void endThisProcess(int exitCode) {
    if (isFirstProcess()) {
        std::abort();
    }
    finishThisProcess(exitCode);
    Lock lock(scheduler().lock);
    leave(lock);
}

void pauseThisProcess() {
    if (isFirstProcess()) {
        fatal("the first process cannot pause: nobody could resume it");
    }
    Lock lock(scheduler().lock);
    currentProcess().state = ProcessState::Paused;
    passTurn(lock);
}

WaitingThread::WaitingThread() {
    if (!self().main) {
        ++scheduler().waitingThreads;
    }
}

WaitingThread::~WaitingThread() {
    if (!self().main) {
        --scheduler().waitingThreads;
    }
}

void letOthersRun() {
    waitForTurn();
    if (scheduler().several && self().main) {
        Lock lock(scheduler().lock);
        passTurnUntil(lock, nullptr, {}, false);
    }
}

} // namespace zantlog::sim
