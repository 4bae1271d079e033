#include "tests/sim/turns.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <unistd.h>

#include "tests/sim/clock.h"
#include "tests/sim/handles.h"
#include "tests/sim/mutexes.h"
#include "tests/sim/program_image.h"

namespace zantlog::sim {

namespace {

constexpr uint32_t kFirstProcessId = 1000;
constexpr uint32_t kFirstThreadId = 2000;
constexpr auto kPoll = std::chrono::microseconds(200);
constexpr int kMostPolls = 50000; // ten seconds

long threadsOfTheSystem() {
    long count = 0;
    DIR *tasks = opendir("/proc/self/task");
    while (const dirent *entry = readdir(tasks)) {
        count += entry->d_name[0] != '.' ? 1 : 0;
    }
    closedir(tasks);
    return count;
}

// Threads that a sanitizer keeps for itself; it starts them with the first thread of the program.
long threadsOfTheSanitizer() {
    std::thread([] {}).join();
    long least = threadsOfTheSystem();
    for (int i = 0; i < 5 && least > 1; ++i) {
        std::this_thread::sleep_for(kPoll); // the thread that has ended may still be listed
        least = std::min(least, threadsOfTheSystem());
    }
    return least - 1;
}

bool isReady(const ProcessRecord &process) {
    if (process.state != ProcessState::Running) {
        return false;
    }
    const bool waits = process.condition || process.wakeTime;
    return !waits || (process.condition && process.condition()) ||
           (process.wakeTime && *process.wakeTime <= clock().now());
}

// Who goes on after `last`, in the order of their making; time passes when all of them wait for it. Null when
// none can.
ProcessRecord *choose(const ProcessRecord &last) {
    const auto &ring = scheduler().ring;
    size_t at = 0;
    while (ring[at].get() != &last) {
        ++at;
    }
    ProcessRecord *earliest = nullptr;
    ProcessRecord *patient = nullptr;
    for (size_t i = 1; i <= ring.size(); ++i) {
        ProcessRecord &candidate = *ring[(at + i) % ring.size()];
        if (isReady(candidate)) {
            return &candidate;
        }
        if (candidate.state != ProcessState::Running) {
            continue;
        }
        if (candidate.wakeTime && (earliest == nullptr || *candidate.wakeTime < *earliest->wakeTime)) {
            earliest = &candidate;
        }
        if (candidate.untilAllWait && patient == nullptr) {
            patient = &candidate;
        }
    }
    if (earliest != nullptr) {
        clock().set(*earliest->wakeTime);
        return earliest;
    }
    return patient;
}

void giveTurnTo(ProcessRecord &next) {
    setProgramImage(next.image);
    scheduler().current = &next;
    scheduler().turn.notify_all();
}

} // namespace

Scheduler::Scheduler()
    : nextProcessId(kFirstProcessId), nextThreadId(kFirstThreadId), alienThreads(threadsOfTheSanitizer()) {
    ring.front()->id = nextProcessId;
    ring.front()->state = ProcessState::Running;
}

Scheduler &scheduler() {
    static auto &instance = *new Scheduler;
    return instance;
}

ThreadSelf::ThreadSelf()
    : id(scheduler().nextThreadId.fetch_add(kIdStep, std::memory_order_relaxed)), process(nullptr),
      main(getpid() == gettid()) {
    const std::lock_guard guard(scheduler().lock);
    process = scheduler().current;
}

ThreadSelf::~ThreadSelf() {
    abandonMutexesOfThread(id);
}

ThreadSelf &self() {
    thread_local ThreadSelf instance;
    return instance;
}

[[noreturn]] void fatal(const char *text) {
    std::fprintf(stderr, "simulation: %s\n", text);
    std::abort();
}

bool otherThreadsRun() {
    const Scheduler &all = scheduler();
    return threadsOfTheSystem() >
           all.alienThreads + all.mainThreads + all.stayingThreads + all.waitingThreads;
}

void leave(Lock &lock) {
    ThreadSelf &thread = self();
    lock.unlock();
    if (thread.main) {
        std::longjmp(thread.process->base, 1);
    }
    for (;;) {
        pause();
    }
}

void awaitTurn(Lock &lock) {
    ProcessRecord &process = *self().process;
    scheduler().turn.wait(
        lock, [&process] { return scheduler().current == &process || process.state == ProcessState::Ended; });
    if (process.state == ProcessState::Ended) {
        leave(lock);
    }
}

void passTurn(Lock &lock) {
    ProcessRecord &process = *self().process;
    for (int polls = 0; otherThreadsRun(); ++polls) {
        if (polls == kMostPolls) {
            fatal("a thread beside the main one neither ends nor waits in the system");
        }
        lock.unlock();
        std::this_thread::sleep_for(kPoll);
        lock.lock();
        if (process.condition && process.condition()) {
            return;
        }
    }
    ProcessRecord *next = choose(process);
    if (next == nullptr) {
        fatal("every process waits for another one");
    }
    if (next != &process) {
        takeProgramImage(&process.image);
        giveTurnTo(*next);
        awaitTurn(lock);
    }
}

void passTurnUntil(Lock &lock, const std::function<bool()> &condition, std::optional<int64_t> wakeTime,
                   bool untilAllWait) {
    ProcessRecord &process = *self().process;
    process.condition = condition;
    process.wakeTime = wakeTime;
    process.untilAllWait = untilAllWait;
    passTurn(lock);
    process.condition = nullptr;
    process.wakeTime.reset();
    process.untilAllWait = false;
}

void releaseWhatItHas(uint32_t processId) {
    closeHandlesOfProcess(processId);
    abandonMutexesOfProcess(processId);
    conditionsChanged();
}

void finishThisProcess(int exitCode) {
    ThreadSelf &thread = self();
    ProcessRecord &process = *thread.process;
    releaseWhatItHas(process.id);
    const std::lock_guard guard(scheduler().lock);
    process.state = ProcessState::Ended;
    process.exitCode = exitCode;
    if (!thread.main) {
        process.threadStays = true;
        ++scheduler().stayingThreads;
    }
    ProcessRecord *next = choose(process);
    if (next == nullptr) {
        fatal("a process has ended, and every other one waits");
    }
    giveTurnTo(*next);
}

} // namespace zantlog::sim
