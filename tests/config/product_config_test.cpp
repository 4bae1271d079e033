// Loading of a product's and an originator's configuration, from both back ends of the store.
#include "tests/config/product_fixture.h"
#include "tests/support/test_folder.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST_P(ProductConfig, WithoutSectionsIsTheBuiltInDefaults) {
    for (uint32_t originator : {112U, 5U}) {
        Config cfg;
        std::memset(static_cast<zantLogCfg *>(&cfg), 0x5A, sizeof(zantLogCfg));
        ASSERT_EQ(load(cfg, originator), 0U);
        EXPECT_EQ(cfg.productId, kProduct);
        EXPECT_EQ(cfg.originatorId, originator);
        EXPECT_STREQ(cfg.productNames, "billing,bil");
        expectBuiltInDefaults(cfg);
    }
}

TEST_P(ProductConfig, UnregisteredProductIsSixWithTheBuiltInDefaults) {
    Config cfg;
    std::memset(static_cast<zantLogCfg *>(&cfg), 0x5A, sizeof(zantLogCfg));
    EXPECT_EQ(zantLogReadCfg(kProduct + 1, 3, &cfg), 6U);
    EXPECT_EQ(cfg.productId, kProduct + 1);
    EXPECT_EQ(cfg.originatorId, 3U);
    EXPECT_STREQ(cfg.productNames, "");
    expectBuiltInDefaults(cfg);
}

TEST_P(ProductConfig, NullRecordAndIdsOfZeroAreRefused) {
    Config cfg;
    cfg.debugLevel = 4;
    EXPECT_EQ(zantLogReadCfg(0, 112, &cfg), 3U);
    EXPECT_EQ(zantLogReadCfg(kProduct, 0, &cfg), 3U);
    EXPECT_EQ(zantLogReadCfg(kProduct, 112, nullptr), 3U);
    EXPECT_EQ(cfg.debugLevel, 4U);
}

void fillEveryKey(TestStore &store, const std::string &section) {
    store.text(section, "LogDirectory", "D:\\logs");
    store.text(section, "OIDNames", "writer,w");
    store.text(section, "L10nLib", "lib");
    store.text(section, "L10nResource", "res");
    store.text(section, "L10nResourceDir", "C:\\res");
    store.number(section, "DebugLevel", 6);
    store.number(section, "DiagnosticLevel", 5);
    store.number(section, "DynaReloadInSec", 120);
    store.boolean(section, "LogToStdout", true);
    store.boolean(section, "LogToStderr", true);
    store.boolean(section, "LogToOslog", true);
    store.text(section, "FileName", "files");
    store.text(section, "AppMsgLogging", "OFF");
    store.text(section, "OIDAppMsgLogging", "3:ON");
    store.text(section, "OIDDebugLogging", "3:2");
    store.text(section, "OIDDiagLogging", "3:4");
    store.text(section, "RolloverMode", "FileSize | Periodic");
    store.boolean(section, "LogRecycle", true);
    store.number(section, "MaxLogFileSizeKB", 77);
    store.text(section, "RolloverAtLocalTime", "23:59");
    store.number(section, "RolloverPeriodInSeconds", 3600);
    store.number(section, "NumberOfLogFiles", 9);
    store.text(section, "NtEventLogSourceName", "Source");
    store.number(section, "NtEventLogCategory", 17);
    store.text(section, "LogFileSDDL", "D:(A;;GA;;;WD)");
}

void expectEveryKey(const zantLogCfg &cfg) {
    EXPECT_STREQ(cfg.logDirectory, "D:\\logs\\");
    EXPECT_STREQ(cfg.originatorNames, "writer,w");
    EXPECT_STREQ(cfg.l10nLib, "lib");
    EXPECT_STREQ(cfg.l10nResource, "res");
    EXPECT_STREQ(cfg.l10nResourceDir, "C:\\res");
    EXPECT_EQ(cfg.debugLevel, 6U);
    EXPECT_EQ(cfg.diagLevel, 5U);
    EXPECT_EQ(cfg.dynaReloadInSec, 120);
    EXPECT_EQ(cfg.outputFlags, 7U);
    EXPECT_EQ(cfg.logSetFileName, nullptr); // a log set's key
    EXPECT_EQ(cfg.appMsgLogging, 0U);
    EXPECT_STREQ(cfg.oidAppMsgLogging, "3:ON");
    EXPECT_STREQ(cfg.oidDebugLogging, "3:2");
    EXPECT_STREQ(cfg.oidDiagLogging, "3:4");
    EXPECT_EQ(cfg.rolloverMode, 5U);
    EXPECT_EQ(cfg.logRecycle, 1U);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 77U);
    EXPECT_EQ(cfg.rolloverTime, 86340);
    EXPECT_EQ(cfg.rolloverPeriod, 3600);
    EXPECT_EQ(cfg.numberOfLogFiles, 9U);
    EXPECT_STREQ(cfg.eventSource.name, "Source");
    EXPECT_EQ(cfg.eventSource.category, 17);
    EXPECT_STREQ(cfg.logFileSDDL, "D:(A;;GA;;;WD)");
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(cfg.removeMask, 0U);
    EXPECT_EQ(cfg.secureAuditLevel, 0U);
}

TEST_P(ProductConfig, EveryKeyOfDefaultIsRead) {
    fillEveryKey(*store, "Default");
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    expectEveryKey(cfg);
}

TEST_P(ProductConfig, AnOriginatorWithoutASectionHasTheDefaults) {
    fillEveryKey(*store, "Default");
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_EQ(cfg.originatorId, 33U);
    expectEveryKey(cfg);
}

TEST_P(ProductConfig, EveryKeyOfAnOriginatorIsReadWithoutADefault) {
    fillEveryKey(*store, "33");
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    expectEveryKey(cfg);
    Config other;
    ASSERT_EQ(load(other, 34), 0U);
    expectBuiltInDefaults(other);
}

TEST_P(ProductConfig, TheOriginatorsKeysWinOverTheDefaults) {
    fillEveryKey(*store, "Default");
    store->text("33", "LogDirectory", "E:\\other");
    store->number("33", "DebugLevel", 1);
    store->boolean("33", "LogToStderr", false);
    store->text("33", "AppMsgLogging", "ON");
    store->text("33", "RolloverMode", "None");
    store->boolean("33", "LogRecycle", false);
    store->text("33", "L10nLib", "lib2");
    store->text("33", "NtEventLogSourceName", "Other");
    store->text("33", "RolloverAtLocalTime", "00:00");
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_STREQ(cfg.logDirectory, "E:\\other\\");
    EXPECT_EQ(cfg.debugLevel, 1U);
    EXPECT_EQ(cfg.diagLevel, 5U);
    EXPECT_EQ(cfg.outputFlags, 5U);
    EXPECT_EQ(cfg.appMsgLogging, 1U);
    EXPECT_EQ(cfg.rolloverMode, 0U);
    EXPECT_EQ(cfg.logRecycle, 0U);
    EXPECT_STREQ(cfg.l10nLib, "lib2");
    EXPECT_STREQ(cfg.eventSource.name, "Other");
    EXPECT_EQ(cfg.eventSource.category, 17);
    EXPECT_EQ(cfg.rolloverTime, 0);
    EXPECT_EQ(cfg.numberOfLogFiles, 9U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST_P(ProductConfig, TheDefaultOriginatorHasNoSectionOfItsNumber) {
    store->number("Default", "DebugLevel", 2);
    store->number("112", "DebugLevel", 5);
    Config cfg;
    ASSERT_EQ(load(cfg, 112), 0U);
    EXPECT_EQ(cfg.debugLevel, 2U);
}

TEST_P(ProductConfig, OriginatorIdsAreUnsigned) {
    store->number("4294967295", "DebugLevel", 5);
    Config cfg;
    ASSERT_EQ(load(cfg, 0xFFFFFFFF), 0U);
    EXPECT_EQ(cfg.debugLevel, 5U);
}

TEST_P(ProductConfig, AChangedStoreIsSeenByTheNextRead) {
    Config before;
    ASSERT_EQ(load(before), 0U);
    EXPECT_EQ(before.debugLevel, 0U);
    store->number("Default", "DebugLevel", 4);
    Config after;
    ASSERT_EQ(load(after), 0U);
    EXPECT_EQ(after.debugLevel, 4U);
}

TEST_P(ProductConfig, ThePathOfAProductIsHandedOut) {
    HandedOut path;
    EXPECT_EQ(GetProductCfgPath(location->path().c_str(), kProduct, &path), 0U);
    EXPECT_EQ(path.get(), store->path());
    HandedOut elsewhere;
    EXPECT_EQ(GetProductCfgPath(store->path().c_str(), kProduct, &elsewhere), 6U);
    EXPECT_EQ(elsewhere.get(), nullptr);
}

TEST_P(ProductConfig, APathOfAnotherLocationIsFound) {
    const std::unique_ptr<TestStore> other = makeStore(GetParam());
    registerProduct(*other, 4294967295, "SOFTWARE\\somewhere", "x");
    HandedOut path;
    EXPECT_EQ(GetProductCfgPath(other->path().c_str(), 4294967295, &path), 0U);
    EXPECT_STREQ(path.get(), "SOFTWARE\\somewhere");
}

TEST_P(ProductConfig, NoPathIsSixAndNothingIsStored) {
    location->text("813", "Names", "no path");
    char marker[] = "marker";
    char *out = marker;
    const char *at = location->path().c_str();
    EXPECT_EQ(GetProductCfgPath(at, 813, &out), 6U);
    EXPECT_EQ(GetProductCfgPath(at, 814, &out), 6U);
    EXPECT_EQ(GetProductCfgPath("SOFTWARE\\no such key", kProduct, &out), 6U);
    EXPECT_EQ(GetProductCfgPath(inProcessFolder("none.conf").c_str(), kProduct, &out), 6U);
    EXPECT_EQ(GetProductCfgPath(nullptr, kProduct, &out), 6U);
    EXPECT_EQ(out, marker);
    EXPECT_EQ(GetProductCfgPath(at, kProduct, nullptr), 3U);
    Config cfg;
    EXPECT_EQ(zantLogReadCfg(813, 112, &cfg), 6U);
}

TEST_P(ProductConfig, NamesMayBeMissing) {
    location->text("815", "Configuration", store->path());
    Config cfg;
    EXPECT_EQ(zantLogReadCfg(815, 112, &cfg), 0U);
    EXPECT_STREQ(cfg.productNames, "");
}

TEST_P(ProductConfig, APathThatDoesNotExistIsTheBuiltInDefaults) {
    const std::string path = store->path() + (store->isFile() ? ".missing.conf" : "-missing");
    location->text("816", "Configuration", path);
    Config cfg;
    EXPECT_EQ(zantLogReadCfg(816, 33, &cfg), 0U);
    expectBuiltInDefaults(cfg);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, ProductConfig, testing::Values(BackEnd::Conf, BackEnd::Registry),
                         [](const auto &backEnd) {
                             return std::string(backEnd.param == BackEnd::Conf ? "Conf" : "Registry");
                         });

} // namespace
} // namespace zantlog::test
