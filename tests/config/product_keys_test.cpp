// The rules of single keys: limits, forms, and what each back end makes of a value.
#include "tests/config/product_fixture.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

using ProductKeys = ProductConfig;

TEST_P(ProductKeys, ARelativeDirectoryIsAppendedForOriginatorsOnly) {
    store->text("Default", "LogDirectory", "logs");
    store->text("33", "LogDirectory", "sub");
    store->text("34", "LogDirectory", "E:x");
    store->text("35", "LogDirectory", "E:/x");
    store->text("36", "LogDirectory", "E:");
    store->text("37", "LogDirectory", "\\\\server\\share");
    store->text("38", "LogDirectory", "\\one");
    store->text("39", "LogDirectory", "1:\\x");
    const std::pair<uint32_t, const char *> expected[] = {
        {112, "logs\\"},    {33, "logs\\sub\\"},       {34, "logs\\E:x\\"},   {35, "logs\\E:/x\\"},
        {36, "logs\\E:\\"}, {37, "\\server\\share\\"}, {38, "logs\\\\one\\"}, {39, "logs\\1:\\x\\"},
    };
    for (const auto &[originator, directory] : expected) {
        Config cfg;
        ASSERT_EQ(load(cfg, originator), 0U);
        EXPECT_STREQ(cfg.logDirectory, directory);
    }
}

TEST_P(ProductKeys, ADirectoryThatDoesNotFitIsSkipped) {
    // A line of the file back end holds fewer characters than the field: filled in two steps.
    const std::string long300(300, 'd');
    store->text("Default", "LogDirectory", "D:\\" + long300);
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    EXPECT_EQ(cfg.logDirectory, "D:\\" + long300 + "\\");
    if (!store->isFile()) {
        const std::string long1000(1000, 's');
        store->text("33", "LogDirectory", long1000);
        Config appended;
        ASSERT_EQ(load(appended, 33), 0U);
        EXPECT_EQ(appended.logDirectory, "D:\\" + long300 + "\\");
    }
}

TEST_P(ProductKeys, ValuesOutOfRangeAreSkipped) {
    store->number("Default", "DebugLevel", 3);
    store->number("Default", "DiagnosticLevel", 4);
    store->number("Default", "DynaReloadInSec", 77);
    store->number("33", "DebugLevel", 9);
    store->number("33", "DiagnosticLevel", 7);
    store->number("33", "DynaReloadInSec", 0xFFFFFFFF);
    store->number("33", "MaxLogFileSizeKB", 0);
    store->number("33", "RolloverPeriodInSeconds", 0);
    store->number("33", "NumberOfLogFiles", 0);
    store->number("33", "NtEventLogCategory", 0);
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_EQ(cfg.debugLevel, 3U);
    EXPECT_EQ(cfg.diagLevel, 4U);
    EXPECT_EQ(cfg.dynaReloadInSec, 77);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 10240U);
    EXPECT_EQ(cfg.rolloverPeriod, 43200);
    EXPECT_EQ(cfg.numberOfLogFiles, 0xFFFFFFFFU);
    EXPECT_EQ(cfg.eventSource.category, 0);
}

TEST_P(ProductKeys, NumbersAreUnsigned) {
    store->number("Default", "RolloverPeriodInSeconds", 0xFFFFFFFF);
    store->number("Default", "MaxLogFileSizeKB", 0x80000000);
    store->number("Default", "NumberOfLogFiles", 0xFFFFFFFE);
    store->number("Default", "NtEventLogCategory", 0x12345678);
    store->number("33", "NtEventLogCategory", 0x10000);
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_EQ(cfg.rolloverPeriod, 4294967295);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 0x80000000U);
    EXPECT_EQ(cfg.numberOfLogFiles, 0xFFFFFFFEU);
    EXPECT_EQ(cfg.eventSource.category, 0x5678);
}

TEST_P(ProductKeys, RolloverTimesThatAreNoneAreIgnored) {
    const struct {
        const char *text;
        int64_t seconds;
    } times[] = {
        {"23:59", 86340},       {"0:0", 0},       {"7:05", 25500}, {"07:5x", 25500},
        {" 7: 5", 25500},       {"7:5:9", 25500}, {"24:00", 1800}, {"7:60", 1800},
        {"-1:30", 1800},        {"1:-20", 1800},  {"7", 1800},     {"7:", 1800},
        {":30", 1800},          {"7 :5", 1800},   {"7.5", 1800},   {"x", 1800},
        {"4294967303:5", 1800},
    };
    store->text("Default", "RolloverAtLocalTime", "00:30");
    uint32_t originator = 200;
    for (const auto &time : times) {
        ++originator;
        store->text(std::to_string(originator), "RolloverAtLocalTime", time.text);
        Config cfg;
        ASSERT_EQ(load(cfg, originator), 0U);
        EXPECT_EQ(cfg.rolloverTime, time.seconds) << time.text;
    }
}

TEST_P(ProductKeys, OnlyCapitalOnSwitchesApplicationMessagesOn) {
    const struct {
        const char *text;
        uint32_t value;
    } switches[] = {{"ON", 1}, {"on", 0}, {"On", 0}, {"ONE", 0}, {" ON", 0}, {"true", 0}, {"1", 0}};
    uint32_t originator = 200;
    for (const auto &value : switches) {
        ++originator;
        store->text(std::to_string(originator), "AppMsgLogging", value.text);
        Config cfg;
        ASSERT_EQ(load(cfg, originator), 0U);
        EXPECT_EQ(cfg.appMsgLogging, value.value) << value.text;
    }
}

TEST_P(ProductKeys, ABlankBehindOnCountsInTheRegistryOnly) {
    store->text("Default", "AppMsgLogging", "ON ");
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    EXPECT_EQ(cfg.appMsgLogging, store->isFile() ? 1U : 0U);
}

TEST_P(ProductKeys, BooleansAreTrueOrAnythingElse) {
    store->text("Default", "LogToStdout", "true");
    store->text("Default", "LogToStderr", "yes");
    store->text("Default", "LogToOslog", "TRUE");
    store->text("Default", "LogRecycle", "1");
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    EXPECT_EQ(cfg.outputFlags, store->isFile() ? 1U : 5U);
    EXPECT_EQ(cfg.logRecycle, 0U);
}

TEST_P(ProductKeys, RolloverModeWordsInAnyText) {
    store->text("Default", "RolloverMode", "Periodic | LocalTime");
    store->text("33", "RolloverMode", "rubbish");
    Config base;
    ASSERT_EQ(load(base), 0U);
    EXPECT_EQ(base.rolloverMode, 2U);
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_EQ(cfg.rolloverMode, 0U);
}

TEST_P(ProductKeys, LongTextsAreBounded) {
    const std::string names(390, 'n');
    store->text("Default", "OIDNames", names);
    store->text("Default", "NtEventLogSourceName", std::string(100, 's'));
    store->text("Default", "L10nResource", std::string(390, 'r'));
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    EXPECT_EQ(cfg.originatorNames, names);
    EXPECT_EQ(cfg.eventSource.name, std::string(79, 's'));
    EXPECT_EQ(cfg.l10nResource, std::string(390, 'r'));
    if (!store->isFile()) {
        store->text("Default", "OIDNames", std::string(2000, 'o'));
        Config cut;
        ASSERT_EQ(load(cut), 0U);
        EXPECT_EQ(cut.originatorNames, std::string(1024, 'o'));
    }
}

TEST_P(ProductKeys, EmptyTextsArePresent) {
    store->text("Default", "L10nLib", "kept");
    store->text("Default", "OIDNames", "kept");
    store->text("Default", "RolloverMode", "FileSize");
    store->text("Default", "LogDirectory", "D:\\kept");
    store->text("Default", "RolloverAtLocalTime", "00:30");
    store->boolean("Default", "LogToStdout", true);
    for (const char *key : {"L10nLib", "OIDNames", "RolloverMode", "LogDirectory", "AppMsgLogging",
                            "LogFileSDDL", "NtEventLogSourceName", "RolloverAtLocalTime", "LogToStdout"}) {
        store->text("33", key, "");
    }
    Config cfg;
    ASSERT_EQ(load(cfg, 33), 0U);
    EXPECT_STREQ(cfg.l10nLib, "kept");
    EXPECT_STREQ(cfg.originatorNames, "kept");
    EXPECT_EQ(cfg.rolloverMode, 0U); // no word is no way of rolling over
    EXPECT_STREQ(cfg.logDirectory, "D:\\kept\\");
    EXPECT_EQ(cfg.appMsgLogging, 0U);
    EXPECT_STREQ(cfg.logFileSDDL, "");
    EXPECT_STREQ(cfg.eventSource.name, "Application");
    EXPECT_EQ(cfg.rolloverTime, 1800);
    EXPECT_EQ(cfg.outputFlags, 0U);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, ProductKeys, testing::Values(BackEnd::Conf, BackEnd::Registry),
                         [](const auto &backEnd) {
                             return std::string(backEnd.param == BackEnd::Conf ? "Conf" : "Registry");
                         });

TEST(ProductKeysInRegistry, ValuesOfAnotherTypeCountAsMissing) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Registry);
    registerProduct(*location, kProduct, store->path(), "x");
    store->text("Default", "DebugLevel", "3");
    store->number("Default", "LogDirectory", 3);
    store->number("Default", "LogToStdout", 1);
    store->text("Default", "NtEventLogCategory", "5");
    Config cfg;
    ASSERT_EQ(zantLogReadCfg(kProduct, 112, &cfg), 0U);
    expectBuiltInDefaults(cfg);
}

TEST(ProductKeysInFile, ValuesEndAtTheSecondEqualsSignAndLoseBlanksAtTheEnd) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, kProduct, store->path(), "x");
    writeConf(store->path(), {"Default.LogDirectory=D:\\a=b", "Default.L10nResource=res   ",
                              "Default.DebugLevel=5", " Default.DiagnosticLevel=3",
                              "default.DiagnosticLevel=4", "Default.L10nLib=", "Default.DynaReloadInSec=61",
                              "Default.DynaReloadInSec=62", "33.DebugLevel=x"});
    Config cfg;
    ASSERT_EQ(zantLogReadCfg(kProduct, 33, &cfg), 0U);
    EXPECT_STREQ(cfg.logDirectory, "D:\\a\\");
    EXPECT_STREQ(cfg.l10nResource, "res");
    EXPECT_EQ(cfg.debugLevel, 0U);
    EXPECT_EQ(cfg.diagLevel, 0U);
    EXPECT_EQ(cfg.l10nLib, nullptr);
    EXPECT_EQ(cfg.dynaReloadInSec, 61);
}

} // namespace
} // namespace zantlog::test
