#include <string>

#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"

using namespace zantlog::test;

namespace {

class DebugMessagesTest : public ProductTest {
protected:
    DebugMessagesTest() { setting("Default", "DebugLevel", "4"); }
};

} // namespace

TEST_F(DebugMessagesTest, RequiredArgumentsThatAreNullGive3) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(nullptr, 0, 1, "w", "x"), 3u);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, nullptr, "x"), 3u);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", nullptr), 3u);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 9, nullptr, "x"), 3u) << "before the level is looked at";
    EXPECT_EQ(zantLogDebugMsg2(nullptr, 1, 0, 1, "w", "x"), 3u);
    EXPECT_EQ(zantLogDebugMsg2(&log, 1, 0, 1, nullptr, "x"), 3u);
    EXPECT_EQ(debugMsg2V(&log, 1, 0, 1, "w", nullptr), 3u);
    EXPECT_EQ(zantLogFormattedDebugMsg(nullptr, 0, 1, "w", "x"), 3u);
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, nullptr, "x"), 3u);
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, "w", nullptr), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(DebugMessagesTest, TextWhoAndLevelAreWrittenAndNoArguments) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 4, "scanner", "%d of %s", 3, "rack"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].type, 0u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,9:3 of rack,7:scanner,4");
}

TEST_F(DebugMessagesTest, AboveTheLevelNothingIsWritten) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 5, "w", "x"), 0u);
    EXPECT_EQ(zantLogDebugMsg2(&log, 1, 0, 5, "w", "x"), 0u);
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 4, "w", "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(DebugMessagesTest, LevelsOutOf1To6Give1) {
    OpenLog log;
    zantLogSetDebugLevel(&log, 10);
    for (const int32_t level : {9, 7, 0, -1, INT32_MIN}) {
        EXPECT_EQ(zantLogDebugMsg(&log, 0, level, "w", "x"), 1u) << level;
        EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, level, "w", "x"), 1u) << level;
    }
    EXPECT_TRUE(records().empty());
    EXPECT_EQ(log.sequence, 11u) << "numbers are drawn";
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(DebugMessagesTest, NumbersOfTheForms) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg2(&log, 70, 0, 1, "w", "a"), 0u);
    EXPECT_EQ(debugMsg2V(&log, 71, 0, 1, "w", "b"), 0u);
    EXPECT_EQ(zantLogDebugMsg2(&log, 72, 16, 1, "w", "c"), 0u);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", "d"), 0u);
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, "w", "e"), 0u);
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[0].sequence, 70u);
    EXPECT_EQ(all[1].sequence, 71u);
    EXPECT_EQ(all[2].sequence, 3u);
    EXPECT_EQ(all[3].sequence, 4u);
    EXPECT_EQ(all[4].sequence, 5u);
}

TEST_F(DebugMessagesTest, FormattedMessagesAreNotFiltered) {
    OpenLog log;
    zantLogSetDebugLevel(&log, 0);
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 6, "w", "x"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,1:x,1:w,6");
}

TEST_F(DebugMessagesTest, FormattedTextsAreNoFormats) {
    OpenLog log;
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, "w", "100 %n %s"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,9:100 %n %s,1:w,1");
}

TEST_F(DebugMessagesTest, AMalformedFormatLogsNoText) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", "%n"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:w,1");
}

TEST_F(DebugMessagesTest, Flag8ChangesNothing) {
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(&log, 8, 1, "w", ""), 0u);
    EXPECT_EQ(zantLogDebugMsg(&log, 8, 1, "w", "x"), 0u);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:w,1");
    EXPECT_EQ(records()[1].rest, "0:,1:x,1:w,1");
}

TEST_F(DebugMessagesTest, ALevelThatTheStoreHasChangedIsSeen) {
    setting("Default", "DynaReloadInSec", "1");
    OpenLog log;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 5, "w", "before"), 0u);
    setting("Default", "DebugLevel", "5");
    log.lastReloadTime -= 100;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 5, "w", "after"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,5:after,1:w,5");
}

TEST_F(DebugMessagesTest, FormattedMessagesDoNotReload) {
    setting("Default", "DynaReloadInSec", "1");
    OpenLog log;
    setting("Default", "DebugLevel", "6");
    log.lastReloadTime -= 100;
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, "w", "x"), 0u);
    EXPECT_EQ(log.debugLevel, 4);
}

TEST_F(DebugMessagesTest, AFailingInitialisationIsTheResult) {
    OpenLog log;
    breakContext(&log);
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", "x"), 3u);
    EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 1, "w", "x"), 3u);
    EXPECT_TRUE(commonLockIsFree());
    EXPECT_TRUE(records().empty());
}

TEST_F(DebugMessagesTest, LongTextsAreWhole) {
    OpenLog log;
    const std::string text(70000, 'y');
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", "%s", text.c_str()), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,70000:" + text + ",1:w,1");
}
