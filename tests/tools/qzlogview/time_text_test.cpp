// Times in all the forms that people write, in UTC and in fixed zones.
#include "tools/qzlogview/time_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tools/qzlogview/usage_error.h"

namespace zantlog::view {
namespace {

using testing::HasSubstr;

constexpr int64_t kNow = 1795183385250; // 2026-11-20 14:03:05.250 UTC
constexpr Zone kEast = {false, 3600};
constexpr Zone kWest = {false, -5 * 3600 - 1800};

struct TimeCase {
    const char *text;
    int64_t expected;
};

void PrintTo(const TimeCase &time, std::ostream *out) {
    *out << time.text;
}

class TimeTexts : public testing::TestWithParam<TimeCase> {};

TEST_P(TimeTexts, AreReadInUtc) {
    EXPECT_EQ(timeFromText(GetParam().text, kNow, kUtc), GetParam().expected);
}

const TimeCase kTimes[] = {
    {"2026-11-20", 1795132800000},
    {"2026-11-20 14:03", 1795183380000},
    {"2026-11-20T14:03", 1795183380000},
    {"2026-11-20 14:03:05", 1795183385000},
    {"2026-11-20T14:03:05", 1795183385000},
    {"2026-11-20 14:03:05.2", 1795183385200},
    {"2026-11-20 14:03:05.25", 1795183385250},
    {"2026-11-20 14:03:05.025", 1795183385025},
    {"2026-11-20 4:03", 1795147380000},
    {"2024-02-29 23:59:59.999", 1709251199999},
    {"2024-2-29 23:59:59", 1709251199000},
    {"1970-1-1", 0},
    {"1969-12-31 23:59:59.999", -1},
    {"0001-01-01", -62135596800000},
    {"0000-01-01", -62167219200000},
    {"9999-12-31 23:59:59.999", 253402300799999},
    {"14:03:05", 1795183385000},
    {"14:03", 1795183380000},
    {"00:00", 1795132800000},
    {"0:00", 1795132800000},
    {"23:59:59.999", 1795219199999},
    {"now", kNow},
    {"NOW", kNow},
    {"today", 1795132800000},
    {"Yesterday", 1795046400000},
    {"-0s", kNow},
    {"-1s", kNow - 1000},
    {"-90m", kNow - 5400000},
    {"-3h", kNow - 10800000},
    {"-3H", kNow - 10800000},
    {"-2d", kNow - 172800000},
    {"-1w", kNow - 604800000},
    {"-1000000000w", kNow - 604800000000000000},
    // A zone behind it counts, not the one that is given.
    {"2026-11-20 14:03Z", 1795183380000},
    {"2026-11-20 14:03z", 1795183380000},
    {"2026-11-20 14:03 utc", 1795183380000},
    {"2026-11-20 14:03 UTC", 1795183380000},
    {"2026-11-20T14:03:05.250Z", 1795183385250},
    {"2026-11-20 14:03+01:00", 1795179780000},
    {"2026-11-20 14:03 +01:00", 1795179780000},
    {"2026-11-20 14:03+1", 1795179780000},
    {"2026-11-20 14:03:05-0530", 1795203185000},
    {"2026-11-20 14:03-00:30", 1795185180000},
    {"2026-11-20Z", 1795132800000},
    {"2026-11-20+01:00", 1795129200000},
    {"14:03+01:00", 1795179780000},
};

INSTANTIATE_TEST_SUITE_P(Each, TimeTexts, testing::ValuesIn(kTimes));

class NoTimes : public testing::TestWithParam<const char *> {};

TEST_P(NoTimes, AreRefusedWithTheText) {
    const std::string error = usageErrorOf([] { return timeFromText(GetParam(), kNow, kUtc); });
    EXPECT_THAT(error, HasSubstr("\"" + std::string(GetParam()) + "\" is no time: "));
}

INSTANTIATE_TEST_SUITE_P(
    Each, NoTimes,
    testing::Values("", " ", "x", "tomorrow", "now ", " now", "20", "2026", "2026-11", "2026-11-",
                    "2026-11-20 ", "2026-11-20T", "2026-11-20 14", "2026-11-20 14:", "2026-11-20 14:3",
                    "2026-11-20 14:03:", "2026-11-20 14:03:5", "2026-11-20 14:03:05.",
                    "2026-11-20 14:03:05.2505", "2026-11-20 14:03.5", "2026-11-20  14:03", "2026-11-20x14:03",
                    "2026/11/20", "20.11.2026", "26-11-20", "20261120", "12026-11-20", "2026-011-20",
                    "2026-11-020", "+2026-11-20", "-2026-11-20", "2026-11-20 14:03 CET", "2026-11-20 14:03+",
                    "2026-11-20 14:03+1:", "2026-11-20 14:03 +15:00", "14:03:05x", "14.03", "1400", "-", "-h",
                    "-3", "-3y", "-h3", "--3h", "- 3h", "-3.5h", "3h", "+3h", "-1000000001s",
                    "-99999999999999999999d", "-3h ", "2026-11-20 -3h", "2026-11-20 now"));

TEST(TimeText, DaysThatAreNotAreRefused) {
    for (const char *text : {"2026-02-29", "2100-02-29", "2026-04-31", "2026-11-00", "2026-00-20",
                             "2026-13-01", "2026-11-32", "2026-02-30 14:03"}) {
        EXPECT_EQ(usageErrorOf([&] { return timeFromText(text, kNow, kUtc); }),
                  "\"" + std::string(text) + "\" is no time: there is no such day");
    }
}

TEST(TimeText, TimesOfDayThatAreNotAreRefused) {
    for (const char *text : {"24:00", "2026-11-20 24:00", "14:60", "14:03:60", "99:99:99"}) {
        EXPECT_EQ(usageErrorOf([&] { return timeFromText(text, kNow, kUtc); }),
                  "\"" + std::string(text) +
                      "\" is no time: a day has 24 hours, an hour 60 minutes and a minute 60 seconds");
    }
}

TEST(TimeText, ANulInItIsRefused) {
    EXPECT_NE(usageErrorOf([] { return timeFromText(std::string_view("now\0", 4), kNow, kUtc); }), "");
    EXPECT_NE(usageErrorOf([] { return timeFromText(std::string_view("2026-11-20\0", 11), kNow, kUtc); }),
              "");
}

TEST(TimeText, WithoutAZoneTheGivenOneCounts) {
    EXPECT_EQ(timeFromText("2026-11-20", kNow, kEast), 1795129200000);
    EXPECT_EQ(timeFromText("2026-11-20 14:03", kNow, kEast), 1795179780000);
    EXPECT_EQ(timeFromText("2026-11-20 14:03", kNow, kWest), 1795203180000);
    EXPECT_EQ(timeFromText("2026-11-20 14:03Z", kNow, kEast), 1795183380000);
    EXPECT_EQ(timeFromText("now", kNow, kWest), kNow);
    EXPECT_EQ(timeFromText("-1h", kNow, kWest), kNow - 3600000);
}

// At 23:30 UTC the next day has begun in the east.
TEST(TimeText, TodayIsThatOfTheZone) {
    constexpr int64_t kLate = 1795217400000; // 2026-11-20 23:30 UTC
    EXPECT_EQ(timeFromText("today", kLate, kUtc), 1795132800000);
    EXPECT_EQ(timeFromText("today", kLate, kEast), 1795215600000);
    EXPECT_EQ(timeFromText("yesterday", kLate, kEast), 1795129200000);
    EXPECT_EQ(timeFromText("00:15", kLate, kEast), 1795216500000);
    EXPECT_EQ(timeFromText("00:15", kLate, kUtc), 1795133700000);
    EXPECT_EQ(timeFromText("00:15Z", kLate, kEast), 1795133700000) << "of the zone that is written";
    constexpr int64_t kBefore1970 = -1;
    EXPECT_EQ(timeFromText("today", kBefore1970, kUtc), -86400000);
}

TEST(ZoneText, EveryForm) {
    EXPECT_EQ(zoneFromText("local"), Zone{});
    EXPECT_EQ(zoneFromText("LOCAL"), Zone{});
    EXPECT_EQ(zoneFromText("utc"), kUtc);
    EXPECT_EQ(zoneFromText("UTC"), kUtc);
    EXPECT_EQ(zoneFromText("Z"), kUtc);
    EXPECT_EQ(zoneFromText("z"), kUtc);
    EXPECT_EQ(zoneFromText("+01:00"), (Zone{false, 3600}));
    EXPECT_EQ(zoneFromText("-0530"), (Zone{false, -19800}));
    EXPECT_EQ(zoneFromText("-00:30"), (Zone{false, -1800}));
    EXPECT_EQ(zoneFromText("+1"), (Zone{false, 3600}));
    EXPECT_EQ(zoneFromText("+12"), (Zone{false, 43200}));
    EXPECT_EQ(zoneFromText("+5:45"), (Zone{false, 20700}));
    EXPECT_EQ(zoneFromText("+14:00"), (Zone{false, 50400}));
    EXPECT_EQ(zoneFromText("-0"), kUtc);
}

TEST(ZoneText, OtherTextsAreNone) {
    for (const char *text :
         {"",       "+",    "-",      "1",   "01:00", "+1:",   "+1:0", "+1:000", "+01:60", "+15", "+15:00",
          "+14:01", "+123", "+12345", "+ 1", "++1",   "UTC+1", "CET",  "locale", "Z ",     " Z",  "zz"}) {
        EXPECT_EQ(zoneFromText(text), std::nullopt) << text;
    }
}

std::string shown(int64_t milliseconds, const Zone &zone) {
    std::string text;
    TimeFormatter(zone).append(milliseconds, &text);
    return text;
}

TEST(TimeFormatter, WritesTimesOfEveryYear) {
    EXPECT_EQ(shown(0, kUtc), "1970-01-01 00:00:00.000");
    EXPECT_EQ(shown(kNow, kUtc), "2026-11-20 14:03:05.250");
    EXPECT_EQ(shown(kNow, kEast), "2026-11-20 15:03:05.250");
    EXPECT_EQ(shown(kNow, kWest), "2026-11-20 08:33:05.250");
    EXPECT_EQ(shown(1709251199999, kUtc), "2024-02-29 23:59:59.999");
    EXPECT_EQ(shown(1709251199999, kEast), "2024-03-01 00:59:59.999");
    EXPECT_EQ(shown(-1, kUtc), "1969-12-31 23:59:59.999");
    EXPECT_EQ(shown(-60000, kUtc), "1969-12-31 23:59:00.000");
    EXPECT_EQ(shown(-60001, kUtc), "1969-12-31 23:58:59.999");
    EXPECT_EQ(shown(-62135596800000, kUtc), "0001-01-01 00:00:00.000");
}

TEST(TimeFormatter, WritesNumbersWhereThereIsNoYear) {
    EXPECT_EQ(shown(253402214399999, kUtc), "9999-12-30 23:59:59.999");
    EXPECT_EQ(shown(253402214399999, {false, 50400}), "9999-12-31 13:59:59.999");
    EXPECT_EQ(shown(253402214400000, kUtc), "253402214400000 ms");
    EXPECT_EQ(shown(-62167132800000, kUtc), "0000-01-02 00:00:00.000");
    EXPECT_EQ(shown(-62167132800000, {false, -50400}), "0000-01-01 10:00:00.000");
    EXPECT_EQ(shown(-62167132800001, kUtc), "-62167132800001 ms");
    EXPECT_EQ(shown(INT64_MAX, kUtc), "9223372036854775807 ms");
    EXPECT_EQ(shown(INT64_MIN, kUtc), "-9223372036854775808 ms");
}

// One formatter for all of them: what it keeps of a minute never shows in another.
TEST(TimeFormatter, MinutesMayComeInAnyOrder) {
    TimeFormatter formatter(kUtc);
    std::string text;
    for (const int64_t time : {kNow, kNow + 60000, kNow - 5250, kNow - 5251, int64_t{253402214400000}, kNow,
                               int64_t{-1}, int64_t{0}, int64_t{59999}, int64_t{60000}}) {
        formatter.append(time, &text);
        text += '\n';
    }
    EXPECT_EQ(text, "2026-11-20 14:03:05.250\n"
                    "2026-11-20 14:04:05.250\n"
                    "2026-11-20 14:03:00.000\n"
                    "2026-11-20 14:02:59.999\n"
                    "253402214400000 ms\n"
                    "2026-11-20 14:03:05.250\n"
                    "1969-12-31 23:59:59.999\n"
                    "1970-01-01 00:00:00.000\n"
                    "1970-01-01 00:00:59.999\n"
                    "1970-01-01 00:01:00.000\n");
}

TEST(TimeFormatter, WhatItWritesIsReadAgain) {
    for (int64_t time = -3000000000000; time < 7000000000000; time += 97654321987) {
        for (const Zone &zone : {kUtc, kEast, kWest}) {
            EXPECT_EQ(timeFromText(shown(time, zone), kNow, zone), time);
        }
    }
}

} // namespace
} // namespace zantlog::view
