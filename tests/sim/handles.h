// Handles of the simulated system. A number is never given twice, so that a use after the closing is seen.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "logfile/os/os_error.h"

namespace zantlog::sim {

inline constexpr os::SystemError kErrorInvalidHandle = 6;
inline constexpr os::SystemError kErrorNegativeSeek = 131;

// What a handle stands for; it is let go of in the destructor.
struct Object {
    virtual ~Object() = default;
    [[nodiscard]] virtual const char *kind() const = 0;
};

void *newHandle(std::shared_ptr<Object> object);

// Null when the calling process has no such handle, which counts as a misuse.
std::shared_ptr<Object> objectOf(void *handle);

template <class T> std::shared_ptr<T> objectOf(void *handle) {
    return std::dynamic_pointer_cast<T>(objectOf(handle));
}

// Gives the object out, whose destructor runs where the caller holds no lock.
std::shared_ptr<Object> closeHandle(void *handle);

void closeHandlesOfProcess(uint32_t processId);

// ---- for tests

// Handles of all processes that are open now, by kind: "file", "find", "stream", "mutex", "key", "event log",
// "module".
std::map<std::string, int> openHandles();

// Uses of handles that were not open: closed twice, or never opened. Null is none.
uint64_t handleMisuses();

} // namespace zantlog::sim
