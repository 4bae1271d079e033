// Rollover mode and times of day as texts.
#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/log_file.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(RolloverModeText, IsReadWordByWord) {
    const struct {
        const char *text;
        uint32_t mode;
    } modes[] = {
        {"None", 0},
        {"", 0},
        {"FileSize", 1},
        {"LocalTime", 2},
        {"Periodic", 4},
        {"FileSize | LocalTime", 3},
        {"FileSize|Periodic", 5},
        {"LocalTime | FileSize", 3},
        {"Periodic | LocalTime", 2},
        {"FileSize | LocalTime | Periodic", 3},
        {"filesize", 0},
        {"localtime periodic", 0},
        {"xFileSizePeriodicy", 5},
        {"File Size", 0},
    };
    for (const auto &mode : modes) {
        EXPECT_EQ(SettingStringToRolloverModeEnum(mode.text), mode.mode) << mode.text;
    }
    EXPECT_EQ(SettingStringToRolloverModeEnum(nullptr), 0U);
}

TEST(RolloverModeText, IsWrittenWithSeparators) {
    const char *const texts[] = {"None",
                                 "FileSize",
                                 "LocalTime",
                                 "FileSize | LocalTime",
                                 "Periodic",
                                 "FileSize | Periodic",
                                 "LocalTime | Periodic",
                                 "FileSize | LocalTime | Periodic",
                                 ""};
    for (uint32_t mode = 0; mode < 9; ++mode) {
        char buffer[256] = "";
        EXPECT_EQ(RolloverModeEnumToSettingString(mode, buffer), buffer);
        EXPECT_STREQ(buffer, texts[mode]);
    }
}

TEST(RolloverModeText, IsAppendedToWhatStandsInTheBuffer) {
    char buffer[256] = "was";
    EXPECT_EQ(RolloverModeEnumToSettingString(0, buffer), buffer);
    EXPECT_STREQ(buffer, "wasNone");
    std::strcpy(buffer, "was");
    RolloverModeEnumToSettingString(1, buffer);
    EXPECT_STREQ(buffer, "wasFileSize");
    std::strcpy(buffer, "was");
    RolloverModeEnumToSettingString(2, buffer);
    EXPECT_STREQ(buffer, "was | LocalTime");
}

TEST(RolloverModeText, StaysWithinTheBuffer) {
    char area[300];
    std::memset(area, 'x', sizeof area);
    area[250] = '\0';
    RolloverModeEnumToSettingString(7, area);
    EXPECT_EQ(std::string(area), std::string(250, 'x') + "FileS");
    EXPECT_EQ(area[256], 'x');

    std::memset(area, 'x', sizeof area);
    EXPECT_EQ(RolloverModeEnumToSettingString(7, area), area);
    EXPECT_EQ(std::string(area, sizeof area), std::string(sizeof area, 'x'));
    EXPECT_EQ(RolloverModeEnumToSettingString(7, nullptr), nullptr);
}

TEST(TimeText, IsSplitIntoThreeNumbers) {
    const struct {
        const char *text;
        const char *delimiters;
        uint32_t numbers[3];
    } times[] = {
        {"10:30:15", ":", {10, 30, 15}},
        {"10:30", ":", {10, 30, 0}},
        {"10", ":", {10, 0, 0}},
        {"", ":", {0, 0, 0}},
        {":::", ":", {0, 0, 0}},
        {"::7::8", ":", {7, 8, 0}},
        {"1:2:3:4", ":", {1, 2, 3}},
        {"1-2:3", ":-", {1, 2, 3}},
        {"1:2", "", {1, 0, 0}},
        {"x:12y: 9", ":", {0, 12, 9}},
        {"91293", "9", {12, 3, 0}},
        {"-1:0:0", ":", {0xFFFFFFFF, 0, 0}},
        {"4294967295:08:09", ":", {0xFFFFFFFF, 8, 9}},
    };
    for (const auto &time : times) {
        uint32_t numbers[3] = {99, 99, 99};
        EXPECT_EQ(zantLogStrTimeToT(time.text, time.delimiters, &numbers[0], &numbers[1], &numbers[2]), 1);
        EXPECT_EQ(numbers[0], time.numbers[0]) << time.text;
        EXPECT_EQ(numbers[1], time.numbers[1]) << time.text;
        EXPECT_EQ(numbers[2], time.numbers[2]) << time.text;
    }
}

TEST(TimeText, NullArgumentsGiveZeroAndStoreNothing) {
    uint32_t a = 99;
    uint32_t b = 99;
    uint32_t c = 99;
    EXPECT_EQ(zantLogStrTimeToT(nullptr, ":", &a, &b, &c), 0);
    EXPECT_EQ(zantLogStrTimeToT("1:2:3", nullptr, &a, &b, &c), 0);
    EXPECT_EQ(zantLogStrTimeToT("1:2:3", ":", nullptr, &b, &c), 0);
    EXPECT_EQ(zantLogStrTimeToT("1:2:3", ":", &a, nullptr, &c), 0);
    EXPECT_EQ(zantLogStrTimeToT("1:2:3", ":", &a, &b, nullptr), 0);
    EXPECT_EQ(zantLogGetTime(nullptr, &a, &b, &c), 0);
    EXPECT_EQ(zantLogGetTime("1:2:3", &a, &b, nullptr), 0);
    EXPECT_EQ(a, 99U);
    EXPECT_EQ(b, 99U);
    EXPECT_EQ(c, 99U);
}

TEST(TimeText, TimeOfDayIsSplitAtColons) {
    uint32_t hours = 0;
    uint32_t minutes = 0;
    uint32_t seconds = 0;
    EXPECT_EQ(zantLogGetTime("23:59:58", &hours, &minutes, &seconds), 1);
    EXPECT_EQ(hours, 23U);
    EXPECT_EQ(minutes, 59U);
    EXPECT_EQ(seconds, 58U);
    EXPECT_EQ(zantLogGetTime("7-8", &hours, &minutes, &seconds), 1);
    EXPECT_EQ(hours, 7U);
    EXPECT_EQ(minutes, 0U);
    EXPECT_EQ(seconds, 0U);
}

TEST(StoreResults, AreMapped) {
    const uint32_t expected[] = {0, 3, 6, 6, 6, 55, 1, 9, 50, 61, 64};
    for (uint32_t result = 0; result < 11; ++result) {
        EXPECT_EQ(utipsres2zantlogres(result), expected[result]) << result;
    }
    EXPECT_EQ(utipsres2zantlogres(11), 1U);
    EXPECT_EQ(utipsres2zantlogres(0x80000000), 1U);
    EXPECT_EQ(utipsres2zantlogres(0xFFFFFFFF), 1U);
}

} // namespace
