// Creation times of files. Wine's files have none of their own: theirs is that of the last write.
#pragma once

#include <cstdint>
#include <string>

namespace zantlog::test {

// Creation and last write alike, in seconds since 1970-01-01 00:00 UTC.
void setFileTimes(const std::string &path, int64_t seconds);

} // namespace zantlog::test
