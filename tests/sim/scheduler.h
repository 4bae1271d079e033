// Whose turn it is: what the implementation of the seam needs to know of processes and threads.
#pragma once

#include <condition_variable>
#include <csetjmp>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "tests/sim/process.h"
#include "tests/sim/relaxed_number.h"

namespace zantlog::sim {

struct ProcessRecord {
    uint32_t id = 0;
    ProcessState state = ProcessState::Idle; // never Blocked, which is a matter of what it waits for
    int exitCode = 0;

    std::function<int()> job;
    bool endsWithJob = false;
    std::thread thread;       // of all but the first process
    std::jmp_buf base;        // where its thread goes when the process has died
    bool threadStays = false; // it died in another thread: the main one is never to come back
    std::vector<unsigned char> image;

    // While it waits: the condition, and the time at which it goes on in any case.
    std::function<bool()> condition;
    std::optional<int64_t> wakeTime;
    bool untilAllWait = false; // goes on as well when no process can run

    std::map<std::string, std::string> environment; // names in upper case; see environment.h
    std::string currentFolder = "C:\\";
    std::string outputFile;
    std::string errorFile;
    std::unordered_set<void *> blocks; // of the heap; not of the first process
    RelaxedNumber<int> criticalSections;
    RelaxedNumber<int> socketStarts;
};

// The process of the calling thread.
ProcessRecord &currentProcess();
uint32_t currentProcessId();
bool isFirstProcess();

// Of the calling thread.
uint32_t currentThreadId();

// Waits until it is the turn of the calling thread's process; does not return if that process has died.
void waitForTurn();

// Waits for a condition that other processes or threads bring about; both sides may hold no lock that the
// condition takes. Whoever changes what a condition looks at calls conditionsChanged().
void waitUntil(const std::function<bool()> &condition);
void conditionsChanged();

// Lets time pass for this process; others run meanwhile.
void sleepFor(uint32_t milliseconds);

[[noreturn]] void endThisProcess(int exitCode);
void pauseThisProcess();

// A thread that waits in the system: the turn may be given away meanwhile.
class WaitingThread {
public:
    WaitingThread();
    ~WaitingThread();
    WaitingThread(const WaitingThread &) = delete;
    WaitingThread &operator=(const WaitingThread &) = delete;
};

} // namespace zantlog::sim
