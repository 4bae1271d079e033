#include "tests/sim/faults.h"

#include <array>
#include <atomic>
#include <iterator>
#include <mutex>
#include <vector>

#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

constexpr auto kKinds = static_cast<size_t>(Call::kCount);

struct ArmedFault {
    Fault fault;
    uint64_t seen = 0;
};

struct Faults {
    std::array<std::atomic<uint64_t>, kKinds> counts{};
    std::atomic<uint64_t> met{0};
    std::atomic<Call> firstHit{Call::kCount};
    std::atomic<bool> armed{false};
    std::mutex lock; // of what follows
    std::vector<ArmedFault> list;
};

Faults &faults() {
    static Faults instance;
    return instance;
}

bool fits(const Fault &fault, Call call) {
    const bool kind = fault.call ? *fault.call == call : canFail(call) && call != Call::Allocate;
    return kind && (fault.processId == 0 || fault.processId == currentProcessId());
}

// The fault that hits this call.
std::optional<Fault> faultFor(Call call) {
    const std::lock_guard guard(faults().lock);
    std::optional<Fault> hit;
    for (ArmedFault &armed : faults().list) {
        if (!fits(armed.fault, call)) {
            continue;
        }
        ++armed.seen;
        const bool later = armed.fault.laterOnesToo && armed.seen > armed.fault.number;
        if (!hit && (armed.seen == armed.fault.number || later)) {
            hit = armed.fault;
        }
    }
    return hit;
}

Verdict verdictOf(const Fault &fault, Call call) {
    if (faults().met++ == 0) {
        faults().firstHit = call;
    }
    switch (fault.action) {
    case FaultAction::Fail:
        return {fault.error, {}};
    case FaultAction::Shorten:
        return {os::kErrorNone, fault.bytes};
    case FaultAction::EndProcess:
        endThisProcess(kKilledExitCode);
    case FaultAction::Pause:
        pauseThisProcess();
        return {};
    }
    return {};
}

constexpr const char *kNames[] = {
    "openFile",
    "closeFile",
    "seekToEnd",
    "seekTo",
    "writeFile",
    "readFile",
    "fileSize",
    "truncateFile",
    "stampLastWrite",
    "deleteFile",
    "copyFile",
    "replaceFile",
    "createDirectory",
    "fileStatus",
    "findFirst",
    "findNext",
    "findClose",
    "openTextStream",
    "readLine",
    "writeText",
    "rewindStream",
    "closeStream",
    "createNamedMutex",
    "acquireMutex",
    "releaseMutex",
    "closeMutex",
    "openRegistryKey",
    "createRegistryKey",
    "closeRegistryKey",
    "queryRegistryValue",
    "setRegistryValue",
    "deleteRegistryValue",
    "enumRegistryKey",
    "deleteRegistryTree",
    "startSockets",
    "cleanUpSockets",
    "hostName",
    "resolveHost",
    "loadModule",
    "unloadModule",
    "resolveFunction",
    "openEventLog",
    "closeEventLog",
    "reportEvent",
    "print",
    "environmentVariable",
    "sleep",
    "allocate",
    "release",
};
static_assert(std::size(kNames) == kKinds);

} // namespace

const char *nameOf(Call call) {
    return kNames[static_cast<size_t>(call)];
}

bool canFail(Call call) {
    switch (call) {
    case Call::CloseFile:
    case Call::StampLastWrite:
    case Call::FindClose:
    case Call::RewindStream:
    case Call::ReleaseMutex:
    case Call::CloseMutex:
    case Call::CloseKey:
    case Call::CleanUpSockets:
    case Call::UnloadModule:
    case Call::CloseEventLog:
    case Call::Print:
    case Call::Environment:
    case Call::Sleep:
    case Call::Release:
        return false;
    default:
        return true;
    }
}

void setFault(const Fault &fault) {
    const std::lock_guard guard(faults().lock);
    faults().list.push_back({fault});
    faults().armed = true;
}

void clearFaults() {
    const std::lock_guard guard(faults().lock);
    faults().list.clear();
    faults().armed = false;
    faults().met = 0;
}

uint64_t faultsMet() {
    return faults().met;
}

Call firstCallHit() {
    return faults().firstHit;
}

uint64_t calls(Call call) {
    return faults().counts[static_cast<size_t>(call)];
}

uint64_t callsThatCanFail() {
    uint64_t sum = 0;
    for (size_t kind = 0; kind < kKinds; ++kind) {
        const auto call = static_cast<Call>(kind);
        sum += canFail(call) && call != Call::Allocate ? calls(call) : 0;
    }
    return sum;
}

void resetCalls() {
    for (auto &count : faults().counts) {
        count = 0;
    }
}

Verdict enter(Call call) {
    waitForTurn();
    faults().counts[static_cast<size_t>(call)].fetch_add(1, std::memory_order_relaxed);
    // Relaxed, so that the counting orders nothing between threads that the product itself leaves unordered.
    if (!faults().armed.load(std::memory_order_relaxed)) {
        return {};
    }
    const std::optional<Fault> fault = faultFor(call);
    return fault ? verdictOf(*fault, call) : Verdict{};
}

} // namespace zantlog::sim
