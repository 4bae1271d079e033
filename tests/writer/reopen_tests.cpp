// The reopen after ten minutes, judged by the messages' own times.
#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"

namespace zantlog::test {

namespace {

using Reopen = WriterTest;

uint64_t after(const zantLogFile &state, uint64_t milliseconds) {
    return static_cast<uint64_t>(state.lastReopen) + milliseconds;
}

TEST_F(Reopen, IsDueAfterMoreThanTenMinutes) {
    TestLog log(&cfg_);
    const int64_t opened = log.state().startTime * 1000;
    EXPECT_EQ(log.state().lastReopen, opened);
    EXPECT_EQ(log.write(debugRecord(1, "a", after(log.state(), 600000))), 0u);
    EXPECT_EQ(log.state().lastReopen, opened);
    EXPECT_EQ(log.write(debugRecord(2, "b", after(log.state(), 600001))), 0u);
    EXPECT_EQ(log.state().lastReopen, opened + 600001);
}

TEST_F(Reopen, GoesOnWithTheSameFileOnTheSameDay) {
    TestLog log(&cfg_);
    const uint64_t first = after(log.state(), 600001);
    EXPECT_EQ(log.write(debugRecord(1, "a", first)), 0u);
    EXPECT_EQ(log.write(debugRecord(2, "b", first + 600001)), 0u);
    EXPECT_EQ(names(), std::vector<std::string>{productName(0, 0)});
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(1, "a", first) + debugLine(2, "b", first + 600001));
}

TEST_F(Reopen, DoesNotUseUpANumber) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "a", after(log.state(), 600001))), 0u);
    const std::string text(1000, 'y');
    EXPECT_EQ(log.write(debugRecord(2, text.c_str())), 0u);
    EXPECT_EQ(names(), (std::vector<std::string>{productName(0, 0), productName(0, 1)}));
}

TEST_F(Reopen, EarlierMessagesDoNotCauseIt) {
    TestLog log(&cfg_);
    const int64_t opened = log.state().lastReopen;
    EXPECT_EQ(log.write(debugRecord(1, "a", 0)), 0u);
    EXPECT_EQ(log.write(debugRecord(2, "b", UINT64_MAX)), 0u); // -1 as it is written
    EXPECT_EQ(log.state().lastReopen, opened);
}

TEST_F(Reopen, FarthestMessageCausesItOnce) {
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "a", INT64_MAX)), 0u);
    EXPECT_EQ(log.state().lastReopen, INT64_MAX);
    EXPECT_EQ(log.write(debugRecord(2, "b", INT64_MAX)), 0u);
    EXPECT_EQ(names().size(), 1u);
}

TEST_F(Reopen, BeginsNumberZeroOnANewDay) {
    put(productName(-1, 6), headerBegun(86400));
    TestLog log(&cfg_);
    const auto now = static_cast<uint64_t>(secondsNow()) * 1000;
    EXPECT_EQ(log.write(debugRecord(1, "a", now)), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(-1, 6))), "");
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), debugLine(1, "a", now));
    EXPECT_EQ(log.state().lastReopen, static_cast<int64_t>(now));
}

TEST_F(Reopen, MakesAFileThatHasGoneAgain) {
    TestLog log(&cfg_);
    const std::string path = folder_.file(productName(0, 0));
    ASSERT_EQ(zantLogOs_close(&log.state().file), 0);
    ASSERT_TRUE(removeFile(path));
    const uint64_t later = after(log.state(), 600001);
    EXPECT_EQ(log.write(debugRecord(1, "a", later)), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(1, "a", later));
}

TEST_F(Reopen, ThatFailsFailsTheWriteAndWaitsTenMinutes) {
    TestLog log(&cfg_);
    const std::string path = folder_.file(productName(0, 0));
    ASSERT_EQ(zantLogOs_close(&log.state().file), 0);
    ASSERT_TRUE(removeFile(path));
    ASSERT_TRUE(makeFolder(path));
    const uint64_t later = after(log.state(), 600001);
    EXPECT_EQ(log.write(debugRecord(1, "a", later)), 5u);
    ASSERT_TRUE(removeFile(path));
    EXPECT_EQ(log.write(debugRecord(2, "b", later)), 5u);
    EXPECT_EQ(log.write(debugRecord(3, "c", later + 600001)), 0u);
    EXPECT_EQ(withoutHeader(onlyFile()), debugLine(3, "c", later + 600001));
}

TEST_F(Reopen, LeavesAFileWithoutHeaderForTheNextOne) {
    // As a disk that ran full leaves it: the next file was made, and its header could not be written.
    char token[] = "job7";
    TestLog log(&cfg_);
    zantLogHandle context{};
    context.context = contextRecord(41, token);
    ASSERT_EQ(zantLogCreateContextToFile(&log.handle, &context, &context.context), 0u);
    makeFolder(folder_.file(productName(0, 1)));
    log.state().version = 0;
    const uint64_t later = after(log.state(), 600001);
    EXPECT_EQ(log.write(debugRecord(42, "lost")), 5u);
    removeFile(folder_.file(productName(0, 1)));
    put(productName(0, 1), "");
    log.state().version = 65543;

    EXPECT_EQ(log.write(debugRecord(43, "kept", later)), 0u);
    EXPECT_EQ(bytes(productName(0, 1)), "");
    EXPECT_EQ(withoutHeader(bytes(productName(0, 2))),
              "3,12,3,3,41,1,4242,777,0:,11:nightly run,4:job7,(0|)\n" + debugLine(43, "kept", later));
    EXPECT_EQ(log.state().lastReopen, static_cast<int64_t>(later));
    EXPECT_EQ(zantLogCloseFile(&context), 0u);
}

TEST_F(Reopen, OfALogSetBeginsANewFile) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    TestLog log(&cfg_);
    pauseFor(1100);
    const uint64_t later = after(log.state(), 600001);
    EXPECT_EQ(log.write(debugRecord(1, "a", later)), 0u);
    ASSERT_EQ(names().size(), 2u);
    EXPECT_EQ(linesOf(bytes(names()[0])).size(), 1u);
    EXPECT_EQ(linesOf(bytes(names()[1])).at(1),
              "0,3,1," + std::to_string(later) + ",4242,777,0:,1:a,4:main,2");
}

} // namespace

} // namespace zantlog::test
