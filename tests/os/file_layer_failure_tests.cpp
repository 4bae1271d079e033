// What the file layer does when the operating system fails it, call by call.
#include "logfile/os/file_layer.h"
#include "tests/os/failing_file_seam.h"

#include <gtest/gtest.h>
#include <memory>

namespace zantlog::test {

namespace {

using Calls = std::vector<std::string>;

constexpr char kPath[] = "C:\\logs\\12-3.log";
constexpr char kCreateMutex[] = "create mutex C:_logs_12-3.log";
constexpr char kOpen[] = "open C:\\logs\\12-3.log";

class FileLayerFailure : public testing::Test {
protected:
    FileLayerFailure() { fileSeam() = {}; }

    int32_t open(int32_t mode) { return zantLogOs_open(file.get(), kPath, mode, nullptr); }
    // Opens the file of this content and forgets the calls that it took.
    void openToAppend(const std::string &content = "old\n") {
        fileSeam().content = content;
        ASSERT_EQ(open(ZANTLOG_OPEN_APPEND), 0);
        fileSeam().calls.clear();
    }
    AppendOutcome append() { return appendBlock(file.get(), "record\n", 7); }
    void expectClosed() const {
        EXPECT_EQ(file->file, nullptr);
        EXPECT_EQ(file->mutex, nullptr);
    }

    const std::unique_ptr<zantLogOsFile> file = std::make_unique<zantLogOsFile>();
};

using OpenFailure = FileLayerFailure;
using AppendFailure = FileLayerFailure;
using ReadFailure = FileLayerFailure;

TEST_F(OpenFailure, WithoutOneTheMutexComesFirst) {
    for (const int32_t mode : {ZANTLOG_OPEN_APPEND, ZANTLOG_OPEN_CREATE}) {
        fileSeam().calls.clear();
        EXPECT_EQ(open(mode), 0);
        EXPECT_EQ(fileSeam().calls, (Calls{kCreateMutex, kOpen}));
    }
    fileSeam().calls.clear();
    EXPECT_EQ(open(ZANTLOG_OPEN_READ), 0);
    EXPECT_EQ(fileSeam().calls, Calls{kOpen});
}

TEST_F(OpenFailure, MutexThatCannotBeMadeIsMinus1AndTheFileIsNotOpened) {
    fileSeam().createMutexError = os::kErrorAccessDenied;
    for (const int32_t mode : {ZANTLOG_OPEN_APPEND, ZANTLOG_OPEN_CREATE}) {
        fileSeam().calls.clear();
        EXPECT_EQ(open(mode), -1);
        EXPECT_EQ(fileSeam().calls, Calls{kCreateMutex});
        expectClosed();
    }
    EXPECT_EQ(open(ZANTLOG_OPEN_READ), 0); // needs none
}

TEST_F(OpenFailure, EveryErrorHasItsResult) {
    const std::pair<os::SystemError, int32_t> cases[] = {{2, -6},  {3, -7},   {5, -7},  {32, -6},
                                                         {87, -6}, {112, -6}, {123, -6}};
    for (const int32_t mode : {ZANTLOG_OPEN_APPEND, ZANTLOG_OPEN_READ, ZANTLOG_OPEN_CREATE}) {
        for (const auto &[error, result] : cases) {
            fileSeam().openError = error;
            EXPECT_EQ(open(mode), result) << error;
            expectClosed();
        }
    }
}

TEST_F(OpenFailure, MutexIsClosedAgain) {
    fileSeam().openError = os::kErrorPathNotFound;
    EXPECT_EQ(open(ZANTLOG_OPEN_APPEND), -7);
    EXPECT_EQ(fileSeam().calls, (Calls{kCreateMutex, kOpen, "close mutex"}));
}

TEST_F(OpenFailure, FileThatWasReadHasNoMutexToClose) {
    ASSERT_EQ(open(ZANTLOG_OPEN_READ), 0);
    fileSeam().calls.clear();
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(fileSeam().calls, Calls{"close file"});
}

TEST_F(OpenFailure, FileThatWasWrittenIsClosedOnceWithItsMutex) {
    openToAppend();
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(fileSeam().calls, (Calls{"close file", "close mutex"}));
}

TEST_F(AppendFailure, WithoutOneEachStepIsTakenOnceUnderTheMutex) {
    openToAppend();
    EXPECT_EQ(append(), AppendOutcome::Written);
    EXPECT_EQ(fileSeam().calls, (Calls{"wait", "seek", "write 7", "stamp", "release"}));
    EXPECT_EQ(fileSeam().content, "old\nrecord\n");
}

TEST_F(AppendFailure, FailedWaitTouchesNothing) {
    openToAppend();
    fileSeam().waitError = os::kErrorInvalidParameter;
    EXPECT_EQ(append(), AppendOutcome::Failed);
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 1), -1);
    EXPECT_EQ(fileSeam().calls, (Calls{"wait", "wait"}));
}

TEST_F(AppendFailure, FailedSeekReleasesTheMutexAndWritesNothing) {
    openToAppend();
    fileSeam().seekError = os::kErrorInvalidParameter;
    EXPECT_EQ(append(), AppendOutcome::Failed);
    EXPECT_EQ(fileSeam().calls, (Calls{"wait", "seek", "release"}));
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 1), -1);
}

TEST_F(AppendFailure, FailedWriteIsStampedAllTheSame) {
    openToAppend();
    fileSeam().writes = {{0, os::kErrorAccessDenied}};
    EXPECT_EQ(append(), AppendOutcome::Failed);
    EXPECT_EQ(fileSeam().calls, (Calls{"wait", "seek", "write 7", "truncate 4", "stamp", "release"}));
    fileSeam().writes = {{0, os::kErrorAccessDenied}};
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 1), -1);
}

TEST_F(AppendFailure, FullDiskIsToldFromOtherFailures) {
    openToAppend();
    fileSeam().writes = {{0, os::kErrorDiskFull}};
    EXPECT_EQ(append(), AppendOutcome::DiskFull);
    fileSeam().writes = {{0, os::kErrorDiskFull}};
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 1), -1);
    EXPECT_EQ(append(), AppendOutcome::Written); // with room again
    EXPECT_EQ(fileSeam().content, "old\nrecord\n");
}

TEST_F(AppendFailure, WriteThatFailsAfterAPartLeavesNothingOfIt) {
    openToAppend();
    fileSeam().writes = {{3, os::kErrorDiskFull}};
    EXPECT_EQ(append(), AppendOutcome::DiskFull);
    EXPECT_EQ(fileSeam().content, "old\n");
}

TEST_F(AppendFailure, ShortWriteIsAFailureAndLeavesNothingOfIt) {
    for (const uint32_t taken : {0u, 1u, 6u}) {
        openToAppend();
        fileSeam().writes = {{taken, os::kErrorNone}, {1, os::kErrorNone}};
        EXPECT_EQ(append(), AppendOutcome::Failed);
        EXPECT_EQ(fileSeam().calls, (Calls{"wait", "seek", "write 7", "write " + std::to_string(7 - taken),
                                           "truncate 4", "stamp", "release"}));
        EXPECT_EQ(fileSeam().content, "old\n");
    }
    openToAppend();
    fileSeam().writes = {{3, os::kErrorNone}};
    EXPECT_EQ(zantLogOs_append(file.get(), "record\n", 7), -1);
}

TEST_F(AppendFailure, ShortWriteOnAFullDiskIsSeenByTheRest) {
    openToAppend();
    fileSeam().writes = {{3, os::kErrorNone}, {0, os::kErrorDiskFull}};
    EXPECT_EQ(append(), AppendOutcome::DiskFull);
    EXPECT_EQ(fileSeam().content, "old\n");
}

TEST_F(AppendFailure, BlockThatCannotBeCutAwayIsAFailureAllTheSame) {
    openToAppend();
    fileSeam().writes = {{3, os::kErrorDiskFull}};
    fileSeam().truncateError = os::kErrorAccessDenied;
    EXPECT_EQ(append(), AppendOutcome::DiskFull);
    EXPECT_EQ(fileSeam().calls.back(), "release");
}

TEST_F(AppendFailure, FileThatIsNotEmptyIsNeitherWrittenNorStamped) {
    openToAppend();
    EXPECT_EQ(appendIfEmpty(file.get(), "head\n", 5), AppendOutcome::Skipped);
    EXPECT_EQ(fileSeam().calls, (Calls{"wait", "seek", "release"}));
}

TEST_F(ReadFailure, FailedReadIsMinus1AndBuffersNothing) {
    openToAppend();
    file->position = 3;
    file->length = 7;
    fileSeam().readError = os::kErrorAccessDenied;
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 10), -1);
    EXPECT_EQ(file->position, -1);
    EXPECT_EQ(file->length, 0);
}

TEST_F(ReadFailure, FailedSizeIsMinus1AndStoresNothing) {
    openToAppend();
    uint32_t size = 77;
    fileSeam().sizeError = os::kErrorAccessDenied;
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), -1);
    EXPECT_EQ(size, 77u);
}

} // namespace

} // namespace zantlog::test
