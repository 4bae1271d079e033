#include "tests/tools/support/run_tool.h"

#include <windows.h>

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"

namespace zantlog::test {

namespace {

std::wstring widen(const std::string &text) {
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::wstring programPath(const std::string &name) {
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const std::wstring path = self;
    return path.substr(0, path.find_last_of(L'\\') + 1) + widen(name) + L".exe";
}

// In quotation marks, with those inside and the backslashes before them escaped.
std::wstring quoted(const std::wstring &argument) {
    std::wstring text = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"') {
            text.append(backslashes + 1, L'\\');
        }
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        text += character;
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

HANDLE openStream(const std::string &path, bool write) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return CreateFileA(path.c_str(), write ? GENERIC_WRITE : GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       &inherited, write ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

int waitForEnd(const PROCESS_INFORMATION &process) {
    constexpr DWORD kMinute = 60000;
    if (WaitForSingleObject(process.hProcess, kMinute) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
        ADD_FAILURE() << "the program did not end";
    }
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

std::string textOf(const std::string &path) {
    std::string text = fileBytes(path);
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

// Starts the program with the streams "in", "out" and "err" of the folder. False, and the test has failed,
// when it does not start.
bool start(const std::string &name, const std::vector<std::string> &arguments, const ScopedFolder &folder,
           PROCESS_INFORMATION *process) {
    const std::wstring program = programPath(name);
    std::wstring commandLine = quoted(program);
    for (const std::string &argument : arguments) {
        commandLine += L' ' + quoted(widen(argument));
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = openStream(folder.file("in"), false);
    startup.hStdOutput = openStream(folder.file("out"), true);
    startup.hStdError = openStream(folder.file("err"), true);
    const bool started = CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0,
                                        nullptr, nullptr, &startup, process) != 0;
    EXPECT_TRUE(started) << name << " was not started: error " << GetLastError();
    for (const HANDLE stream : {startup.hStdInput, startup.hStdOutput, startup.hStdError}) {
        CloseHandle(stream);
    }
    return started;
}

} // namespace

ToolRun runTool(const std::string &name, const std::vector<std::string> &arguments,
                const std::string &input) {
    const ScopedFolder folder;
    writeFileBytes(folder.file("in"), input);
    PROCESS_INFORMATION process = {};
    ToolRun run;
    if (start(name, arguments, folder, &process)) {
        run.exitCode = waitForEnd(process);
    }
    run.output = textOf(folder.file("out"));
    run.error = textOf(folder.file("err"));
    return run;
}

RunningTool::RunningTool(const std::string &name, const std::vector<std::string> &arguments) {
    writeFileBytes(folder_.file("in"), "");
    PROCESS_INFORMATION process = {};
    if (start(name, arguments, folder_, &process)) {
        CloseHandle(process.hThread);
        process_ = process.hProcess;
    }
}

RunningTool::~RunningTool() {
    if (process_ == nullptr) {
        return;
    }
    constexpr DWORD kEnding = 10000;
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, kEnding); // it has its files open until then
    CloseHandle(process_);
}

bool RunningTool::runs() const {
    return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

std::string RunningTool::output() const {
    return textOf(folder_.file("out"));
}

bool RunningTool::waitForOutput(const std::string &text, int milliseconds) const {
    constexpr int kStep = 20;
    for (int waited = 0; waited <= milliseconds; waited += kStep) {
        if (output().find(text) != std::string::npos) {
            return true;
        }
        Sleep(kStep);
    }
    return false;
}

} // namespace zantlog::test
