#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"

using namespace zantlog::test;

namespace {

class DiagnosticMessagesTest : public ProductTest {
protected:
    DiagnosticMessagesTest() { setting("Default", "DiagnosticLevel", "2"); }
};

} // namespace

TEST_F(DiagnosticMessagesTest, RequiredArgumentsThatAreNullGive3) {
    OpenLog log;
    zantLis none = {};
    EXPECT_EQ(zantLogDiagMsg(nullptr, 0, 1, "w", 0, "x"), 3u);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 1, nullptr, 0, "x"), 3u);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 1, "w", 0, nullptr), 3u);
    EXPECT_EQ(zantLogDiagMsg2(nullptr, 1, 0, 1, "w", 0, "x"), 3u);
    EXPECT_EQ(zantLogDiagMsg2(&log, 1, 0, 1, nullptr, 0, "x"), 3u);
    EXPECT_EQ(diagMsg2V(&log, 1, 0, 1, "w", 0, nullptr), 3u);
    EXPECT_EQ(zantLogDiagMsg2L(nullptr, 1, 0, 1, "w", "x", &none), 3u);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 1, 0, 1, nullptr, "x", &none), 3u);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 1, 0, 1, "w", "x", nullptr), 3u);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 1, 8, 1, "w", nullptr, &none), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(DiagnosticMessagesTest, NullsAreRefusedBeforeTheLevelIsLookedAt) {
    OpenLog log;
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 6, nullptr, 0, "x"), 3u);
    zantLis none = {};
    EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 8, 6, "w", nullptr, &none), 3u);
}

TEST_F(DiagnosticMessagesTest, AboveTheLevelNothingIsWritten) {
    OpenLog log;
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 3, "w", 0, "x"), 0u);
    EXPECT_EQ(zantLogDiagMsg2(&log, 1, 0, 3, "w", 4711, "%d", 1), 0u);
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(log.sequence, 1u) << "no number is drawn";
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 2, "w", 0, "x"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].type, 1u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,1:x,1:w,2,(0|)");
}

TEST_F(DiagnosticMessagesTest, AMalformedFormatThatIsFilteredOutIsNoFailure) {
    OpenLog log;
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 3, "w", 4711, "%n"), 0u);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 2, "w", 4711, "%n"), 3u);
}

TEST_F(DiagnosticMessagesTest, AFilteredObjectStaysWithTheCaller) {
    OpenLog log;
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 0, 3, "w", nullptr, &object), 0u);
    EXPECT_FALSE(object.isGone());
    EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 0, 2, "w", nullptr, &object), 0u);
    EXPECT_TRUE(object.isGone());
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:w,2,(1|i32:1|)");
}

TEST_F(DiagnosticMessagesTest, LevelsBelow1PassTheFilterAndGive1) {
    OpenLog log;
    zantLogSetDiagLevel(&log, 0);
    for (const int32_t level : {0, -1, INT32_MIN}) {
        GivenObject object(4711, "%d", 1);
        EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 0, level, "w", nullptr, &object), 1u) << level;
        EXPECT_TRUE(object.isGone()) << "released by the library: " << level;
        EXPECT_EQ(zantLogDiagMsg(&log, 0, level, "w", 0, "x"), 1u) << level;
    }
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(log.sequence, 7u) << "numbers are drawn";
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(DiagnosticMessagesTest, LevelsAbove6Give1WhenTheHandleLetsThemPass) {
    OpenLog log;
    zantLogSetDiagLevel(&log, 10);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 7, "w", 0, "x"), 1u);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 6, "w", 0, "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(DiagnosticMessagesTest, NumbersOfTheForms) {
    OpenLog log;
    zantLis none = {};
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 1, "w", 0, "a"), 0u);
    EXPECT_EQ(zantLogDiagMsg2(&log, 70, 0, 1, "w", 0, "b"), 0u);
    EXPECT_EQ(diagMsg2V(&log, 71, 0, 1, "w", 0, "c"), 0u);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 72, 0, 1, "w", "d", &none), 0u);
    EXPECT_EQ(zantLogDiagMsg2(&log, 73, 16, 1, "w", 0, "e"), 0u);
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[0].sequence, 1u);
    EXPECT_EQ(all[1].sequence, 70u);
    EXPECT_EQ(all[2].sequence, 71u);
    EXPECT_EQ(all[3].sequence, 72u);
    EXPECT_EQ(all[4].sequence, 5u);
}

TEST_F(DiagnosticMessagesTest, CatalogMessagesKeepTheirArguments) {
    OpenLog log;
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 1, "w", 4711, "%d and %s", 5, "x"), 0u);
    EXPECT_EQ(zantLogDiagMsg(&log, 8, 1, "w", 4711, "%d and %s", 5, "x"), 0u);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:w,1,(2|i32:5|S1:x|)");
    EXPECT_EQ(records()[1].rest, "0:,7:5 and x,1:w,1,(2|i32:5|S1:x|)");
}

TEST_F(DiagnosticMessagesTest, VFormSeesALevelThatTheStoreHasChanged) {
    setting("Default", "DynaReloadInSec", "1");
    OpenLog log;
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 3, "w", 0, "before"), 0u);
    setting("Default", "DiagnosticLevel", "3");
    log.lastReloadTime -= 100;
    zantLis none = {};
    EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 0, 3, "w", "L form", &none), 0u);
    EXPECT_TRUE(records().empty()) << "the L form does not reload";
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 3, "w", 0, "after"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,5:after,1:w,3,(0|)");
}

TEST_F(DiagnosticMessagesTest, AFailingInitialisationReleasesTheObject) {
    OpenLog log;
    breakContext(&log);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogDiagMsg2L(&log, 0, 0, 1, "w", "text", &object), 3u);
    EXPECT_TRUE(object.isGone());
    EXPECT_TRUE(commonLockIsFree());
}
