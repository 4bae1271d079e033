#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"

using namespace zantlog::test;

namespace {

// A secure handle at level 2.
struct SecureLog : zantLogHandle {
    SecureLog() : zantLogHandle{} {
        Configuration configuration;
        configuration.secureAuditLevel = 2;
        std::snprintf(configuration.eventSource.name, sizeof configuration.eventSource.name, "Application");
        result = zantLogSecureOpen(12, 3, 0, &configuration, this);
    }
    ~SecureLog() { zantLogClose(this); }
    SecureLog(const SecureLog &) = delete;
    SecureLog &operator=(const SecureLog &) = delete;

    uint32_t result;
};

class SecureAuditMessagesTest : public ProductTest {};

} // namespace

TEST_F(SecureAuditMessagesTest, RequiredArgumentsThatAreMissingGive3) {
    SecureLog log;
    ASSERT_EQ(log.result, 0u);
    zantLis none = {};
    EXPECT_EQ(zantLogSecureAuditMsg(nullptr, 1, "s", 0, 1, "x"), 3u);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 1, "s", 0, 1, nullptr), 3u);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 1, "s", 0, 0, "x"), 3u) << "a message id is required";
    EXPECT_EQ(secureAuditMsgV(nullptr, 1, "s", 0, 1, "x"), 3u);
    EXPECT_EQ(secureAuditMsgV(&log, 9, "s", 0, 0, "x"), 3u) << "before the level is looked at";
    EXPECT_EQ(zantLogSecureAuditMsgL(nullptr, 1, "s", 0, &none), 3u);
    EXPECT_EQ(zantLogSecureAuditMsgL(&log, 1, "s", 0, nullptr), 3u);
    EXPECT_EQ(log.sequence, 0u);
}

TEST_F(SecureAuditMessagesTest, MessagesGoToTheEventLogAndDrawNumbers) {
    SecureLog log;
    ASSERT_EQ(log.result, 0u);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 2, "mary", 0, 4711, "login from %s", "host"), 0u);
    EXPECT_EQ(secureAuditMsgV(&log, 1, nullptr, 1, 4711, "x"), 0u);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&log, 1, "mary", 0, &object), 0u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(log.sequence, 3u);
    EXPECT_TRUE(logNames().empty()) << "no file is written";
}

TEST_F(SecureAuditMessagesTest, AboveTheLevelNothingHappens) {
    SecureLog log;
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 3, "s", 0, 4711, "x"), 0u);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 3, "s", 0, 4711, "%n"), 0u);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&log, 3, "s", 0, &object), 0u);
    EXPECT_FALSE(object.isGone()) << "stays with the caller";
    EXPECT_EQ(log.sequence, 0u);
}

TEST_F(SecureAuditMessagesTest, LevelsHaveNoOtherBounds) {
    SecureLog log;
    zantLogSetSecureAuditLevel(&log, INT32_MAX);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, INT32_MAX, "s", 0, 4711, "x"), 0u);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, INT32_MIN, "s", 0, 4711, "x"), 0u);
    EXPECT_EQ(log.sequence, 2u);
}

TEST_F(SecureAuditMessagesTest, ThroughAFileHandleTheyGive58) {
    OpenLog log;
    zantLogSetSecureAuditLevel(&log, 2);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 2, "s", 0, 4711, "x"), 58u);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&log, 2, "s", 0, &object), 58u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 3, "s", 0, 4711, "x"), 0u) << "the level filter comes first";
    EXPECT_TRUE(records().empty());
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(SecureAuditMessagesTest, AMalformedFormatGives3) {
    SecureLog log;
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 1, "s", 0, 4711, "%n"), 3u);
    EXPECT_EQ(log.sequence, 0u);
}

TEST_F(SecureAuditMessagesTest, AFailingInitialisationLeavesTheObjectWithTheCaller) {
    SecureLog log;
    breakContext(&log);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogSecureAuditMsgL(&log, 1, "s", 0, &object), 3u);
    EXPECT_FALSE(object.isGone());
    EXPECT_TRUE(commonLockIsFree());
}
