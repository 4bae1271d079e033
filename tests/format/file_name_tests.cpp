// Names of log files.
#include <gtest/gtest.h>
#include <string>

#include "logfile/format/file_name.h"

namespace {

using namespace zantlog;

// ---- product files: making

TEST(ProductFileName, IsTheDocumentedExample) {
    char path[128];
    const ProductFileName name{12, 3, 16777343, 25, 11, 15, 0};
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "C:\\logs\\", name));
    EXPECT_STREQ(path, "C:\\logs\\12-3-16777343-251115-0000000000.log");
}

TEST(ProductFileName, PadsDateAndSequence) {
    char path[128];
    const ProductFileName name{4294967295, 4294967295, 4294967295, 5, 1, 2, 4294967295};
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "", name));
    EXPECT_STREQ(path, "4294967295-4294967295-4294967295-050102-4294967295.log");
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "", {1, 2, 3, 0, 12, 31, 42}));
    EXPECT_STREQ(path, "1-2-3-001231-0000000042.log");
}

TEST(ProductFileName, OfYearsBeyondTwoDigitsIsLonger) {
    char path[128];
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "", {1, 2, 3, 100, 1, 1, 0}));
    EXPECT_STREQ(path, "1-2-3-1000101-0000000000.log");
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "", {1, 2, 3, -1, 1, 1, 0}));
    EXPECT_STREQ(path, "1-2-3--10101-0000000000.log");
}

TEST(ProductFileName, NothingIsPutBetweenDirectoryAndName) {
    char path[128];
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "C:\\logs", {1, 2, 3, 25, 11, 15, 0}));
    EXPECT_STREQ(path, "C:\\logs1-2-3-251115-0000000000.log");
}

TEST(ProductFileName, ThatDoesNotFitIsRefused) {
    char path[28];
    EXPECT_TRUE(formatProductFilePath(path, 28, "", {1, 2, 3, 25, 11, 15, 0}));
    EXPECT_FALSE(formatProductFilePath(path, 27, "", {1, 2, 3, 25, 11, 15, 0}));
    EXPECT_FALSE(formatProductFilePath(path, 28, "x", {1, 2, 3, 25, 11, 15, 0}));
}

// ---- log set files: making

std::tm localTime(int year, int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

TEST(LogSetFileName, HasDateAndTimeToTheSecond) {
    char path[128];
    ASSERT_TRUE(formatLogSetFilePath(path, sizeof path, "C:\\logs\\", 12, "billing",
                                     localTime(2025, 11, 15, 9, 5, 7)));
    EXPECT_STREQ(path, "C:\\logs\\12-billing-251115090507.log");
    ASSERT_TRUE(formatLogSetFilePath(path, sizeof path, "", 4294967295, "s", localTime(2000, 1, 1, 0, 0, 0)));
    EXPECT_STREQ(path, "4294967295-s-000101000000.log");
}

TEST(LogSetFileName, ThatDoesNotFitIsRefused) {
    char path[21];
    EXPECT_TRUE(formatLogSetFilePath(path, 21, "", 1, "s", localTime(2025, 11, 15, 9, 5, 7)));
    EXPECT_FALSE(formatLogSetFilePath(path, 20, "", 1, "s", localTime(2025, 11, 15, 9, 5, 7)));
}

// ---- product files: ids in a name

struct ParsedIds {
    bool parsed;
    uint32_t product;
    uint32_t originator;

    bool operator==(const ParsedIds &) const = default;
};

ParsedIds idsOf(const char *name) {
    ParsedIds ids{};
    ids.parsed = parseProductFileIds(name, &ids.product, &ids.originator);
    return ids;
}

TEST(ProductFileIds, AreTheFirstTwoFields) {
    EXPECT_EQ(idsOf("12-3-16777343-251115-0000000000.log"), (ParsedIds{true, 12, 3}));
    EXPECT_EQ(idsOf("4294967295-4294967294-1-251115-0.log"), (ParsedIds{true, 4294967295, 4294967294}));
    EXPECT_EQ(idsOf("12-3.log"), (ParsedIds{true, 12, 3}));
    EXPECT_EQ(idsOf("12-3"), (ParsedIds{true, 12, 3}));
}

TEST(ProductFileIds, RunsOfHyphensCountAsOne) {
    EXPECT_EQ(idsOf("7--3-x.log"), (ParsedIds{true, 7, 3}));
    EXPECT_EQ(idsOf("-7-3-x.log"), (ParsedIds{true, 7, 3}));
    EXPECT_EQ(idsOf("---7----3"), (ParsedIds{true, 7, 3}));
}

TEST(ProductFileIds, OnlyTheNumberAtTheBeginningOfAFieldCounts) {
    EXPECT_EQ(idsOf("12abc-3def-1.log"), (ParsedIds{true, 12, 3}));
    EXPECT_EQ(idsOf(" 12- 3-1.log"), (ParsedIds{true, 12, 3}));
    EXPECT_FALSE(idsOf("a12-3-1.log").parsed);
}

TEST(ProductFileIds, MayHaveLeadingZeros) {
    const std::string zeros(100, '0');
    EXPECT_EQ(idsOf((zeros + "12-" + zeros + "3-1.log").c_str()), (ParsedIds{true, 12, 3}));
}

TEST(ProductFileIds, ZeroOrMissingIdsAreRefused) {
    for (const char *name : {"12-0-1.log", "0-3-1.log", "12-x-1.log", "x-3-1.log", "12-", "12", "12.log", "-",
                             "", "readme.log", "12- -3", " -12-3"}) {
        EXPECT_FALSE(idsOf(name).parsed) << name;
    }
}

// ---- product files: the whole name

TEST(WholeProductFileName, IsReadBackAsItWasMade) {
    ProductFileName name{};
    ASSERT_TRUE(parseProductFileName("12-3-16777343-251115-0000000042.log", &name));
    EXPECT_EQ(name.productId, 12u);
    EXPECT_EQ(name.originatorId, 3u);
    EXPECT_EQ(name.hostId, 16777343u);
    EXPECT_EQ(name.year, 25);
    EXPECT_EQ(name.month, 11);
    EXPECT_EQ(name.day, 15);
    EXPECT_EQ(name.daySequence, 42u);
}

TEST(WholeProductFileName, MayHoldTheLargestNumbers) {
    ProductFileName name{};
    ASSERT_TRUE(parseProductFileName("4294967295-4294967294-4294967293-991231-4294967292.log", &name));
    EXPECT_EQ(name.productId, 4294967295u);
    EXPECT_EQ(name.originatorId, 4294967294u);
    EXPECT_EQ(name.hostId, 4294967293u);
    EXPECT_EQ(name.year, 99);
    EXPECT_EQ(name.daySequence, 4294967292u);
}

TEST(WholeProductFileName, MayHaveAShorterSequence) {
    ProductFileName name{};
    ASSERT_TRUE(parseProductFileName("1-2-3-251115-7.log", &name));
    EXPECT_EQ(name.daySequence, 7u);
}

TEST(WholeProductFileName, WithAMissingFieldIsRefusedAndNothingIsStored) {
    for (const char *text : {"", "12", "12-3", "12-3-4", "12-3-4-", "12-3-4-2511", "12-3-4-251115",
                             "12-3-4-251115-", "12-3-4-251115-x.log", "12-set-251115103015.log"}) {
        ProductFileName name{9, 9, 9, 9, 9, 9, 9};
        EXPECT_FALSE(parseProductFileName(text, &name)) << text;
        EXPECT_EQ(name.productId, 9u) << text;
        EXPECT_EQ(name.daySequence, 9u) << text;
    }
}

// ---- product files: continuing one

TEST(ContinuedFileName, GivesDateAndSequence) {
    int32_t year = 0;
    int32_t month = 0;
    int32_t day = 0;
    uint32_t sequence = 0;
    ASSERT_TRUE(
        parseContinuedFileName("12-3-16777343-251115-0000000042.log", &year, &month, &day, &sequence));
    EXPECT_EQ(year, 25);
    EXPECT_EQ(month, 11);
    EXPECT_EQ(day, 15);
    EXPECT_EQ(sequence, 42u);
}

TEST(ContinuedFileName, HostNumbersBeyondASignedIntegerDoNotMatter) {
    int32_t year = 0;
    int32_t month = 0;
    int32_t day = 0;
    uint32_t sequence = 0;
    ASSERT_TRUE(
        parseContinuedFileName("12-3-3232235777-250102-4294967295.log", &year, &month, &day, &sequence));
    EXPECT_EQ(year, 25);
    EXPECT_EQ(month, 1);
    EXPECT_EQ(day, 2);
    EXPECT_EQ(sequence, 4294967295u);
}

TEST(ContinuedFileName, WithAMissingFieldIsRefusedAndNothingIsStored) {
    for (const char *text : {"", "12-3", "12-3-4-251115", "12-3-4-251115-", "12-3-4-25111-1.log",
                             "12-3-4-abcdef-1.log", "12-3-4-2511151-1.log", "12-set-251115103015.log"}) {
        int32_t year = -7;
        int32_t month = -7;
        int32_t day = -7;
        uint32_t sequence = 7;
        EXPECT_FALSE(parseContinuedFileName(text, &year, &month, &day, &sequence)) << text;
        EXPECT_EQ(year, -7) << text;
        EXPECT_EQ(month, -7) << text;
        EXPECT_EQ(day, -7) << text;
        EXPECT_EQ(sequence, 7u) << text;
    }
}

// ---- log set files: reading

TEST(LogSetFileName, IsReadBackAsItWasMade) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName("12-billing-251115090507.log", &name));
    EXPECT_EQ(name.productId, 12u);
    EXPECT_STREQ(name.logSet, "billing");
    EXPECT_STREQ(name.date, "251115090507");
}

TEST(LogSetFileName, ADateIsAtMostTwelveCharacters) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName("12-set-2511150905079999.log", &name));
    EXPECT_STREQ(name.date, "251115090507");
    ASSERT_TRUE(parseLogSetFileName("12-set-2511.log", &name));
    EXPECT_STREQ(name.date, "2511.log");
    ASSERT_TRUE(parseLogSetFileName("12-set-25-1115.log", &name));
    EXPECT_STREQ(name.date, "25");
}

TEST(LogSetFileName, WithoutADateIsStillOne) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName("12-set.log", &name));
    EXPECT_STREQ(name.logSet, "set.log");
    EXPECT_STREQ(name.date, "");
}

TEST(LogSetFileName, RunsOfHyphensCountAsOne) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName("-12--set---251115090507.log", &name));
    EXPECT_EQ(name.productId, 12u);
    EXPECT_STREQ(name.logSet, "set");
    EXPECT_STREQ(name.date, "251115090507");
}

TEST(LogSetFileName, AHyphenInALogSetsNameEndsIt) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName("12-my-set-251115090507.log", &name));
    EXPECT_STREQ(name.logSet, "my");
    EXPECT_STREQ(name.date, "set");
}

TEST(LogSetFileName, WithoutIdOrLogSetIsRefused) {
    LogSetFileName name{};
    for (const char *text :
         {"", "12", "12-", "0-set-251115090507.log", "set-12-251115090507.log", "-", "12--"}) {
        EXPECT_FALSE(parseLogSetFileName(text, &name)) << text;
    }
}

TEST(LogSetFileName, AnOverlongLogSetIsCut) {
    LogSetFileName name{};
    ASSERT_TRUE(parseLogSetFileName(("12-" + std::string(3000, 's') + "-251115090507.log").c_str(), &name));
    EXPECT_EQ(std::string(name.logSet), std::string(1024, 's'));
    EXPECT_STREQ(name.date, "251115090507");
}

} // namespace
