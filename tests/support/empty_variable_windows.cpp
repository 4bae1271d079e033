#include "tests/support/empty_variable.h"

#include <windows.h>

namespace zantlog::test {

void setEmptyVariable(const char *name) {
    SetEnvironmentVariableA(name, "");
}

} // namespace zantlog::test
