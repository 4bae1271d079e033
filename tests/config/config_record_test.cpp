// Making and copying of configuration records.
#include "config/config_record.h"

#include "tests/config/test_stores.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST(ConfigRecord, AFreshOneHasTheBuiltInDefaults) {
    Config cfg;
    std::memset(static_cast<zantLogCfg *>(&cfg), 0x5A, sizeof(zantLogCfg));
    ASSERT_EQ(initialiseConfig(7, 8, nullptr, &cfg), 0U);
    zantLogCfg expected{};
    expected.productId = 7;
    expected.originatorId = 8;
    expected.appMsgLogging = 1;
    expected.maxLogFileSizeKB = 10240;
    expected.rolloverPeriod = 43200;
    expected.numberOfLogFiles = 0xFFFFFFFF;
    std::memcpy(expected.eventSource.name, "Application", 11);
    EXPECT_EQ(std::memcmp(static_cast<zantLogCfg *>(&cfg), &expected, sizeof expected), 0);
}

TEST(ConfigRecord, OneOfALogSetHasItsNameTwice) {
    Config cfg;
    char name[] = "nightly";
    ASSERT_EQ(initialiseConfig(7, 0, name, &cfg), 0U);
    name[0] = 'X';
    EXPECT_STREQ(cfg.logSetName, "nightly");
    EXPECT_STREQ(cfg.logSetFileName, "nightly");
    EXPECT_NE(cfg.logSetName, cfg.logSetFileName);
    EXPECT_EQ(cfg.isLogSet, 1U);
    EXPECT_EQ(cfg.originatorId, 0U);
}

TEST(ConfigRecord, ANullOneIsRefused) {
    EXPECT_EQ(initialiseConfig(7, 8, nullptr, nullptr), 3U);
}

TEST(ConfigRecord, CanBeInitialisedAgainAfterFreeing) {
    Config cfg;
    ASSERT_EQ(initialiseConfig(7, 0, "nightly", &cfg), 0U);
    EXPECT_EQ(zantLogFreeCfg(&cfg), 0U);
    ASSERT_EQ(initialiseConfig(7, 0, "weekly", &cfg), 0U);
    EXPECT_STREQ(cfg.logSetName, "weekly");
}

void fillEverything(zantLogCfg &cfg) {
    cfg.productId = 1;
    cfg.originatorId = 2;
    cfg.debugLevel = 3;
    cfg.diagLevel = 4;
    cfg.secureAuditLevel = 5;
    cfg.outputFlags = 0x47;
    std::strcpy(cfg.logDirectory, "D:\\logs\\");
    cfg.logFileSDDL = zantLogSafeStrdup("D:");
    cfg.maxLogFileSizeKB = 6;
    cfg.rolloverMode = 5;
    cfg.rolloverPeriod = 0x100000007;
    cfg.rolloverTime = 0x100000008;
    cfg.numberOfLogFiles = 9;
    cfg.logRecycle = 1;
    std::strcpy(cfg.eventSource.name, "Source");
    cfg.eventSource.category = 10;
    std::memset(cfg.productNames, 'p', 1024);
    std::strcpy(cfg.originatorNames, "writer");
    cfg.l10nLib = zantLogSafeStrdup("lib");
    cfg.l10nResource = zantLogSafeStrdup("res");
    cfg.l10nResourceDir = zantLogSafeStrdup("dir");
    cfg.changedMask = 11;
    cfg.removeMask = 12;
    cfg.dynaReloadInSec = 13;
    cfg.logSetName = zantLogSafeStrdup("set");
    cfg.isLogSet = 1;
    cfg.logSetFileName = zantLogSafeStrdup("file");
    cfg.appMsgLogging = 1;
    cfg.oidAppMsgLogging = zantLogSafeStrdup("a");
    cfg.oidDebugLogging = zantLogSafeStrdup("b");
    cfg.oidDiagLogging = zantLogSafeStrdup("c");
}

TEST(ConfigRecord, ACopyCarriesWhatIsInheritedAndNothingElse) {
    Config source;
    fillEverything(source);
    Config copy;
    std::memset(static_cast<zantLogCfg *>(&copy), 0x5A, sizeof(zantLogCfg));
    ASSERT_EQ(copyConfig(&copy, &source), 0U);
    EXPECT_STREQ(copy.l10nLib, "lib");
    EXPECT_STREQ(copy.l10nResource, "res");
    EXPECT_STREQ(copy.l10nResourceDir, "dir");
    EXPECT_STREQ(copy.logFileSDDL, "D:");
    EXPECT_NE(copy.l10nLib, source.l10nLib);
    EXPECT_NE(copy.logFileSDDL, source.logFileSDDL);

    zantLogCfg expected{};
    expected.productId = 1;
    expected.originatorId = 2;
    expected.debugLevel = 3;
    expected.diagLevel = 4;
    expected.outputFlags = 0x47;
    std::strcpy(expected.logDirectory, "D:\\logs\\");
    expected.logFileSDDL = copy.logFileSDDL;
    expected.maxLogFileSizeKB = 6;
    expected.rolloverMode = 5;
    expected.rolloverPeriod = 0x100000007;
    expected.rolloverTime = 0x100000008;
    expected.numberOfLogFiles = 9;
    std::strcpy(expected.eventSource.name, "Source");
    std::memset(expected.productNames, 'p', 1024);
    std::strcpy(expected.originatorNames, "writer");
    expected.l10nLib = copy.l10nLib;
    expected.l10nResource = copy.l10nResource;
    expected.l10nResourceDir = copy.l10nResourceDir;
    expected.appMsgLogging = 1;
    EXPECT_EQ(std::memcmp(static_cast<zantLogCfg *>(&copy), &expected, sizeof expected), 0);
}

TEST(ConfigRecord, ACopyOfNullTextsHasNullTexts) {
    Config source;
    ASSERT_EQ(initialiseConfig(1, 2, nullptr, &source), 0U);
    Config copy;
    ASSERT_EQ(copyConfig(&copy, &source), 0U);
    EXPECT_EQ(copy.l10nLib, nullptr);
    EXPECT_EQ(copy.l10nResource, nullptr);
    EXPECT_EQ(copy.l10nResourceDir, nullptr);
    EXPECT_EQ(copy.logFileSDDL, nullptr);
}

} // namespace
} // namespace zantlog::test
