#include "tools/common/terminal.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "tools/common/command_line.h"

namespace zantlog::tools {

namespace {

bool isTerminal(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

} // namespace

bool standardOutputIsTerminal() {
    return isTerminal(STD_OUTPUT_HANDLE);
}

bool standardErrorIsTerminal() {
    return isTerminal(STD_ERROR_HANDLE);
}

bool standardOutputHasColours() {
    HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return !hasEnvironment("NO_COLOR") && GetConsoleMode(output, &mode) != 0 &&
           SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void makeStandardOutputBinary() {
    _setmode(_fileno(stdout), _O_BINARY);
}

} // namespace zantlog::tools
