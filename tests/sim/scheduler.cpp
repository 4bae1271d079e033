#include "tests/sim/scheduler.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <unistd.h>

#include "tests/sim/clock.h"
#include "tests/sim/handles.h"
#include "tests/sim/mutexes.h"
#include "tests/sim/program_image.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#define ZANTLOG_OVERLOOK_LEAKS() __lsan_disable()
#else
#define ZANTLOG_OVERLOOK_LEAKS() static_cast<void>(0)
#endif

namespace zantlog::sim {

namespace {

constexpr uint32_t kFirstProcessId = 1000;
constexpr uint32_t kFirstThreadId = 2000;
constexpr uint32_t kIdStep = 4;
constexpr auto kPoll = std::chrono::microseconds(200);
constexpr auto kLongestRealSleep = std::chrono::milliseconds(50);

// Never destroyed: threads that died in the middle of a call wait in it to the end of the program.
struct Scheduler {
    std::mutex lock; // of this and of the records' states and conditions
    std::condition_variable turn;
    std::vector<std::shared_ptr<ProcessRecord>> ring{std::make_shared<ProcessRecord>()};
    std::vector<std::shared_ptr<ProcessRecord>> kept; // whose threads stay
    ProcessRecord *current = ring.front().get();
    uint32_t nextProcessId = kFirstProcessId;
    long stayingThreads = 0;

    std::atomic<bool> several{false};
    std::atomic<uint32_t> nextThreadId{kFirstThreadId};
    std::atomic<long> waitingThreads{0}; // beside the main ones
    long alienThreads = 0;               // of the sanitizer

    std::mutex changesLock;
    std::condition_variable changes;

    Scheduler() {
        ring.front()->id = nextProcessId;
        ring.front()->state = ProcessState::Running;
    }
};

Scheduler &scheduler() {
    static auto &instance = *new Scheduler;
    return instance;
}

struct ThreadSelf {
    uint32_t id = scheduler().nextThreadId.fetch_add(kIdStep, std::memory_order_relaxed);
    ProcessRecord *process = scheduler().several ? nullptr : scheduler().ring.front().get();
    bool main = getpid() == gettid();

    ThreadSelf() {
        if (process == nullptr) {
            const std::lock_guard guard(scheduler().lock);
            process = scheduler().current;
        }
    }
    ~ThreadSelf() { abandonMutexesOfThread(id); }
    ThreadSelf(const ThreadSelf &) = delete;
    ThreadSelf &operator=(const ThreadSelf &) = delete;
};

ThreadSelf &self() {
    thread_local ThreadSelf instance;
    return instance;
}

[[noreturn]] void fatal(const char *text) {
    std::fprintf(stderr, "simulation: %s\n", text);
    std::abort();
}

long threadsOfTheSystem() {
    long count = 0;
    DIR *tasks = opendir("/proc/self/task");
    while (const dirent *entry = readdir(tasks)) {
        count += entry->d_name[0] != '.' ? 1 : 0;
    }
    closedir(tasks);
    return count;
}

// Whether threads beside the processes' main ones are at work. The scheduler's lock is held.
bool otherThreadsRun() {
    const Scheduler &all = scheduler();
    const long mains = static_cast<long>(all.ring.size());
    return threadsOfTheSystem() > all.alienThreads + mains + all.stayingThreads + all.waitingThreads;
}

bool isReady(const ProcessRecord &process) {
    if (process.state != ProcessState::Running) {
        return false;
    }
    const bool waits = process.condition || process.wakeTime;
    return !waits || (process.condition && process.condition()) ||
           (process.wakeTime && *process.wakeTime <= clock().now());
}

// Who goes on after `last`, in the order of their making; time passes when all of them wait for it. Null when none
// can.
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

using Lock = std::unique_lock<std::mutex>;

// The process of the calling thread has died: its main thread goes back to where it began, another one stays here.
[[noreturn]] void leave(Lock &lock) {
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
    scheduler().turn.wait(lock, [&process] {
        return scheduler().current == &process || process.state == ProcessState::Ended;
    });
    if (process.state == ProcessState::Ended) {
        leave(lock);
    }
}

void giveTurnTo(ProcessRecord &next) {
    setProgramImage(next.image);
    scheduler().current = &next;
    scheduler().turn.notify_all();
}

// Lets others run, until this process is ready and has its turn.
void passTurn(Lock &lock) {
    ProcessRecord &process = *self().process;
    while (otherThreadsRun()) {
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
        process.image = programImage();
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

// The calling thread's process ends; its thread, if it is the main one, is to return.
void finishThisProcess(int exitCode) {
    ThreadSelf &thread = self();
    ProcessRecord &process = *thread.process;
    releaseWhatItHas(process.id);
    const std::lock_guard guard(scheduler().lock);
    process.state = ProcessState::Ended;
    process.exitCode = exitCode;
    if (!thread.main) {
        process.threadStays = true;
        scheduler().stayingThreads += 1; // this one; the main one is counted with the process
    }
    ProcessRecord *next = choose(process);
    if (next == nullptr) {
        fatal("a process has ended, and every other one waits");
    }
    giveTurnTo(*next);
}

void workOff(ProcessRecord &process) {
    for (;;) {
        {
            Lock lock(scheduler().lock);
            awaitTurn(lock);
        }
        const int code = process.job();
        process.job = nullptr;
        if (process.endsWithJob) {
            finishThisProcess(code);
            return;
        }
        Lock lock(scheduler().lock);
        process.state = ProcessState::Idle;
        passTurn(lock);
    }
}

void threadOf(ProcessRecord &process) {
    // What the process leaves behind when it dies is no leak of the test's.
    ZANTLOG_OVERLOOK_LEAKS();
    self().process = &process;
    self().main = true;
    if (setjmp(process.base) == 0) {
        workOff(process);
    }
}

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
    bool alone = false;
    {
        const Lock lock(scheduler().lock);
        alone = !otherThreadsRun();
    }
    // Other threads are real ones: whoever sleeps to let them come on must do so in real time.
    if (!alone || !self().main) {
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

// ---- the face of a process

Process::Process() : record_(std::make_shared<ProcessRecord>()) {
    const ProcessRecord &maker = currentProcess();
    record_->environment = maker.environment;
    record_->currentFolder = maker.currentFolder;
    record_->image = freshProgramImage();
    Scheduler &all = scheduler();
    const std::lock_guard guard(all.lock);
    all.nextProcessId += kIdStep;
    record_->id = all.nextProcessId;
    all.ring.push_back(record_);
    all.several = true;
    record_->thread = std::thread([record = record_] { threadOf(*record); });
}

Process::~Process() {
    kill();
    Scheduler &all = scheduler();
    for (void *block : record_->blocks) {
        std::free(block);
    }
    const std::lock_guard guard(all.lock);
    std::erase(all.ring, record_);
    all.several = all.ring.size() > 1;
}

ProcessState Process::waitUntilItStops() {
    Lock lock(scheduler().lock);
    const ProcessRecord &record = *record_;
    if (record.state == ProcessState::Running) {
        passTurnUntil(
            lock, [&record] { return record.state != ProcessState::Running; }, {}, true);
    }
    return record.state == ProcessState::Running ? ProcessState::Blocked : record.state;
}

ProcessState Process::run(const std::function<void()> &job) {
    if (record_->state != ProcessState::Idle) {
        fatal("a process that is not idle takes no job");
    }
    record_->job = [job] {
        job();
        return 0;
    };
    record_->state = ProcessState::Running;
    return waitUntilItStops();
}

ProcessState Process::resume() {
    if (record_->state == ProcessState::Paused) {
        record_->state = ProcessState::Running;
    }
    return waitUntilItStops();
}

void Process::start(const std::function<int()> &job) {
    if (record_->state != ProcessState::Idle) {
        fatal("a process that is not idle takes no job");
    }
    record_->job = job;
    record_->endsWithJob = true;
    record_->state = ProcessState::Running;
}

ProcessState Process::wait() {
    return waitUntilItStops();
}

void Process::kill(int exitCode) {
    if (record_->state != ProcessState::Ended) {
        releaseWhatItHas(record_->id);
        const std::lock_guard guard(scheduler().lock);
        record_->state = ProcessState::Ended;
        record_->exitCode = exitCode;
        scheduler().turn.notify_all();
    }
    if (record_->threadStays && record_->thread.joinable()) {
        record_->thread.detach();
        const std::lock_guard guard(scheduler().lock);
        scheduler().kept.push_back(record_);
        ++scheduler().stayingThreads; // leaves the ring soon, and is no process's any more
    }
    if (record_->thread.joinable()) {
        record_->thread.join();
    }
}

ProcessState Process::state() const {
    return record_->state;
}

int Process::exitCode() const {
    return record_->exitCode;
}

uint32_t Process::id() const {
    return record_->id;
}

void Process::redirect(const std::string &outputFile, const std::string &errorFile) {
    record_->outputFile = outputFile;
    record_->errorFile = errorFile;
}

size_t Process::heapBlocks() const {
    return record_->blocks.size();
}

void letOthersRun() {
    waitForTurn();
    if (scheduler().several && self().main) {
        Lock lock(scheduler().lock);
        passTurnUntil(lock, nullptr, {}, false);
    }
}

} // namespace zantlog::sim
