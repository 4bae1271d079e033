// Named mutexes.
#include "logfile/os/os_mutex.h"

#include <cstring>

#include "tests/sim/faults.h"
#include "tests/sim/mutexes.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

constexpr size_t kLongestName = 260;

// A backslash ends the name of a folder of objects, of which there are two.
bool namesAFolderThatIsNot(const char *name) {
    for (const char *folder : {"Global\\", "Local\\"}) {
        if (std::strncmp(name, folder, std::strlen(folder)) == 0) {
            name += std::strlen(folder);
            break;
        }
    }
    return std::strchr(name, '\\') != nullptr;
}

} // namespace

SystemError createNamedMutex(const char *name, void **mutex) {
    *mutex = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::CreateMutex); verdict.fails()) {
        return verdict.error;
    }
    if (std::strlen(name) > kLongestName) {
        return kErrorNameTooLong;
    }
    if (namesAFolderThatIsNot(name)) {
        return kErrorPathNotFound;
    }
    if (const SystemError refusal = sim::refusalOf(name); refusal != kErrorNone) {
        return refusal;
    }
    *mutex = sim::newHandle(std::make_shared<sim::MutexHandle>(name));
    return kErrorNone;
}

SystemError acquireMutex(void *mutex) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::AcquireMutex); verdict.fails()) {
        return verdict.error;
    }
    const sim::NamedMutex *wanted = nullptr;
    if (const auto handle = sim::objectOf<sim::MutexHandle>(mutex)) {
        wanted = &sim::awaitedMutex(handle->mutex);
    } else {
        return sim::kErrorInvalidHandle;
    }
    while (!sim::takeAwaitedMutex()) {
        const uint32_t thread = sim::currentThreadId();
        sim::waitUntil([&] { return sim::isFreeFor(*wanted, thread); });
    }
    return kErrorNone;
}

void releaseMutex(void *mutex) {
    sim::enter(sim::Call::ReleaseMutex);
    if (const auto handle = sim::objectOf<sim::MutexHandle>(mutex)) {
        sim::giveMutexBack(*handle->mutex);
    }
}

void closeMutex(void *mutex) {
    sim::enter(sim::Call::CloseMutex);
    sim::closeHandle(mutex);
}

} // namespace zantlog::os
