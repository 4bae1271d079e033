#include <string>

#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"

using namespace zantlog::test;

namespace {

class ApplicationMessagesTest : public ProductTest {};

} // namespace

TEST_F(ApplicationMessagesTest, RequiredArgumentsThatAreNullGive3) {
    OpenLog log;
    zantLis none = {};
    EXPECT_EQ(zantLogAppMsg(nullptr, 0, 0, 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, nullptr), 3u);
    EXPECT_EQ(zantLogAppMsgEx(nullptr, 0, 0, "w", 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsgEx(&log, 0, 0, nullptr, 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsgEx(&log, 0, 0, "w", 0, nullptr), 3u);
    EXPECT_EQ(zantLogAppMsg2(nullptr, 1, 0, 0, 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsg2(&log, 1, 0, 0, 0, nullptr), 3u);
    EXPECT_EQ(zantLogAppMsg2Ex(nullptr, 1, 0, 0, "w", 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsg2Ex(&log, 1, 0, 0, nullptr, 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsg2Ex(&log, 1, 0, 0, "w", 0, nullptr), 3u);
    EXPECT_EQ(appMsg2V(nullptr, 1, 0, 0, 0, "x"), 3u);
    EXPECT_EQ(appMsg2VEx(&log, 1, 0, 0, nullptr, 0, "x"), 3u);
    EXPECT_EQ(zantLogAppMsg2L(nullptr, 1, 0, 0, "x", &none), 3u);
    EXPECT_EQ(zantLogAppMsg2L(&log, 1, 0, 0, "x", nullptr), 3u);
    EXPECT_EQ(zantLogAppMsg2LEx(nullptr, 1, 0, 0, "w", "x", &none), 3u);
    EXPECT_EQ(zantLogAppMsg2LEx(&log, 1, 0, 0, nullptr, "x", &none), 3u);
    EXPECT_EQ(zantLogAppMsg2LEx(&log, 1, 0, 0, "w", "x", nullptr), 3u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
}

TEST_F(ApplicationMessagesTest, ShortFormUsesTheAutomaticNumberAndNoWho) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 2, 0, "disk %s is %d %% full", "C:", 93), 0u);
    EXPECT_EQ(zantLogAppMsg(&log, 0, 3, 0, "again"), 0u);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].type, 2u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,20:disk C: is 93 % full,0:,2,(0|)");
    EXPECT_EQ(records()[1].sequence, 2u);
    EXPECT_EQ(records()[1].rest, "0:,5:again,0:,3,(0|)");
}

TEST_F(ApplicationMessagesTest, ExFormCarriesWho) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsgEx(&log, 0, 1, "scanner", 0, "%s", "text"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,4:text,7:scanner,1,(0|)");
}

TEST_F(ApplicationMessagesTest, FormsWithANumberStampItAndStillDrawOne) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg2(&log, 77, 0, 0, 0, "a"), 0u);
    EXPECT_EQ(zantLogAppMsg2Ex(&log, 78, 0, 0, "w", 0, "b"), 0u);
    EXPECT_EQ(appMsg2V(&log, 0, 0, 0, 0, "c"), 0u);
    EXPECT_EQ(appMsg2VEx(&log, UINT32_MAX, 0, 0, "w", 0, "d"), 0u);
    EXPECT_EQ(log.sequence, 5u);
    ASSERT_EQ(records().size(), 4u);
    EXPECT_EQ(records()[0].sequence, 77u);
    EXPECT_EQ(records()[0].rest, "0:,1:a,0:,0,(0|)");
    EXPECT_EQ(records()[1].sequence, 78u);
    EXPECT_EQ(records()[1].rest, "0:,1:b,1:w,0,(0|)");
    EXPECT_EQ(records()[2].sequence, 0u);
    EXPECT_EQ(records()[2].rest, "0:,1:c,0:,0,(0|)");
    EXPECT_EQ(records()[3].sequence, UINT32_MAX);
}

TEST_F(ApplicationMessagesTest, Flag16KeepsTheAutomaticNumber) {
    OpenLog log;
    zantLis none = {};
    EXPECT_EQ(zantLogAppMsg2(&log, 77, 16, 0, 0, "a"), 0u);
    EXPECT_EQ(zantLogAppMsg2L(&log, 77, 16, 0, "b", &none), 0u);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[1].sequence, 2u);
}

TEST_F(ApplicationMessagesTest, CatalogMessageKeepsItsArgumentsAndNoText) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "disk %s is %u full", "C:", 93u), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,0:,0,(2|S2:C:|u32:93|)");
}

TEST_F(ApplicationMessagesTest, Flag8RendersTheTextAsWell) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 8, 0, 4711, "disk %s is %u full", "C:", 93u), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,18:disk C: is 93 full,0:,0,(2|S2:C:|u32:93|)");
}

TEST_F(ApplicationMessagesTest, Flag8WithoutATextGives3) {
    OpenLog log;
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogAppMsg2L(&log, 0, 8, 0, nullptr, &object), 3u);
    EXPECT_FALSE(object.isGone()) << "a refused object stays with the caller";
    EXPECT_EQ(zantLogAppMsg(&log, 8, 0, 4711, ""), 3u) << "an empty format renders to nothing";
    EXPECT_EQ(zantLogAppMsg2L(&log, 0, 8, 0, "text", &object), 0u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(log.sequence, 2u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ApplicationMessagesTest, AnEmptyFormatLogsAnEmptyText) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, ""), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,0:,0,(0|)");
}

TEST_F(ApplicationMessagesTest, AMalformedFormatOfACatalogMessageGives3AndWritesNothing) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "%n"), 3u);
    EXPECT_EQ(zantLogAppMsg(&log, 8, 0, 4711, "%d %", 1), 3u);
    EXPECT_EQ(log.sequence, 1u) << "no number is drawn";
    EXPECT_TRUE(records().empty());
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(ApplicationMessagesTest, AMalformedFormatOfATextLogsNoText) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, "%d %", 1), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,0:,0:,0,(0|)");
    EXPECT_EQ(zantLogAppMsg(&log, 8, 0, 0, "%d %", 1), 3u) << "a text was required";
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ApplicationMessagesTest, LFormTakesTheObjectOver) {
    OpenLog log;
    GivenObject object(4711, "%d%s", 5, "x");
    EXPECT_EQ(zantLogAppMsg2LEx(&log, 9, 0, 4, "who", nullptr, &object), 0u);
    EXPECT_TRUE(object.isGone());
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].sequence, 9u);
    EXPECT_EQ(records()[0].rest, "0:,0:,3:who,4,(2|i32:5|S1:x|)");
}

TEST_F(ApplicationMessagesTest, LFormRendersAPlainObjectWithoutText) {
    OpenLog log;
    GivenObject object(0, "disk %d", 5);
    EXPECT_EQ(zantLogAppMsg2L(&log, 9, 0, 0, nullptr, &object), 0u);
    EXPECT_TRUE(object.isGone());
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,6:disk 5,0:,0,(0|)");
}

TEST_F(ApplicationMessagesTest, LFormCopiesTheText) {
    OpenLog log;
    zantLis none = {};
    std::string text = "text";
    EXPECT_EQ(zantLogAppMsg2L(&log, 9, 0, 0, text.c_str(), &none), 0u);
    EXPECT_EQ(text, "text");
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,4:text,0:,0,(0|)");
}

TEST_F(ApplicationMessagesTest, AFailingInitialisationReleasesTheObject) {
    OpenLog log;
    breakContext(&log);
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogAppMsg2L(&log, 0, 0, 0, "text", &object), 3u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "%d", 1), 3u);
    EXPECT_EQ(log.sequence, 3u) << "numbers are drawn all the same";
    EXPECT_TRUE(commonLockIsFree());
    EXPECT_TRUE(records().empty());
}

TEST_F(ApplicationMessagesTest, ASeverityThatCannotBeWrittenIs1) {
    OpenLog log;
    for (const int32_t severity : {5, -1, INT32_MAX, INT32_MIN}) {
        GivenObject object(4711, "%d", 1);
        EXPECT_EQ(zantLogAppMsg2L(&log, 0, 0, severity, "text", &object), 1u) << severity;
        EXPECT_TRUE(object.isGone()) << severity;
    }
    EXPECT_TRUE(records().empty());
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(ApplicationMessagesTest, LevelsDoNotFilter) {
    OpenLog log;
    zantLogSetDebugLevel(&log, 0);
    zantLogSetDiagLevel(&log, 0);
    EXPECT_EQ(zantLogAppMsg(&log, 0, 4, 0, "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ApplicationMessagesTest, AMessageOffSwitchInTheConfigurationFiltersNothing) {
    setting("Default", "AppMsgLogging", "OFF");
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ApplicationMessagesTest, AHandleWithoutAFileGives57) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    GivenObject object(4711, "%d", 1);
    EXPECT_EQ(zantLogAppMsg2L(&handle, 0, 0, 0, "x", &object), 57u);
    EXPECT_TRUE(object.isGone());
    EXPECT_EQ(zantLogAppMsg(&handle, 0, 0, 0, "x"), 57u);
}

TEST_F(ApplicationMessagesTest, TheSelectorOfTheHandleSaysThatTextsAreUtf8) {
    OpenLog log;
    log.catalogSelector = 1;
    EXPECT_EQ(zantLogAppMsgEx(&log, 0, 0, "\xE2\x82\xAC", 0, "%s", "\xC3\xA9"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,2:\xC3\xA9,3:\xE2\x82\xAC,0,(0|)");
}

TEST_F(ApplicationMessagesTest, LongTextsAreWhole) {
    OpenLog log;
    const std::string text(100000, 'x');
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, "<%s>", text.c_str()), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,100002:<" + text + ">,0:,0,(0|)");
}

TEST_F(ApplicationMessagesTest, LineFeedsStayOneRecord) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, "a\nb"), 0u);
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].rest, "0:,3:a\rb,0:,0,(0|)");
}
