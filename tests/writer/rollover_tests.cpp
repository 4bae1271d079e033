// When a file is left, and for which next one.
#include "logfile/writer/rollover.h"

#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"
#include "zantlog/config_store.h"

#include <chrono>

namespace zantlog::test {

namespace {

using RolloverDecision = WriterTest;
using Rollover = WriterTest;

constexpr uint32_t kSize = ZANTLOG_ROLLOVER_FILE_SIZE;
constexpr uint32_t kPeriodic = ZANTLOG_ROLLOVER_PERIODIC;
constexpr uint32_t kLocalTime = ZANTLOG_ROLLOVER_LOCAL_TIME;

void limitSize(zantLogCfg *cfg, uint32_t kb) {
    cfg->rolloverMode = kSize;
    cfg->maxLogFileSizeKB = kb;
}

void sleepSeconds(double seconds) {
    pauseFor(static_cast<uint32_t>(seconds * 1000));
}

// A file with a header that has so many bytes in all.
std::string fileOfSize(size_t size) {
    std::string content = headerBegun();
    content.resize(size - 1, 'x');
    return content + '\n';
}

TEST_F(RolloverDecision, SizeCountsTheRecordInWholeKilobytes) {
    limitSize(&cfg_, 1);
    put(productName(0, 0), fileOfSize(1000));
    const TestLog log(&cfg_);
    EXPECT_FALSE(isRolloverDue(log.handle.file, 0));
    EXPECT_FALSE(isRolloverDue(log.handle.file, 23));
    EXPECT_TRUE(isRolloverDue(log.handle.file, 24));
    EXPECT_TRUE(isRolloverDue(log.handle.file, UINT32_MAX));
    log.state().maximumSizeKB = 2;
    EXPECT_FALSE(isRolloverDue(log.handle.file, 1047));
    EXPECT_TRUE(isRolloverDue(log.handle.file, 1048));
}

TEST_F(RolloverDecision, SizeNeedsItsModeALimitAndAFile) {
    put(productName(0, 0), fileOfSize(5000));
    const TestLog log(&cfg_);
    log.state().maximumSizeKB = 1;
    EXPECT_FALSE(isRolloverDue(log.handle.file, 1));
    log.state().rolloverMode = kSize;
    EXPECT_TRUE(isRolloverDue(log.handle.file, 1));
    log.state().maximumSizeKB = 0;
    EXPECT_FALSE(isRolloverDue(log.handle.file, 1));
    log.state().maximumSizeKB = 1;
    ASSERT_EQ(zantLogOs_close(&log.state().file), 0);
    EXPECT_FALSE(isRolloverDue(log.handle.file, 1));
}

TEST_F(RolloverDecision, TimeIsDueFromItsVerySecond) {
    const TestLog log(&cfg_);
    const int64_t now = secondsNow();
    for (const uint32_t mode : {kLocalTime, kPeriodic, kLocalTime | kSize, kPeriodic | kSize}) {
        log.state().rolloverMode = mode;
        log.state().nextRollover = now;
        EXPECT_TRUE(isRolloverDue(log.handle.file, 1)) << mode;
        log.state().nextRollover = now + 60;
        EXPECT_FALSE(isRolloverDue(log.handle.file, 1)) << mode;
    }
}

TEST_F(RolloverDecision, TimeDoesNotMatterToOtherModes) {
    const TestLog log(&cfg_);
    for (const uint32_t mode : {0u, kSize}) {
        log.state().rolloverMode = mode;
        log.state().nextRollover = 0;
        EXPECT_FALSE(isRolloverDue(log.handle.file, 1)) << mode;
    }
}

TEST_F(RolloverDecision, ModesAboveFiveCountAsNoneAndAreReset) {
    put(productName(0, 0), fileOfSize(5000));
    const TestLog log(&cfg_);
    log.state().maximumSizeKB = 1;
    for (const uint32_t mode : {6u, 7u, 8u, 0xFFFFFFFFu}) {
        log.state().rolloverMode = mode;
        log.state().nextRollover = 0;
        EXPECT_FALSE(isRolloverDue(log.handle.file, 1)) << mode;
        EXPECT_EQ(log.state().rolloverMode, 0u) << mode;
    }
}

TEST_F(RolloverDecision, VersionIsCheckedInEveryMode) {
    const TestLog log(&cfg_);
    for (const uint32_t mode : {0u, 1u, 7u}) {
        log.state().rolloverMode = mode;
        log.state().version = 65542;
        EXPECT_TRUE(isRolloverDue(log.handle.file, 1)) << mode;
        log.state().version = 65544;
        EXPECT_TRUE(isRolloverDue(log.handle.file, 1)) << mode;
        log.state().version = 65543;
        EXPECT_FALSE(isRolloverDue(log.handle.file, 1)) << mode;
    }
    log.state().isLogSet = 1;
    EXPECT_TRUE(isRolloverDue(log.handle.file, 1));
    log.state().version = 65544;
    EXPECT_FALSE(isRolloverDue(log.handle.file, 1));
    log.state().isLogSet = 0;
    log.state().version = 65543;
}

// A record of 27 bytes: nothing in it is longer than one digit.
zantLogMsgRec shortRecord() {
    zantLogMsgRec record = debugRecord(1, nullptr);
    record.productId = record.originatorId = record.processId = record.threadId = 1;
    record.who = nullptr;
    return record;
}

TEST_F(Rollover, HappensBeforeTheRecordIsWritten) {
    limitSize(&cfg_, 1);
    put(productName(0, 0), fileOfSize(996));
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(shortRecord()), 0u); // 1023 bytes then
    EXPECT_EQ(bytes(productName(0, 0)).size(), 1023u);
    EXPECT_EQ(log.write(shortRecord()), 0u); // would make 1050
    EXPECT_EQ(bytes(productName(0, 0)).size(), 1023u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), "0,1,1,3,1,1,1,1,0:,0:,0:,2\n");
}

TEST_F(Rollover, AtExactlyTheLimit) {
    limitSize(&cfg_, 1);
    put(productName(0, 0), fileOfSize(997));
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(shortRecord()), 0u); // 1024 bytes it would be
    EXPECT_EQ(bytes(productName(0, 0)).size(), 997u);
    EXPECT_EQ(names().size(), 2u);
}

TEST_F(Rollover, NumbersTheFilesOfADayInOrder) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    const std::string text(900, 'y');
    for (uint32_t i = 0; i < 5; ++i) {
        EXPECT_EQ(log.write(debugRecord(i, text.c_str())), 0u);
    }
    ASSERT_EQ(names().size(), 5u);
    for (uint32_t i = 0; i < 5; ++i) {
        EXPECT_EQ(withoutHeader(bytes(productName(0, i))), debugLine(i, text)) << i;
    }
}

TEST_F(Rollover, RecordLongerThanTheLimitIsWrittenWhole) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    const std::string text(5000, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 0u);
    // The first file was left for the record, with its header alone.
    EXPECT_EQ(names().size(), 3u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), "");
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(1, text));
    EXPECT_EQ(withoutHeader(bytes(productName(0, 2))), debugLine(2, text));
}

TEST_F(Rollover, FollowingFilesThatAreFullArePassedBy) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    put(productName(0, 1), fileOfSize(1024));
    put(productName(0, 2), fileOfSize(4000));
    const std::string text(900, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 0u);
    EXPECT_EQ(bytes(productName(0, 1)).size(), 1024u);
    EXPECT_EQ(bytes(productName(0, 2)).size(), 4000u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 3))), debugLine(2, text));
}

TEST_F(Rollover, FollowingFileWithRoomIsGoneOnWith) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    const std::string header = headerBegun();
    put(productName(0, 1), header + "another process's record\n");
    const std::string text(900, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 0u);
    EXPECT_EQ(bytes(productName(0, 1)), header + "another process's record\n" + debugLine(2, text));
}

TEST_F(Rollover, FollowingFileWithoutHeaderIsPassedBy) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    put(productName(0, 1), "no header\n");
    const std::string text(900, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 0u);
    EXPECT_EQ(bytes(productName(0, 1)), "no header\n");
    EXPECT_EQ(withoutHeader(bytes(productName(0, 2))), debugLine(2, text));
}

TEST_F(Rollover, FailedCreateFailsTheWritesAndOverwritesNothing) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    makeFolder(folder_.file(productName(0, 1)));
    const std::string text(900, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 5u);
    EXPECT_EQ(log.write(debugRecord(3, "short")), 5u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), debugLine(1, text));
    EXPECT_EQ(names().size(), 2u);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
}

TEST_F(Rollover, FailedCreateIsMadeUpForByTheReopen) {
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    makeFolder(folder_.file(productName(0, 1)));
    const std::string text(900, 'y');
    EXPECT_EQ(log.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 5u);
    removeFile(folder_.file(productName(0, 1)));
    const auto later = static_cast<uint64_t>(log.state().lastReopen) + 600001;
    EXPECT_EQ(log.write(debugRecord(3, "again", later)), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(3, "again", later));
}

TEST_F(Rollover, FailedCreateByTheClockIsTriedAgainWithTheNextNumber) {
    cfg_.rolloverMode = kPeriodic;
    cfg_.rolloverPeriod = 3600;
    TestLog log(&cfg_);
    makeFolder(folder_.file(productName(0, 1)));
    log.state().nextRollover = secondsNow();
    EXPECT_EQ(log.write(debugRecord(1, "a")), 5u);
    EXPECT_EQ(log.write(debugRecord(2, "b")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 2))), debugLine(2, "b"));
}

TEST_F(Rollover, PeriodEndsAFile) {
    cfg_.rolloverMode = kPeriodic;
    cfg_.rolloverPeriod = 1;
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "a")), 0u);
    sleepSeconds(1.1);
    EXPECT_EQ(log.write(debugRecord(2, "b")), 0u);
    const std::vector<std::string> files = names();
    EXPECT_GE(files.size(), 2u); // the first record may have met the end of the second already
    EXPECT_EQ(withoutHeader(bytes(files.back())), debugLine(2, "b"));
}

TEST_F(Rollover, PeriodThatIsNotPositiveMakesNoFiles) {
    for (const int64_t period : {int64_t{0}, int64_t{-1}, INT64_MIN}) {
        cfg_.rolloverMode = kPeriodic;
        cfg_.rolloverPeriod = period;
        TestLog log(&cfg_);
        EXPECT_EQ(log.write(debugRecord(1, "a")), 0u);
        EXPECT_EQ(log.write(debugRecord(2, "b")), 0u);
        EXPECT_EQ(names().size(), 1u);
    }
}

TEST_F(Rollover, TimeOfDayEndsAFile) {
    cfg_.rolloverMode = kLocalTime;
    TestLog log(&cfg_);
    EXPECT_GT(log.state().nextRollover, secondsNow());
    log.state().nextRollover = secondsNow();
    EXPECT_EQ(log.write(debugRecord(1, "a")), 0u);
    EXPECT_EQ(log.write(debugRecord(2, "b")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), "");
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(1, "a") + debugLine(2, "b"));
    EXPECT_GT(log.state().nextRollover, secondsNow());
}

TEST_F(Rollover, FileThatIsDueAsSoonAsItIsMadeIsKept) {
    // A time of day days before midnight lets every file be due from its start.
    cfg_.rolloverMode = kLocalTime;
    cfg_.rolloverTime = -400000;
    TestLog log(&cfg_);
    for (uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(log.write(debugRecord(i, "x")), 0u);
    }
    EXPECT_LE(names().size(), 4u); // at most one more for each record
}

TEST_F(Rollover, LogSetFileWaitsForTheNextSecond) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    const std::string text(2000, 'y');
    const auto before = std::chrono::steady_clock::now();
    for (uint32_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(log.write(debugRecord(i, text.c_str())), 0u);
    }
    const auto taken = std::chrono::steady_clock::now() - before;
    EXPECT_LT(taken, std::chrono::seconds(10)); // at most two seconds' ends are waited for
    ASSERT_EQ(names().size(), 3u);
    for (uint32_t i = 1; i <= 3; ++i) {
        const std::vector<std::string> lines = linesOf(bytes(names()[i - 1]));
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(lines[1], "0,3," + std::to_string(i) + ",1,4242,777,0:,2000:" + text + ",4:main,2");
    }
}

TEST_F(Rollover, LogSetFileOfTheSameSecondWithRoomIsGoneOnWith) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    limitSize(&cfg_, 1);
    TestLog log(&cfg_);
    const std::string text(900, 'y');
    for (uint32_t i = 1; i <= 4; ++i) {
        EXPECT_EQ(log.write(debugRecord(i, text.c_str())), 0u);
    }
    std::vector<std::string> records;
    for (const std::string &file : names()) {
        const std::vector<std::string> lines = linesOf(bytes(file));
        records.insert(records.end(), lines.begin() + 1, lines.end());
    }
    ASSERT_EQ(records.size(), 4u);
    for (uint32_t i = 1; i <= 4; ++i) {
        EXPECT_EQ(records[i - 1], "0,3," + std::to_string(i) + ",1,4242,777,0:,900:" + text + ",4:main,2");
    }
}

TEST_F(Rollover, WithoutRecyclingNothingIsDeleted) {
    limitSize(&cfg_, 1);
    cfg_.numberOfLogFiles = 2;
    TestLog log(&cfg_);
    const std::string text(900, 'y');
    for (uint32_t i = 0; i < 6; ++i) {
        EXPECT_EQ(log.write(debugRecord(i, text.c_str())), 0u);
    }
    EXPECT_EQ(names().size(), 6u);
}

TEST_F(Rollover, EverySwitchButZeroRecycles) {
    const ScopedFolder store;
    writeFileBytes(store.file("12.conf"),
                   "Default.LogDirectory=" + folder_.path() + "\r\nDefault.NumberOfLogFiles=2\r\n");
    writeFileBytes(GetZantLogCfgLoc(), "12.Configuration=" + store.file("12.conf") + "\r\n");
    limitSize(&cfg_, 1);
    cfg_.logRecycle = 2;
    {
        TestLog log(&cfg_);
        const std::string text(900, 'y');
        for (uint32_t i = 0; i < 6; ++i) {
            EXPECT_EQ(log.write(debugRecord(i, text.c_str())), 0u);
        }
    }
    EXPECT_LT(names().size(), 6u); // which ones: their times may be equal, and one is in use
    removeFile(GetZantLogCfgLoc());
}

TEST_F(Rollover, MovesToTheDirectoryOfTheHandleThatJoinedLast) {
    limitSize(&cfg_, 1);
    TestLog first(&cfg_);
    zantLogCfg elsewhere = configurationFor(folder_.file("elsewhere"));
    limitSize(&elsewhere, 1);
    const TestLog second(&elsewhere);
    const std::string text(900, 'y');
    EXPECT_EQ(first.write(debugRecord(1, text.c_str())), 0u);
    EXPECT_EQ(first.write(debugRecord(2, text.c_str())), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), debugLine(1, text));
    EXPECT_EQ(withoutHeader(fileBytes(folder_.file("elsewhere\\" + productName(0, 1)))), debugLine(2, text));
}

} // namespace

} // namespace zantlog::test
