// Appending under the mutex of a file, from the inside.
#include "logfile/os/file_layer.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_mutex.h"
#include "tests/os/contract_folder.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace zantlog::test {

namespace {

class Append : public testing::Test {
protected:
    Append() { EXPECT_EQ(zantLogOs_open(file.get(), path.c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0); }
    ~Append() override { zantLogOs_close(file.get()); }

    const std::string folder = makeContractFolder();
    const std::string path = folder + "\\file.log";
    const std::unique_ptr<zantLogOsFile> file = std::make_unique<zantLogOsFile>();
};

TEST_F(Append, BlockIsWritten) {
    EXPECT_EQ(appendBlock(file.get(), "one", 3), AppendOutcome::Written);
    EXPECT_EQ(appendBlock(file.get(), "two", 3), AppendOutcome::Written);
    EXPECT_EQ(fileContent(path), "onetwo");
}

TEST_F(Append, FirstBlockOfAnEmptyFileIsWrittenOnce) {
    EXPECT_EQ(appendIfEmpty(file.get(), "head", 4), AppendOutcome::Written);
    EXPECT_EQ(appendIfEmpty(file.get(), "head", 4), AppendOutcome::Skipped);
    EXPECT_EQ(appendBlock(file.get(), "body", 4), AppendOutcome::Written);
    EXPECT_EQ(appendIfEmpty(file.get(), "head", 4), AppendOutcome::Skipped);
    EXPECT_EQ(fileContent(path), "headbody");
}

TEST_F(Append, OneOfSeveralThreadsWritesTheFirstBlock) {
    std::atomic<int> written{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this, &written] {
            const auto own = std::make_unique<zantLogOsFile>();
            ASSERT_EQ(zantLogOs_open(own.get(), path.c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0);
            written += appendIfEmpty(own.get(), "head\n", 5) == AppendOutcome::Written ? 1 : 0;
            zantLogOs_close(own.get());
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(written, 1);
    EXPECT_EQ(fileContent(path), "head\n");
}

TEST_F(Append, ClosedFileFails) {
    zantLogOs_close(file.get());
    EXPECT_EQ(appendBlock(file.get(), "x", 1), AppendOutcome::Failed);
    EXPECT_EQ(appendIfEmpty(file.get(), "x", 1), AppendOutcome::Failed);
}

TEST_F(Append, FileWithoutWriteAccessFails) {
    const OpenFile readOnly(path, os::FileMode::Read);
    void *const writable = file->file;
    file->file = readOnly.get();
    EXPECT_EQ(appendBlock(file.get(), "x", 1), AppendOutcome::Failed);
    file->file = writable;
    // The mutex was released all the same.
    EXPECT_EQ(appendBlock(file.get(), "y", 1), AppendOutcome::Written);
    EXPECT_EQ(fileContent(path), "y");
}

TEST_F(Append, MutexIsThePathWithUnderscores) {
    std::string name = path;
    std::replace(name.begin(), name.end(), '\\', '_');
    void *mutex = nullptr;
    ASSERT_EQ(os::createNamedMutex(name.c_str(), &mutex), os::kErrorNone);
    ASSERT_EQ(os::acquireMutex(mutex), os::kErrorNone);

    std::atomic<bool> appended{false};
    std::thread writer([&] {
        EXPECT_EQ(appendBlock(file.get(), "x", 1), AppendOutcome::Written);
        appended = true;
    });
    os::sleepMilliseconds(100);
    EXPECT_FALSE(appended);
    EXPECT_EQ(fileContent(path), "");
    os::releaseMutex(mutex);
    writer.join();
    os::closeMutex(mutex);
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(Append, MutexThatAThreadDiedWithIsTaken) {
    std::thread([this] { EXPECT_EQ(os::acquireMutex(file->mutex), os::kErrorNone); }).join();
    EXPECT_EQ(appendBlock(file.get(), "x", 1), AppendOutcome::Written);
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(Append, MutexIsFreeAfterEachOutcome) {
    EXPECT_EQ(appendIfEmpty(file.get(), "x", 1), AppendOutcome::Written);
    EXPECT_EQ(appendIfEmpty(file.get(), "x", 1), AppendOutcome::Skipped);
    bool free = false;
    std::thread([&] { free = appendBlock(file.get(), "y", 1) == AppendOutcome::Written; }).join();
    EXPECT_TRUE(free);
}

TEST_F(Append, ResetRecordIsClosedWithNothingBuffered) {
    const auto record = std::make_unique<zantLogOsFile>();
    record->file = this;
    record->mutex = this;
    record->position = 7;
    record->length = 9;
    resetOsFile(record.get());
    EXPECT_EQ(record->file, nullptr);
    EXPECT_EQ(record->mutex, nullptr);
    EXPECT_EQ(record->position, -1);
    EXPECT_EQ(record->length, 0);
}

} // namespace

} // namespace zantlog::test
