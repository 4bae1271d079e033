#include "tests/support/empty_variable.h"

#include "tests/sim/environment.h"

namespace zantlog::test {

void setEmptyVariable(const char *name) {
    sim::setEnvironmentValue(name, "");
}

} // namespace zantlog::test
