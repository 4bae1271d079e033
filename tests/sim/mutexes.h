// Named mutexes of the simulated system.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tests/sim/handles.h"

namespace zantlog::sim {

struct NamedMutex {
    std::string name;
    uint32_t ownerThread = 0; // 0: free
    uint32_t ownerProcess = 0;
    uint32_t depth = 0;
    bool abandoned = false; // its holder died; until the next one takes it
    int handles = 0;        // with the last one it is gone, even if it is held
};

struct MutexHandle : Object {
    // Opens the mutex of that name, or makes it; an empty name stands for a mutex of its own.
    explicit MutexHandle(const std::string &name);
    ~MutexHandle() override;
    MutexHandle(const MutexHandle &) = delete;
    MutexHandle &operator=(const MutexHandle &) = delete;
    [[nodiscard]] const char *kind() const override { return "mutex"; }
    std::shared_ptr<NamedMutex> mutex;
};

// Keeps the mutex for the calling thread, which waits for it, until it takes it or ends; no pointer on the
// stack of a thread that dies does that.
NamedMutex &awaitedMutex(const std::shared_ptr<NamedMutex> &mutex);

// Takes the mutex for the calling thread if it is free or the thread's already.
bool takeAwaitedMutex();
bool isFreeFor(const NamedMutex &mutex, uint32_t threadId);

// False when the calling thread does not hold it.
bool giveMutexBack(NamedMutex &mutex);

void abandonMutexesOfThread(uint32_t threadId);
void abandonMutexesOfProcess(uint32_t processId);

// ---- for tests

int heldMutexes();
uint64_t mutexMisuses(); // releases by threads that did not hold the mutex
uint64_t abandonedMutexesTaken();

// From now on, creating or opening a mutex of this name fails: because its access list shuts this user out
// (5), or another kind of object has the name (6). 0 ends that.
void refuseMutex(const std::string &name, os::SystemError error);
os::SystemError refusalOf(const std::string &name);

} // namespace zantlog::sim
