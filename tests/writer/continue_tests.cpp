// Going on with a file that exists.
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"

namespace zantlog::test {

namespace {

using ContinuedFile = WriterTest;

// Log set "night" of product 12.
struct LogSet {
    explicit LogSet(zantLogCfg *cfg) {
        cfg->isLogSet = 1;
        cfg->logSetName = name;
    }
    char name[6] = "night";
};

TEST_F(ContinuedFile, GetsNoSecondHeader) {
    const std::string header = headerBegun();
    put(productName(0, 4), header);
    TestLog log(&cfg_);
    ASSERT_EQ(log.opened, 0u);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(names(), std::vector<std::string>{productName(0, 4)});
    EXPECT_EQ(bytes(productName(0, 4)), header + debugLine(1, "x"));
}

TEST_F(ContinuedFile, IsTheOneOfTheLatestDayAndNumber) {
    put(productName(-1, 8), headerBegun());
    put(productName(0, 2), headerBegun());
    put(productName(0, 5), headerBegun());
    put(productName(0, 3), headerBegun());
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 5))), debugLine(1, "x"));
}

TEST_F(ContinuedFile, NextFileHasTheNextNumber) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    put(productName(0, 4), headerBegun() + std::string(1000, 'x') + "\n");
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 5))), debugLine(1, "x"));
}

TEST_F(ContinuedFile, TakesItsStartFromTheHeader) {
    put(productName(0, 0), "$Header 65543,12,3,1763249000,-3600,buildhost\n");
    const TestLog log(&cfg_);
    EXPECT_EQ(log.state().startTime, 1763249000);
    EXPECT_EQ(log.state().lastReopen, 1763249000000);
    EXPECT_EQ(log.state().version, 65543u);
}

TEST_F(ContinuedFile, WithoutHeaderIsLeftAtTheFirstWrite) {
    for (const std::string &content :
         {std::string("no header\n"), std::string("no line end"), std::string()}) {
        const ScopedFolder folder;
        zantLogCfg cfg = configurationFor(folder.path());
        writeFileBytes(folder.file(productName(0, 3)), content);
        const int64_t before = secondsNow();
        TestLog log(&cfg);
        EXPECT_EQ(log.opened, 0u);
        EXPECT_GE(log.state().startTime, before); // as if it began now
        EXPECT_LE(log.state().startTime, secondsNow());
        EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
        EXPECT_EQ(fileBytes(folder.file(productName(0, 3))), content);
        EXPECT_EQ(withoutHeader(fileBytes(folder.file(productName(0, 4)))), debugLine(1, "x"));
    }
}

TEST_F(ContinuedFile, OfAnotherVersionIsLeftAtTheFirstWrite) {
    for (const char *version : {"65539", "65540", "65542", "65544", "65545"}) {
        const ScopedFolder folder;
        zantLogCfg cfg = configurationFor(folder.path());
        const std::string content = std::string("$Header ") + version + ",12,3,1763249000,-3600,buildhost\n";
        writeFileBytes(folder.file(productName(0, 0)), content);
        TestLog log(&cfg);
        EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
        EXPECT_EQ(fileBytes(folder.file(productName(0, 0))), content) << version;
        EXPECT_EQ(withoutHeader(fileBytes(folder.file(productName(0, 1)))), debugLine(1, "x")) << version;
    }
}

TEST_F(ContinuedFile, OfAnotherHostIsNotTouched) {
    const std::string foreign = "12-3-1-" + dateInNames() + "-0000000009.log";
    put(foreign, headerBegun());
    TestLog log(&cfg_);
    EXPECT_EQ(names(), (std::vector<std::string>{foreign, productName(0, 0)}));
}

TEST_F(ContinuedFile, OfYesterdayTakesYoungMessages) {
    const std::string header = headerBegun(60);
    put(productName(-1, 6), header);
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(bytes(productName(-1, 6)), header + debugLine(1, "x"));
}

TEST_F(ContinuedFile, OfYesterdayIsFollowedByNumberZeroOfToday) {
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    put(productName(-1, 6), headerBegun() + std::string(1000, 'x') + "\n");
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), debugLine(1, "x"));
}

TEST_F(ContinuedFile, OfTomorrowIsFollowedByNumberZeroOfToday) {
    // The clock has been set back since.
    cfg_.rolloverMode = ZANTLOG_ROLLOVER_FILE_SIZE;
    cfg_.maxLogFileSizeKB = 1;
    put(productName(1, 6), headerBegun() + std::string(1000, 'x') + "\n");
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(1, "x")), 0u);
    EXPECT_EQ(withoutHeader(bytes(productName(0, 0))), debugLine(1, "x"));
}

TEST_F(ContinuedFile, WithAnAbsurdStartIsSurvived) {
    for (const char *start : {"0", "-1", "9223372036854775807", "-9223372036854775808"}) {
        for (uint32_t mode = 0; mode <= 5; ++mode) {
            const ScopedFolder folder;
            zantLogCfg cfg = configurationFor(folder.path());
            cfg.rolloverMode = mode;
            cfg.rolloverPeriod = 3600;
            cfg.maxLogFileSizeKB = 100;
            const std::string header = std::string("$Header 65543,12,3,") + start + ",-3600,buildhost\n";
            writeFileBytes(folder.file(productName(0, 0)), header);
            TestLog log(&cfg);
            EXPECT_EQ(log.opened, 0u) << start;
            EXPECT_EQ(log.write(debugRecord(1, "x")), 0u) << start;
            EXPECT_LE(fileNames(folder.path()).size(), 2u) << start;
        }
    }
}

TEST_F(ContinuedFile, OfALogSetIsTheLatest) {
    const LogSet set(&cfg_);
    const std::string header = "$Header 65544,-3600,buildhost\n";
    put("12-night-251114235959.log", header);
    put("12-night-251115101010.log", header);
    put("12-night-251115101009.log", header);
    put("13-night-251116101009.log", header);
    put("12-day-251116101009.log", header);
    TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 0u);
    EXPECT_EQ(log.write(debugRecord(7, "x")), 0u);
    EXPECT_EQ(bytes("12-night-251115101010.log"), header + "0,3,7,1,4242,777,0:,1:x,4:main,2\n");
    EXPECT_EQ(names().size(), 5u);
}

TEST_F(ContinuedFile, OfALogSetStartsAtTheTimeInItsName) {
    const LogSet set(&cfg_);
    put("12-night-251115101010.log", "$Header 65544,-3600,buildhost\n");
    const TestLog log(&cfg_);
    EXPECT_EQ(log.state().startTime, 1763197810); // 15 November 2025 10:10:10, one hour east of Greenwich
    EXPECT_EQ(log.state().lastReopen, 1763197810000);
}

TEST_F(ContinuedFile, OfALogSetOfAnotherVersionIsLeftAtTheFirstWrite) {
    const LogSet set(&cfg_);
    const std::string content = "$Header 65543,12,3,1763249000,-3600,buildhost\n";
    put("12-night-251115101010.log", content);
    TestLog log(&cfg_);
    EXPECT_EQ(log.write(debugRecord(7, "x")), 0u);
    EXPECT_EQ(bytes("12-night-251115101010.log"), content);
    EXPECT_EQ(names().size(), 2u);
}

} // namespace

} // namespace zantlog::test
