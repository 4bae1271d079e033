// Local time on both halves of the earth, and times that are composed as Windows' runtime does it.
#include "tests/sim/time_zone.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog::sim {

namespace {

std::string local(const TimeZone &zone, int64_t time) {
    std::tm parts{};
    if (!breakDownLocal(zone, time, &parts)) {
        return "<none>";
    }
    char text[64];
    std::snprintf(text, sizeof(text), "%04d-%02d-%02d %02d:%02d:%02d s%d", parts.tm_year + 1900,
                  parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, parts.tm_isdst);
    return text;
}

int64_t composed(const TimeZone &zone, int year, int month, int day, int hour, int minute, int isdst) {
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_isdst = isdst;
    return composeLocal(zone, &parts);
}

TEST(TimeZones, CentralEuropeChangesInMarchAndOctober) {
    const TimeZone zone = centralEurope();
    EXPECT_EQ(local(zone, 1743296399), "2025-03-30 01:59:59 s0");
    EXPECT_EQ(local(zone, 1743296400), "2025-03-30 03:00:00 s1");
    EXPECT_EQ(local(zone, 1761440399), "2025-10-26 02:59:59 s1");
    EXPECT_EQ(local(zone, 1761440400), "2025-10-26 02:00:00 s0");
}

TEST(TimeZones, EasternAustraliaIsAheadOverTheTurnOfTheYear) {
    const TimeZone zone = easternAustralia();
    EXPECT_EQ(local(zone, 1759593599), "2025-10-05 01:59:59 s0");
    EXPECT_EQ(local(zone, 1759593600), "2025-10-05 03:00:00 s1");
    EXPECT_EQ(local(zone, 1767225600), "2026-01-01 11:00:00 s1");
    EXPECT_EQ(local(zone, 1775318399), "2026-04-05 02:59:59 s1");
    EXPECT_EQ(local(zone, 1775318400), "2026-04-05 02:00:00 s0");
}

TEST(TimeZones, LeapDays) {
    const TimeZone utc;
    EXPECT_EQ(local(utc, 951782400), "2000-02-29 00:00:00 s0");
    EXPECT_EQ(local(utc, 1709164800), "2024-02-29 00:00:00 s0");
    EXPECT_EQ(local(utc, 4107542399), "2100-02-28 23:59:59 s0");
    EXPECT_EQ(local(utc, 4107542400), "2100-03-01 00:00:00 s0");
}

TEST(TimeZones, BoundsAreThoseOfTheRuntime) {
    std::tm parts{};
    EXPECT_FALSE(breakDownLocal(TimeZone{}, -1, &parts));
    EXPECT_TRUE(breakDownLocal(TimeZone{}, 0, &parts));
    EXPECT_TRUE(breakDownLocal(TimeZone{}, 32535215999, &parts));
    EXPECT_FALSE(breakDownLocal(TimeZone{}, 32535216000, &parts));
    EXPECT_TRUE(breakDownUtc(-43200, &parts));
    EXPECT_FALSE(breakDownUtc(-43201, &parts));
}

TEST(TimeZones, ComposingTakesTheSavingThatIsSaid) {
    const TimeZone zone = centralEurope();
    EXPECT_EQ(composed(zone, 2025, 7, 1, 12, 0, -1), 1751364000);
    EXPECT_EQ(composed(zone, 2025, 7, 1, 12, 0, 1), 1751364000);
    EXPECT_EQ(composed(zone, 2025, 7, 1, 12, 0, 0), 1751367600); // taken for standard time
    EXPECT_EQ(composed(zone, 2025, 1, 15, 12, 0, -1), 1736938800);
    EXPECT_EQ(composed(zone, 2025, 1, 15, 12, 0, 1), 1736935200); // an hour earlier than the clock says
}

TEST(TimeZones, ComposingNormalisesWithTheSavingInForce) {
    const TimeZone zone = centralEurope();
    std::tm parts{};
    parts.tm_year = 125;
    parts.tm_mon = 6;
    parts.tm_mday = 1;
    parts.tm_hour = 12;
    EXPECT_EQ(composeLocal(zone, &parts), 1751367600);
    EXPECT_EQ(parts.tm_hour, 13);
    EXPECT_EQ(parts.tm_isdst, 1);
}

TEST(TimeZones, HourThatComesTwiceIsTheSecondOne) {
    EXPECT_EQ(composed(centralEurope(), 2025, 10, 26, 2, 30, -1), 1761442200);
    EXPECT_EQ(composed(centralEurope(), 2025, 10, 26, 2, 30, 1), 1761438600);
}

TEST(TimeZones, HourThatIsSkippedIsTheOneBefore) {
    EXPECT_EQ(composed(centralEurope(), 2025, 3, 30, 2, 30, -1), 1743294600); // 01:30
    EXPECT_EQ(composed(centralEurope(), 2025, 3, 30, 2, 30, 0), 1743298200);  // 03:30 by the wall clock
}

TEST(TimeZones, TextsOfTheVariable) {
    const auto offset = [](const char *text) {
        const auto zone = timeZoneFromText(text);
        return zone ? zone->bias : -1;
    };
    EXPECT_EQ(offset("UTC0"), 0);
    EXPECT_EQ(offset("CET-1CEST"), -3600);
    EXPECT_EQ(offset("IST-5:30"), -19800);
    EXPECT_EQ(offset("EST5EDT"), 18000);
    EXPECT_EQ(offset(""), -1);
    EXPECT_EQ(offset("X"), -1);
    EXPECT_EQ(offset("CET-1CEST,rubbish"), -1);
}

TEST(TimeZones, TextWithoutRulesHasThoseOfNorthAmerica) {
    const TimeZone zone = timeZoneFromText("CET-1CEST").value();
    EXPECT_EQ(local(zone, 1741481999), "2025-03-09 01:59:59 s0");
    EXPECT_EQ(local(zone, 1741482000), "2025-03-09 03:00:00 s1");
    EXPECT_EQ(local(zone, 1762041599), "2025-11-02 01:59:59 s1");
    EXPECT_EQ(local(zone, 1762041600), "2025-11-02 01:00:00 s0");
}

TEST(TimeZones, TextCanNameItsRules) {
    const TimeZone zone = timeZoneFromText("CET-1CEST,M3.5.0,M10.5.0/3").value();
    EXPECT_EQ(local(zone, 1743296400), "2025-03-30 03:00:00 s1");
    EXPECT_EQ(local(zone, 1761440400), "2025-10-26 02:00:00 s0");
}

} // namespace

} // namespace zantlog::sim
