#include "tests/support/empty_variable.h"

#include <cstdlib>

namespace zantlog::test {

void setEmptyVariable(const char *name) {
    setenv(name, "", 1);
}

} // namespace zantlog::test
