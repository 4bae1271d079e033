#include "tests/sim/handles.h"

#include <mutex>
#include <vector>

#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

constexpr uintptr_t kStep = 4; // as Windows counts them

struct Entry {
    uint32_t processId;
    std::shared_ptr<Object> object;
};

struct Handles {
    std::mutex lock;
    uintptr_t last = 0x100;
    std::map<uintptr_t, Entry> open;
    uint64_t misuses = 0;
};

Handles &handles() {
    static auto &instance = *new Handles;
    return instance;
}

// The lock is held.
std::map<uintptr_t, Entry>::iterator find(void *handle) {
    const auto found = handles().open.find(reinterpret_cast<uintptr_t>(handle));
    if (found != handles().open.end() && found->second.processId == currentProcessId()) {
        return found;
    }
    handles().misuses += handle != nullptr ? 1 : 0;
    return handles().open.end();
}

} // namespace

void *newHandle(std::shared_ptr<Object> object) {
    const uint32_t processId = currentProcessId();
    const std::lock_guard guard(handles().lock);
    handles().last += kStep;
    handles().open[handles().last] = {processId, std::move(object)};
    return reinterpret_cast<void *>(handles().last);
}

std::shared_ptr<Object> objectOf(void *handle) {
    const std::lock_guard guard(handles().lock);
    const auto found = find(handle);
    return found != handles().open.end() ? found->second.object : nullptr;
}

std::shared_ptr<Object> closeHandle(void *handle) {
    const std::lock_guard guard(handles().lock);
    const auto found = find(handle);
    if (found == handles().open.end()) {
        return nullptr;
    }
    std::shared_ptr<Object> object = std::move(found->second.object);
    handles().open.erase(found);
    return object;
}

void closeHandlesOfProcess(uint32_t processId) {
    std::vector<std::shared_ptr<Object>> closed; // goes after the lock
    const std::lock_guard guard(handles().lock);
    std::erase_if(handles().open, [&](auto &entry) {
        if (entry.second.processId != processId) {
            return false;
        }
        closed.push_back(std::move(entry.second.object));
        return true;
    });
}

std::map<std::string, int> openHandles() {
    const std::lock_guard guard(handles().lock);
    std::map<std::string, int> counts;
    for (const auto &[number, entry] : handles().open) {
        ++counts[entry.object->kind()];
    }
    return counts;
}

uint64_t handleMisuses() {
    const std::lock_guard guard(handles().lock);
    return handles().misuses;
}

} // namespace zantlog::sim
