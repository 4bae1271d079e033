#include "tests/support/file_times.h"

#include "tests/sim/clock.h"
#include "tests/sim/files.h"

namespace zantlog::test {

void setFileTimes(const std::string &path, int64_t seconds) {
    sim::setCreationTime(path, seconds * sim::kUnitsPerSecond);
    sim::setLastWriteTime(path, seconds * sim::kUnitsPerSecond);
}

} // namespace zantlog::test
