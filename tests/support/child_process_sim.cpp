// Children of the native build: logical processes of the simulation.
#include "tests/support/child_process.h"

#include "tests/sim/files.h"
#include "tests/sim/process.h"

namespace zantlog::test {

namespace {

sim::Process *asProcess(void *process) {
    return static_cast<sim::Process *>(process);
}

void makeEmpty(const std::string &path) {
    if (!path.empty()) {
        sim::putFile(path, "");
    }
}

} // namespace

ChildProcess::ChildProcess(const char *role, const ChildArguments &arguments, const ChildStreams &streams) {
    makeEmpty(streams.outputFile);
    makeEmpty(streams.errorFile);
    auto *process = new sim::Process;
    process->redirect(streams.outputFile, streams.errorFile);
    process->start([name = std::string(role), arguments] { return runRole(name.c_str(), arguments); });
    process_ = process;
}

ChildProcess::~ChildProcess() {
    delete asProcess(process_);
}

int ChildProcess::wait() {
    if (process_ != nullptr) {
        if (asProcess(process_)->wait() != sim::ProcessState::Ended) {
            asProcess(process_)->kill(kChildTimedOut); // waits for what will not come
        }
        exitCode_ = asProcess(process_)->exitCode();
        delete asProcess(process_);
        process_ = nullptr;
    }
    return exitCode_;
}

void ChildProcess::kill() {
    if (process_ != nullptr) {
        asProcess(process_)->kill(kChildKilled);
    }
}

bool ChildProcess::running() {
    if (process_ == nullptr) {
        return false;
    }
    sim::letOthersRun();
    return asProcess(process_)->state() != sim::ProcessState::Ended;
}

} // namespace zantlog::test
