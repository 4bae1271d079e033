// Time zones as texts.
#include <gtest/gtest.h>

#include "zantlog/log_file.h"

namespace {

int32_t offsetOf(const char *text) {
    int32_t offset = -99;
    EXPECT_EQ(TimeZoneToOffset(text, &offset), 0u) << text;
    return offset;
}

TEST(TimeZoneText, GreenwichIsZero) {
    EXPECT_EQ(offsetOf("GMT"), 0);
}

TEST(TimeZoneText, EastIsPositive) {
    EXPECT_EQ(offsetOf("GMT+1:00"), 3600);
    EXPECT_EQ(offsetOf("GMT+5:45"), 20700);
    EXPECT_EQ(offsetOf("GMT12:00"), 43200);
}

TEST(TimeZoneText, MinutesWestAreSubtracted) {
    EXPECT_EQ(offsetOf("GMT-5:30"), -19800);
    EXPECT_EQ(offsetOf("GMT-8:00"), -28800);
}

TEST(TimeZoneText, HourZeroCountsAsWest) {
    EXPECT_EQ(offsetOf("GMT-0:30"), -1800);
    EXPECT_EQ(offsetOf("GMT+0:30"), -1800);
    EXPECT_EQ(offsetOf("GMT0:30"), -1800);
}

TEST(TimeZoneText, WhatIsMissingCountsAsZero) {
    EXPECT_EQ(offsetOf("GMT+2"), 7200);
    EXPECT_EQ(offsetOf("GMT+2:"), 7200);
    EXPECT_EQ(offsetOf("GMT-3:x"), -10800);
    EXPECT_EQ(offsetOf("GMT+"), 0);
    EXPECT_EQ(offsetOf("GMTx"), 0);
}

TEST(TimeZoneText, BlanksBeforeTheNumbersAreSkipped) {
    EXPECT_EQ(offsetOf("GMT 3: 30"), 12600);
}

TEST(TimeZoneText, OtherBeginningsFailAndStoreNothing) {
    for (const char *text : {"", "G", "GM", "gmt", "UTC+1:00", " GMT", "+1:00"}) {
        int32_t offset = -99;
        EXPECT_EQ(TimeZoneToOffset(text, &offset), 1u) << text;
        EXPECT_EQ(offset, -99) << text;
    }
}

TEST(TimeZoneText, HugeNumbersDoNoHarm) {
    int32_t offset = 0;
    EXPECT_EQ(TimeZoneToOffset("GMT+99999999999:99999999999", &offset), 0u);
    EXPECT_EQ(TimeZoneToOffset("GMT-99999999999:99999999999", &offset), 0u);
}

TEST(TimeZoneText, NullArgumentsAreInvalid) {
    int32_t offset = -99;
    EXPECT_EQ(TimeZoneToOffset(nullptr, &offset), 3u);
    EXPECT_EQ(TimeZoneToOffset("GMT", nullptr), 3u);
    EXPECT_EQ(offset, -99);
}

} // namespace
