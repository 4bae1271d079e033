// Times of this machine's zone, on simulated machines whose clocks change.
#include "tools/qzlogview/time_text.h"

#include <gtest/gtest.h>

#include "tests/sim/clock.h"

namespace zantlog::view {
namespace {

constexpr int64_t kNow = 1795183385250; // 2026-11-20 14:03:05.250 UTC

class LocalTimes : public testing::Test {
protected:
    ~LocalTimes() override { sim::machineZone() = before_; }

    static int64_t secondsOf(const char *text) { return timeFromText(text, kNow, Zone{}) / 1000; }
    static std::string shown(int64_t seconds) {
        std::string text;
        TimeFormatter(Zone{}).append(seconds * 1000, &text);
        return text.substr(0, text.size() - 4);
    }

private:
    sim::TimeZone before_ = sim::machineZone();
};

TEST_F(LocalTimes, OffsetsAreThoseOfTheTime) {
    sim::machineZone() = sim::centralEurope();
    EXPECT_EQ(offsetAt(Zone{}, 1735732800), 3600) << "in January";
    EXPECT_EQ(offsetAt(Zone{}, 1751371200), 7200) << "in July";
    EXPECT_EQ(offsetAt(Zone{}, 1743296399), 3600);
    EXPECT_EQ(offsetAt(Zone{}, 1743296400), 7200);
    EXPECT_EQ(offsetAt(kUtc, 1751371200), 0);
    EXPECT_EQ(offsetAt(Zone{false, -1800}, 1751371200), -1800);
    sim::machineZone() = sim::easternAustralia();
    EXPECT_EQ(offsetAt(Zone{}, 1735732800), 39600) << "in January";
    EXPECT_EQ(offsetAt(Zone{}, 1751371200), 36000) << "in July";
}

TEST_F(LocalTimes, TimesThatTheSystemDoesNotKnowAreThoseOfUtc) {
    sim::machineZone() = sim::centralEurope();
    EXPECT_EQ(offsetAt(Zone{}, 253402214399), 0);
    EXPECT_EQ(offsetAt(Zone{}, -62135596800), 0);
    EXPECT_EQ(secondsOf("9999-12-30 23:59:59"), 253402214399);
    EXPECT_EQ(secondsOf("0001-01-01"), -62135596800);
    EXPECT_EQ(shown(253402214399), "9999-12-30 23:59:59");
}

TEST_F(LocalTimes, DatesAndTimesOfSummerAndWinter) {
    sim::machineZone() = sim::centralEurope();
    EXPECT_EQ(secondsOf("2025-01-01 13:00"), 1735732800);
    EXPECT_EQ(secondsOf("2025-07-01 14:00"), 1751371200);
    EXPECT_EQ(secondsOf("2025-07-01 12:00Z"), 1751371200) << "a zone behind it counts";
    EXPECT_EQ(secondsOf("2025-07-01 14:00 local"), 1751371200);
    EXPECT_EQ(secondsOf("today"), 1795129200);
    EXPECT_EQ(secondsOf("15:03"), 1795183380);
    EXPECT_EQ(shown(1735732800), "2025-01-01 13:00:00");
    EXPECT_EQ(shown(1751371200), "2025-07-01 14:00:00");
}

// From 01:59:59 to 03:00 on 2025-03-30.
TEST_F(LocalTimes, ATimeThatTheClockJumpsOverIsAsMuchLater) {
    sim::machineZone() = sim::centralEurope();
    EXPECT_EQ(secondsOf("2025-03-30 01:59:59"), 1743296399);
    EXPECT_EQ(secondsOf("2025-03-30 02:00"), 1743296400);
    EXPECT_EQ(secondsOf("2025-03-30 02:30"), 1743298200);
    EXPECT_EQ(secondsOf("2025-03-30 03:00"), 1743296400);
    EXPECT_EQ(secondsOf("2025-03-30 03:30"), 1743298200);
    EXPECT_EQ(secondsOf("2025-03-30"), 1743289200);
}

// From 02:59:59 back to 02:00 on 2025-10-26.
TEST_F(LocalTimes, ATimeThatComesTwiceIsTheFirst) {
    sim::machineZone() = sim::centralEurope();
    EXPECT_EQ(secondsOf("2025-10-26"), 1761429600);
    EXPECT_EQ(secondsOf("2025-10-26 01:59:59"), 1761436799);
    EXPECT_EQ(secondsOf("2025-10-26 02:30"), 1761438600);
    EXPECT_EQ(secondsOf("2025-10-26 02:30+02:00"), 1761438600);
    EXPECT_EQ(secondsOf("2025-10-26 02:30+01:00"), 1761442200);
    EXPECT_EQ(secondsOf("2025-10-26 03:00"), 1761444000);
    EXPECT_EQ(shown(1761438600), "2025-10-26 02:30:00");
    EXPECT_EQ(shown(1761442200), "2025-10-26 02:30:00");
}

TEST_F(LocalTimes, OnTheSouthernHalfTheClockChangesTheOtherWay) {
    sim::machineZone() = sim::easternAustralia();
    EXPECT_EQ(secondsOf("2025-10-05 02:30"), 1759595400) << "jumped over";
    EXPECT_EQ(secondsOf("2025-10-05 01:59:59"), 1759593599);
    EXPECT_EQ(secondsOf("2025-04-06 02:30"), 1743867000) << "comes twice";
    EXPECT_EQ(secondsOf("2025-04-06 03:00"), 1743872400);
}

// Half an hour of daylight saving.
TEST_F(LocalTimes, TheClockMayChangeByHalfAnHour) {
    sim::TimeZone zone = sim::easternAustralia();
    zone.bias = -37800;
    zone.saving = 1800;
    sim::machineZone() = zone;
    EXPECT_EQ(secondsOf("2025-10-05 01:59:59"), 1759591799);
    EXPECT_EQ(secondsOf("2025-10-05 02:15"), 1759592700) << "02:45 then";
    EXPECT_EQ(shown(1759592700), "2025-10-05 02:45:00");
    EXPECT_EQ(secondsOf("2025-10-05 02:30"), 1759591800);
}

TEST_F(LocalTimes, YesterdayOfALongDayHasTwentyFiveHours) {
    sim::machineZone() = sim::centralEurope();
    constexpr int64_t kDayAfter = 1761480000000; // 2025-10-26 12:00 UTC
    EXPECT_EQ(timeFromText("yesterday", kDayAfter + 86400000, Zone{}), 1761429600000);
    EXPECT_EQ(timeFromText("today", kDayAfter + 86400000, Zone{}), 1761519600000);
    EXPECT_EQ(timeFromText("-1d", kDayAfter + 86400000, Zone{}), kDayAfter)
        << "24 hours, whatever the clock did";
}

TEST_F(LocalTimes, EveryQuarterOfAnHourOfAYearIsReadAsItIsWritten) {
    sim::machineZone() = sim::centralEurope();
    for (int64_t time = 1735732800; time < 1735732800 + 366 * 86400; time += 900) {
        const bool second = time >= 1761440400 && time < 1761444000; // the hour that comes twice
        ASSERT_EQ(secondsOf(shown(time).c_str()), second ? time - 3600 : time);
    }
}

} // namespace
} // namespace zantlog::view
