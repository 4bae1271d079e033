#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/api/record_bytes.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

zantLogHandle garbage() {
    zantLogHandle handle;
    std::memset(&handle, 0xA5, sizeof handle);
    return handle;
}

bool sameBytes(const zantLogHandle &left, const zantLogHandle &right) {
    return bytesOf(left) == bytesOf(right);
}

bool startsWith(const std::string &text, const std::string &start) {
    return text.rfind(start, 0) == 0;
}

class OpenTest : public ProductTest {};
class SecureOpenTest : public ProductTest {};
class LogSetOpenTest : public ProductTest {};

} // namespace

TEST_F(OpenTest, InvalidArgumentsLeaveTheHandleUntouched) {
    zantLogHandle handle = garbage();
    const zantLogHandle before = handle;
    EXPECT_EQ(zantLogOpen(0, 3, &handle), 3u);
    EXPECT_EQ(zantLogOpen(12, 0, &handle), 3u);
    EXPECT_EQ(zantLogOpen2(0, 3, 3, &handle), 3u);
    EXPECT_EQ(zantLogOpen2(12, 0, 3, &handle), 3u);
    EXPECT_EQ(zantLogOpen2(12, 3, 0, &handle), 3u);
    EXPECT_TRUE(sameBytes(handle, before));
    EXPECT_EQ(zantLogOpen(12, 3, nullptr), 3u);
    EXPECT_EQ(zantLogOpen2(12, 3, 3, nullptr), 3u);
    EXPECT_TRUE(logNames().empty());
}

TEST_F(OpenTest, FillsTheWholeHandle) {
    setting("3", "DebugLevel", "4");
    setting("3", "DiagnosticLevel", "2");
    setting("3", "DynaReloadInSec", "300");
    setting("3", "LogToStderr", "true");
    zantLogHandle handle = garbage();
    const int64_t before = secondsNow();
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    EXPECT_NE(handle.file, nullptr);
    EXPECT_EQ(handle.debugLevel, 4);
    EXPECT_EQ(handle.diagLevel, 2);
    EXPECT_EQ(handle.secureAuditLevel, 0);
    EXPECT_EQ(handle.outputFlags, 2u);
    EXPECT_EQ(handle.noContext, 1u);
    const zantLogMsgRec none = {};
    EXPECT_EQ(bytesOf(handle.context), bytesOf(none));
    EXPECT_EQ(handle.eventLog.handle, nullptr);
    EXPECT_EQ(handle.eventLog.category, 0u);
    EXPECT_EQ(handle.next, nullptr);
    EXPECT_EQ(handle.localizer.words[0], nullptr);
    EXPECT_EQ(handle.localizer.words[1], nullptr);
    EXPECT_EQ(handle.sequence, 1u);
    EXPECT_GE(handle.openTime, before);
    EXPECT_LE(handle.openTime, secondsNow());
    EXPECT_EQ(handle.lastReloadTime, handle.openTime);
    EXPECT_EQ(handle.reloadInterval, 300);
    EXPECT_EQ(handle.secureConfig, nullptr);
    EXPECT_EQ(handle.catalogSelector, 0u);
    EXPECT_EQ(handle.originatorId, 3u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
}

TEST_F(OpenTest, MakesOneFileWithAHeader) {
    {
        const OpenLog log;
        ASSERT_EQ(log.result, 0u);
    }
    ASSERT_EQ(logNames().size(), 1u);
    EXPECT_TRUE(startsWith(logNames()[0], "12-3-")) << logNames()[0];
    EXPECT_TRUE(lines().empty());
}

TEST_F(OpenTest, FirstOriginatorGivesTheLevelsSecondTheFile) {
    setting("3", "DebugLevel", "1");
    setting("4", "DebugLevel", "5");
    setting("3", "LogToStdout", "true");
    OpenLog log(3, 4);
    ASSERT_EQ(log.result, 0u);
    EXPECT_EQ(log.debugLevel, 1);
    EXPECT_EQ(log.outputFlags, 1u);
    EXPECT_EQ(log.originatorId, 3u);
    log.outputFlags = 0;
    EXPECT_EQ(logText(&log, "text"), 0u);
    ASSERT_EQ(logNames().size(), 1u);
    EXPECT_TRUE(startsWith(logNames()[0], "12-4-")) << logNames()[0];
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].productId, 12u);
    EXPECT_EQ(records()[0].originatorId, 3u);
    EXPECT_EQ(records()[0].fileOriginatorId, 4u);
}

TEST_F(OpenTest, OriginatorWithoutSectionGetsTheDefaults) {
    setting("Default", "DiagnosticLevel", "6");
    const OpenLog log(77);
    ASSERT_EQ(log.result, 0u);
    EXPECT_EQ(log.diagLevel, 6);
    EXPECT_EQ(log.originatorId, 77u);
}

TEST_F(OpenTest, UnregisteredProductIsSix) {
    unregister();
    zantLogHandle handle = garbage();
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 6u);
    EXPECT_EQ(handle.file, nullptr);
    EXPECT_EQ(handle.secureConfig, nullptr);
    EXPECT_EQ(handle.localizer.words[0], nullptr);
    EXPECT_EQ(handle.sequence, 0u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
    EXPECT_TRUE(logNames().empty());
}

TEST_F(OpenTest, EmptyDirectoryIs53AndNothingIsLeftToClose) {
    removeSetting("Default", "LogDirectory");
    zantLogHandle handle = garbage();
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 53u);
    EXPECT_EQ(handle.file, nullptr);
    EXPECT_EQ(zantLogClose(&handle), 3u);
}

TEST_F(OpenTest, DirectoryThatCannotBeMadeLeavesAHandleThatMustBeClosed) {
    writeFileBytes(logFolder() + "\\taken", "a file");
    setting("Default", "LogDirectory", logFolder() + "\\taken\\below");
    zantLogHandle handle = garbage();
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 1u);
    EXPECT_EQ(handle.localizer.words[0], nullptr);
    EXPECT_EQ(handle.secureConfig, nullptr);
    ASSERT_NE(handle.file, nullptr);
    EXPECT_EQ(logText(&handle, "lost"), 5u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
}

TEST_F(OpenTest, FailedOpenIsFollowedByAGoodOne) {
    removeSetting("Default", "LogDirectory");
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 53u);
    setting("Default", "LogDirectory", logFolder());
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    EXPECT_EQ(logText(&handle, "text"), 0u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(OpenTest, EventLogIsOpenedWhenTheFlagsAskForIt) {
    setting("3", "LogToOslog", "true");
    setting("3", "NtEventLogCategory", "7");
    zantLogHandle handle = {};
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    EXPECT_NE(handle.eventLog.handle, nullptr);
    EXPECT_EQ(handle.eventLog.category, 7u);
    EXPECT_EQ(handle.outputFlags, 4u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
    EXPECT_EQ(handle.eventLog.handle, nullptr);
}

TEST_F(OpenTest, EventLogFollowsTheFirstOriginatorAlone) {
    setting("4", "LogToOslog", "true");
    const OpenLog log(3, 4);
    ASSERT_EQ(log.result, 0u);
    EXPECT_EQ(log.eventLog.handle, nullptr);
    EXPECT_EQ(log.outputFlags, 0u);
}

TEST_F(OpenTest, SequenceNumbersStartAtOne) {
    OpenLog log;
    ASSERT_EQ(log.result, 0u);
    for (const char *text : {"one", "two", "three"}) {
        EXPECT_EQ(logText(&log, text), 0u);
    }
    uint32_t number = 0;
    EXPECT_EQ(zantLogGetSequenceNumber(&log, &number), 0u);
    EXPECT_EQ(number, 4u);
    ASSERT_EQ(records().size(), 3u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[2].sequence, 3u);
}

TEST_F(OpenTest, HandlesOfOneFileShareItsState) {
    OpenLog first;
    OpenLog second;
    ASSERT_EQ(first.result, 0u);
    ASSERT_EQ(second.result, 0u);
    EXPECT_EQ(first.file, second.file);
    EXPECT_EQ(logText(&first, "a"), 0u);
    EXPECT_EQ(logText(&second, "b"), 0u);
    EXPECT_EQ(zantLogClose(&first), 0u);
    first.file = nullptr; // so that the end of the scope does not use a closed handle
    EXPECT_EQ(logText(&second, "c"), 0u);
    EXPECT_EQ(records().size(), 3u);
    EXPECT_EQ(logNames().size(), 1u);
}

TEST_F(OpenTest, ManyOpensAndClosesContinueOneFile) {
    for (int i = 0; i < 50; ++i) {
        OpenLog log;
        ASSERT_EQ(log.result, 0u);
        ASSERT_EQ(logText(&log, "text"), 0u);
    }
    EXPECT_EQ(logNames().size(), 1u);
    EXPECT_EQ(records().size(), 50u);
}

TEST(Close, RefusesNullAndHandlesWithoutFile) {
    EXPECT_EQ(zantLogClose(nullptr), 3u);
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogClose(&handle), 3u);
}

TEST_F(LogSetOpenTest, InvalidArgumentsLeaveTheHandleUntouched) {
    zantLogHandle handle = garbage();
    const zantLogHandle before = handle;
    EXPECT_EQ(zantLogOpenLogSet(0, 3, "nightly", &handle), 3u);
    EXPECT_EQ(zantLogOpenLogSet(12, 0, "nightly", &handle), 3u);
    EXPECT_EQ(zantLogOpenLogSet(12, 3, nullptr, &handle), 3u);
    EXPECT_TRUE(sameBytes(handle, before));
    EXPECT_EQ(zantLogOpenLogSet(12, 3, "nightly", nullptr), 3u);
}

TEST_F(LogSetOpenTest, UnknownProductOrLogSetIsSix) {
    zantLogHandle handle = garbage();
    EXPECT_EQ(zantLogOpenLogSet(12, 3, "nightly", &handle), 6u);
    EXPECT_EQ(handle.file, nullptr);
    EXPECT_EQ(zantLogClose(&handle), 3u);
    EXPECT_EQ(zantLogOpenLogSet(13, 3, "nightly", &handle), 6u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
}

TEST_F(LogSetOpenTest, LevelsComeFromTheOriginatorTheFileFromTheLogSet) {
    setting("3", "DebugLevel", "2");
    setting("LOGSET.nightly", "LogDirectory", logFolder());
    setting("LOGSET.nightly", "DebugLevel", "5");
    setting("LOGSET.nightly", "FileName", "othername");
    zantLogHandle handle = garbage();
    ASSERT_EQ(zantLogOpenLogSet(12, 3, "nightly", &handle), 0u);
    EXPECT_EQ(handle.debugLevel, 2);
    EXPECT_EQ(handle.originatorId, 3u);
    EXPECT_EQ(handle.sequence, 1u);
    EXPECT_EQ(handle.noContext, 1u);
    EXPECT_EQ(logText(&handle, "text"), 0u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
    ASSERT_EQ(logNames().size(), 1u);
    EXPECT_TRUE(startsWith(logNames()[0], "12-nightly-")) << logNames()[0];
    ASSERT_EQ(lines().size(), 1u);
    // type, originator, sequence number
    EXPECT_TRUE(startsWith(lines()[0], "2,3,1,")) << lines()[0];
}

TEST_F(SecureOpenTest, RefusesInvalidArguments) {
    Configuration cfg;
    cfg.productId = 1;
    zantLogHandle handle = garbage();
    const zantLogHandle before = handle;
    EXPECT_EQ(zantLogSecureOpen(0, 3, 0, &cfg, &handle), 3u);
    EXPECT_EQ(zantLogSecureOpen(12, 0, 0, &cfg, &handle), 3u);
    EXPECT_EQ(zantLogSecureOpen(12, 3, 0, nullptr, &handle), 3u);
    EXPECT_EQ(zantLogSecureOpen(12, 3, 0, &cfg, nullptr), 3u);
    EXPECT_TRUE(sameBytes(handle, before));
    EXPECT_EQ(cfg.productId, 1u);
}

TEST_F(SecureOpenTest, FillsTheWholeHandle) {
    Configuration cfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
    cfg.secureAuditLevel = 5;
    cfg.debugLevel = 6;
    cfg.diagLevel = 6;
    cfg.dynaReloadInSec = 90;
    cfg.outputFlags = 0x47;
    cfg.eventSource.category = 11;
    zantLogHandle handle = garbage();
    ASSERT_EQ(zantLogSecureOpen(12, 3, UINT64_MAX, &cfg, &handle), 0u);
    EXPECT_EQ(handle.file, nullptr);
    EXPECT_EQ(handle.debugLevel, 0);
    EXPECT_EQ(handle.diagLevel, 0);
    EXPECT_EQ(handle.secureAuditLevel, 5);
    EXPECT_EQ(handle.outputFlags, 0x44u);
    EXPECT_EQ(handle.noContext, 1u);
    EXPECT_NE(handle.eventLog.handle, nullptr);
    EXPECT_EQ(handle.eventLog.category, 11u);
    EXPECT_EQ(handle.next, nullptr);
    EXPECT_EQ(handle.localizer.words[0], nullptr);
    EXPECT_EQ(handle.localizer.words[1], nullptr);
    EXPECT_EQ(handle.sequence, 0u);
    EXPECT_EQ(handle.openTime, 0);
    EXPECT_EQ(handle.lastReloadTime, 0);
    EXPECT_EQ(handle.reloadInterval, 0);
    EXPECT_EQ(handle.catalogSelector, 0u);
    EXPECT_EQ(handle.originatorId, 0u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
    EXPECT_EQ(handle.eventLog.handle, nullptr);
    EXPECT_TRUE(logNames().empty());
}

TEST_F(SecureOpenTest, FlagsAreAlways4AndThe64OfTheConfiguration) {
    for (const auto &[given, expected] :
         {std::pair{0u, 4u}, {3u, 4u}, {64u, 68u}, {0xFFFFFFFFu, 68u}, {4u, 4u}}) {
        Configuration cfg;
        cfg.outputFlags = given;
        std::strcpy(cfg.eventSource.name, "Application");
        zantLogHandle handle = {};
        EXPECT_EQ(zantLogSecureOpen(12, 3, 0, &cfg, &handle), 0u);
        EXPECT_EQ(handle.outputFlags, expected);
        EXPECT_EQ(zantLogClose(&handle), 3u);
    }
}

TEST_F(SecureOpenTest, KeepsACopyOfTheConfiguration) {
    Configuration cfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
    ASSERT_EQ(zantLogCfgSetL10nResource(&cfg, "resource"), 0u);
    cfg.eventSource.category = 11;
    zantLogHandle handle = {};
    ASSERT_EQ(zantLogSecureOpen(21, 22, 0, &cfg, &handle), 0u);
    EXPECT_EQ(cfg.productId, 21u);
    EXPECT_EQ(cfg.originatorId, 22u);
    ASSERT_NE(handle.secureConfig, nullptr);
    ASSERT_NE(handle.secureConfig, &cfg);
    EXPECT_EQ(handle.secureConfig->productId, 21u);
    EXPECT_EQ(handle.secureConfig->originatorId, 22u);
    EXPECT_STREQ(handle.secureConfig->l10nResource, "resource");
    EXPECT_NE(handle.secureConfig->l10nResource, cfg.l10nResource);
    EXPECT_STREQ(handle.secureConfig->logDirectory, cfg.logDirectory);
    EXPECT_STREQ(handle.secureConfig->eventSource.name, "Application");
    EXPECT_EQ(handle.secureConfig->eventSource.category, 0u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
    EXPECT_STREQ(cfg.l10nResource, "resource");
}

TEST_F(SecureOpenTest, NeedsNoRegistration) {
    unregister();
    Configuration cfg;
    std::strcpy(cfg.eventSource.name, "Application");
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogSecureOpen(99, 98, 0, &cfg, &handle), 0u);
    EXPECT_EQ(zantLogClose(&handle), 3u);
}

TEST_F(SecureOpenTest, ReloadNeverHappens) {
    setting("3", "DebugLevel", "4");
    Configuration cfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
    zantLogHandle handle = {};
    ASSERT_EQ(zantLogSecureOpen(12, 3, 0, &cfg, &handle), 0u);
    int32_t level = 77;
    EXPECT_EQ(zantLogGetDebugLevel(&handle, &level), 0u);
    EXPECT_EQ(level, 0);
    EXPECT_EQ(zantLogClose(&handle), 3u);
}
