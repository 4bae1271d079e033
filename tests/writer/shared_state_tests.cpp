// Several handles on one file: shared states, states of their own, and opens that fail first.
#include "tests/support/files.h"
#include "tests/writer/writer_fixture.h"

namespace zantlog::test {

namespace {

using SharedState = WriterTest;
using FailedOpen = WriterTest;

TEST_F(SharedState, HandlesOfOneProductAndOriginatorShareIt) {
    TestLog first(&cfg_);
    TestLog second(&cfg_);
    EXPECT_EQ(first.handle.file, second.handle.file);
    EXPECT_EQ(first.write(debugRecord(1, "first")), 0u);
    EXPECT_EQ(second.write(debugRecord(1, "second")), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(1, "first") + debugLine(1, "second"));
}

TEST_F(SharedState, ClosesWithItsLastHandleInEitherOrder) {
    for (const bool firstFirst : {true, false}) {
        TestLog first(&cfg_);
        TestLog second(&cfg_);
        TestLog &early = firstFirst ? first : second;
        TestLog &late = firstFirst ? second : first;
        EXPECT_EQ(zantLogCloseFile(&early.handle), 0u);
        EXPECT_EQ(late.write(debugRecord(1, "go on")), 0u);
        EXPECT_EQ(zantLogCloseFile(&late.handle), 0u);
        early.handle.file = nullptr; // went with the last handle
    }
}

TEST_F(SharedState, HandlesOfSeveralOriginatorsShareTheFilesState) {
    zantLogCfg otherOriginator = cfg_;
    otherOriginator.originatorId = 9;
    TestLog first(&cfg_);
    TestLog second;
    ASSERT_EQ(second.open(&otherOriginator, &cfg_), 0u);
    EXPECT_EQ(first.handle.file, second.handle.file);
    EXPECT_EQ(second.handle.originatorId, 9u);

    zantLogMsgRec record = debugRecord(4, "x");
    record.originatorId = 9;
    EXPECT_EQ(second.write(record), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), "0,12,9,3,4,1,4242,777,0:,1:x,4:main,2\n");
}

TEST_F(SharedState, JoiningHandleBringsItsSettings) {
    const TestLog first(&cfg_);
    cfg_.maxLogFileSizeKB = 7;
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.logRecycle = 1;
    cfg_.rolloverPeriod = 11;
    cfg_.rolloverTime = 13;
    const TestLog second(&cfg_);
    EXPECT_EQ(first.state().maximumSizeKB, 7u);
    EXPECT_EQ(first.state().rolloverMode, 1u);
    EXPECT_EQ(first.state().recycle, 1u);
    EXPECT_EQ(first.state().period, 11);
    EXPECT_EQ(first.state().timeOfDay, 13);
}

TEST_F(SharedState, JoiningHandleLeavesThePlanOfTheOpenFile) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_PERIODIC;
    cfg_.rolloverPeriod = 3600;
    put(productName(0, 0), headerBegun(60));
    TestLog first(&cfg_);
    cfg_.rolloverPeriod = 30; // the open file is older than that
    const TestLog second(&cfg_);
    EXPECT_EQ(first.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(names(), std::vector<std::string>{productName(0, 0)});
}

TEST_F(SharedState, JoiningHandlesPeriodCountsFromTheNextFileOn) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_PERIODIC;
    cfg_.rolloverPeriod = 3600;
    put(productName(0, 0), headerBegun(7200)); // due
    TestLog first(&cfg_);
    cfg_.rolloverPeriod = 1000;
    const TestLog second(&cfg_);
    EXPECT_EQ(first.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(1, "x"));
    EXPECT_EQ(first.state().nextRollover, first.state().startTime + 1000);
}

TEST_F(SharedState, JoiningHandlesClockModeOnAFileWithoutAPlanIsDueAtOnce) {
    for (const uint32_t mode : {uint32_t{ZANTLOG_ROLLOVER_PERIODIC}, uint32_t{ZANTLOG_ROLLOVER_LOCAL_TIME}}) {
        const ScopedFolder folder;
        zantLogCfg cfg = configurationFor(folder.path());
        TestLog first(&cfg);
        cfg.rolloverMode = mode;
        cfg.rolloverPeriod = 3600;
        const TestLog second(&cfg);
        EXPECT_EQ(first.write(debugRecord(1, "a")), 0u);
        EXPECT_EQ(first.write(debugRecord(2, "b")), 0u);
        EXPECT_EQ(withoutHeader(fileBytes(folder.file(productName(0, 0)))), "") << mode;
        EXPECT_EQ(withoutHeader(fileBytes(folder.file(productName(0, 1)))),
                  debugLine(1, "a") + debugLine(2, "b"))
            << mode;
    }
}

TEST_F(SharedState, HandleJoinsAFileWhoseHeaderTellsNoStart) {
    const std::string content = "$Header 65544,-3600,buildhost\n";
    put(productName(0, 0), content);
    TestLog first(&cfg_);
    TestLog second(&cfg_);
    EXPECT_EQ(second.opened, 0u);
    EXPECT_EQ(first.handle.file, second.handle.file);
    EXPECT_EQ(first.write(debugRecord(1, "a")), 0u);
    EXPECT_EQ(second.write(debugRecord(1, "b")), 0u);
    EXPECT_EQ(bytes(productName(0, 0)), content);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(1, "a") + debugLine(1, "b"));
}

TEST_F(SharedState, SecondOriginatorHasAStateOfItsOwn) {
    zantLogCfg other = cfg_;
    other.originatorId = 4;
    const TestLog first(&cfg_);
    const TestLog second(&other);
    EXPECT_NE(first.handle.file, second.handle.file);
    EXPECT_EQ(names(), (std::vector<std::string>{productName(0, 0, 3), productName(0, 0, 4)}));
}

TEST_F(SharedState, StatesOutsideTheSlotWriteOneFileUnderTheSameName) {
    zantLogCfg slotted = cfg_;
    slotted.originatorId = 4;
    const TestLog holder(&slotted);
    TestLog first(&cfg_);
    TestLog second(&cfg_);
    EXPECT_NE(first.handle.file, second.handle.file);
    EXPECT_EQ(first.write(debugRecord(1, "a")), 0u);
    EXPECT_EQ(second.write(debugRecord(1, "b")), 0u);
    EXPECT_EQ(first.write(debugRecord(2, "c")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))),
              debugLine(1, "a") + debugLine(1, "b") + debugLine(2, "c"));
}

TEST_F(SharedState, SlotIsKeptWhenAnotherOriginatorCloses) {
    zantLogCfg other = cfg_;
    other.originatorId = 4;
    const TestLog holder(&cfg_);
    { const TestLog passing(&other); }
    const TestLog joining(&cfg_);
    EXPECT_EQ(holder.handle.file, joining.handle.file);
}

TEST_F(SharedState, SlotIsEmptiedByIdsThoughItHoldsAnotherState) {
    zantLogCfg other = cfg_;
    other.originatorId = 4;
    TestLog holder(&other);
    TestLog outside(&cfg_); // the slot is taken: a state of its own
    EXPECT_EQ(zantLogCloseFile(&holder.handle), 0u);
    const TestLog slotted(&cfg_); // takes the slot
    EXPECT_EQ(zantLogCloseFile(&outside.handle), 0u);
    const TestLog later(&cfg_);
    EXPECT_NE(slotted.handle.file, later.handle.file);
}

TEST_F(SharedState, LogSetsNeverShare) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    const TestLog first(&cfg_);
    const TestLog second(&cfg_);
    EXPECT_NE(first.handle.file, second.handle.file);
    EXPECT_EQ(names().size(), 1u); // the second goes on with the first one's file
}

TEST_F(SharedState, LogSetOfTheSameIdsLeavesTheSlotAlone) {
    char name[] = "night";
    zantLogCfg logSet = cfg_;
    logSet.isLogSet = 1;
    logSet.logSetName = name;
    const TestLog holder(&cfg_);
    {
        const TestLog passing(&logSet);
        EXPECT_NE(passing.handle.file, holder.handle.file);
    }
    const TestLog joining(&cfg_);
    EXPECT_EQ(joining.handle.file, holder.handle.file);
}

TEST_F(SharedState, ReopenedHandleIsSafe) {
    TestLog log(&cfg_);
    EXPECT_EQ(log.open(&cfg_, &cfg_), 0u);
    EXPECT_EQ(log.state().handles, &log.handle);
    EXPECT_EQ(log.handle.next, nullptr);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
}

TEST_F(FailedOpen, EachLaterWriteFailsAndTheHandleCloses) {
    put("taken", "");
    zantLogCfg cfg = configurationFor(folder_.file("taken"));
    TestLog log(&cfg);
    EXPECT_EQ(log.opened, 51u);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 5u);
    EXPECT_EQ(log.write(debugRecord(2, "y")), 5u);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
    EXPECT_EQ(bytes("taken"), "");
}

TEST_F(FailedOpen, HandleThatJoinsTriesAgainForBoth) {
    put("taken", "");
    zantLogCfg cfg = configurationFor(folder_.file("taken"));
    TestLog first(&cfg);
    EXPECT_EQ(first.opened, 51u);
    removeFile(folder_.file("taken"));

    TestLog second(&cfg);
    EXPECT_EQ(second.opened, 0u);
    EXPECT_EQ(first.handle.file, second.handle.file);
    EXPECT_EQ(first.write(debugRecord(1, "a")), 0u);
    EXPECT_EQ(second.write(debugRecord(1, "b")), 0u);
    const std::vector<std::string> files = fileNames(folder_.file("taken"));
    EXPECT_EQ(files, std::vector<std::string>{productName(0, 0)});
    EXPECT_EQ(withoutHeader(fileBytes(folder_.file("taken\\" + files.at(0)))),
              debugLine(1, "a") + debugLine(1, "b"));
    EXPECT_EQ(zantLogCloseFile(&first.handle), 0u);
    EXPECT_EQ(zantLogCloseFile(&second.handle), 0u);
    first.handle.file = nullptr; // went with the last handle
}

TEST_F(FailedOpen, NextTryHasTheNextNumber) {
    // A directory under the first name: its number is used up.
    makeFolder(folder_.file(productName(0, 0)));
    TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 51u);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(1, "x"));
}

TEST_F(FailedOpen, StateBringsItsNewSecuritySetting) {
    char first[] = "D:(A;;GA;;;WD)";
    char second[] = "D:(A;;GA;;;BA)(A;;GA;;;WD)";
    put("taken", "");
    zantLogCfg cfg = configurationFor(folder_.file("taken"));
    cfg.logFileSDDL = first;
    const TestLog failed(&cfg);
    cfg.logFileSDDL = second;
    const TestLog joining(&cfg);
    EXPECT_EQ(joining.opened, 51u);
    EXPECT_STREQ(failed.state().fileSecurity, "D:(A;;GA;;;BA)(A;;GA;;;WD)");
}

} // namespace

} // namespace zantlog::test
