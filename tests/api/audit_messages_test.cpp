#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"

using namespace zantlog::test;

namespace {

class AuditMessagesTest : public ProductTest {};

} // namespace

TEST_F(AuditMessagesTest, RequiredArgumentsThatAreMissingGive3) {
    OpenLog log;
    zantLis none = {};
    EXPECT_EQ(zantLogAuditMsg(nullptr, 0, "s", 0, 1, "x"), 3u);
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 1, nullptr), 3u);
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 0, "x"), 3u) << "a message id is required";
    EXPECT_EQ(zantLogAuditMsg2(nullptr, 1, 0, "s", 0, 1, "x"), 3u);
    EXPECT_EQ(zantLogAuditMsg2(&log, 1, 0, "s", 0, 0, "x"), 3u);
    EXPECT_EQ(zantLogAuditMsg2(&log, 1, 0, "s", 0, 1, nullptr), 3u);
    EXPECT_EQ(auditMsg2V(&log, 1, 0, "s", 0, 0, "x"), 3u);
    EXPECT_EQ(zantLogAuditMsg2L(nullptr, 1, 0, "s", 0, &none), 3u);
    EXPECT_EQ(zantLogAuditMsg2L(&log, 1, 0, "s", 0, nullptr), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(AuditMessagesTest, SubjectAndOutcomeAreWritten) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "mary", 5, 4711, "login from %s", "host"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].type, 4u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,4:mary,5,(1|S4:host|)");
}

TEST_F(AuditMessagesTest, ANullSubjectIsEmpty) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg(&log, 0, nullptr, 0, 4711, "%d", 1), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,0:,0,(1|i32:1|)");
}

TEST_F(AuditMessagesTest, TheOutcomeIsWrittenSigned) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0x80000000u, 4711, ""), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:s,-2147483648,(0|)");
}

TEST_F(AuditMessagesTest, NumbersOfTheForms) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg2(&log, 70, 0, "s", 0, 1, "a"), 0u);
    EXPECT_EQ(auditMsg2V(&log, 71, 0, "s", 0, 1, "b"), 0u);
    GivenObject object(1, "%d", 1);
    EXPECT_EQ(zantLogAuditMsg2L(&log, 72, 0, "s", 0, &object), 0u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(zantLogAuditMsg2(&log, 73, 16, "s", 0, 1, "c"), 0u);
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 1, "d"), 0u);
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[0].sequence, 70u);
    EXPECT_EQ(all[1].sequence, 71u);
    EXPECT_EQ(all[2].sequence, 72u);
    EXPECT_EQ(all[3].sequence, 4u);
    EXPECT_EQ(all[4].sequence, 5u);
}

TEST_F(AuditMessagesTest, Flag8IsIgnored) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg(&log, 8, "s", 0, 4711, "%d", 1), 0u);
    GivenObject object(4711, "%d", 2);
    EXPECT_EQ(zantLogAuditMsg2L(&log, 1, 8, "s", 0, &object), 0u);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:s,0,(1|i32:1|)");
    EXPECT_EQ(records()[1].rest, "0:,0:,1:s,0,(1|i32:2|)");
}

TEST_F(AuditMessagesTest, LFormRendersAPlainObject) {
    OpenLog log;
    GivenObject object(0, "plain %d", 2);
    EXPECT_EQ(zantLogAuditMsg2L(&log, 1, 0, "s", 0, &object), 0u);
    EXPECT_TRUE(object.isGone());
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,7:plain 2,1:s,0,(0|)");
}

TEST_F(AuditMessagesTest, AMalformedFormatGives3) {
    OpenLog log;
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 4711, "%n"), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(AuditMessagesTest, AFailingInitialisationReleasesTheObject) {
    OpenLog log;
    breakContext(&log);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogAuditMsg2L(&log, 0, 0, "s", 0, &object), 3u);
    EXPECT_TRUE(object.isGone());
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(AuditMessagesTest, LevelsDoNotFilter) {
    OpenLog log;
    zantLogSetDebugLevel(&log, 0);
    zantLogSetDiagLevel(&log, 0);
    zantLogSetSecureAuditLevel(&log, -5);
    EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 4711, "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}
