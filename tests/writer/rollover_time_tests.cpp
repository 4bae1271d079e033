// The time from which a file is due, for a zone one hour east of Greenwich with daylight saving from 9 March
// 2025 02:00 to 2 November 2025 02:00 (the runtime's rule for a zone that is given by name).
#include "logfile/writer/rollover_time.h"

#include "tests/support/log_folder.h"

#include <gtest/gtest.h>

namespace zantlog {

namespace {

constexpr uint32_t kSize = 1;
constexpr uint32_t kLocalTime = 2;
constexpr uint32_t kPeriodic = 4;
constexpr int64_t kThreeOClock = 10800;

// 15 January 2025 and the day after, local time.
constexpr int64_t kAt0200 = 1736902800;
constexpr int64_t kAt0300 = 1736906400;
constexpr int64_t kAt0400 = 1736910000;
constexpr int64_t kAt0500 = 1736913600;
constexpr int64_t kNextAt0300 = 1736992800;
constexpr int64_t kNextAt0500 = 1737000000;

const bool kInZone = test::useTimeZone("CET-1CEST");

class RolloverTime : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(kInZone); }
};

int64_t localTimeRollover(int64_t timeOfDay, int64_t start, int64_t now) {
    return nextRolloverTime({kLocalTime, timeOfDay, 0}, start, now);
}

TEST_F(RolloverTime, ClockIsUsedByLocalTimeAndPeriodicAlone) {
    for (const uint32_t mode : {kLocalTime, kPeriodic, kLocalTime | kSize, kPeriodic | kSize}) {
        EXPECT_TRUE(usesClock(mode)) << mode;
    }
    for (const uint32_t mode : {0u, kSize, 8u}) {
        EXPECT_FALSE(usesClock(mode)) << mode;
    }
}

TEST_F(RolloverTime, PeriodRunsFromTheStartOfTheFile) {
    EXPECT_EQ(nextRolloverTime({kPeriodic, kThreeOClock, 43200}, kAt0500, kAt0500), 1736956800);
    EXPECT_EQ(nextRolloverTime({kPeriodic | kSize, kThreeOClock, 60}, kAt0500, kNextAt0500), 1736913660);
}

TEST_F(RolloverTime, PeriodThatIsNotPositiveIsNeverDue) {
    EXPECT_EQ(nextRolloverTime({kPeriodic, 0, 0}, kAt0500, kAt0500), INT64_MAX);
    EXPECT_EQ(nextRolloverTime({kPeriodic, 0, -60}, kAt0500, kAt0500), INT64_MAX);
}

TEST_F(RolloverTime, PeriodPastTheEndOfTimeSaturates) {
    EXPECT_EQ(nextRolloverTime({kPeriodic, 0, 5}, INT64_MAX - 1, kAt0500), INT64_MAX);
}

TEST_F(RolloverTime, FileBegunBeforeTheTimeOfDayIsDueThen) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0200, kAt0200), kAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0200, kAt0300 - 1), kAt0300);
}

TEST_F(RolloverTime, FileThatMissedItsTimeOfDayIsDueAtOnce) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0200, kAt0300), kAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0200, kAt0400), kAt0400);
}

TEST_F(RolloverTime, FileBegunAfterTheTimeOfDayIsDueTheNextDay) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kAt0500), kNextAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kAt0500 + 86399), kNextAt0300);
}

TEST_F(RolloverTime, FileBegunExactlyThenIsDueTheNextDay) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0300, kAt0300), kNextAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0300 + 30, kAt0300 + 30), kNextAt0300);
}

TEST_F(RolloverTime, FileOlderThanADayIsDueAtOnce) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kNextAt0500), kNextAt0500);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kNextAt0500 + 1000000), kNextAt0500 + 1000000);
}

TEST_F(RolloverTime, SizeBesideLocalTimeChangesNothing) {
    EXPECT_EQ(nextRolloverTime({kLocalTime | kSize, kThreeOClock, 60}, kAt0500, kAt0500), kNextAt0300);
}

TEST_F(RolloverTime, LocalTimeWinsOverPeriodic) {
    EXPECT_EQ(nextRolloverTime({kLocalTime | kPeriodic, kThreeOClock, 60}, kAt0500, kAt0500), kNextAt0300);
}

TEST_F(RolloverTime, TimeOfDayCountsInWholeMinutes) {
    EXPECT_EQ(localTimeRollover(kThreeOClock + 59, kAt0200, kAt0200), kAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock + 60, kAt0200, kAt0200), kAt0300 + 60);
    EXPECT_EQ(localTimeRollover(86340, kAt0200, kAt0200), 1736981940); // 23:59
    EXPECT_EQ(localTimeRollover(0, kAt0200, kAt0200), 1736982000);     // midnight to the 16th
}

TEST_F(RolloverTime, TimeOfDayBeyondTheDayRunsOn) {
    EXPECT_EQ(localTimeRollover(90000, kAt0200, kAt0200), 1736985600); // 25:00 is 01:00 on the 16th
}

TEST_F(RolloverTime, ClockThatWasSetBackKeepsTheDayOfTheFile) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kAt0400), kNextAt0300);
    EXPECT_EQ(localTimeRollover(kThreeOClock, kAt0500, kAt0200), kAt0300);
}

TEST_F(RolloverTime, DaylightSavingOfTheStartCountsForItsDay) {
    // Begun at 01:00 before the clocks go forward: 03:30 is meant in the time of the start, 04:30 by the wall
    // clock.
    EXPECT_EQ(localTimeRollover(12600, 1741478400, 1741478400), 1741487400);
    // Begun at 01:00 before the clocks go back: 02:30 by the wall clock.
    EXPECT_EQ(localTimeRollover(12600, 1762038000, 1762038000), 1762047000);
}

TEST_F(RolloverTime, NextDayIsTwentyFourHoursLaterAcrossAClockChange) {
    // Begun on 8 March at 05:00: 24 hours after 03:00 of that day, when the wall clock says 04:00.
    EXPECT_EQ(localTimeRollover(kThreeOClock, 1741406400, 1741406400), 1741485600);
}

TEST_F(RolloverTime, SummerTimesAreLocal) {
    // 1 July 2025: begun at 02:00, due at 03:00 (01:00 UTC).
    EXPECT_EQ(localTimeRollover(kThreeOClock, 1751328000, 1751328000), 1751331600);
}

TEST_F(RolloverTime, StartThatNoCalendarHoldsIsDueAtOnce) {
    EXPECT_EQ(localTimeRollover(kThreeOClock, INT64_MAX, kAt0500), kAt0500);
    EXPECT_EQ(localTimeRollover(kThreeOClock, INT64_MIN, kAt0500), kAt0500);
}

TEST_F(RolloverTime, AbsurdTimesOfDayAreSurvived) {
    EXPECT_NO_FATAL_FAILURE((void)localTimeRollover(INT64_MAX, kAt0500, kAt0500));
    EXPECT_NO_FATAL_FAILURE((void)localTimeRollover(INT64_MIN, kAt0500, kAt0500));
}

} // namespace

} // namespace zantlog
