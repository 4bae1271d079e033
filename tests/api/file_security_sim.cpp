#include "tests/api/file_security.h"

#include "tests/sim/files.h"

namespace zantlog::test {

bool everyoneMayRead(const std::string &path) {
    return sim::securityOf(path).find(";;;WD)") != std::string::npos;
}

} // namespace zantlog::test
