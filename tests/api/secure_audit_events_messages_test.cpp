// What the entry points of secure-audit messages make of their arguments, seen in the event log.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"
#include "tests/api/recording_system.h"
#include "tests/support/wide_text.h"

using namespace zantlog::test;

namespace {

class SecureAuditEventsTest : public testing::Test {
protected:
    SecureAuditEventsTest() {
        recording = {};
        Configuration configuration;
        std::strcpy(configuration.eventSource.name, "Scanner");
        configuration.secureAuditLevel = 6;
        configuration.outputFlags = 64;
        EXPECT_EQ(zantLogSecureOpen(12, 3, 0, &configuration, &handle_), 0u);
    }
    ~SecureAuditEventsTest() override { zantLogClose(&handle_); }

    zantLogHandle handle_ = {};
};

} // namespace

TEST_F(SecureAuditEventsTest, EveryMessageCarriesNumber0) {
    handle_.sequence = 41;
    EXPECT_EQ(zantLogSecureAuditMsg(&handle_, 1, "mary", 5, 4711, "%s", "host"), 0u);
    EXPECT_EQ(zantLogSecureAuditMsg(&handle_, 1, "mary", 5, 4711, "%s", "host"), 0u);
    EXPECT_EQ(handle_.sequence, 43u);
    ASSERT_EQ(recording.events.size(), 2u);
    const WideText who = wideText(std::to_string(getPID())) + L"," + wideText(std::to_string(getTID()));
    for (const ReportedEvent &event : recording.events) {
        EXPECT_EQ(event.type, 16);
        EXPECT_EQ(event.id, 4711u);
        ASSERT_EQ(event.strings.size(), 2u);
        EXPECT_TRUE(event.strings[0] == L"host");
        EXPECT_TRUE(event.strings[1] == L"12,3,0," + who + L",(null),mary,5 ");
    }
}

TEST_F(SecureAuditEventsTest, TheHandlesFlagsDoNotKeepMessagesFromTheEventLog) {
    handle_.outputFlags = 0;
    EXPECT_EQ(secureAuditMsgV(&handle_, 1, "s", 0, 4711, "x"), 0u);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&handle_, 1, "s", 0, &object), 0u);
    EXPECT_TRUE(object.isGone());
    ASSERT_EQ(recording.events.size(), 2u);
    EXPECT_EQ(recording.events[0].type, 8);
}

TEST_F(SecureAuditEventsTest, AMessageAboveTheLevelIsNotReported) {
    EXPECT_EQ(zantLogSecureAuditMsg(&handle_, 7, "s", 0, 4711, "x"), 0u);
    EXPECT_TRUE(recording.events.empty());
}

TEST_F(SecureAuditEventsTest, AReportThatFailsIsTheResultAndReleasesTheObject) {
    recording.reportSucceeds = false;
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&handle_, 1, "s", 0, &object), UINT32_MAX);
    EXPECT_TRUE(object.isGone());
}
