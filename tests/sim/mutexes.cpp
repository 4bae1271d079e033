#include "tests/sim/mutexes.h"

#include <map>
#include <mutex>

#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

struct Mutexes {
    std::mutex lock;
    std::map<std::string, std::weak_ptr<NamedMutex>> byName;
    std::map<std::string, os::SystemError> refused;
    std::map<NamedMutex *, std::shared_ptr<NamedMutex>> held;
    std::map<uint32_t, std::shared_ptr<NamedMutex>> awaited; // by thread
    uint64_t misuses = 0;
    uint64_t abandonedTaken = 0;
};

Mutexes &mutexes() {
    static auto &instance = *new Mutexes;
    return instance;
}

bool canTake(const NamedMutex &mutex, uint32_t thread) {
    return mutex.ownerThread == 0 || mutex.ownerThread == thread;
}

void abandon(uint32_t NamedMutex::*const owner, uint32_t id) {
    std::map<NamedMutex *, std::shared_ptr<NamedMutex>> gone; // goes after the lock
    {
        const std::lock_guard guard(mutexes().lock);
        std::erase_if(mutexes().held, [&](auto &entry) {
            NamedMutex &mutex = *entry.second;
            if (mutex.*owner != id) {
                return false;
            }
            mutex.ownerThread = mutex.ownerProcess = mutex.depth = 0;
            mutex.abandoned = true;
            gone.insert(std::move(entry));
            return true;
        });
    }
    if (!gone.empty()) {
        conditionsChanged();
    }
}

} // namespace

MutexHandle::MutexHandle(const std::string &name) {
    const std::lock_guard guard(mutexes().lock);
    if (!name.empty()) {
        mutex = mutexes().byName[name].lock();
    }
    if (mutex == nullptr) {
        mutex = std::make_shared<NamedMutex>();
        mutex->name = name;
        mutexes().byName[name] = mutex;
    }
    ++mutex->handles;
}

MutexHandle::~MutexHandle() {
    const std::lock_guard guard(mutexes().lock);
    if (--mutex->handles == 0) {
        mutexes().held.erase(mutex.get());
        mutexes().byName.erase(mutex->name);
    }
}

bool isFreeFor(const NamedMutex &mutex, uint32_t threadId) {
    const std::lock_guard guard(mutexes().lock);
    return canTake(mutex, threadId);
}

NamedMutex &awaitedMutex(const std::shared_ptr<NamedMutex> &mutex) {
    const uint32_t thread = currentThreadId();
    const std::lock_guard guard(mutexes().lock);
    mutexes().awaited[thread] = mutex;
    return *mutex;
}

bool takeAwaitedMutex() {
    const uint32_t thread = currentThreadId();
    const uint32_t process = currentProcessId();
    std::shared_ptr<NamedMutex> mutex; // goes after the lock
    const std::lock_guard guard(mutexes().lock);
    mutex = mutexes().awaited[thread];
    if (!canTake(*mutex, thread)) {
        return false;
    }
    mutexes().abandonedTaken += mutex->abandoned ? 1 : 0;
    mutex->abandoned = false;
    mutex->ownerThread = thread;
    mutex->ownerProcess = process;
    ++mutex->depth;
    mutexes().held[mutex.get()] = mutex;
    mutexes().awaited.erase(thread);
    return true;
}

bool giveMutexBack(NamedMutex &mutex) {
    const uint32_t thread = currentThreadId();
    {
        const std::lock_guard guard(mutexes().lock);
        if (mutex.ownerThread != thread) {
            ++mutexes().misuses;
            return false;
        }
        if (--mutex.depth != 0) {
            return true;
        }
        mutex.ownerThread = mutex.ownerProcess = 0;
        mutexes().held.erase(&mutex);
    }
    conditionsChanged();
    return true;
}

void abandonMutexesOfThread(uint32_t threadId) {
    {
        const std::lock_guard guard(mutexes().lock);
        mutexes().awaited.erase(threadId);
    }
    abandon(&NamedMutex::ownerThread, threadId);
}

void abandonMutexesOfProcess(uint32_t processId) {
    abandon(&NamedMutex::ownerProcess, processId);
}

int heldMutexes() {
    const std::lock_guard guard(mutexes().lock);
    return static_cast<int>(mutexes().held.size());
}

uint64_t mutexMisuses() {
    const std::lock_guard guard(mutexes().lock);
    return mutexes().misuses;
}

uint64_t abandonedMutexesTaken() {
    const std::lock_guard guard(mutexes().lock);
    return mutexes().abandonedTaken;
}

void refuseMutex(const std::string &name, os::SystemError error) {
    const std::lock_guard guard(mutexes().lock);
    if (error == os::kErrorNone) {
        mutexes().refused.erase(name);
    } else {
        mutexes().refused[name] = error;
    }
}

os::SystemError refusalOf(const std::string &name) {
    const std::lock_guard guard(mutexes().lock);
    const auto found = mutexes().refused.find(name);
    return found != mutexes().refused.end() ? found->second : os::kErrorNone;
}

} // namespace zantlog::sim
