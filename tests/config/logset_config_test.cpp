// Loading of log sets, from both back ends of the store.
#include "tests/config/test_stores.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

constexpr uint32_t kProduct = 821;

class LogSetConfig : public testing::TestWithParam<BackEnd> {
protected:
    void SetUp() override {
        location = makeLocation();
        store = makeStore(GetParam());
        registerProduct(*location, kProduct, store->path(), "billing");
    }

    uint32_t load(Config &cfg, const char *name) { return zantLogReadlogsetCfg(kProduct, name, &cfg); }

    std::unique_ptr<TestStore> location;
    std::unique_ptr<TestStore> store;
};

TEST_P(LogSetConfig, EveryKeyButThoseOfProductsIsRead) {
    const std::string set = store->logSet("nightly");
    store->text(set, "LogDirectory", "D:\\sets");
    store->text(set, "OIDNames", "writer");
    store->text(set, "L10nLib", "lib");
    store->text(set, "L10nResource", "res");
    store->text(set, "L10nResourceDir", "dir");
    store->number(set, "DebugLevel", 1);
    store->number(set, "DiagnosticLevel", 2);
    store->number(set, "DynaReloadInSec", 3);
    store->boolean(set, "LogToStdout", true);
    store->boolean(set, "LogToStderr", true);
    store->boolean(set, "LogToOslog", true);
    store->text(set, "FileName", "night");
    store->text(set, "AppMsgLogging", "OFF");
    store->text(set, "OIDAppMsgLogging", "a");
    store->text(set, "OIDDebugLogging", "b");
    store->text(set, "OIDDiagLogging", "c");
    store->text(set, "RolloverMode", "LocalTime");
    store->boolean(set, "LogRecycle", true);
    store->number(set, "MaxLogFileSizeKB", 4);
    store->text(set, "RolloverAtLocalTime", "01:02");
    store->number(set, "RolloverPeriodInSeconds", 5);
    store->number(set, "NumberOfLogFiles", 6);
    store->text(set, "NtEventLogSourceName", "Source");
    store->number(set, "NtEventLogCategory", 7);
    store->text(set, "LogFileSDDL", "D:");
    Config cfg;
    ASSERT_EQ(load(cfg, "nightly"), 0U);
    EXPECT_EQ(cfg.productId, kProduct);
    EXPECT_EQ(cfg.originatorId, 0U);
    EXPECT_EQ(cfg.isLogSet, 1U);
    EXPECT_STREQ(cfg.logSetName, "nightly");
    EXPECT_STREQ(cfg.productNames, "billing");
    EXPECT_STREQ(cfg.logDirectory, "D:\\sets\\");
    EXPECT_STREQ(cfg.originatorNames, "writer");
    EXPECT_EQ(cfg.l10nLib, nullptr);
    EXPECT_EQ(cfg.l10nResource, nullptr);
    EXPECT_EQ(cfg.l10nResourceDir, nullptr);
    EXPECT_EQ(cfg.debugLevel, 1U);
    EXPECT_EQ(cfg.diagLevel, 2U);
    EXPECT_EQ(cfg.dynaReloadInSec, 3);
    EXPECT_EQ(cfg.outputFlags, 7U);
    EXPECT_STREQ(cfg.logSetFileName, "night");
    EXPECT_EQ(cfg.appMsgLogging, 0U);
    EXPECT_STREQ(cfg.oidAppMsgLogging, "a");
    EXPECT_STREQ(cfg.oidDebugLogging, "b");
    EXPECT_STREQ(cfg.oidDiagLogging, "c");
    EXPECT_EQ(cfg.rolloverMode, 2U);
    EXPECT_EQ(cfg.logRecycle, 1U);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 4U);
    EXPECT_EQ(cfg.rolloverTime, 3720);
    EXPECT_EQ(cfg.rolloverPeriod, 5);
    EXPECT_EQ(cfg.numberOfLogFiles, 6U);
    EXPECT_STREQ(cfg.eventSource.name, "Source");
    EXPECT_EQ(cfg.eventSource.category, 7);
    EXPECT_STREQ(cfg.logFileSDDL, "D:");
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST_P(LogSetConfig, InheritsFromTheDefaultLogSetKeyByKey) {
    const std::string base = store->logSet("Default");
    store->text(base, "LogDirectory", "D:\\sets");
    store->number(base, "DebugLevel", 3);
    store->boolean(base, "LogRecycle", true);
    store->number(base, "DynaReloadInSec", 90);
    store->text(base, "OIDDebugLogging", "inherited");
    store->number(base, "NtEventLogCategory", 8);
    store->text(store->logSet("nightly"), "LogDirectory", "sub");
    store->number(store->logSet("nightly"), "DebugLevel", 5);
    Config cfg;
    ASSERT_EQ(load(cfg, "nightly"), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\sets\\sub\\");
    EXPECT_EQ(cfg.debugLevel, 5U);
    EXPECT_EQ(cfg.logRecycle, 1U);
    EXPECT_EQ(cfg.dynaReloadInSec, 90);
    EXPECT_STREQ(cfg.oidDebugLogging, "inherited");
    EXPECT_EQ(cfg.eventSource.category, 8);
}

TEST_P(LogSetConfig, DoesNotInheritFromTheProduct) {
    store->number("Default", "DebugLevel", 3);
    store->number(store->logSet("nightly"), "DiagnosticLevel", 2);
    Config cfg;
    ASSERT_EQ(load(cfg, "nightly"), 0U);
    EXPECT_EQ(cfg.debugLevel, 0U);
}

TEST_P(LogSetConfig, FilesAreNamedAfterTheLogSetUnlessItSaysOtherwise) {
    store->text(store->logSet("Default"), "FileName", "base");
    store->number(store->logSet("plain"), "DebugLevel", 1);
    store->text(store->logSet("named"), "FileName", "own");
    Config base;
    ASSERT_EQ(load(base, "Default"), 0U);
    EXPECT_STREQ(base.logSetName, "Default");
    EXPECT_STREQ(base.logSetFileName, "base");
    Config plain;
    ASSERT_EQ(load(plain, "plain"), 0U);
    EXPECT_STREQ(plain.logSetName, "plain");
    EXPECT_STREQ(plain.logSetFileName, "plain");
    Config named;
    ASSERT_EQ(load(named, "named"), 0U);
    EXPECT_STREQ(named.logSetFileName, "own");
}

TEST_P(LogSetConfig, AnUnknownOneIsSixWithTheDefaultsSettings) {
    const std::string base = store->logSet("Default");
    store->number(base, "DebugLevel", 3);
    store->text(base, "FileName", "base");
    Config cfg;
    EXPECT_EQ(load(cfg, "unknown"), 6U);
    EXPECT_EQ(cfg.debugLevel, 3U);
    EXPECT_STREQ(cfg.logSetName, "unknown");
    EXPECT_STREQ(cfg.logSetFileName, "unknown");
    EXPECT_STREQ(cfg.productNames, "billing");
    EXPECT_EQ(cfg.isLogSet, 1U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST_P(LogSetConfig, WithoutAnyLogSetIsSix) {
    Config base;
    EXPECT_EQ(load(base, "Default"), 6U);
    EXPECT_STREQ(base.logSetName, "Default");
    EXPECT_STREQ(base.logSetFileName, "Default");
    EXPECT_EQ(base.maxLogFileSizeKB, 10240U);
    Config cfg;
    EXPECT_EQ(load(cfg, "nightly"), 6U);
    EXPECT_STREQ(cfg.logSetName, "nightly");
    EXPECT_STREQ(cfg.logSetFileName, "nightly");
}

TEST_P(LogSetConfig, IsThereWithoutADefaultLogSet) {
    store->number(store->logSet("nightly"), "DebugLevel", 3);
    Config cfg;
    EXPECT_EQ(load(cfg, "nightly"), 0U);
    EXPECT_EQ(cfg.debugLevel, 3U);
}

TEST_P(LogSetConfig, TheDefaultNameIsComparedWhole) {
    store->number(store->logSet("Default"), "DebugLevel", 1);
    store->number(store->logSet("Defaults"), "DebugLevel", 2);
    store->text(store->logSet("Default"), "LogDirectory", "D:\\sets");
    store->text(store->logSet("Defaults"), "LogDirectory", "sub");
    Config cfg;
    ASSERT_EQ(load(cfg, "Defaults"), 0U);
    EXPECT_EQ(cfg.debugLevel, 2U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\sets\\sub\\");
    EXPECT_STREQ(cfg.logSetName, "Defaults");
}

TEST_P(LogSetConfig, ARelativeDirectoryOfTheDefaultLogSetReplaces) {
    store->text(store->logSet("Default"), "LogDirectory", "rel");
    Config cfg;
    ASSERT_EQ(load(cfg, "Default"), 0U);
    EXPECT_STREQ(cfg.logDirectory, "rel\\");
}

TEST_P(LogSetConfig, KeysForTheHostDoNotMakeALogSet) {
    const std::string set = store->logSet("nightly");
    store->text(set, "NtEventLogSourceName", "Source");
    store->number(set, "NtEventLogCategory", 7);
    store->text(set, "LogFileSDDL", "D:");
    Config cfg;
    EXPECT_EQ(load(cfg, "nightly"), 6U);
    EXPECT_STREQ(cfg.eventSource.name, "Source");
    EXPECT_EQ(cfg.eventSource.category, 7);
    EXPECT_STREQ(cfg.logFileSDDL, "D:");
}

TEST_P(LogSetConfig, AKeyOutOfRangeMakesALogSetButNoUnparsedTimeDoes) {
    store->number(store->logSet("range"), "DebugLevel", 9);
    store->text(store->logSet("time"), "RolloverAtLocalTime", "25:00");
    store->text(store->logSet("goodtime"), "RolloverAtLocalTime", "05:00");
    store->text(store->logSet("product"), "L10nLib", "not read here");
    Config cfg;
    EXPECT_EQ(load(cfg, "range"), 0U);
    EXPECT_EQ(cfg.debugLevel, 0U);
    Config time;
    EXPECT_EQ(load(time, "time"), 6U);
    Config goodTime;
    EXPECT_EQ(load(goodTime, "goodtime"), 0U);
    EXPECT_EQ(goodTime.rolloverTime, 18000);
    Config product;
    EXPECT_EQ(load(product, "product"), 6U);
}

TEST_P(LogSetConfig, FileNameAloneMakesALogSet) {
    store->text(store->logSet("nightly"), "FileName", "night");
    Config cfg;
    EXPECT_EQ(load(cfg, "nightly"), 0U);
    EXPECT_STREQ(cfg.logSetFileName, "night");
}

TEST_P(LogSetConfig, EmptyTextsCount) {
    store->text(store->logSet("Default"), "FileName", "base");
    store->text(store->logSet("names"), "OIDNames", "");
    store->text(store->logSet("file"), "FileName", "");
    Config names;
    EXPECT_EQ(load(names, "names"), 0U);
    Config file;
    EXPECT_EQ(load(file, "file"), 0U);
    // Refused, so that the one before stays: in the registry that is the requested name already.
    EXPECT_STREQ(file.logSetFileName, store->isFile() ? "base" : "file");
}

TEST_P(LogSetConfig, OverlongNamesAreUnknown) {
    store->number(store->logSet("Default"), "DebugLevel", 3);
    for (size_t length : {size_t{300}, size_t{1000}, size_t{1020}, size_t{5000}, size_t{100000}}) {
        Config cfg;
        EXPECT_EQ(load(cfg, std::string(length, 'n').c_str()), 6U);
        EXPECT_EQ(cfg.debugLevel, 3U);
    }
}

TEST_P(LogSetConfig, UnregisteredProductIsSix) {
    Config cfg;
    std::memset(static_cast<zantLogCfg *>(&cfg), 0x5A, sizeof(zantLogCfg));
    EXPECT_EQ(zantLogReadlogsetCfg(kProduct + 1, "nightly", &cfg), 6U);
    EXPECT_STREQ(cfg.logSetName, "nightly");
    EXPECT_STREQ(cfg.logSetFileName, "nightly");
    EXPECT_EQ(cfg.isLogSet, 1U);
    EXPECT_EQ(cfg.appMsgLogging, 1U);
    EXPECT_STREQ(cfg.productNames, "");
}

TEST_P(LogSetConfig, NullArgumentsAndProductZeroAreRefused) {
    Config cfg;
    cfg.debugLevel = 4;
    EXPECT_EQ(zantLogReadlogsetCfg(0, "nightly", &cfg), 3U);
    EXPECT_EQ(zantLogReadlogsetCfg(kProduct, nullptr, &cfg), 3U);
    EXPECT_EQ(zantLogReadlogsetCfg(kProduct, "nightly", nullptr), 3U);
    EXPECT_EQ(cfg.debugLevel, 4U);
}

TEST_P(LogSetConfig, NamesMayHaveBlanks) {
    store->number(store->logSet("my set"), "DebugLevel", 3);
    Config cfg;
    EXPECT_EQ(load(cfg, "my set"), 0U);
    EXPECT_EQ(cfg.debugLevel, 3U);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, LogSetConfig, testing::Values(BackEnd::Conf, BackEnd::Registry),
                         [](const auto &backEnd) {
                             return std::string(backEnd.param == BackEnd::Conf ? "Conf" : "Registry");
                         });

TEST(LogSetConfigInRegistry, AKeyWithoutValuesIsSixWithItsName) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Registry);
    registerProduct(*location, kProduct, store->path(), "x");
    store->number("LOGSET\\Default", "DebugLevel", 3);
    store->section("LOGSET\\empty");
    Config cfg;
    EXPECT_EQ(zantLogReadlogsetCfg(kProduct, "empty", &cfg), 6U);
    EXPECT_STREQ(cfg.logSetName, "empty");
    EXPECT_STREQ(cfg.logSetFileName, "empty");
    EXPECT_EQ(cfg.debugLevel, 3U);
}

TEST(LogSetConfigInFile, OfAFileThatIsMissingIsSix) {
    const std::unique_ptr<TestStore> location = makeLocation();
    location->text(std::to_string(kProduct), "Configuration", "C:\\no such folder\\x.conf");
    Config cfg;
    EXPECT_EQ(zantLogReadlogsetCfg(kProduct, "nightly", &cfg), 6U);
    EXPECT_STREQ(cfg.logSetName, "nightly");
}

} // namespace
} // namespace zantlog::test
