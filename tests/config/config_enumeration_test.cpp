// Reading of all records of all products, or of one.
#include "tests/config/read_records.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

// Location and configuration in stores of both kinds, in all combinations.
using Combination = std::tuple<BackEnd, BackEnd>;

class ConfigEnumeration : public testing::TestWithParam<Combination> {
protected:
    void SetUp() override {
        location = makeStore(std::get<0>(GetParam()));
        store = makeStore(std::get<1>(GetParam()));
    }
    std::unique_ptr<TestStore> location;
    std::unique_ptr<TestStore> store;
};

TEST_P(ConfigEnumeration, AnEmptyLocationIsThirtyNine) {
    Records records;
    EXPECT_EQ(records.readAll(*location), 39U);
    EXPECT_EQ(records.count, 0U);
    records.count = 77;
    EXPECT_EQ(records.readOne(*location, 31), 39U);
    EXPECT_EQ(records.count, 0U);
}

TEST_P(ConfigEnumeration, NullArrayOrCountIsRefused) {
    zantLogCfg *array[1];
    uint32_t count = 77;
    const char *at = location->path().c_str();
    EXPECT_EQ(zantLogReadAllCfg(at, 1, nullptr, &count), 3U);
    EXPECT_EQ(zantLogReadAllCfg(at, 1, array, nullptr), 3U);
    EXPECT_EQ(zantLogReadProdIDCfg(at, 31, 1, nullptr, &count), 3U);
    EXPECT_EQ(zantLogReadProdIDCfg(at, 31, 1, array, nullptr), 3U);
    EXPECT_EQ(count, 77U);
    EXPECT_EQ(FreeConfigArray(nullptr, 1), 3U);
}

TEST_P(ConfigEnumeration, ReadsDefaultOriginatorsAndLogSetsOfAProduct) {
    registerProduct(*location, 31, store->path(), "billing,bil");
    store->text("Default", "LogDirectory", "D:\\logs");
    store->number("Default", "DebugLevel", 2);
    store->number("3", "DebugLevel", 4);
    store->text("3", "LogDirectory", "sub");
    store->number("4294967295", "DiagnosticLevel", 5);
    store->text(store->logSet("Default"), "LogDirectory", "D:\\sets");
    store->text(store->logSet("nightly"), "LogDirectory", "night");
    store->text(store->logSet("weekly"), "FileName", "week");

    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    // The registry enumerates in the order of its own.
    EXPECT_EQ(records.names(), "31/112 31/3 31/4294967295 31:Default 31:nightly 31:weekly");
    for (uint32_t i = 0; i < records.count; ++i) {
        EXPECT_STREQ(records.array[i]->productNames, "billing,bil") << i;
        EXPECT_EQ(records.array[i]->changedMask, 0U) << i;
    }
    EXPECT_STREQ(records.named("112").logDirectory, "D:\\logs\\");
    EXPECT_STREQ(records.named("3").logDirectory, "D:\\logs\\sub\\");
    EXPECT_EQ(records.named("3").debugLevel, 4U);
    EXPECT_EQ(records.named("3").isLogSet, 0U);
    EXPECT_EQ(records.named("4294967295").debugLevel, 2U);
    EXPECT_EQ(records.named("4294967295").diagLevel, 5U);
    EXPECT_STREQ(records.named("Default").logDirectory, "D:\\sets\\");
    EXPECT_STREQ(records.named("nightly").logDirectory, "D:\\sets\\night\\");
    EXPECT_STREQ(records.named("nightly").logSetFileName, "nightly");
    EXPECT_STREQ(records.named("weekly").logSetFileName, "week");
    for (const char *set : {"Default", "nightly", "weekly"}) {
        EXPECT_EQ(records.named(set).isLogSet, 1U) << set;
        EXPECT_EQ(records.named(set).originatorId, 0U) << set;
    }

    Records one;
    ASSERT_EQ(one.readOne(*location, 31), 0U);
    EXPECT_EQ(one.names(), records.names());
}

TEST_P(ConfigEnumeration, TheDefaultRecordIsThereWithoutADefaultSection) {
    registerProduct(*location, 31, store->path(), "billing");
    store->number("3", "DebugLevel", 4);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/3");
    EXPECT_EQ(records.array[0]->maxLogFileSizeKB, 10240U);
    EXPECT_EQ(records.array[0]->appMsgLogging, 1U);
}

TEST_P(ConfigEnumeration, ADefaultLogSetWithoutKeysIsNone) {
    registerProduct(*location, 31, store->path(), "billing");
    store->text(store->logSet("Default"), "NtEventLogSourceName", "Source");
    store->number(store->logSet("nightly"), "DebugLevel", 1);
    store->text(store->logSet("none"), "LogFileSDDL", "D:");
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31:nightly");
    EXPECT_STREQ(records.named("nightly").eventSource.name, "Application");
    EXPECT_EQ(records.named("nightly").appMsgLogging, 1U);
    EXPECT_EQ(records.named("nightly").isLogSet, 1U);
}

TEST_P(ConfigEnumeration, SeveralProductsAreReadInTheirOrder) {
    const std::unique_ptr<TestStore> other = makeStore(std::get<1>(GetParam()));
    registerProduct(*location, 31, store->path(), "one");
    registerProduct(*location, 32, other->path(), "two");
    store->number("3", "DebugLevel", 4);
    other->number("3", "DebugLevel", 5);
    other->number(other->logSet("nightly"), "DebugLevel", 1);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/3 32/112 32/3 32:nightly");
    EXPECT_STREQ(records.array[1]->productNames, "one");
    EXPECT_STREQ(records.array[3]->productNames, "two");
    Records one;
    ASSERT_EQ(one.readOne(*location, 32), 0U);
    EXPECT_EQ(one.names(), "32/112 32/3 32:nightly");
    Records none;
    EXPECT_EQ(none.readOne(*location, 33), 39U);
}

TEST_P(ConfigEnumeration, OriginatorsInheritOnlyWhatACopyCarries) {
    registerProduct(*location, 31, store->path(), "billing");
    store->text("Default", "LogDirectory", "D:\\logs");
    store->text("Default", "OIDNames", "writer");
    store->text("Default", "L10nLib", "lib");
    store->text("Default", "L10nResource", "res");
    store->text("Default", "L10nResourceDir", "dir");
    store->number("Default", "DebugLevel", 1);
    store->number("Default", "DiagnosticLevel", 2);
    store->number("Default", "DynaReloadInSec", 90);
    store->boolean("Default", "LogToStdout", true);
    store->text("Default", "AppMsgLogging", "OFF");
    store->text("Default", "OIDAppMsgLogging", "a");
    store->text("Default", "OIDDebugLogging", "b");
    store->text("Default", "OIDDiagLogging", "c");
    store->text("Default", "RolloverMode", "FileSize | LocalTime");
    store->boolean("Default", "LogRecycle", true);
    store->number("Default", "MaxLogFileSizeKB", 5);
    store->text("Default", "RolloverAtLocalTime", "00:01");
    store->number("Default", "RolloverPeriodInSeconds", 6);
    store->number("Default", "NumberOfLogFiles", 7);
    store->text("Default", "NtEventLogSourceName", "Source");
    store->number("Default", "NtEventLogCategory", 8);
    store->text("Default", "LogFileSDDL", "D:");
    store->number("3", "DebugLevel", 4);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    ASSERT_EQ(records.names(), "31/112 31/3");
    const zantLogCfg &base = *records.array[0];
    EXPECT_EQ(base.dynaReloadInSec, 90);
    EXPECT_EQ(base.logRecycle, 1U);
    EXPECT_EQ(base.eventSource.category, 8);
    EXPECT_STREQ(base.oidAppMsgLogging, "a");

    const zantLogCfg &cfg = *records.array[1];
    EXPECT_STREQ(cfg.logDirectory, "D:\\logs\\");
    EXPECT_STREQ(cfg.originatorNames, "writer");
    EXPECT_STREQ(cfg.l10nLib, "lib");
    EXPECT_STREQ(cfg.l10nResource, "res");
    EXPECT_STREQ(cfg.l10nResourceDir, "dir");
    EXPECT_EQ(cfg.debugLevel, 4U);
    EXPECT_EQ(cfg.diagLevel, 2U);
    EXPECT_EQ(cfg.outputFlags, 1U);
    EXPECT_EQ(cfg.appMsgLogging, 0U);
    EXPECT_EQ(cfg.rolloverMode, 3U);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 5U);
    EXPECT_EQ(cfg.rolloverTime, 60);
    EXPECT_EQ(cfg.rolloverPeriod, 6);
    EXPECT_EQ(cfg.numberOfLogFiles, 7U);
    EXPECT_STREQ(cfg.eventSource.name, "Source");
    EXPECT_STREQ(cfg.logFileSDDL, "D:");
    EXPECT_NE(cfg.logFileSDDL, base.logFileSDDL);

    EXPECT_EQ(cfg.dynaReloadInSec, 0);
    EXPECT_EQ(cfg.logRecycle, 0U);
    EXPECT_EQ(cfg.eventSource.category, 0);
    EXPECT_EQ(cfg.oidAppMsgLogging, nullptr);
    EXPECT_EQ(cfg.oidDebugLogging, nullptr);
    EXPECT_EQ(cfg.oidDiagLogging, nullptr);
}

TEST_P(ConfigEnumeration, LogSetsInheritOnlyWhatACopyCarries) {
    registerProduct(*location, 31, store->path(), "billing");
    const std::string base = store->logSet("Default");
    store->number(base, "DynaReloadInSec", 90);
    store->boolean(base, "LogRecycle", true);
    store->text(base, "FileName", "base");
    store->text(base, "OIDDebugLogging", "b");
    store->number(base, "NtEventLogCategory", 8);
    store->number(base, "MaxLogFileSizeKB", 5);
    store->number(store->logSet("nightly"), "DebugLevel", 4);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    const zantLogCfg &cfg = records.named("nightly");
    EXPECT_EQ(cfg.maxLogFileSizeKB, 5U);
    EXPECT_EQ(cfg.debugLevel, 4U);
    EXPECT_STREQ(cfg.logSetFileName, "nightly");
    EXPECT_EQ(cfg.isLogSet, 1U);
    EXPECT_EQ(cfg.dynaReloadInSec, 0);
    EXPECT_EQ(cfg.logRecycle, 0U);
    EXPECT_EQ(cfg.eventSource.category, 0);
    EXPECT_EQ(cfg.oidDebugLogging, nullptr);
    EXPECT_STREQ(records.named("Default").oidDebugLogging, "b");
}

TEST_P(ConfigEnumeration, NeverReadsMoreThanTheCapacity) {
    registerProduct(*location, 31, store->path(), "billing");
    store->number("Default", "DebugLevel", 1);
    store->number("3", "DebugLevel", 1);
    store->number("4", "DebugLevel", 1);
    store->number(store->logSet("Default"), "DebugLevel", 1);
    store->number(store->logSet("nightly"), "DebugLevel", 1);
    const char *const expected[] = {"",
                                    "31/112",
                                    "31/112 31/3",
                                    "31/112 31/3 31/4",
                                    "31/112 31/3 31/4 31:Default",
                                    "31/112 31/3 31/4 31:Default 31:nightly",
                                    "31/112 31/3 31/4 31:Default 31:nightly"};
    for (uint32_t capacity = 0; capacity < 7; ++capacity) {
        zantLogCfg guard;
        Records all;
        all.array[capacity] = &guard;
        EXPECT_EQ(all.readAll(*location, capacity), capacity == 0 ? 39U : 0U);
        EXPECT_EQ(all.names(), expected[capacity]);
        EXPECT_EQ(all.array[capacity], &guard);
        Records one;
        one.array[capacity] = &guard;
        EXPECT_EQ(one.readOne(*location, 31, capacity), capacity == 0 ? 39U : 0U);
        EXPECT_EQ(one.names(), expected[capacity]);
        EXPECT_EQ(one.array[capacity], &guard);
    }
}

TEST_P(ConfigEnumeration, TheSecondProductIsNotReadBeyondTheCapacity) {
    const std::unique_ptr<TestStore> other = makeStore(std::get<1>(GetParam()));
    registerProduct(*location, 31, store->path(), "one");
    registerProduct(*location, 32, other->path(), "two");
    other->number(other->logSet("Default"), "DebugLevel", 1);
    Records records;
    EXPECT_EQ(records.readAll(*location, 1), 0U);
    EXPECT_EQ(records.names(), "31/112");
}

TEST_P(ConfigEnumeration, AnEntryWithoutAPathIsSkipped) {
    location->text("30", "Names", "no path");
    location->text("LoggingTools", "L10nResourceDir", "dir");
    registerProduct(*location, 31, store->path(), "billing");
    Records records;
    EXPECT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112");
    Records none;
    EXPECT_EQ(none.readOne(*location, 30), 39U);
    EXPECT_EQ(none.count, 0U);
    Records zero;
    EXPECT_EQ(zero.readOne(*location, 0), 39U);
}

TEST_P(ConfigEnumeration, OnlyEntriesWithoutAPathAreThirtyNine) {
    location->text("30", "Names", "no path");
    Records records;
    EXPECT_EQ(records.readAll(*location), 39U);
    EXPECT_EQ(records.count, 0U);
}

TEST_P(ConfigEnumeration, AProductThatCannotBeReadIsSkippedAmongAllAndASuccessAlone) {
    registerProduct(*location, 30, store->path() + (store->isFile() ? ".none.conf" : "-none"), "gone");
    Records none;
    EXPECT_EQ(none.readAll(*location), 39U);
    EXPECT_EQ(none.count, 0U);
    Records alone;
    EXPECT_EQ(alone.readOne(*location, 30), 0U);
    EXPECT_EQ(alone.count, 0U);
    registerProduct(*location, 31, store->path(), "there");
    Records records;
    EXPECT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112");
}

TEST_P(ConfigEnumeration, SectionsThatAreNoNumberAreOriginatorZero) {
    registerProduct(*location, 31, store->path(), "billing");
    store->number("7x", "DebugLevel", 1);
    store->number("name", "DebugLevel", 2);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/7 31/0");
    EXPECT_EQ(records.array[1]->debugLevel, 1U);
    EXPECT_EQ(records.array[2]->debugLevel, 2U);
}

TEST_P(ConfigEnumeration, TheSameOriginatorTwiceIsReadOnce) {
    registerProduct(*location, 31, store->path(), "billing");
    store->number("07", "DebugLevel", 1);
    store->number("112", "DebugLevel", 3);
    store->number("7", "DebugLevel", 2);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/7");
    EXPECT_EQ(records.array[0]->debugLevel, 0U);
    EXPECT_EQ(records.array[1]->debugLevel, 1U);
}

TEST_P(ConfigEnumeration, TheSameProductUnderTwoNamesIsReadOnce) {
    location->text("031", "Configuration", "SOFTWARE\\nowhere");
    registerProduct(*location, 31, store->path(), "billing");
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112");
    Records one;
    ASSERT_EQ(one.readOne(*location, 31), 0U);
    EXPECT_EQ(one.names(), "31/112");
}

TEST_P(ConfigEnumeration, AnOverlongSectionNameEndsTheEnumerationOfItsProduct) {
    registerProduct(*location, 31, store->path(), "billing");
    store->number("3", "DebugLevel", 1);
    store->number(std::string(79, '4'), "DebugLevel", 1);
    store->number("9" + std::string(80, 'n'), "DebugLevel", 1);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/3 31/4294967295");
}

INSTANTIATE_TEST_SUITE_P(Stores, ConfigEnumeration,
                         testing::Combine(testing::Values(BackEnd::Conf, BackEnd::Registry),
                                          testing::Values(BackEnd::Conf, BackEnd::Registry)),
                         [](const auto &stores) {
                             const auto name = [](BackEnd backEnd) {
                                 return std::string(backEnd == BackEnd::Conf ? "Conf" : "Registry");
                             };
                             return name(std::get<0>(stores.param)) + "At" + name(std::get<1>(stores.param));
                         });

} // namespace
} // namespace zantlog::test
