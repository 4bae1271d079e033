#include "tools/common/command_line.h"

#include "tools/common/code_page.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <clocale>
#include <cstdio>

namespace zantlog::tools {

namespace {

std::wstring widen(UINT codePage, const std::string &text) {
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::string narrow(UINT codePage, const wchar_t *text, size_t textLength) {
    const int length = static_cast<int>(textLength);
    const int needed = WideCharToMultiByte(codePage, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, text, length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::string convert(UINT from, UINT to, const std::string &text) {
    if (text.empty()) {
        return text;
    }
    const std::wstring wide = widen(from, text);
    return narrow(to, wide.data(), wide.size());
}

} // namespace

std::vector<std::string> commandLineArguments() {
    // Not the runtime's: it has expanded wildcards, and replaced what the code page does not have.
    int count = 0;
    wchar_t **wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = 1; wide != nullptr && index < count; ++index) {
        const std::wstring argument = wide[index];
        arguments.push_back(argument.empty() ? "" : narrow(CP_UTF8, argument.data(), argument.size()));
    }
    LocalFree(wide);
    return arguments;
}

void makeStandardInputBinary() {
    _setmode(_fileno(stdin), _O_BINARY);
}

void useCodePageOfUser() {
    std::setlocale(LC_CTYPE, "");
}

std::string utf8FromCodePage(const std::string &text) {
    return convert(CP_ACP, CP_UTF8, text);
}

std::string codePageFromUtf8(const std::string &text) {
    return convert(CP_UTF8, CP_ACP, text);
}

std::wstring wideFromUtf8(const std::string &text) {
    return text.empty() ? std::wstring() : widen(CP_UTF8, text);
}

std::string utf8FromWide(const std::wstring &text) {
    return text.empty() ? std::string() : narrow(CP_UTF8, text.data(), text.size());
}

void setEnvironment(const std::string &name, const std::string &value) {
    SetEnvironmentVariableW(wideFromUtf8(name).c_str(), wideFromUtf8(value).c_str());
}

bool hasEnvironment(const std::string &name) {
    // An empty value has length 0 too; only the error tells it from a missing one.
    SetLastError(ERROR_SUCCESS);
    return GetEnvironmentVariableW(wideFromUtf8(name).c_str(), nullptr, 0) != 0 ||
           GetLastError() != ERROR_ENVVAR_NOT_FOUND;
}

} // namespace zantlog::tools
