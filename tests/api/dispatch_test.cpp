#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

class DispatchTest : public ProductTest {};

zantLogHandle secureHandle() {
    zantLogHandle handle = {};
    handle.noContext = 1;
    return handle;
}

} // namespace

TEST_F(DispatchTest, RefusesNullArguments) {
    OpenLog log;
    Message message(&log, 0, "x");
    EXPECT_EQ(zantLogMsg(nullptr, 0, &message), 3u);
    EXPECT_EQ(zantLogMsg(&log, 0, nullptr), 3u);
    EXPECT_TRUE(records().empty());
}

TEST_F(DispatchTest, WritesARecordOfEveryTypeThatFilesHave) {
    OpenLog log;
    Message debug(&log, 0, "d");
    zantLogSetDebugAttr(&debug, "who", 1);
    Message diag(&log, 1, "g");
    zantLogSetDiagAttr(&diag, "who", 2);
    Message app(&log, 2, "a");
    zantLogSetAppAttrEx(&app, "who", 3);
    Message audit(&log, 4, "u");
    zantLogSetAuditAttr(&audit, "admin", 7);
    for (Message *message : {&debug, &diag, &app, &audit}) {
        EXPECT_EQ(zantLogMsg(&log, 0, message), 0u);
    }
    ASSERT_EQ(records().size(), 4u);
    EXPECT_EQ(records()[0].rest, "0:,1:d,3:who,1");
    EXPECT_EQ(records()[1].rest, "0:,1:g,3:who,2,(0|)");
    EXPECT_EQ(records()[2].rest, "0:,1:a,3:who,3,(0|)");
    EXPECT_EQ(records()[3].rest, "0:,1:u,5:admin,7,(0|)");
    EXPECT_EQ(records()[3].type, 4u);
    EXPECT_EQ(records()[3].processId, getPID());
    EXPECT_EQ(records()[3].threadId, getTID());
}

TEST_F(DispatchTest, SecureAuditThroughAFileHandleIs58BeforeEverythingElse) {
    OpenLog log;
    log.catalogSelector = 9;
    Message message(&log, 5, nullptr);
    message.object(0, "text");
    EXPECT_EQ(zantLogMsg(&log, 4, &message), 58u);
    EXPECT_EQ(message.catalogSelector, 0u);
    EXPECT_EQ(message.text, nullptr);
    EXPECT_NE(message.lis.first, nullptr);
    EXPECT_TRUE(records().empty());
}

TEST_F(DispatchTest, OtherTypesWithoutAFileAre57) {
    zantLogHandle handle = secureHandle();
    for (const uint32_t type : {0u, 1u, 2u, 3u, 4u, 6u}) {
        Message message(&handle, type, "x");
        EXPECT_EQ(zantLogMsg(&handle, 0, &message), 57u) << type;
    }
}

TEST_F(DispatchTest, SecureAuditWithoutEventFlagIsDelivered) {
    zantLogHandle handle = secureHandle();
    Message message(&handle, 5, "x");
    EXPECT_EQ(zantLogMsg(&handle, 0, &message), 0u);
}

TEST_F(DispatchTest, CopiesTheCatalogSelector) {
    OpenLog log;
    log.catalogSelector = 0x12345678;
    Message message(&log, 0, "x");
    zantLogSetDebugAttr(&message, "w", 1);
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_EQ(message.catalogSelector, 0x12345678u);
}

TEST_F(DispatchTest, RendersAPlainTextAndReleasesItsObject) {
    OpenLog log;
    Message message(&log, 1, nullptr);
    zantLogSetDiagAttr(&message, "who", 1);
    message.object(0, "disk %d of %s", 3, "rack");
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_STREQ(message.text, "disk 3 of rack");
    EXPECT_EQ(message.lis.first, nullptr);
    EXPECT_EQ(message.lis.argCount, 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,14:disk 3 of rack,3:who,1,(0|)");
}

TEST_F(DispatchTest, KeepsTheObjectOfACatalogMessage) {
    OpenLog log;
    Message message(&log, 1, nullptr);
    zantLogSetDiagAttr(&message, "who", 1);
    message.object(4711, "%d", 5);
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_EQ(message.text, nullptr);
    EXPECT_EQ(message.lis.textId, 4711u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,3:who,1,(1|i32:5|)");
}

TEST_F(DispatchTest, RecordWithTextKeepsBothTextAndObject) {
    OpenLog log;
    Message message(&log, 1, "given");
    zantLogSetDiagAttr(&message, "who", 1);
    message.object(0, "%d", 5);
    const zantLisArg *first = message.lis.first;
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_STREQ(message.text, "given");
    EXPECT_EQ(message.lis.first, first);
}

TEST_F(DispatchTest, EmptyTextCountsAsAText) {
    OpenLog log;
    Message message(&log, 1, "");
    zantLogSetDiagAttr(&message, "who", 1);
    message.object(0, "%d", 5);
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_STREQ(message.text, "");
    EXPECT_NE(message.lis.first, nullptr);
}

TEST_F(DispatchTest, TextThatCannotBeRenderedIsLoggedWithoutText) {
    OpenLog log;
    Message message(&log, 1, nullptr);
    zantLogSetDiagAttr(&message, "who", 1);
    message.object(0, "%ls", L"\x4E2D");
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    EXPECT_EQ(message.text, nullptr);
    EXPECT_EQ(message.lis.first, nullptr);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,3:who,1,(0|)");
}

TEST_F(DispatchTest, RecordWithNothingToSayIsWritten) {
    OpenLog log;
    Message message(&log, 0, nullptr);
    zantLogSetDebugAttr(&message, "", 6);
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,0:,6");
}

TEST_F(DispatchTest, WritersFailureIsTheResult) {
    OpenLog log;
    Message message(&log, 2, "x");
    zantLogSetAppAttr(&message, 5); // no such severity in files
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(DispatchTest, RunsInsideTheCommonLockOfItsCaller) {
    static const char label[] = "caller()";
    OpenLog log;
    Message message(&log, 0, "x");
    zantLogSetDebugAttr(&message, "w", 1);
    zantLockCommon(label);
    EXPECT_EQ(zantLogMsg(&log, 0, &message), 0u);
    zantUnlockCommon(label);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(DispatchTest, MissingLocalisationLibraryIsSilentSuccess) {
    OpenLog log;
    log.outputFlags = 3;
    testing::internal::CaptureStdout();
    EXPECT_EQ(logText(&log, "unseen"), 0u);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(DispatchTest, ThreadsOfOneHandleLoseNothing) {
    constexpr uint32_t kThreads = 4;
    constexpr uint32_t kEach = 100;
    OpenLog log;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (uint32_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&log] {
            for (uint32_t n = 0; n < kEach; ++n) {
                EXPECT_EQ(logText(&log, "text"), 0u);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(records().size(), kThreads * kEach);
    EXPECT_EQ(log.sequence, kThreads * kEach + 1);
}
