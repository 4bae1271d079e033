// The writer's own functions, as a caller of the DLL reaches them: through the handles that an open has
// filled.
#include <string>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

class LogFileFunctions : public ProductTest {
protected:
    void registerLogSet() { setting("LOGSET.night", "LogDirectory", logFolder()); }
};

} // namespace

TEST_F(LogFileFunctions, OpeningRefusesNullArgumentsAndHandlesWithoutState) {
    zantLogHandle handle = {};
    Configuration cfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
    EXPECT_EQ(zantLogOpenFile(nullptr, &cfg, &cfg), 3u);
    EXPECT_EQ(zantLogOpenFile(&handle, nullptr, &cfg), 3u);
    EXPECT_EQ(zantLogOpenFile(&handle, &cfg, nullptr), 3u);
    EXPECT_EQ(zantLogOpenFile(&handle, &cfg, &cfg), 57u);
    EXPECT_TRUE(logNames().empty());
}

TEST_F(LogFileFunctions, OpeningOnceMoreTakesLevelsAndFlagsFromTheFirstConfiguration) {
    OpenLog log;
    Configuration handleCfg;
    Configuration fileCfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &handleCfg), 0u);
    ASSERT_EQ(zantLogReadCfg(12, 3, &fileCfg), 0u);
    handleCfg.debugLevel = 4;
    handleCfg.diagLevel = 5;
    handleCfg.outputFlags = 1;
    log.sequence = 77;
    EXPECT_EQ(zantLogOpenFile(&log, &handleCfg, &fileCfg), 0u);
    EXPECT_EQ(log.debugLevel, 4);
    EXPECT_EQ(log.diagLevel, 5);
    EXPECT_EQ(log.outputFlags, 1u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_EQ(log.noContext, 1u);
    EXPECT_EQ(logNames().size(), 1u);
}

TEST_F(LogFileFunctions, ClosingTellsAttachedFromDetachedAndEmptyHandles) {
    zantLogHandle empty = {};
    EXPECT_EQ(zantLogCloseFile(nullptr), 3u);
    EXPECT_EQ(zantLogCloseFile(&empty), 3u);
    OpenLog log;
    zantLogHandle detached = {};
    detached.file = log.file;
    EXPECT_EQ(zantLogCloseFile(&detached), 1u);
    EXPECT_EQ(logText(&log, "still open"), 0u);
}

TEST_F(LogFileFunctions, AttachedHandleKeepsTheFileOpen) {
    zantLogHandle second = {};
    {
        OpenLog log;
        second.file = log.file;
        EXPECT_EQ(zantLogAddLogToFile(nullptr), 3u);
        EXPECT_EQ(zantLogAddLogToFile(&second), 0u);
    }
    second.noContext = 1;
    EXPECT_EQ(logText(&second, "the first handle is closed"), 0u);
    EXPECT_EQ(records().size(), 1u);
    EXPECT_EQ(zantLogCloseFile(&second), 0u);
}

TEST_F(LogFileFunctions, WritesARecordWithTheFilesOwnIds) {
    OpenLog log(3, 4);
    Message message(&log, ZANTLOG_MSG_DEBUG, "by hand");
    ASSERT_EQ(zantLogSetDebugAttr(&message, "main", 2), 0u);
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(nullptr, &message), 57u);
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(log.file, nullptr), 1u);
    EXPECT_EQ(zantLogWriteMsgWithRolloverToFile(log.file, &message), 0u);
    EXPECT_EQ(message.formatVersion, 65543u);
    EXPECT_EQ(message.fid, 4u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].originatorId, 3u);
    EXPECT_EQ(records()[0].fileOriginatorId, 4u);
    EXPECT_EQ(records()[0].rest, "0:,7:by hand,4:main,2");
}

TEST_F(LogFileFunctions, ContextSharesItsParentsFile) {
    OpenLog log;
    log.debugLevel = 3;
    zantLogHandle context = {};
    ASSERT_EQ(zantLogInitMsg(&context.context, &log, ZANTLOG_MSG_CONTEXT, "title"), 0u);
    ASSERT_EQ(zantLogSetContextAttr(&context.context, "job-7"), 0u);
    EXPECT_EQ(zantLogCreateContextToFile(nullptr, &context, &context.context), 3u);
    EXPECT_EQ(zantLogCreateContextToFile(&log, &context, &context.context), 0u);
    EXPECT_EQ(context.file, log.file);
    EXPECT_EQ(context.debugLevel, 3);
    EXPECT_EQ(context.noContext, 0u);
    EXPECT_EQ(context.sequence, 1u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,5:title,5:job-7,(0|)");
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(LogFileFunctions, LatestFileOfAProductIsFound) {
    OpenLog log;
    LogFileEntry *entry = nullptr;
    EXPECT_EQ(zantLogFindLatestLog(log.file, 12, 4, 0, 0, &entry), 0);
    EXPECT_EQ(entry, nullptr);
    ASSERT_EQ(zantLogFindLatestLog(log.file, 12, 3, 0, 0, &entry), 1);
    EXPECT_EQ(std::string(entry->name), logNames().at(0));
    zantLogFree(entry);
    EXPECT_EQ(zantLogFindLatestLog(nullptr, 12, 3, 0, 0, &entry), 0);
}

TEST_F(LogFileFunctions, LatestFileOfALogSetIsFound) {
    registerLogSet();
    zantLogHandle log = {};
    ASSERT_EQ(zantLogOpenLogSet(12, 3, "night", &log), 0u);
    LogFileEntry *entry = nullptr;
    EXPECT_EQ(zantLogFindLatestLogSL(log.file, 12, "day", 0, 0, &entry), 0);
    ASSERT_EQ(zantLogFindLatestLogSL(log.file, 12, "night", 0, 0, &entry), 1);
    EXPECT_EQ(std::string(entry->name), logNames().at(0));
    zantLogFree(entry);
    EXPECT_EQ(zantLogClose(&log), 0u);
}

TEST_F(LogFileFunctions, TimeZoneOffsetIsThatOfTheFilesHeader) {
    OpenLog log;
    LogFileEntry *entry = nullptr;
    ASSERT_EQ(zantLogFindLatestLog(log.file, 12, 3, 0, 0, &entry), 1);
    const std::string path = logFolder() + "\\" + entry->name;
    ASSERT_EQ(zantLogOs_open(&entry->file, path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0);
    LogFileHeader header = {};
    EXPECT_EQ(ReadHeader(entry, &header), 0u);
    EXPECT_EQ(header.tzOffset, getLocalTZOffsetFromGMT());
    EXPECT_EQ(zantLogOs_close(&entry->file), 0);
    zantLogFree(entry);
}
