// Names of the mutexes of log files.
#include "logfile/os/mutex_name.h"
#include "logfile/os/os_mutex.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog::test {

namespace {

std::string shortName(const std::string &path) {
    char name[kShortMutexName];
    shortMutexName(path.c_str(), path.size(), name);
    return name;
}

TEST(MutexName, ShortNameIsHashAndTail) {
    // FNV-1a of 300 times "x".
    EXPECT_EQ(shortName(std::string(300, 'x')), "e78ddf9f1ba85555_" + std::string(200, 'x'));
}

TEST(MutexName, ShortNameHasNoBackslash) {
    const std::string path = "C:\\logs\\" + std::string(150, 'a') + "\\" + std::string(150, 'b') + ".log";
    EXPECT_EQ(shortName(path).find('\\'), std::string::npos);
    EXPECT_EQ(shortName(path).size(), 217u);
}

TEST(MutexName, PathsThatDifferOnlyAtTheirStartHaveNamesOfTheirOwn) {
    const std::string tail(300, 'x');
    EXPECT_NE(shortName("C:\\" + tail), shortName("D:\\" + tail));
}

TEST(MutexName, BackslashAndUnderscoreShareAMutex) {
    const std::string tail(300, 'x');
    EXPECT_EQ(shortName("C:\\" + tail), shortName("C:_" + tail));
}

TEST(MutexName, EveryLengthOfPathHasAMutex) {
    for (const size_t length : {1u, 199u, 200u, 260u, 261u, 1040u, 1041u, 5000u}) {
        void *mutex = nullptr;
        EXPECT_EQ(createFileMutex(std::string(length, 'p').c_str(), &mutex), os::kErrorNone) << length;
        ASSERT_NE(mutex, nullptr);
        os::closeMutex(mutex);
    }
}

} // namespace

} // namespace zantlog::test
