// Records compared byte by byte: tests see a store that should not have happened wherever it went.
#pragma once

#include <string>

namespace zantlog::test {

template <typename Record> std::string bytesOf(const Record &record) {
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

} // namespace zantlog::test
