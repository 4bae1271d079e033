// Ids of thread and process, critical sections, and the process's last words.
#include "logfile/os/os_thread.h"

#include <cstring>
#include <mutex>
#include <thread>

#include "tests/sim/memory.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

constexpr int kAbortExitCode = 3;

using Section = std::recursive_mutex;

// The 40 bytes hold no more than where the section is: the bytes change with the process, and a thread that
// waits must not see that.
Section *sectionIn(void *bytes) {
    Section *section = nullptr;
    std::memcpy(&section, bytes, sizeof(section));
    return section;
}

} // namespace

uint32_t threadId() {
    return sim::currentThreadId();
}

uint32_t processId() {
    return sim::currentProcessId();
}

void initCriticalSection(void *section) {
    Section *made = new Section;
    std::memcpy(section, &made, sizeof(made));
    ++sim::memory().criticalSections;
    ++sim::currentProcess().criticalSections;
}

void enterCriticalSection(void *section) {
    sim::waitForTurn();
    Section *wanted = sectionIn(section);
    if (!wanted->try_lock()) {
        const sim::WaitingThread waiting;
        wanted->lock();
        sim::waitForTurn();
    }
}

void leaveCriticalSection(void *section) {
    sectionIn(section)->unlock();
}

void deleteCriticalSection(void *section) {
    delete sectionIn(section);
    --sim::memory().criticalSections;
    --sim::currentProcess().criticalSections;
}

void yieldProcessor() {
    sim::letOthersRun();
    std::this_thread::yield();
}

void abortProcess() {
    sim::endThisProcess(kAbortExitCode);
}

} // namespace zantlog::os
