// What a child process does not get: a file that it held would be neither replaced nor deleted while it runs.
#include "logfile/os/os_clock.h"
#include "logfile/os/os_stream.h"
#include "tests/os/contract_folder.h"
#include "tests/support/child_process.h"

#include <gtest/gtest.h>
#include <memory>

namespace zantlog::test {

namespace {

ZANTLOG_CHILD(livesUntilItIsKilled) {
    os::sleepMilliseconds(60000);
    return 0;
}

TEST(InheritanceOfFiles, OpenFileIsNotTheChilds) {
    for (const os::FileMode mode : {os::FileMode::Append, os::FileMode::Truncate, os::FileMode::Read}) {
        const std::string path = makeContractFolder() + "\\x.log";
        ASSERT_TRUE(putFile(path, "x"));
        auto file = std::make_unique<OpenFile>(path, mode, "D:(A;;GA;;;WD)");
        ASSERT_EQ(file->error(), os::kErrorNone);
        ChildProcess child("livesUntilItIsKilled");
        file.reset();
        EXPECT_TRUE(child.running());
        EXPECT_EQ(os::deleteFile(path.c_str()), os::kErrorNone);
    }
}

TEST(InheritanceOfFiles, OpenStreamIsNotTheChilds) {
    for (const os::StreamMode mode : {os::StreamMode::Read, os::StreamMode::Write}) {
        const std::string path = makeContractFolder() + "\\x.conf";
        ASSERT_TRUE(putFile(path, "x"));
        void *stream = os::openTextStream(path.c_str(), mode);
        ASSERT_NE(stream, nullptr);
        ChildProcess child("livesUntilItIsKilled");
        EXPECT_TRUE(os::closeStream(stream));
        EXPECT_TRUE(child.running());
        EXPECT_EQ(os::deleteFile(path.c_str()), os::kErrorNone);
    }
}

} // namespace

} // namespace zantlog::test
