#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "api/sinks.h"
#include "tests/api/event_sink_fixture.h"
#include "tests/api/product_fixture.h"
#include "tests/api/recording_system.h"
#include "tests/support/wide_text.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

class ApplicationEventTest : public ProductTest {
protected:
    ApplicationEventTest() { recording = {}; }

    static uint32_t log(zantLogHandle &handle, int32_t severity, uint32_t msgid = 4711) {
        Message message(&handle, 2, nullptr);
        message.object(msgid, "%d", 5);
        zantLogSetAppAttrEx(&message, "who", severity);
        return zantLogMsg(&handle, 4, &message);
    }
};

} // namespace

TEST_F(ApplicationEventTest, SeverityGivesTheEventType) {
    const std::vector<std::pair<int32_t, uint16_t>> rows = {{0, 4}, {1, 2}, {2, 1}, {3, 1},
                                                            {4, 1}, {5, 4}, {-1, 4}};
    OpenLog handle;
    for (const auto &[severity, type] : rows) {
        recording = {};
        log(handle, severity);
        ASSERT_EQ(recording.events.size(), 1u) << severity;
        EXPECT_EQ(recording.events[0].type, type) << severity;
    }
}

TEST_F(ApplicationEventTest, FailingReportDoesNotChangeTheResult) {
    recording.reportSucceeds = false;
    OpenLog handle;
    EXPECT_EQ(log(handle, 1), 0u);
    EXPECT_EQ(recording.events.size(), 1u);
    recording.formatResult = 9;
    EXPECT_EQ(log(handle, 1, 0), 0u);
    EXPECT_EQ(recording.events.size(), 2u);
    EXPECT_EQ(records().size(), 2u);
}

TEST_F(ApplicationEventTest, IsReportedThoughTheFileFailed) {
    OpenLog handle;
    EXPECT_EQ(log(handle, 5), 1u); // no such severity in files
    EXPECT_EQ(recording.events.size(), 1u);
}

TEST_F(ApplicationEventTest, ConsoleResultStandsBesideAnEvent) {
    recording.formatResult = 9;
    OpenLog handle;
    Message message(&handle, 2, nullptr);
    message.object(4711, "%d", 5);
    EXPECT_EQ(zantLogMsg(&handle, 5, &message), 9u);
    EXPECT_EQ(recording.events.size(), 1u);
}

TEST_F(ApplicationEventTest, OtherTypesAreNeverReported) {
    OpenLog handle;
    handle.outputFlags = 4;
    for (const uint32_t type : {0u, 1u, 4u}) {
        Message message(&handle, type, "text");
        message.slot.level = 1;
        EXPECT_EQ(zantLogMsg(&handle, 4, &message), 0u);
    }
    EXPECT_TRUE(recording.events.empty());
    EXPECT_EQ(records().size(), 3u);
}

TEST_F(ApplicationEventTest, NothingIsReportedWithoutTheFlag) {
    OpenLog handle;
    EXPECT_EQ(logText(&handle, "text"), 0u);
    EXPECT_TRUE(recording.events.empty());
}

TEST_F(ApplicationEventTest, OpenUsesTheConfiguredSource) {
    setting("3", "LogToOslog", "true");
    setting("3", "NtEventLogSourceName", "Scanner");
    setting("3", "NtEventLogCategory", "7");
    {
        OpenLog handle;
        ASSERT_EQ(handle.result, 0u);
        EXPECT_EQ(recording.openedSources, std::vector<std::string>{"Scanner"});
        EXPECT_EQ(logText(&handle, "text"), 0u);
        ASSERT_EQ(recording.events.size(), 1u);
        EXPECT_EQ(recording.events[0].log, handle.eventLog.handle);
        EXPECT_EQ(recording.events[0].category, 7u);
    }
    EXPECT_EQ(recording.closedLogs, 1);
}

TEST_F(ApplicationEventTest, OpenWithoutAnEventLogIs22AndUsable) {
    recording.eventLogOpens = false;
    setting("3", "LogToOslog", "true");
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 22u);
    EXPECT_EQ(handle.eventLog.handle, nullptr);
    EXPECT_EQ(logText(&handle, "text"), 0u);
    EXPECT_EQ(records().size(), 1u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
    EXPECT_EQ(recording.closedLogs, 0);
}

TEST_F(ApplicationEventTest, EventLogIsNotOpenedWhenTheFileCouldNotBe) {
    setting("3", "LogToOslog", "true");
    removeSetting("Default", "LogDirectory");
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 53u);
    EXPECT_TRUE(recording.openedSources.empty());
    EXPECT_EQ(zantLogClose(&handle), 3u);
}

TEST_F(EventSinkTest, SecureOpenWithoutAnEventLogIs22AndOpen) {
    recording.eventLogOpens = false;
    EXPECT_EQ(zantLogSecureOpen(12, 3, 0, &cfg_, &handle_), 22u);
    EXPECT_EQ(handle_.eventLog.handle, nullptr);
    EXPECT_EQ(handle_.eventLog.category, 0xFFFEu);
    EXPECT_EQ(handle_.outputFlags, 4u);
    EXPECT_NE(handle_.secureConfig, nullptr);
}

TEST_F(EventSinkTest, OutcomeGivesTheEventType) {
    open();
    for (const auto &[outcome, type] :
         {std::pair<uint32_t, uint16_t>{0, 8}, {1, 16}, {3, 16}, {0xFFFFFFFF, 16}}) {
        recording = {};
        SecureMessage message(&handle_);
        message.object(4711, "%d", 5);
        message.outcome = outcome;
        EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
        EXPECT_EQ(event().type, type);
        EXPECT_EQ(event().category, 0xFFFEu);
        EXPECT_EQ(event().id, 4711u);
        EXPECT_EQ(event().log, handle_.eventLog.handle);
    }
}

TEST_F(EventSinkTest, FailingReportIsMinusOne) {
    open();
    recording.reportSucceeds = false;
    SecureMessage message(&handle_);
    message.object(4711, "%d", 5);
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), kMinusOne);
}

TEST_F(EventSinkTest, ReportsResultReplacesTheConsoles) {
    open();
    recording.formatResult = 9;
    SecureMessage message(&handle_);
    message.object(4711, "%d", 5);
    EXPECT_EQ(zantLogMsg(&handle_, 1, &message), 0u);
    EXPECT_EQ(recording.formats.size(), 1u);
}

TEST_F(EventSinkTest, CatalogMessageWithoutArgumentsHasNoStrings) {
    open();
    SecureMessage message(&handle_);
    message.lis.textId = 4711;
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().id, 4711u);
    EXPECT_EQ(event().strings, Strings{});
    EXPECT_TRUE(recording.formats.empty());
}

TEST_F(EventSinkTest, ArgumentsAreTheInsertionStrings) {
    open();
    SecureMessage message(&handle_);
    message.object(4711, "%d %s %p", 5, "disk0", reinterpret_cast<void *>(0x1f));
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().strings, (Strings{L"5", L"disk0", L"0x1f"}));
}

TEST_F(EventSinkTest, ArgumentThatCannotBeConvertedLeavesItsPlaceUnset) {
    open();
    SecureMessage message(&handle_);
    message.object(4711, "%d %s %d", 5, "", 6);
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().strings, (Strings{L"5", L"(null)", L"6"}));
}

TEST_F(EventSinkTest, CountDecidesHowManyStringsThereAre) {
    open();
    for (const uint32_t count : {1u, 2u, 4u}) {
        recording = {};
        SecureMessage message(&handle_);
        message.object(4711, "%d %d", 5, 6);
        message.lis.argCount = count;
        EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
        Strings expected = {L"5", L"6", L"(null)", L"(null)"};
        expected.resize(count);
        EXPECT_EQ(event().strings, expected);
    }
}

TEST_F(EventSinkTest, MoreArgumentsThanAnEventHoldsAreCut) {
    open(64);
    SecureMessage message(&handle_);
    message.object(4711, "%d", 5);
    message.lis.argCount = 0xFFFFFFFF;
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    ASSERT_EQ(event().strings.size(), 65535u);
    EXPECT_EQ(event().strings[0], L"5");
    EXPECT_EQ(event().strings[65534].substr(0, 5), L"12,3,");
}

TEST_F(EventSinkTest, SecurePrefixIsTheLastString) {
    open(64);
    SecureMessage message(&handle_);
    message.object(4711, "%d %d %d", 1, 2, 3);
    char token[] = "job-7";
    message.contextToken = token;
    message.outcome = 0xFFFFFFFE;
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().strings, (Strings{L"1", L"2", L"3", L"12,3,57,4242,777,job-7,admin,-2 "}));
}

TEST_F(EventSinkTest, SecurePrefixIsTheOnlyStringOfAMessageWithoutArguments) {
    open(64);
    SecureMessage message(&handle_);
    message.lis.textId = 4711;
    message.who = nullptr;
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().strings, Strings{L"12,3,57,4242,777,(null),(null),0 "});
}

TEST_F(EventSinkTest, PrefixFollowsTheHandlesFlagNotTheCalls) {
    open();
    SecureMessage message(&handle_);
    message.object(4711, "%d", 1);
    EXPECT_EQ(zantLogMsg(&handle_, 64, &message), 0u);
    EXPECT_EQ(event().strings, Strings{L"1"});
}

TEST_F(EventSinkTest, PrefixShowsIdsAsUnsigned) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    handle.outputFlags = 64 | 4;
    SecureMessage message(&handle);
    message.lis.textId = 1;
    message.sequence = 0xFFFFFFFF;
    message.processId = 0x80000000;
    EXPECT_EQ(zantLogMsg(&handle, 0, &message), 0u);
    EXPECT_EQ(event().strings, Strings{L"0,0,4294967295,2147483648,777,(null),admin,0 "});
}

TEST_F(EventSinkTest, PrefixIsCutAt2047Characters) {
    open(64);
    SecureMessage message(&handle_);
    message.lis.textId = 1;
    const std::string subject(5000, 's');
    message.who = const_cast<char *>(subject.c_str());
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    ASSERT_EQ(event().strings.size(), 1u);
    EXPECT_EQ(event().strings[0], L"12,3,57,4242,777,(null)," + WideText(2047 - 24, L's'));
}

TEST_F(EventSinkTest, ReportRefusesNullArguments) {
    open();
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantlog::reportMessage(nullptr, &message), -3);
    EXPECT_EQ(zantlog::reportMessage(&handle_, nullptr), -3);
    EXPECT_TRUE(recording.events.empty());
}

TEST_F(EventSinkTest, ContextReportsThroughItsParentsLog) {
    open(64);
    handle_.originatorId = 3;
    zantLogHandle context = {};
    EXPECT_EQ(zantLogCreateContext(&handle_, &context, "job-7", 0, "x"), 57u); // a secure handle has no file
    SecureMessage message(&context);
    message.lis.textId = 1;
    EXPECT_EQ(zantLogMsg(&context, 0, &message), 0u);
    EXPECT_EQ(event().log, handle_.eventLog.handle);
    EXPECT_EQ(event().strings, Strings{L"12,3,57,4242,777,(null),admin,0 "});
    zantLogDestroyContext(&context);
}
