// Context handles on their parent's file, and their records in each new file.
#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"

namespace zantlog::test {

namespace {

class Context : public WriterTest {
protected:
    // As a caller makes one: the record stands in the handle.
    uint32_t create(zantLogHandle *parent, zantLogHandle *context, uint32_t sequence) {
        context->context = contextRecord(sequence, token_);
        return zantLogCreateContextToFile(parent, context, &context->context);
    }

    void endFile(const TestLog &log) { log.state().version = 0; } // the next write finds the file invalid

    char token_[5] = "job7";
};

constexpr char kContextLine[] = "3,12,3,3,41,1,4242,777,0:,11:nightly run,4:job7,(0|)\n";

TEST_F(Context, NullHandleIsRefused) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    zantLogMsgRec record = contextRecord(1, token_);
    EXPECT_EQ(zantLogCreateContextToFile(nullptr, &context, &record), 3u);
    EXPECT_EQ(zantLogCreateContextToFile(&log.handle, nullptr, &record), 3u);
}

TEST_F(Context, TakesOverTheParentsWriter) {
    TestLog log(&cfg_);
    zantLogCfg secure{};
    zantLogHandle &parent = log.handle;
    parent.debugLevel = 2;
    parent.diagLevel = 3;
    parent.secureAuditLevel = 4;
    parent.outputFlags = 5;
    parent.localizer = {{&secure, &parent}};
    parent.eventLog = {&secure, 6};
    parent.openTime = 7;
    parent.lastReloadTime = 8;
    parent.reloadInterval = 9;
    parent.secureConfig = &secure;
    parent.catalogSelector = 10;
    parent.originatorId = 11;
    parent.sequence = 12;
    zantLogHandle context{};
    context.noContext = 77;
    ASSERT_EQ(create(&parent, &context, 41), 0u);

    EXPECT_EQ(context.file, parent.file);
    EXPECT_EQ(context.debugLevel, 2);
    EXPECT_EQ(context.diagLevel, 3);
    EXPECT_EQ(context.secureAuditLevel, 0);
    EXPECT_EQ(context.outputFlags, 5u);
    EXPECT_EQ(context.noContext, 0u);
    EXPECT_EQ(context.localizer.words[0], &secure);
    EXPECT_EQ(context.localizer.words[1], &parent);
    EXPECT_EQ(context.eventLog.handle, &secure);
    EXPECT_EQ(context.eventLog.category, 6u);
    EXPECT_EQ(context.openTime, 7);
    EXPECT_EQ(context.lastReloadTime, 8);
    EXPECT_EQ(context.reloadInterval, 9);
    EXPECT_EQ(context.secureConfig, &secure);
    EXPECT_EQ(context.catalogSelector, 0u);
    EXPECT_EQ(context.originatorId, 11u);
    EXPECT_EQ(context.sequence, 1u);
    EXPECT_EQ(context.next, &parent);
    EXPECT_EQ(log.state().handles, &context);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, RecordIsWritten) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), kContextLine);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, FailedWriteLeavesItUnattached) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(zantLogOs_close(&log.state().file), 0);
    EXPECT_EQ(create(&log.handle, &context, 41), 5u);
    EXPECT_EQ(context.noContext, 1u);
    EXPECT_EQ(context.file, log.handle.file);
    EXPECT_EQ(log.state().handles, &log.handle);
    EXPECT_EQ(zantLogCloseFile(&context), 1u);
}

TEST_F(Context, ParentWithoutStateHasNoWriter) {
    zantLogHandle parent{};
    zantLogHandle context{};
    EXPECT_EQ(create(&parent, &context, 41), 57u);
    EXPECT_EQ(context.noContext, 1u);
}

TEST_F(Context, NullRecordFails) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    EXPECT_EQ(zantLogCreateContextToFile(&log.handle, &context, nullptr), 1u);
    EXPECT_EQ(context.noContext, 1u);
}

TEST_F(Context, RecordsOpenTheNextFileMostRecentFirst) {
    TestLog log(&cfg_);
    zantLogHandle older{};
    zantLogHandle newer{};
    ASSERT_EQ(create(&log.handle, &older, 41), 0u);
    ASSERT_EQ(create(&log.handle, &newer, 42), 0u);
    endFile(log);
    EXPECT_EQ(log.write(debugRecord(43, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))),
              "3,12,3,3,42,1,4242,777,0:,11:nightly run,4:job7,(0|)\n" + std::string(kContextLine) +
                  debugLine(43, "x"));
    EXPECT_EQ(zantLogCloseFile(&newer), 0u);
    EXPECT_EQ(zantLogCloseFile(&older), 0u);
}

TEST_F(Context, NewContextThatCausesTheRolloverIsWrittenOnce) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    endFile(log);
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), kContextLine);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, RecordsThatOverfillTheNextFileDoNotRollItOver) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    TestLog log(&cfg_);
    std::string title(1500, 't');
    zantLogHandle context{};
    context.context = contextRecord(41, token_);
    context.context.text = title.data();
    ASSERT_EQ(zantLogCreateContextToFile(&log.handle, &context, &context.context), 0u);
    EXPECT_EQ(log.write(debugRecord(42, "x")), 0u);
    // The record that caused the rollover follows the context, whatever the size is by then.
    const std::vector<std::string> lines = linesOf(bytes(productName(0, 2)));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1], "3,12,3,3,41,1,4242,777,0:,1500:" + title + ",4:job7,(0|)");
    EXPECT_EQ(lines[2] + "\n", debugLine(42, "x"));
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, ClosedContextIsNotWrittenAgain) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
    endFile(log);
    EXPECT_EQ(log.write(debugRecord(42, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 1))), debugLine(42, "x"));
}

TEST_F(Context, FailedRolloverWritesNoContexts) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    makeFolder(folder_.file(productName(0, 1)));
    endFile(log);
    EXPECT_EQ(log.write(debugRecord(42, "x")), 5u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), kContextLine);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, RecordsFollowAReopenIntoANewFileOnly) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    const auto later = static_cast<uint64_t>(log.state().lastReopen) + 600001;
    EXPECT_EQ(log.write(debugRecord(42, "same file", later)), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), kContextLine + debugLine(42, "same file", later));

    log.state().startTime -= 86400; // begun on another day, and gone since
    log.state().fileDay.day = 0;
    EXPECT_EQ(zantLogOs_close(&log.state().file), 0);
    removeFile(folder_.file(productName(0, 0)));
    EXPECT_EQ(log.write(debugRecord(43, "new file", later + 600001)), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), kContextLine + debugLine(43, "new file", later + 600001));
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, LogSetFilesGoWithout) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    endFile(log);
    pauseFor(1100); // the next name
    EXPECT_EQ(log.write(debugRecord(42, "x")), 0u);
    ASSERT_EQ(names().size(), 2u);
    EXPECT_EQ(linesOf(bytes(names()[0])).at(1), "3,3,41,1,4242,777,0:,11:nightly run,4:job7,(0|)");
    const std::vector<std::string> lines = linesOf(bytes(names()[1]));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], "0,3,42,1,4242,777,0:,1:x,4:main,2");
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Context, KeepsTheFileOpenAfterItsParent) {
    TestLog log(&cfg_);
    zantLogHandle context{};
    ASSERT_EQ(create(&log.handle, &context, 41), 0u);
    zantLogFile *state = log.handle.file;
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
    zantLogMsgRec record = debugRecord(42, "x");
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(state, &record), 0u);
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
    log.handle.file = nullptr; // went with the last handle
}

} // namespace

} // namespace zantlog::test
