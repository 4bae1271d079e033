// Logical processes: several of them share the simulated system's files, mutexes and registry, and each has
// its own copy of the program's variables, handles, environment and current folder.
//
//     sim::Process other;
//     other.run([] { EXPECT_EQ(zantLogOpen(12, 3, &handle), 0u); }); // `handle` is one of its variables
//     other.kill(); // what it wrote stays, its mutexes are free
//
// One of them runs at a time: the test itself (the first process) runs until it calls run(), resume(), waits
// for a mutex that another process holds, or sleeps. So every run of a test takes the same course.
//
// How it is done: each process is a thread that waits for its turn. With the turn, the bytes of the variables
// of the program change: the linker script program_image.ld keeps them together, those of the library and of
// the tests, but not those of the simulation, of GoogleTest and of the runtime. A new process starts with the
// bytes as they were when main() began. So nothing in the library knows of this, and pointers into its
// variables stay what they are. A global object that had memory of the heap by then must not be changed by
// two processes.
//
// The stack of a process that dies is left by longjmp(): no destructor runs in it, as in a real one. What its
// thread had on the heap is lost, which the leak checker is told to overlook.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zantlog::sim {

inline constexpr int kKilledExitCode = -9;

struct ProcessRecord;

enum class ProcessState {
    Idle,    // waits for a job
    Running, // has one, and will go on when it has its turn
    Paused,  // stopped by a fault of the kind Pause
    Blocked, // waits for what no process that can run will give it
    Ended,   // has died, or has ended the job of start()
};

class Process {
public:
    // With the environment and the current folder of the process that makes it.
    Process();
    // Kills it, if it is still alive.
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    // Runs the job in this process until the job ends (Idle), or stops for another reason.
    ProcessState run(const std::function<void()> &job);

    // Lets a paused or blocked process go on, in the same way.
    ProcessState resume();

    // Begins a job that runs while other processes wait or sleep; the process ends with it. Its result is the
    // exit code.
    void start(const std::function<int()> &job);

    // Waits until the process has ended, is paused, or is blocked for good.
    ProcessState wait();

    // Ends it at once: handles are closed, what streams hold back is lost, mutexes are abandoned.
    void kill(int exitCode = kKilledExitCode);

    [[nodiscard]] ProcessState state() const;
    [[nodiscard]] int exitCode() const;
    [[nodiscard]] uint32_t id() const;

    // Where its standard streams go: files of the simulation. Empty: as those of the test.
    void redirect(const std::string &outputFile, const std::string &errorFile);

    // Blocks of the library's heap that it has not released.
    [[nodiscard]] size_t heapBlocks() const;

private:
    void give(const std::function<int()> &job, bool endsWithJob);
    ProcessState waitUntilItStops();

    std::shared_ptr<ProcessRecord> record_;
};

// Lets the other processes run until each of them waits, sleeps or has ended.
void letOthersRun();

// For the main function of a test program, before anything else: keeps the bytes that processes start with.
void keepProgramImage();

} // namespace zantlog::sim
