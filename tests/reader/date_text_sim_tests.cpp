// Dates and times of day on a clock and in a zone that are known, and without memory.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

class DatesOnSim : public testing::Test {
protected:
    DatesOnSim() { setEnvironment("TZ", "CET-1CEST"); }
    ~DatesOnSim() override {
        setEnvironment("TZ", nullptr);
        sim::clock().set(begin_);
    }

private:
    const int64_t begin_ = sim::clock().now();
};

TEST_F(DatesOnSim, ASummersDateIsTakenWithoutDaylightSaving) {
    // 2026-07-14 23:00 UTC: one o'clock in the morning on the clocks there.
    EXPECT_EQ(zantLogStrDateTimeToT("2026-07-15"), 1784070000);
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-15"), 1768431600); // 2026-01-14 23:00 UTC
}

TEST_F(DatesOnSim, ATimeOfDayIsOfTodayAndADateAtMidnight) {
    sim::clock().setSeconds(1784116815); // 2026-07-15 12:00:15 UTC
    EXPECT_EQ(zantLogStrDateTimeToT("2026-07-15"), 1784070000);
    EXPECT_EQ(zantLogStrDateTimeToT("10:30"), 1784070000 + 37800);
    EXPECT_EQ(zantLogStrDateTimeToT("10:30:07"), 1784070000 + 37807);
    sim::clock().setSeconds(1784150000); // 2026-07-15 21:13 UTC
    EXPECT_EQ(zantLogStrDateTimeToT("0:00"), 1784070000);
    sim::clock().setSeconds(1784153000); // 22:03 UTC, the next day there
    EXPECT_EQ(zantLogStrDateTimeToT("0:00"), 1784156400);
}

TEST_F(DatesOnSim, WithoutMemoryThereIsNoTime) {
    for (const char *text : {"2026-07-15", "10:30"}) {
        const sim::Census before = sim::takeCensus();
        sim::memory().allocations = 0;
        sim::memory().firstFailure = 1;
        EXPECT_EQ(zantLogStrDateTimeToT(text), -1);
        sim::memory().allocations = 0;
        int32_t part = 77;
        EXPECT_EQ(zantLogGetDate(text, &part, &part, &part), 0);
        EXPECT_EQ(part, 77);
        sim::memory().firstFailure = 0;
        EXPECT_EQ(sim::leftSince(before), "");
    }
}

} // namespace

} // namespace zantlog::test
