// The order in which processes have their turn; for scheduler.cpp and process.cpp.
#pragma once

#include <atomic>

#include "tests/sim/scheduler.h"

namespace zantlog::sim {

inline constexpr uint32_t kIdStep = 4; // between numbers of processes and threads, as on Windows

// Never destroyed: threads that died in the middle of a call wait in it to the end of the program.
struct Scheduler {
    std::mutex lock; // of this and of the records' states and conditions
    std::condition_variable turn;
    std::vector<std::shared_ptr<ProcessRecord>> ring{std::make_shared<ProcessRecord>()};
    std::vector<std::shared_ptr<ProcessRecord>> kept; // whose threads stay
    ProcessRecord *current = ring.front().get();
    uint32_t nextProcessId;

    std::atomic<bool> several{false};
    std::atomic<uint32_t> nextThreadId;
    std::atomic<long> mainThreads{1};
    std::atomic<long> waitingThreads{0}; // beside the main ones
    std::atomic<long> stayingThreads{0}; // beside the main ones, in processes that have died
    const long alienThreads;             // of the sanitizer

    std::mutex changesLock;
    std::condition_variable changes;

    Scheduler();
};

Scheduler &scheduler();

// What is known of a thread.
struct ThreadSelf {
    uint32_t id;
    ProcessRecord *process;
    bool main; // of its process

    ThreadSelf();
    ~ThreadSelf();
    ThreadSelf(const ThreadSelf &) = delete;
    ThreadSelf &operator=(const ThreadSelf &) = delete;
};

ThreadSelf &self();

[[noreturn]] void fatal(const char *text);

// Whether threads beside the processes' main ones are at work.
bool otherThreadsRun();

using Lock = std::unique_lock<std::mutex>;

// ---- with the scheduler's lock held

// Waits until it is this process's turn. When the process has died, its main thread goes back to where it
// began, and another one stays here for ever.
void awaitTurn(Lock &lock);
[[noreturn]] void leave(Lock &lock);

// Lets others run, until this process is ready and has its turn.
void passTurn(Lock &lock);

// The same, ready meaning that the condition holds, that it is so late, or that nobody else can run.
void passTurnUntil(Lock &lock, const std::function<bool()> &condition, std::optional<int64_t> wakeTime,
                   bool untilAllWait);

// ---- without

void releaseWhatItHas(uint32_t processId);

// The calling thread's process ends; its thread, if it is the main one, is to return.
void finishThisProcess(int exitCode);

} // namespace zantlog::sim
