#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/api/record_bytes.h"
#include "tests/support/log_folder.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

class ContextTest : public ProductTest {};

} // namespace

TEST_F(ContextTest, RefusesNullParentContextAndFormat) {
    OpenLog log;
    zantLogHandle context = {};
    const char *none = nullptr;
    EXPECT_EQ(zantLogCreateContext(nullptr, &context, "t", 0, "x"), 3u);
    EXPECT_EQ(zantLogCreateContext(&log, nullptr, "t", 0, "x"), 3u);
    EXPECT_EQ(zantLogCreateContext(&log, &context, "t", 0, none), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(zantLogDestroyContext(nullptr), 3u);
}

TEST_F(ContextTest, NullTokenDrawsANumberAndWritesNothing) {
    OpenLog log;
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&log, &context, nullptr, 0, "x"), 3u);
    EXPECT_EQ(log.sequence, 2u);
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(context.file, nullptr);
    EXPECT_EQ(context.context.text, nullptr);
}

TEST_F(ContextTest, WritesAContextMessageWithTheParentsNumber) {
    OpenLog log;
    ASSERT_EQ(logText(&log, "before"), 0u);
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&log, &context, "job-7", 0, "nightly %s", "run"), 0u);
    ASSERT_EQ(records().size(), 2u);
    const RecordLine line = records()[1];
    EXPECT_EQ(line.type, 3u);
    EXPECT_EQ(line.sequence, 2u);
    EXPECT_EQ(line.productId, 12u);
    EXPECT_EQ(line.originatorId, 3u);
    EXPECT_EQ(line.rest.rfind("0:,11:nightly run,5:job-7,(", 0), 0u) << line.rest;
    EXPECT_EQ(log.sequence, 3u);
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, TitleFromTheCatalogKeepsItsArguments) {
    OpenLog log;
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&log, &context, "job-7", 4711, "%d", 5), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,5:job-7,(1|i32:5|)");
    EXPECT_EQ(context.context.lis.textId, 4711u);
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, TakesOverFromTheParentAndStartsAtOne) {
    setting("3", "DebugLevel", "4");
    setting("3", "DiagnosticLevel", "2");
    setting("3", "DynaReloadInSec", "300");
    setting("3", "LogToOslog", "true");
    setting("3", "NtEventLogCategory", "7");
    OpenLog log;
    log.secureAuditLevel = 5;
    log.catalogSelector = 6;
    log.localizer.words[0] = &log;
    zantLogHandle context = {};
    context.secureAuditLevel = 2;
    context.sequence = 99;
    ASSERT_EQ(zantLogCreateContext(&log, &context, "t", 0, "x"), 0u);
    EXPECT_EQ(context.file, log.file);
    EXPECT_EQ(context.originatorId, 3u);
    EXPECT_EQ(context.debugLevel, 4);
    EXPECT_EQ(context.diagLevel, 2);
    EXPECT_EQ(context.outputFlags, 4u);
    EXPECT_EQ(context.localizer.words[0], &log);
    EXPECT_EQ(context.eventLog.handle, log.eventLog.handle);
    EXPECT_EQ(context.eventLog.category, 7u);
    EXPECT_EQ(context.openTime, log.openTime);
    EXPECT_EQ(context.lastReloadTime, log.lastReloadTime);
    EXPECT_EQ(context.reloadInterval, 300);
    EXPECT_EQ(context.secureConfig, nullptr);
    EXPECT_EQ(context.noContext, 0u);
    EXPECT_EQ(context.sequence, 1u);
    EXPECT_EQ(context.secureAuditLevel, 2);
    EXPECT_EQ(context.catalogSelector, 0u);
    EXPECT_EQ(context.context.type, 3u);
    EXPECT_STREQ(context.context.slot.contextString, "t");
    log.localizer.words[0] = nullptr;
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, TokenIsStampedIntoMessagesOfTheContextOnly) {
    OpenLog log;
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&log, &context, "job-7", 0, "x"), 0u);
    ASSERT_EQ(logText(&context, "inside"), 0u);
    ASSERT_EQ(logText(&log, "outside"), 0u);
    ASSERT_EQ(records().size(), 3u);
    EXPECT_EQ(records()[1].rest, "5:job-7,6:inside,0:,0,(0|)");
    EXPECT_EQ(records()[1].sequence, 1u);
    EXPECT_EQ(records()[2].rest, "0:,7:outside,0:,0,(0|)");
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, TokenIsCopied) {
    OpenLog log;
    zantLogHandle context = {};
    char token[] = "first";
    ASSERT_EQ(zantLogCreateContext(&log, &context, token, 0, "x"), 0u);
    std::strcpy(token, "other");
    ASSERT_EQ(logText(&context, "inside"), 0u);
    EXPECT_EQ(records()[1].rest, "5:first,6:inside,0:,0,(0|)");
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, NestedContextStampsItsOwnToken) {
    OpenLog log;
    zantLogHandle outer = {};
    zantLogHandle inner = {};
    ASSERT_EQ(zantLogCreateContext(&log, &outer, "outer", 0, "x"), 0u);
    ASSERT_EQ(zantLogCreateContext(&outer, &inner, "inner", 0, "y"), 0u);
    ASSERT_EQ(logText(&inner, "text"), 0u);
    ASSERT_EQ(records().size(), 3u);
    EXPECT_EQ(records()[1].type, 3u);
    EXPECT_EQ(records()[1].rest.rfind("5:outer,1:y,5:inner,(", 0), 0u) << records()[1].rest;
    EXPECT_EQ(records()[1].sequence, 1u);
    EXPECT_EQ(records()[2].rest, "5:inner,4:text,0:,0,(0|)");
    EXPECT_EQ(zantLogDestroyContext(&inner), 0u);
    EXPECT_EQ(zantLogDestroyContext(&outer), 0u);
}

TEST_F(ContextTest, ContextsOfOneParentStampTheirOwnTokens) {
    OpenLog log;
    zantLogHandle first = {};
    zantLogHandle second = {};
    ASSERT_EQ(zantLogCreateContext(&log, &first, "first", 0, "x"), 0u);
    ASSERT_EQ(zantLogCreateContext(&log, &second, "second", 0, "y"), 0u);
    ASSERT_EQ(logText(&first, "a"), 0u);
    ASSERT_EQ(logText(&second, "b"), 0u);
    EXPECT_EQ(zantLogDestroyContext(&first), 0u);
    ASSERT_EQ(logText(&second, "c"), 0u);
    ASSERT_EQ(records().size(), 5u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[1].sequence, 2u);
    EXPECT_EQ(records()[2].rest, "5:first,1:a,0:,0,(0|)");
    EXPECT_EQ(records()[3].rest, "6:second,1:b,0:,0,(0|)");
    EXPECT_EQ(records()[4].rest, "6:second,1:c,0:,0,(0|)");
    EXPECT_EQ(records()[4].sequence, 2u);
    EXPECT_EQ(zantLogDestroyContext(&second), 0u);
}

TEST_F(ContextTest, EveryFamilyCarriesTheToken) {
    setting("3", "DebugLevel", "1");
    setting("3", "DiagnosticLevel", "1");
    OpenLog log;
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&log, &context, "job-7", 0, "x"), 0u);
    EXPECT_EQ(zantLogDebugMsg(&context, 0, 1, "who", "d"), 0u);
    EXPECT_EQ(zantLogDiagMsg(&context, 0, 1, "who", 0, "d"), 0u);
    EXPECT_EQ(zantLogAuditMsg(&context, 0, "mary", 0, 4711, "%d", 5), 0u);
    ASSERT_EQ(records().size(), 4u);
    for (size_t i = 1; i < 4; ++i) {
        EXPECT_EQ(records()[i].rest.substr(0, 8), "5:job-7,") << records()[i].type;
    }
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, NextFileBeginsWithTheRecordsOfTheContextsThatLive) {
    setting("3", "RolloverMode", "FileSize");
    setting("3", "MaxLogFileSizeKB", "1");
    OpenLog log;
    zantLogHandle gone = {};
    zantLogHandle first = {};
    zantLogHandle second = {};
    ASSERT_EQ(zantLogCreateContext(&log, &gone, "gone", 0, "x"), 0u);
    ASSERT_EQ(zantLogCreateContext(&log, &first, "first", 4711, "%d", 5), 0u);
    ASSERT_EQ(zantLogCreateContext(&log, &second, "second", 0, "y"), 0u);
    EXPECT_EQ(zantLogDestroyContext(&gone), 0u);
    ASSERT_EQ(logText(&log, std::string(1100, 'l').c_str()), 0u); // rolls over by its own length
    ASSERT_EQ(logNames().size(), 2u);
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 6u);
    EXPECT_EQ(all[3].rest.rfind("0:,1:y,6:second,(", 0), 0u) << all[3].rest;
    EXPECT_EQ(all[3].sequence, 3u);
    EXPECT_EQ(all[4].rest, "0:,0:,5:first,(1|i32:5|)");
    EXPECT_EQ(all[4].sequence, 2u);
    EXPECT_EQ(all[5].type, 2u);
    EXPECT_EQ(zantLogDestroyContext(&second), 0u);
    EXPECT_EQ(zantLogDestroyContext(&first), 0u);
}

TEST_F(ContextTest, DestroyedContextIsEmptyAndDetached) {
    OpenLog log;
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&log, &context, "t", 0, "x"), 0u);
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
    EXPECT_EQ(context.noContext, 1u);
    const zantLogMsgRec none = {};
    EXPECT_EQ(bytesOf(context.context), bytesOf(none));
    EXPECT_EQ(zantLogDestroyContext(&context), 1u);
    EXPECT_EQ(logText(&log, "still open"), 0u);
}

TEST_F(ContextTest, FileStaysOpenForAContextThatOutlivesItsParent) {
    zantLogHandle parent = {};
    ASSERT_EQ(zantLogOpen(12, 3, &parent), 0u);
    zantLogHandle context = {};
    ASSERT_EQ(zantLogCreateContext(&parent, &context, "t", 0, "x"), 0u);
    EXPECT_EQ(zantLogClose(&parent), 0u);
    EXPECT_EQ(logText(&context, "text"), 0u);
    EXPECT_EQ(records().size(), 2u);
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, FailingFormatIsMappedAndLeavesNothing) {
    OpenLog log;
    for (const uint32_t msgid : {0u, 4711u}) {
        zantLogHandle context = {};
        EXPECT_EQ(zantLogCreateContext(&log, &context, "t", msgid, "%n"), 3u); // -2 of the catalog library
        EXPECT_EQ(context.context.type, 0u);
        EXPECT_EQ(context.context.slot.contextString, nullptr);
        EXPECT_EQ(context.file, nullptr);
    }
    EXPECT_EQ(log.sequence, 3u);
    EXPECT_TRUE(records().empty());
}

TEST_F(ContextTest, TitleThatCannotBeRenderedIsNoFailure) {
    OpenLog log;
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&log, &context, "t", 0, ""), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest.rfind("0:,0:,1:t,(", 0), 0u) << records()[0].rest;
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
}

TEST_F(ContextTest, ParentWithoutAFileGivesTheWritersResult) {
    zantLogHandle parent = {};
    parent.noContext = 1;
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&parent, &context, "t", 0, "x"), 57u);
    EXPECT_EQ(context.noContext, 1u);
    EXPECT_EQ(context.sequence, 1u);
    EXPECT_EQ(zantLogDestroyContext(&context), 3u);
}

TEST_F(ContextTest, FailedWriteLeavesAContextWithoutToken) {
    writeFileBytes(logFolder() + "\\taken", "a file");
    setting("Default", "LogDirectory", logFolder() + "\\taken\\below");
    zantLogHandle parent = {};
    ASSERT_EQ(zantLogOpen(12, 3, &parent), 1u);
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&parent, &context, "t", 0, "x"), 5u);
    EXPECT_EQ(context.noContext, 1u);
    EXPECT_EQ(context.file, parent.file);
    Message message(&context, 0, "text");
    EXPECT_EQ(message.initialised, 0u);
    EXPECT_EQ(message.contextToken, nullptr);
    EXPECT_EQ(zantLogDestroyContext(&context), 1u);
    EXPECT_EQ(zantLogClose(&parent), 0u);
}

TEST_F(ContextTest, ParentWithABrokenContextRecordGivesThree) {
    OpenLog log;
    log.noContext = 0; // its context record is of type 0
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&log, &context, "t", 0, "x"), 3u);
    log.noContext = 1;
    EXPECT_TRUE(records().empty());
}
