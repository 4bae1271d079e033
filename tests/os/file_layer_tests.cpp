// The exported file layer.
#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"
#include "zantlog/os_layer.h"

#include <cstring>
#include <ctime>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace zantlog::test {

namespace {

class FileLayer : public testing::Test {
protected:
    ~FileLayer() override { zantLogOs_close(file.get()); }

    int32_t open(int32_t mode, const char *sddl = nullptr) {
        return zantLogOs_open(file.get(), path.c_str(), mode, sddl);
    }
    int32_t append(const std::string &text) {
        return zantLogOs_append(file.get(), text.data(), static_cast<uint32_t>(text.size()));
    }
    [[nodiscard]] std::string content() const { return fileExists(path) ? fileBytes(path) : ""; }
    void put(const std::string &text) const { writeFileBytes(path, text); }

    const ScopedFolder folder;
    const std::string path = folder.file("file.log");
    const std::unique_ptr<zantLogOsFile> file = std::make_unique<zantLogOsFile>();
};

TEST_F(FileLayer, AppendingCreatesAFile) {
    EXPECT_EQ(open(0), 0);
    EXPECT_NE(file->file, nullptr);
    EXPECT_NE(file->mutex, nullptr);
    EXPECT_EQ(content(), "");
}

TEST_F(FileLayer, AppendingContinuesAFile) {
    put("old\n");
    EXPECT_EQ(open(0), 0);
    EXPECT_EQ(append("new\n"), 4);
    EXPECT_EQ(content(), "old\nnew\n");
}

TEST_F(FileLayer, CreatingAnewTruncates) {
    put("old\n");
    EXPECT_EQ(open(2), 0);
    EXPECT_NE(file->mutex, nullptr);
    EXPECT_EQ(content(), "");
    EXPECT_EQ(append("new\n"), 4);
    EXPECT_EQ(content(), "new\n");
}

TEST_F(FileLayer, ReadingTakesNoMutex) {
    put("x");
    file->mutex = this;
    EXPECT_EQ(open(1), 0);
    EXPECT_NE(file->file, nullptr);
    EXPECT_EQ(file->mutex, nullptr);
}

TEST_F(FileLayer, OpenedFileHasNothingBuffered) {
    put("x");
    file->position = 5;
    file->length = 9;
    EXPECT_EQ(open(1), 0);
    EXPECT_EQ(file->position, -1);
    EXPECT_EQ(file->length, 0);
}

TEST_F(FileLayer, NullArgumentsAreMinus3) {
    EXPECT_EQ(zantLogOs_open(nullptr, path.c_str(), 0, nullptr), -3);
    EXPECT_EQ(zantLogOs_open(file.get(), nullptr, 0, nullptr), -3);
    uint32_t size = 0;
    EXPECT_EQ(zantLogOs_fsize(nullptr, &size), -3);
    EXPECT_EQ(zantLogOs_fsize(file.get(), nullptr), -3);
    EXPECT_EQ(zantLogOs_append(nullptr, "x", 1), -3);
    EXPECT_EQ(zantLogOs_append(file.get(), nullptr, 1), -3);
    EXPECT_EQ(zantLogOs_read(nullptr, &size, 1), -3);
    EXPECT_EQ(zantLogOs_read(file.get(), nullptr, 1), -3);
    EXPECT_EQ(zantLogOs_close(nullptr), -3);
    EXPECT_EQ(zantLogOs_remove(nullptr), -1);
}

TEST_F(FileLayer, MissingFolderIsMinus7) {
    const std::string missing = folder.file("nowhere") + "\\file.log";
    for (const int32_t mode : {0, 1, 2}) {
        file->file = this;
        file->mutex = this;
        EXPECT_EQ(zantLogOs_open(file.get(), missing.c_str(), mode, nullptr), -7);
        EXPECT_EQ(file->file, nullptr);
        EXPECT_EQ(file->mutex, nullptr);
    }
}

TEST_F(FileLayer, DeniedAccessIsMinus7) {
    for (const int32_t mode : {0, 1, 2}) {
        EXPECT_EQ(zantLogOs_open(file.get(), folder.path().c_str(), mode, nullptr), -7);
    }
}

TEST_F(FileLayer, OtherFailuresAreMinus6) {
    EXPECT_EQ(open(1), -6); // no such file
    EXPECT_EQ(zantLogOs_open(file.get(), folder.file("a<b.log").c_str(), 0, nullptr), -6);
    EXPECT_EQ(file->file, nullptr);
    EXPECT_EQ(file->mutex, nullptr);
}

TEST_F(FileLayer, UnknownModesAreMinus6AndTouchNothing) {
    EXPECT_EQ(open(3), -6);
    EXPECT_EQ(open(-1), -6);
    EXPECT_FALSE(fileExists(path));
}

TEST_F(FileLayer, SecurityTextMayBeAnything) {
    EXPECT_EQ(open(0, "no descriptor"), 0);
    zantLogOs_close(file.get());
    EXPECT_EQ(open(2, ""), 0);
    zantLogOs_close(file.get());
    EXPECT_EQ(open(2, "D:(A;;GA;;;WD)"), 0);
    EXPECT_EQ(append("x"), 1);
}

TEST_F(FileLayer, EachAppendLandsBehindTheOthers) {
    const auto second = std::make_unique<zantLogOsFile>();
    ASSERT_EQ(open(0), 0);
    ASSERT_EQ(zantLogOs_open(second.get(), path.c_str(), 0, nullptr), 0);
    EXPECT_EQ(append("one "), 4);
    EXPECT_EQ(zantLogOs_append(second.get(), "two ", 4), 4);
    EXPECT_EQ(append("three"), 5);
    zantLogOs_close(second.get());
    EXPECT_EQ(content(), "one two three");
}

TEST_F(FileLayer, AppendOfNothingChangesNothing) {
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append(""), 0);
    EXPECT_EQ(zantLogOs_append(file.get(), nullptr, 0), 0);
    EXPECT_EQ(content(), "");
}

TEST_F(FileLayer, BytesAreAppendedAsTheyAre) {
    const std::string bytes("a\r\n\0\x1a\xff", 6);
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append(bytes), 6);
    EXPECT_EQ(content(), bytes);
}

TEST_F(FileLayer, LargeBlockIsAppendedWhole) {
    const std::string block(3 * 1024 * 1024 + 1, 'b');
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append(block), 3 * 1024 * 1024 + 1);
    EXPECT_EQ(content(), block);
}

TEST_F(FileLayer, BlockWhoseLengthIsNoResultIsRefused) {
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 0x80000000u), -1);
    EXPECT_EQ(zantLogOs_append(file.get(), "x", 0xffffffffu), -1);
    EXPECT_EQ(content(), "");
}

TEST_F(FileLayer, AppendStampsTheLastWriteTime) {
    put("x");
    const int64_t longAgo = secondsNow() - 48 * 3600;
    setLastWriteTime(path, longAgo);
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append("y"), 1);
    EXPECT_GT(lastWriteTime(path) - longAgo, 47 * 3600);
}

TEST_F(FileLayer, AppendToAFileOpenForReadingIsMinus1) {
    put("old");
    ASSERT_EQ(open(1), 0);
    EXPECT_EQ(append("x"), -1);
    EXPECT_EQ(content(), "old");
}

TEST_F(FileLayer, AppendToAClosedFileIsMinus1) {
    EXPECT_EQ(append("x"), -1);
    ASSERT_EQ(open(0), 0);
    ASSERT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(append("x"), -1);
    EXPECT_EQ(content(), "");
}

TEST_F(FileLayer, ReadGivesABlockAndMarksItAsBuffered) {
    put("abcdef");
    ASSERT_EQ(open(1), 0);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 4), 4);
    EXPECT_EQ(file->position, 0);
    EXPECT_EQ(file->length, 4);
    EXPECT_EQ(std::memcmp(file->buffer, "abcd", 4), 0);
    file->position = 3;
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, ZANTLOG_READ_BLOCK), 2);
    EXPECT_EQ(file->position, 0);
    EXPECT_EQ(file->length, 2);
    EXPECT_EQ(std::memcmp(file->buffer, "ef", 2), 0);
}

TEST_F(FileLayer, EndOfTheFileBuffersNothing) {
    put("a");
    ASSERT_EQ(open(1), 0);
    ASSERT_EQ(zantLogOs_read(file.get(), file->buffer, 10), 1);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 10), 0);
    EXPECT_EQ(file->position, -1);
    EXPECT_EQ(file->length, 0);
}

TEST_F(FileLayer, ReadAfterTheEndSeesWhatWasAppendedSince) {
    put("a");
    ASSERT_EQ(open(1), 0);
    ASSERT_EQ(zantLogOs_read(file.get(), file->buffer, 10), 1);
    ASSERT_EQ(zantLogOs_read(file.get(), file->buffer, 10), 0);
    const auto writer = std::make_unique<zantLogOsFile>();
    ASSERT_EQ(zantLogOs_open(writer.get(), path.c_str(), 0, nullptr), 0);
    ASSERT_EQ(zantLogOs_append(writer.get(), "bc", 2), 2);
    zantLogOs_close(writer.get());
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 10), 2);
    EXPECT_EQ(std::memcmp(file->buffer, "bc", 2), 0);
}

TEST_F(FileLayer, FailedReadBuffersNothing) {
    ASSERT_EQ(open(0), 0);
    file->position = 3;
    file->length = 7;
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 10), -1);
    EXPECT_EQ(file->position, -1);
    EXPECT_EQ(file->length, 0);
    zantLogOs_close(file.get());
    file->position = 3;
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, 10), -1);
    EXPECT_EQ(file->position, -1);
}

TEST_F(FileLayer, SeekDropsWhatIsBufferedAndReadsOnThere) {
    ASSERT_EQ(open(0), 0);
    ASSERT_EQ(append("12345"), 5);
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    ASSERT_EQ(open(1), 0);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, ZANTLOG_READ_BLOCK), 5);
    EXPECT_EQ(zantLogOs_seek(file.get(), 3), 0);
    EXPECT_EQ(file->position, -1);
    EXPECT_EQ(file->length, 0);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, ZANTLOG_READ_BLOCK), 2);
    EXPECT_EQ(std::string(file->buffer, 2), "45");
    EXPECT_EQ(zantLogOs_seek(file.get(), 99), 0);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, ZANTLOG_READ_BLOCK), 0) << "behind the end";
    EXPECT_EQ(zantLogOs_seek(file.get(), 0), 0);
    EXPECT_EQ(zantLogOs_read(file.get(), file->buffer, ZANTLOG_READ_BLOCK), 5);
}

TEST_F(FileLayer, SeekOfNoOpenFileFails) {
    EXPECT_EQ(zantLogOs_seek(nullptr, 0), -3);
    EXPECT_EQ(zantLogOs_seek(file.get(), 0), -1) << "a closed file";
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(zantLogOs_seek(file.get(), UINT64_MAX), -1) << "a negative position";
}

TEST_F(FileLayer, SizeIsThatOfTheFileAtThisMoment) {
    uint32_t size = 99;
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), 0);
    EXPECT_EQ(size, 0u);
    ASSERT_EQ(append("12345"), 5);
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), 0);
    EXPECT_EQ(size, 5u);
}

TEST_F(FileLayer, SizeOfAClosedFileIsMinus1) {
    uint32_t size = 99;
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), -1);
    EXPECT_EQ(size, 99u);
}

TEST_F(FileLayer, SizeIsModuloFourGibibytes) {
    put("");
    setFileLength(path, 0x100000005u);
    ASSERT_EQ(open(1), 0);
    uint32_t size = 0;
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), 0);
    EXPECT_EQ(size, 5u);
    zantLogOs_close(file.get());
    setFileLength(path, 0xffffffffu);
    ASSERT_EQ(open(1), 0);
    EXPECT_EQ(zantLogOs_fsize(file.get(), &size), 0);
    EXPECT_EQ(size, 0xffffffffu);
}

TEST_F(FileLayer, AppendGoesBehindFourGibibytes) {
    put("");
    setFileLength(path, 0x100000005u);
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append("abc"), 3);
    EXPECT_EQ(fileLength(path), 0x100000008u);
}

TEST_F(FileLayer, ClosingKeepsTheNumberOfTheMutex) {
    ASSERT_EQ(open(0), 0);
    void *const mutex = file->mutex;
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(file->file, nullptr);
    EXPECT_EQ(file->mutex, mutex);
    EXPECT_EQ(zantLogOs_close(file.get()), 0);
    EXPECT_EQ(file->mutex, mutex);
}

TEST_F(FileLayer, ClosedFileCanBeOpenedAgain) {
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append("1"), 1);
    zantLogOs_close(file.get());
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(append("2"), 1);
    EXPECT_EQ(content(), "12");
}

TEST_F(FileLayer, RemovedFileIsGone) {
    put("x");
    EXPECT_EQ(zantLogOs_remove(path.c_str()), 0);
    EXPECT_FALSE(fileExists(path));
    EXPECT_EQ(zantLogOs_remove(path.c_str()), -1);
}

TEST_F(FileLayer, OpenFileIsNotRemoved) {
    ASSERT_EQ(open(0), 0);
    EXPECT_EQ(zantLogOs_remove(path.c_str()), -1);
    EXPECT_TRUE(fileExists(path));
}

TEST_F(FileLayer, ThreadsNeverInterleaveWithinABlock) {
    constexpr int kThreads = 4;
    constexpr int kBlocks = 150;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([this, t] {
            const auto own = std::make_unique<zantLogOsFile>();
            ASSERT_EQ(zantLogOs_open(own.get(), path.c_str(), 0, nullptr), 0);
            for (int i = 0; i < kBlocks; ++i) {
                const std::string block =
                    std::to_string(t) + ":" + std::to_string(i) + std::string(700, '.') + "\n";
                const auto size = static_cast<uint32_t>(block.size());
                ASSERT_EQ(zantLogOs_append(own.get(), block.data(), size), static_cast<int32_t>(size));
            }
            zantLogOs_close(own.get());
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }

    std::vector<int> next(kThreads);
    for (const std::string &line : linesOf(fileBytes(path))) {
        ASSERT_GT(line.size(), 700u);
        ASSERT_EQ(line.substr(line.size() - 700), std::string(700, '.'));
        const auto thread = static_cast<size_t>(line[0] - '0');
        ASSERT_LT(thread, static_cast<size_t>(kThreads));
        EXPECT_EQ(line.substr(2, line.size() - 702), std::to_string(next[thread]++));
    }
    EXPECT_EQ(next, std::vector<int>(kThreads, kBlocks));
}

TEST(FileLayerTime, TimesAreBrokenDown) {
    const int64_t time = 1763249000;
    std::tm utc{};
    EXPECT_EQ(zantLogOs_gmtime_r(&time, &utc), &utc);
    EXPECT_EQ(utc.tm_year, 125);
    EXPECT_EQ(utc.tm_mon, 10);
    EXPECT_EQ(utc.tm_mday, 15);
    EXPECT_EQ(utc.tm_hour, 23);
    EXPECT_EQ(utc.tm_min, 23);
    EXPECT_EQ(utc.tm_sec, 20);
    EXPECT_EQ(utc.tm_wday, 6);
    EXPECT_EQ(utc.tm_yday, 318);
    EXPECT_EQ(utc.tm_isdst, 0);
    std::tm local{};
    EXPECT_EQ(zantLogOs_localtime_r(&time, &local), &local);
    EXPECT_EQ(local.tm_sec, 20);
    EXPECT_EQ(local.tm_year, 125);
}

TEST(FileLayerTime, TimesThatCannotBeAreNull) {
    const int64_t time = 0;
    const int64_t farAway = INT64_MAX;
    std::tm parts{};
    EXPECT_EQ(zantLogOs_localtime_r(&time, nullptr), nullptr);
    EXPECT_EQ(zantLogOs_gmtime_r(&time, nullptr), nullptr);
    EXPECT_EQ(zantLogOs_localtime_r(nullptr, &parts), nullptr);
    EXPECT_EQ(zantLogOs_gmtime_r(nullptr, &parts), nullptr);
    EXPECT_EQ(zantLogOs_localtime_r(&farAway, &parts), nullptr);
    EXPECT_EQ(zantLogOs_gmtime_r(&farAway, &parts), nullptr);
}

TEST(FileLayerIds, ThreadsDifferAndShareAProcess) {
    uint32_t thread = 0;
    uint32_t process = 0;
    std::thread([&] {
        thread = getTID();
        process = getPID();
    }).join();
    EXPECT_NE(thread, getTID());
    EXPECT_NE(getTID(), 0u);
    EXPECT_EQ(process, getPID());
}

TEST(FileLayerSockets, StartAndCleanUpNest) {
    EXPECT_EQ(osSocketStartup(), 0);
    EXPECT_EQ(osSocketStartup(), 0);
    EXPECT_EQ(osSocketCleanup(), 0);
    EXPECT_EQ(osSocketCleanup(), 0);
}

} // namespace

} // namespace zantlog::test
