// Dates and times of day as users write them.
#include <ctime>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

struct Date {
    int32_t day = 77;
    int32_t month = 77;
    int32_t year = 77;
    int32_t result;

    explicit Date(const char *text) : result(zantLogGetDate(text, &day, &month, &year)) {}
};

TEST(DateText, IsYearMonthAndDayInBrokenDownForm) {
    const Date date("2026-11-21");
    EXPECT_EQ(date.result, 1);
    EXPECT_EQ(date.day, 21);
    EXPECT_EQ(date.month, 10);
    EXPECT_EQ(date.year, 126);
}

TEST(DateText, PiecesThatAreMissingAreZero) {
    const Date yearOnly("2026");
    EXPECT_EQ(yearOnly.result, 1);
    EXPECT_EQ(yearOnly.day, 0);
    EXPECT_EQ(yearOnly.month, -1);
    EXPECT_EQ(yearOnly.year, 126);
    const Date none("");
    EXPECT_EQ(none.result, 1);
    EXPECT_EQ(none.day, 0);
    EXPECT_EQ(none.month, -1);
    EXPECT_EQ(none.year, -1900);
}

TEST(DateText, RunsOfHyphensCountAsOneAndFurtherPiecesNotAtAll) {
    const Date date("--2026---1--31-77");
    EXPECT_EQ(date.result, 1);
    EXPECT_EQ(date.day, 31);
    EXPECT_EQ(date.month, 0);
    EXPECT_EQ(date.year, 126);
}

TEST(DateText, WhatIsNoNumberIsZero) {
    const Date date("abc-12x-y");
    EXPECT_EQ(date.result, 1);
    EXPECT_EQ(date.day, 0);
    EXPECT_EQ(date.month, 11);
    EXPECT_EQ(date.year, -1900);
}

TEST(DateText, WithoutArgumentsIsAnswered) {
    int32_t part = 77;
    EXPECT_EQ(zantLogGetDate(nullptr, &part, &part, &part), 0);
    EXPECT_EQ(zantLogGetDate("2026-11-21", nullptr, &part, &part), 0);
    EXPECT_EQ(zantLogGetDate("2026-11-21", &part, nullptr, &part), 0);
    EXPECT_EQ(zantLogGetDate("2026-11-21", &part, &part, nullptr), 0);
    EXPECT_EQ(part, 77);
}

// A local time, broken down; daylight saving is as the zone has it.
std::tm localOf(int64_t time) {
    std::tm out{};
    EXPECT_NE(zantLogOs_localtime_r(&time, &out), nullptr);
    return out;
}

// In winter, where a time with daylight saving forced off is what the clock shows.
TEST(DateTimeText, ADateIsItsLocalMidnight) {
    const std::tm date = localOf(zantLogStrDateTimeToT("2026-01-21"));
    EXPECT_EQ(date.tm_year, 126);
    EXPECT_EQ(date.tm_mon, 0);
    EXPECT_EQ(date.tm_mday, 21);
    EXPECT_EQ(date.tm_hour, 0);
    EXPECT_EQ(date.tm_min, 0);
    EXPECT_EQ(date.tm_sec, 0);
}

TEST(DateTimeText, OfADateWhatFollowsAColonDoesNotCount) {
    const int64_t midnight = zantLogStrDateTimeToT("2026-01-21");
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-21:10:30:15"), midnight);
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-21 10:30:15"), midnight);
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-21:"), midnight);
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01:05-21"), zantLogStrDateTimeToT("2025-12-31")); // day 0
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-22") - midnight, 86400);
    EXPECT_EQ(zantLogStrDateTimeToT("2025-12-21") - midnight, -31 * 86400);
}

TEST(DateTimeText, DaysBeyondTheMonthGoOnInTheNext) {
    EXPECT_EQ(zantLogStrDateTimeToT("2026-01-32"), zantLogStrDateTimeToT("2026-02-01"));
}

TEST(DateTimeText, ATimeOfDayIsTodays) {
    const std::tm today = localOf(secondsNow());
    const int64_t midnight = zantLogStrDateTimeToT("0:00");
    EXPECT_EQ(zantLogStrDateTimeToT("10:30:15") - midnight, 37815);
    EXPECT_EQ(zantLogStrDateTimeToT("10:30") - midnight, 37800);
    EXPECT_EQ(zantLogStrDateTimeToT("23:59:59") - midnight, 86399);
    EXPECT_EQ(zantLogStrDateTimeToT(":5") - midnight, 18000); // the first number is the hour
    EXPECT_EQ(zantLogStrDateTimeToT(":") - midnight, 0);
    char date[40];
    std::snprintf(date, sizeof date, "%d-%d-%d", today.tm_year + 1900, today.tm_mon + 1, today.tm_mday);
    EXPECT_EQ(zantLogStrDateTimeToT(date), midnight);
}

TEST(DateTimeText, AnythingElseIsNoTime) {
    EXPECT_EQ(zantLogStrDateTimeToT(nullptr), -1);
    EXPECT_EQ(zantLogStrDateTimeToT(""), -1);
    EXPECT_EQ(zantLogStrDateTimeToT("20260121"), -1);
    EXPECT_EQ(zantLogStrDateTimeToT("now"), -1);
    // The hyphen makes it a date, the colon in front leaves nothing of it.
    EXPECT_EQ(zantLogStrDateTimeToT(":2026-01-21"), -1);
    EXPECT_EQ(zantLogStrDateTimeToT("1-1-1"), -1);
}

TEST(DateTimeText, HugeNumbersDoNoHarm) {
    for (const char *text :
         {"4294967295-4294967295-4294967295", "2147483647-1-1", "2026-2147483647-1", "2026-1-2147483647",
          "4294967295:4294967295:4294967295", "2147483647:2147483647:2147483647"}) {
        EXPECT_GE(zantLogStrDateTimeToT(text), -1) << text;
    }
}

} // namespace

} // namespace zantlog::test
