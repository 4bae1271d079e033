// One record into the file: exact bytes and results.
#include "logfile/os/file_layer.h"
#include "logfile/os/os_mutex.h"
#include "logfile/writer/write_record.h"
#include "tests/support/child_process.h"
#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"

#include <memory>
#include <thread>

namespace zantlog::test {

namespace {

using WriteRecord = WriterTest;

// Takes the mutex of a log file, says so with a file, and never gives it back.
ZANTLOG_CHILD(holdFileMutex) {
    const auto file = std::make_unique<zantLogOsFile>();
    if (zantLogOs_open(file.get(), arguments.at(0).c_str(), ZANTLOG_OPEN_APPEND, nullptr) != 0 ||
        os::acquireMutex(file->mutex) != os::kErrorNone) {
        return 1;
    }
    writeFileBytes(arguments.at(1), "");
    pauseFor(60000);
    return 0;
}

TEST_F(WriteRecord, NullStateHasNoWriter) {
    zantLogMsgRec record = debugRecord(1, "x");
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(nullptr, &record), 57u);
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(nullptr, nullptr), 57u);
}

TEST_F(WriteRecord, NullRecordFails) {
    const TestLog log(&cfg_);
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(log.handle.file, nullptr), 1u);
}

TEST_F(WriteRecord, ProductRecordCarriesProductAndFileOriginator) {
    TestLog log(&cfg_);
    zantLogMsgRec record = debugRecord(57, "disk failure", 1763249000123);
    record.originatorId = 6;
    log.state().lastReopen = 0;
    EXPECT_EQ(log.write(record), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), "0,12,6,3,57,1763249000123,4242,777,0:,12:disk failure,4:main,2\n");
}

TEST_F(WriteRecord, LogSetRecordDoesNot) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(57, "disk failure")), 0u);
    EXPECT_EQ(linesOf(onlyFile()).at(1), "0,3,57,1,4242,777,0:,12:disk failure,4:main,2");
}

TEST_F(WriteRecord, StampsVersionAndFileOriginator) {
    cfg_.originatorId = 8;
    const TestLog log(&cfg_);
    zantLogMsgRec record = debugRecord(1, "x");
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(log.handle.file, &record), 0u);
    EXPECT_EQ(record.formatVersion, 65543u);
    EXPECT_EQ(record.fid, 8u);
}

TEST_F(WriteRecord, StampsTheVersionOfLogSets) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    const TestLog log(&cfg_);
    zantLogMsgRec record = debugRecord(1, "x");
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(log.handle.file, &record), 0u);
    EXPECT_EQ(record.formatVersion, 65544u);
}

TEST_F(WriteRecord, RecordThatCannotBeSerialisedLeavesNoTrace) {
    TestLog log(&cfg_);
    zantLogMsgRec secure = debugRecord(1, "x");
    secure.type = ZANTLOG_MSG_SECURE_AUDIT;
    zantLogMsgRec severe = debugRecord(2, "x");
    severe.type = ZANTLOG_MSG_APPLICATION;
    severe.slot.level = 5;
    EXPECT_EQ(log.write(secure), 1u);
    EXPECT_EQ(log.write(severe), 1u);
    EXPECT_EQ(log.write(debugRecord(3, "fine")), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(3, "fine"));
}

TEST_F(WriteRecord, FailedRecordDoesNotRollOver) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    put(productName(0, 0), headerBegun() + std::string(2000, 'x') + "\n");
    TestLog log(&cfg_);
    zantLogMsgRec secure = debugRecord(1, "x");
    secure.type = ZANTLOG_MSG_SECURE_AUDIT;
    EXPECT_EQ(log.write(secure), 1u);
    EXPECT_EQ(names().size(), 1u);
}

TEST_F(WriteRecord, RecordsLongerThanTheInlineBufferAreWrittenWhole) {
    TestLog log(&cfg_);
    for (const size_t length : {4000u, 4096u, 10000u, 100000u}) {
        const std::string text(length, 'y');
        EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    }
    EXPECT_EQ(withoutHeader(onlyFile()),
              debugLine(1, std::string(4000, 'y')) + debugLine(1, std::string(4096, 'y')) +
                  debugLine(1, std::string(10000, 'y')) + debugLine(1, std::string(100000, 'y')));
}

TEST_F(WriteRecord, LineFeedsBecomeCarriageReturns) {
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "two\nlines")), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), "0,12,3,3,1,1,4242,777,0:,9:two\rlines,4:main,2\n");
}

TEST_F(WriteRecord, AppendsBehindWhatOthersWrote) {
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "a")), 0u);
    zantLogOsFile other{};
    ASSERT_EQ(zantLogOs_open(&other, folder_.file(names().at(0)).c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0);
    ASSERT_EQ(zantLogOs_append(&other, "between\n", 8), 8);
    ASSERT_EQ(zantLogOs_close(&other), 0);
    EXPECT_EQ(log.write(debugRecord(2, "b")), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(1, "a") + "between\n" + debugLine(2, "b"));
}

TEST_F(WriteRecord, ClosedFileIsAFailedWrite) {
    TestLog log(&cfg_);
    ASSERT_EQ(zantLogOs_close(&log.state().file), 0);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 5u);
    EXPECT_EQ(withoutHeader(onlyFile()), "");
}

TEST_F(WriteRecord, FailedAppendLeavesTheFileOpen) {
    TestLog log(&cfg_);
    // A file that was opened for reading takes no record.
    const std::string path = folder_.file(names().at(0));
    void *writable = log.state().file.file;
    void *mutex = log.state().file.mutex;
    zantLogOsFile readOnly{};
    ASSERT_EQ(zantLogOs_open(&readOnly, path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0);
    log.state().file.file = readOnly.file;
    EXPECT_EQ(log.write(debugRecord(1, "lost")), 5u);
    EXPECT_EQ(log.state().file.file, readOnly.file);

    log.state().file.file = writable;
    log.state().file.mutex = mutex;
    EXPECT_EQ(log.write(debugRecord(2, "kept")), 0u);
    ASSERT_EQ(zantLogOs_close(&readOnly), 0);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(2, "kept"));
}

TEST_F(WriteRecord, MutexOfAKilledProcessIsTakenOver) {
    TestLog log(&cfg_);
    const std::string holding = inProcessFolder("holding");
    ChildProcess holder("holdFileMutex", {folder_.file(names().at(0)), holding});
    while (!fileExists(holding) && holder.running()) {
        pauseFor(5);
    }
    ASSERT_TRUE(holder.running());

    uint32_t result = UINT32_MAX;
    std::thread waiting([&] { result = log.write(debugRecord(1, "x")); });
    pauseFor(100);
    EXPECT_EQ(withoutHeader(onlyFile()), ""); // held up
    holder.kill();
    waiting.join();
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(log.write(debugRecord(2, "y")), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(1, "x") + debugLine(2, "y"));
}

TEST_F(WriteRecord, PlainWriteNeverChangesTheFile) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    TestLog log(&cfg_);
    const std::string text(2000, 'y');
    zantLogMsgRec record = debugRecord(1, text.c_str(), 4102444800000); // the year 2100
    EXPECT_EQ(writeRecord(log.handle.file, &record), 0u);
    EXPECT_EQ(writeRecord(log.handle.file, &record), 0u);
    EXPECT_EQ(names().size(), 1u);
}

} // namespace

} // namespace zantlog::test
