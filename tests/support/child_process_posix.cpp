#include "tests/support/child_process.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace zantlog::test {

namespace {

constexpr std::chrono::seconds kLongestRun{60};
constexpr int kExecFailed = 126;

pid_t processId(void *process) {
    return static_cast<pid_t>(reinterpret_cast<intptr_t>(process));
}

void redirect(int stream, const std::string &path) {
    if (path.empty()) {
        return;
    }
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    dup2(file, stream);
    close(file);
}

int codeOf(int status) {
    if (WIFEXITED(status)) {
        return WEXITSTATUS(status);
    }
    switch (WTERMSIG(status)) {
    case SIGABRT:
        return kAbortExitCode;
    case SIGKILL:
        return kChildKilled;
    default:
        return 128 + WTERMSIG(status);
    }
}

} // namespace

ChildProcess::ChildProcess(const char *role, const ChildArguments &arguments, const ChildStreams &streams) {
    std::vector<std::string> texts{"/proc/self/exe", std::string("--child-role=") + role};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char *> pointers;
    for (std::string &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);

    const pid_t id = fork();
    if (id == 0) {
        redirect(STDOUT_FILENO, streams.outputFile);
        redirect(STDERR_FILENO, streams.errorFile);
        execv("/proc/self/exe", pointers.data());
        _exit(kExecFailed);
    }
    if (id > 0) {
        process_ = reinterpret_cast<void *>(static_cast<intptr_t>(id));
    }
}

ChildProcess::~ChildProcess() {
    if (process_ != nullptr) {
        kill();
        wait();
    }
}

int ChildProcess::wait() {
    const auto end = std::chrono::steady_clock::now() + kLongestRun;
    while (running()) {
        if (std::chrono::steady_clock::now() > end) {
            kill();
            waitpid(processId(process_), nullptr, 0);
            process_ = nullptr;
            exitCode_ = kChildTimedOut;
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return exitCode_;
}

void ChildProcess::kill() {
    if (process_ != nullptr) {
        ::kill(processId(process_), SIGKILL);
    }
}

bool ChildProcess::running() {
    if (process_ == nullptr) {
        return false;
    }
    int status = 0;
    if (waitpid(processId(process_), &status, WNOHANG) != processId(process_)) {
        return true;
    }
    exitCode_ = codeOf(status);
    process_ = nullptr;
    return false;
}

} // namespace zantlog::test
