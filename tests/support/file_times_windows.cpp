#include "tests/support/file_times.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace zantlog::test {

void setFileTimes(const std::string &path, int64_t seconds) {
    constexpr int64_t kUnitsPerSecond = 10000000;
    constexpr int64_t kSecondsBefore1970 = 11644473600;
    const auto units = static_cast<uint64_t>((seconds + kSecondsBefore1970) * kUnitsPerSecond);
    const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    HANDLE file = CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              0, nullptr);
    EXPECT_TRUE(SetFileTime(file, &time, nullptr, &time)) << path;
    CloseHandle(file);
}

} // namespace zantlog::test
