// What every implementation of the seam promises of the clock.
#include "logfile/os/os_clock.h"
#include "tests/support/child_process.h"
#include "tests/support/test_folder.h"
#include "tests/support/wide_text.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

std::string text(const std::tm &time) {
    char buffer[64];
    std::snprintf(buffer, sizeof(buffer), "%d-%d-%d %d:%d:%d w%d y%d s%d", time.tm_year, time.tm_mon,
                  time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec, time.tm_wday, time.tm_yday,
                  time.tm_isdst);
    return buffer;
}

std::string utcText(int64_t time) {
    std::tm parts{};
    return utcTime(time, &parts) ? text(parts) : "<none>";
}

std::string localText(int64_t time) {
    std::tm parts{};
    return localTime(time, &parts) ? text(parts) : "<none>";
}

std::tm sundayInNovember() {
    std::tm time{};
    time.tm_year = 125;
    time.tm_mon = 10;
    time.tm_mday = 2;
    time.tm_hour = 0;
    time.tm_min = 3;
    time.tm_sec = 59;
    time.tm_wday = 0;
    time.tm_yday = 305;
    return time;
}

TEST(ClockContract, SecondsAndMillisecondsAreOneClock) {
    const int64_t before = nowSeconds();
    const uint64_t milliseconds = nowMilliseconds();
    const int64_t after = nowSeconds();
    EXPECT_LE(before, static_cast<int64_t>(milliseconds / 1000));
    EXPECT_GE(after, static_cast<int64_t>(milliseconds / 1000));
    EXPECT_GT(before, 1577836800); // 2020
}

TEST(ClockContract, SleepLastsAtLeastAlmostAsLongAsAsked) {
    const uint64_t before = nowMilliseconds();
    sleepMilliseconds(50);
    EXPECT_GE(nowMilliseconds() - before, 45u);
}

TEST(ClockContract, UtcIsBrokenDown) {
    EXPECT_EQ(utcText(0), "70-0-1 0:0:0 w4 y0 s0");
    EXPECT_EQ(utcText(1763249000), "125-10-15 23:23:20 w6 y318 s0");
    EXPECT_EQ(utcText(951782400), "100-1-29 0:0:0 w2 y59 s0");         // a leap day
    EXPECT_EQ(utcText(4294967296), "206-1-7 6:28:16 w0 y37 s0");       // beyond 32 bits
    EXPECT_EQ(utcText(32503679999), "1099-11-31 23:59:59 w2 y364 s0"); // the last second of 2999
}

TEST(ClockContract, TimesOutOfRangeCannotBeBrokenDown) {
    std::tm parts{};
    EXPECT_FALSE(utcTime(INT64_MAX, &parts));
    EXPECT_FALSE(utcTime(INT64_MIN, &parts));
    EXPECT_FALSE(localTime(INT64_MAX, &parts));
    EXPECT_FALSE(localTime(INT64_MIN, &parts));
}

TEST(ClockContract, LocalTimeConvertsBack) {
    for (const int64_t time : {int64_t{86400}, int64_t{1763249000}, int64_t{1751328000}, nowSeconds()}) {
        std::tm parts{};
        ASSERT_TRUE(localTime(time, &parts));
        EXPECT_EQ(fromLocalTime(&parts), time);
    }
}

TEST(ClockContract, ConversionBackNormalisesTheFields) {
    std::tm parts = sundayInNovember();
    parts.tm_mon = 9;
    parts.tm_mday = 33; // 2 November
    parts.tm_sec = 60;
    parts.tm_wday = 5;
    parts.tm_isdst = -1;
    EXPECT_NE(fromLocalTime(&parts), -1);
    EXPECT_EQ(parts.tm_mon, 10);
    EXPECT_EQ(parts.tm_mday, 2);
    EXPECT_EQ(parts.tm_min, 4);
    EXPECT_EQ(parts.tm_sec, 0);
    EXPECT_EQ(parts.tm_wday, 0);
    EXPECT_EQ(parts.tm_yday, 305);
}

TEST(ClockContract, YearsOutOfRangeDoNotConvertBack) {
    std::tm parts = sundayInNovember();
    parts.tm_year = -1900;
    EXPECT_EQ(fromLocalTime(&parts), -1);
    parts = sundayInNovember();
    parts.tm_year = INT32_MAX;
    EXPECT_EQ(fromLocalTime(&parts), -1);
}

TEST(ClockContract, AscTimeEndsInALineEndAndPadsTheDayWithZero) {
    char buffer[32];
    EXPECT_TRUE(formatAscTime(sundayInNovember(), buffer));
    EXPECT_STREQ(buffer, "Sun Nov 02 00:03:59 2025\n");
}

TEST(ClockContract, LocaleTimeIsMonthDayYear) {
    wchar_t buffer[32];
    EXPECT_TRUE(formatLocaleTimeWide(sundayInNovember(), buffer, 32));
    EXPECT_EQ(WideText(buffer), L"11/02/25 00:03:59");
}

TEST(ClockContract, LocaleTimeNeedsRoomForItsTerminator) {
    wchar_t buffer[32];
    EXPECT_TRUE(formatLocaleTimeWide(sundayInNovember(), buffer, 18));
    EXPECT_FALSE(formatLocaleTimeWide(sundayInNovember(), buffer, 17));
}

TEST(ClockContract, FieldsOutOfRangeAreNotFormatted) {
    char narrow[32] = "untouched";
    wchar_t wide[32];
    for (int std::tm::*const field :
         {&std::tm::tm_mon, &std::tm::tm_mday, &std::tm::tm_hour, &std::tm::tm_min, &std::tm::tm_sec,
          &std::tm::tm_wday, &std::tm::tm_yday, &std::tm::tm_year}) {
        for (const int value : {-2000, 20000}) {
            std::tm time = sundayInNovember();
            time.*field = value;
            EXPECT_FALSE(formatAscTime(time, narrow));
            EXPECT_FALSE(formatLocaleTimeWide(time, wide, 32));
        }
    }
    EXPECT_STREQ(narrow, "untouched");
}

// Central European time, with daylight saving.
ZANTLOG_CHILD(checksTheLocalTimeOfCentralEurope) {
    if (localText(1763249000) != "125-10-16 0:23:20 w0 y319 s0") {
        std::fprintf(stderr, "winter: %s\n", localText(1763249000).c_str());
        return 10;
    }
    if (localText(1751328000) != "125-6-1 2:0:0 w2 y181 s1") {
        std::fprintf(stderr, "summer: %s\n", localText(1751328000).c_str());
        return 11;
    }
    std::tm parts{};
    if (!utcTime(1751328000, &parts)) {
        return 12;
    }
    parts.tm_isdst = -1;
    return fromLocalTime(&parts) == 1751328000 - 7200 ? 0 : 13;
}

TEST(ClockContract, LocalTimeFollowsTheZone) {
    setEnvironment("TZ", "CET-1CEST");
    const int code = runChild("checksTheLocalTimeOfCentralEurope");
    setEnvironment("TZ", nullptr);
    EXPECT_EQ(code, 0);
}

} // namespace

} // namespace zantlog::test
