#include "tests/support/child_process.h"

#include <windows.h>

namespace zantlog::test {

namespace {

constexpr DWORD kLongestRun = 60000; // milliseconds
constexpr UINT kKilledCode = static_cast<UINT>(kChildKilled);

// As the runtime takes a command line apart: a quotation mark and the backslashes before it are escaped.
std::string quoted(const std::string &argument) {
    std::string text = "\"";
    size_t backslashes = 0;
    for (const char character : argument) {
        if (character == '"') {
            text.append(backslashes + 1, '\\');
        }
        backslashes = character == '\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, '\\') + '"';
}

std::string commandLine(const char *role, const ChildArguments &arguments) {
    char program[1024];
    GetModuleFileNameA(nullptr, program, sizeof(program));
    std::string line = quoted(program) + " --child-role=" + role;
    for (const std::string &argument : arguments) {
        line += ' ' + quoted(argument);
    }
    return line;
}

HANDLE inheritableFile(const std::string &path) {
    SECURITY_ATTRIBUTES attributes{sizeof(attributes), nullptr, TRUE};
    return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes,
                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

HANDLE streamFor(const std::string &path, DWORD standardStream) {
    return path.empty() ? GetStdHandle(standardStream) : inheritableFile(path);
}

} // namespace

ChildProcess::ChildProcess(const char *role, const ChildArguments &arguments, const ChildStreams &streams) {
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = streamFor(streams.outputFile, STD_OUTPUT_HANDLE);
    startup.hStdError = streamFor(streams.errorFile, STD_ERROR_HANDLE);
    std::string line = commandLine(role, arguments);
    PROCESS_INFORMATION started{};
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &started)) {
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }
    if (!streams.outputFile.empty()) {
        CloseHandle(startup.hStdOutput);
    }
    if (!streams.errorFile.empty()) {
        CloseHandle(startup.hStdError);
    }
}

ChildProcess::~ChildProcess() {
    if (process_ != nullptr) {
        kill();
        wait();
    }
}

int ChildProcess::wait() {
    if (process_ == nullptr) {
        return exitCode_;
    }
    if (WaitForSingleObject(process_, kLongestRun) == WAIT_OBJECT_0) {
        DWORD code = 0;
        GetExitCodeProcess(process_, &code);
        exitCode_ = static_cast<int>(code);
    } else {
        kill();
        WaitForSingleObject(process_, kLongestRun);
        exitCode_ = kChildTimedOut;
    }
    CloseHandle(process_);
    process_ = nullptr;
    return exitCode_;
}

void ChildProcess::kill() {
    if (process_ != nullptr) {
        TerminateProcess(process_, kKilledCode);
    }
}

bool ChildProcess::running() {
    return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

} // namespace zantlog::test
