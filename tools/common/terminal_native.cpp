#include "tools/common/terminal.h"

namespace zantlog::tools {

// The native build is for tests: nobody is looking.

bool standardOutputIsTerminal() {
    return false;
}

bool standardErrorIsTerminal() {
    return false;
}

bool standardOutputHasColours() {
    return false;
}

void makeStandardOutputBinary() {}

} // namespace zantlog::tools
