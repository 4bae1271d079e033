// Test executables that start themselves again in another role: for what ends a process, or needs two of
// them. The children of the native build are logical processes of the simulation, and start with fresh
// variables all the same.
//
//     ZANTLOG_CHILD(abortsOnRelease) { zantUnlockCommon("x"); return 0; }
//     TEST(Lock, ReleaseWithoutHolderAborts) { EXPECT_EQ(runChild("abortsOnRelease"), kAbortExitCode); }
#pragma once

#include <string>
#include <vector>

namespace zantlog::test {

using ChildArguments = std::vector<std::string>;
using ChildMain = int (*)(const ChildArguments &arguments);

// A role that this executable can be started in; registers itself.
struct ChildRole {
    ChildRole(const char *roleName, ChildMain roleMain);
    const char *name;
    ChildMain main;
    const ChildRole *next;
};

// Defines a role: what follows is the body of a function that returns the exit code. `arguments` are those of
// the start. The role runs instead of the tests, without GoogleTest and without a folder of its own.
#define ZANTLOG_CHILD(role)                                                                                  \
    static int role(const ::zantlog::test::ChildArguments &arguments);                                       \
    static const ::zantlog::test::ChildRole role##Role(#role, role);                                         \
    static int role([[maybe_unused]] const ::zantlog::test::ChildArguments &arguments)

// Exit codes of wait(). An aborted process has the first on every platform.
inline constexpr int kAbortExitCode = 3;
inline constexpr int kChildNotStarted = -1;
inline constexpr int kChildTimedOut = -2;
inline constexpr int kChildKilled = -9;

// Where the standard streams of a child go; empty: where those of the test go.
struct ChildStreams {
    std::string outputFile;
    std::string errorFile;
};

// A child that runs beside the test; what still runs at the end of the scope is killed. It has the
// environment of the test process.
class ChildProcess {
public:
    explicit ChildProcess(const char *role, const ChildArguments &arguments = {},
                          const ChildStreams &streams = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    // Its exit code; it is killed after a minute.
    int wait();
    // Ends it at once: nothing in it is cleaned up.
    void kill();
    [[nodiscard]] bool running();

private:
    void *process_ = nullptr; // handle or id of a process that has not been waited for
    int exitCode_ = kChildNotStarted;
};

// Starts a child and waits for its end.
int runChild(const char *role, const ChildArguments &arguments = {}, const ChildStreams &streams = {});

// Runs a role in this process.
int runRole(const char *name, const ChildArguments &arguments);

// For the test main only: runs the role that the command line names and stores its exit code; false when it
// names none.
bool runAsChild(int argc, char **argv, int *exitCode);

} // namespace zantlog::test
