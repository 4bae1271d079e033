// The moments at which calendars and clocks turn, with the names that the files must have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/time_travel/traveller.h"

namespace zantlog::test {

namespace {

using testing::ElementsAre;

const WriterRules kDaily = {.mode = 2};
constexpr int64_t kHour = 3600;

TEST(TurningPoints, ALeapDayIsADay) {
    Traveller traveller(kDaily, {}, utc(2028, 2, 28, 12));
    traveller.log();
    traveller.logAt(utc(2028, 2, 29, 12));
    traveller.logAt(utc(2028, 3, 1, 12));
    EXPECT_THAT(traveller.files(),
                ElementsAre("280228-0000000000.log", "280229-0000000000.log", "280301-0000000000.log"));
}

TEST(TurningPoints, TheYear2100IsNoLeapYear) {
    Traveller traveller(kDaily, {}, utc(2100, 2, 28, 12));
    traveller.log();
    traveller.logAt(utc(2100, 2, 28, 12) + 24 * kHour);
    // Two places for the year are too few from here on; the third stays in the name.
    EXPECT_THAT(traveller.files(), ElementsAre("1000228-0000000000.log", "1000301-0000000000.log"));
}

TEST(TurningPoints, NewYear) {
    Traveller traveller(kDaily, sim::centralEurope(), utc(2027, 12, 31, 22, 59, 59));
    traveller.log(); // 23:59:59 there
    traveller.logAt(utc(2027, 12, 31, 23));
    EXPECT_THAT(traveller.files(), ElementsAre("271231-0000000000.log", "280101-0000000000.log"));
}

// On the last Sunday of March the clock goes from 02:00 to 03:00: half past two is half past three.
TEST(TurningPoints, ATimeOfDayThatTheClockLeavesOut) {
    Traveller traveller({.mode = 2, .timeOfDay = 2 * kHour + 1800}, sim::centralEurope(),
                        utc(2026, 3, 29, 0));
    traveller.log(); // 01:00
    traveller.logAt(utc(2026, 3, 29, 1, 29, 59));
    EXPECT_THAT(traveller.files(), ElementsAre("260329-0000000000.log"));
    traveller.logAt(utc(2026, 3, 29, 1, 30));
    EXPECT_THAT(traveller.files(), ElementsAre("260329-0000000000.log", "260329-0000000001.log"));
}

// On the last Sunday of October there are two half past two: the first one counts, the second does not.
TEST(TurningPoints, ATimeOfDayThatComesTwice) {
    Traveller traveller({.mode = 2, .timeOfDay = 2 * kHour + 1800}, sim::centralEurope(),
                        utc(2026, 10, 24, 23));
    traveller.log();
    traveller.logAt(utc(2026, 10, 25, 0, 30)); // 02:30 in summer
    traveller.logAt(utc(2026, 10, 25, 1, 30)); // 02:30 in winter
    EXPECT_THAT(traveller.files(), ElementsAre("261025-0000000000.log", "261025-0000000001.log"));
}

// Header and three records are less than a kilobyte, four are more.
TEST(TurningPoints, TheClockIsSetBackOverMidnight) {
    const WriterRules bySize{.mode = 1, .maximumSizeKB = 1};
    Traveller traveller(bySize, {}, utc(2026, 11, 20, 23, 50));
    for (int i = 0; i < 5; ++i) {
        traveller.log();
    }
    EXPECT_THAT(traveller.files(), ElementsAre("261120-0000000000.log", "261120-0000000001.log"));
    traveller.logAt(utc(2026, 11, 21, 0, 1)); // eleven minutes later: opened again, on a new day
    traveller.logAt(utc(2026, 11, 20, 23, 55));
    traveller.log(); // the new day's file is full now
    for (int i = 0; i < 3; ++i) {
        traveller.log(); // one more for each of the old day's files, which are not full yet, then a third one
    }
    traveller.expectFilesOfModel();
    EXPECT_THAT(traveller.files(), ElementsAre("261120-0000000000.log", "261120-0000000001.log",
                                               "261120-0000000002.log", "261121-0000000000.log"));
}

TEST(TurningPoints, TenYearsBackTheFileStaysOpen) {
    Traveller traveller(kDaily, {}, utc(2036, 11, 21, 12));
    traveller.log();
    traveller.logAt(utc(2026, 11, 21, 12));
    traveller.logAt(utc(2026, 11, 25, 12));
    EXPECT_THAT(traveller.files(), ElementsAre("361121-0000000000.log"));
}

TEST(TurningPoints, TenYearsForwardOneFileIsBegun) {
    Traveller traveller({.mode = 4, .period = 60}, {}, utc(2026, 11, 21, 12));
    traveller.log();
    traveller.logAt(utc(2036, 11, 21, 12));
    traveller.log();
    EXPECT_THAT(traveller.files(), ElementsAre("261121-0000000000.log", "361121-0000000000.log"));
}

TEST(TurningPoints, AfterTenMinutesTheSameFileIsOpenedAgainUntilMidnight) {
    Traveller traveller({}, {}, utc(2026, 11, 20, 23, 40));
    traveller.log();
    traveller.logAt(utc(2026, 11, 20, 23, 55));
    EXPECT_THAT(traveller.files(), ElementsAre("261120-0000000000.log"));
    traveller.logAt(utc(2026, 11, 21, 0, 1)); // six minutes after the reopening
    EXPECT_THAT(traveller.files(), ElementsAre("261120-0000000000.log"));
    traveller.logAt(utc(2026, 11, 21, 0, 5, 1));
    EXPECT_THAT(traveller.files(), ElementsAre("261120-0000000000.log", "261121-0000000000.log"));
}

} // namespace

} // namespace zantlog::test
