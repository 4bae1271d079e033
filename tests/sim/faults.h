// Calls of the seam: counted by kind, and failing where a test says so.
#pragma once

#include <cstdint>
#include <optional>

#include "logfile/os/os_error.h"

namespace zantlog::sim {

enum class Call {
    OpenFile,
    CloseFile,
    SeekToEnd,
    SeekTo,
    WriteFile,
    ReadFile,
    FileSize,
    TruncateFile,
    StampLastWrite,
    DeleteFile,
    CopyFile,
    ReplaceFile,
    CreateDirectory,
    FileStatus,
    FindFirst,
    FindNext,
    FindClose,
    OpenStream,
    ReadLine,
    WriteText,
    RewindStream,
    CloseStream,
    CreateMutex,
    AcquireMutex,
    ReleaseMutex,
    CloseMutex,
    OpenKey,
    CreateKey,
    CloseKey,
    QueryValue,
    SetValue,
    DeleteValue,
    EnumKey,
    DeleteTree,
    StartSockets,
    CleanUpSockets,
    HostName,
    ResolveHost,
    LoadModule,
    UnloadModule,
    ResolveFunction,
    OpenEventLog,
    CloseEventLog,
    ReportEvent,
    Print,
    Environment,
    Sleep,
    Allocate, // allocations and the growing of blocks; see memory_sim.h for making them fail
    Release,
    kCount
};

const char *nameOf(Call call);

// Whether a call of this kind can report a failure.
bool canFail(Call call);

enum class FaultAction {
    Fail,    // the call does nothing and reports `error`, or what stands for a failure where it has no error
    Shorten, // WriteFile and ReadFile: only `bytes` of what was asked for are written or read
    EndProcess, // the logical process dies before the call
    Pause,      // the logical process stops before the call until it is resumed
};

struct Fault {
    std::optional<Call> call = std::nullopt; // none: every call that can fail, allocations excepted
    uint64_t number = 1;                     // of the calls that fit from now on, the first one that is hit
    bool laterOnesToo = false;
    FaultAction action = FaultAction::Fail;
    os::SystemError error = os::kErrorAccessDenied;
    uint32_t bytes = 0;
    uint32_t processId = 0; // calls of this logical process only; 0: of any
};

// Counts from now on. Several faults can be set; each counts for itself.
void setFault(const Fault &fault);
void clearFaults();

// How often a fault was met since the last clearFaults().
uint64_t faultsMet();

// The call that met the first of them; of no use when none did.
Call firstCallHit();

// Calls since the last resetCalls().
uint64_t calls(Call call);
uint64_t callsThatCanFail(); // of all kinds, allocations excepted
void resetCalls();

// ---- for the implementation of the seam

struct Verdict {
    os::SystemError error = os::kErrorNone;
    std::optional<uint32_t> bytes; // as many at most

    [[nodiscard]] bool fails() const { return error != os::kErrorNone; }
};

// To be called first by every function of the seam, without a lock held: counts, and waits until the calling
// process has its turn. It does not return when the process has died.
Verdict enter(Call call);

} // namespace zantlog::sim
