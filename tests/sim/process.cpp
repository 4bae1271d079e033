#include "tests/sim/process.h"

#include <cstdlib>

#include "tests/sim/host.h"
#include "tests/sim/memory.h"
#include "tests/sim/program_image.h"
#include "tests/sim/turns.h"

#if defined(__has_feature)
#define ZANTLOG_CHECKS_LEAKS __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define ZANTLOG_CHECKS_LEAKS 1
#else
#define ZANTLOG_CHECKS_LEAKS 0
#endif
#if ZANTLOG_CHECKS_LEAKS
#include <sanitizer/lsan_interface.h>
#define ZANTLOG_OVERLOOK_LEAKS() __lsan_disable()
#else
#define ZANTLOG_OVERLOOK_LEAKS() static_cast<void>(0)
#endif

namespace zantlog::sim {

namespace {

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
    --scheduler().mainThreads;
}

} // namespace

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
    ++all.mainThreads;
    record_->thread = std::thread([record = record_] { threadOf(*record); });
}

Process::~Process() {
    kill();
    Scheduler &all = scheduler();
    for (void *block : record_->blocks) {
        std::free(block);
    }
    memory().blocks -= static_cast<int64_t>(record_->blocks.size());
    memory().criticalSections -= record_->criticalSections;
    host().socketStarts -= record_->socketStarts;
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

void Process::give(const std::function<int()> &job, bool endsWithJob) {
    const std::lock_guard guard(scheduler().lock);
    if (record_->state != ProcessState::Idle) {
        fatal("a process that is not idle takes no job");
    }
    record_->job = job;
    record_->endsWithJob = endsWithJob;
    record_->state = ProcessState::Running;
}

ProcessState Process::run(const std::function<void()> &job) {
    const auto withResult = [job] {
        job();
        return 0;
    };
    give(withResult, false);
    return waitUntilItStops();
}

ProcessState Process::resume() {
    {
        const std::lock_guard guard(scheduler().lock);
        if (record_->state == ProcessState::Paused) {
            record_->state = ProcessState::Running;
        }
    }
    return waitUntilItStops();
}

void Process::start(const std::function<int()> &job) {
    give(job, true);
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

} // namespace zantlog::sim
