// A product whose configuration is in the store of the parameter; the location is that of the process.
#pragma once

#include "tests/config/test_stores.h"

#include <gtest/gtest.h>

namespace zantlog::test {

constexpr uint32_t kProduct = 812;

class ProductConfig : public testing::TestWithParam<BackEnd> {
protected:
    void SetUp() override {
        location = makeLocation();
        store = makeStore(GetParam());
        registerProduct(*location, kProduct, store->path(), "billing,bil");
    }

    uint32_t load(Config &cfg, uint32_t originator = 112) {
        return zantLogReadCfg(kProduct, originator, &cfg);
    }

    std::unique_ptr<TestStore> location;
    std::unique_ptr<TestStore> store;
};

inline void expectBuiltInDefaults(const zantLogCfg &cfg) {
    EXPECT_EQ(cfg.debugLevel, 0U);
    EXPECT_EQ(cfg.diagLevel, 0U);
    EXPECT_EQ(cfg.secureAuditLevel, 0U);
    EXPECT_EQ(cfg.outputFlags, 0U);
    EXPECT_STREQ(cfg.logDirectory, "");
    EXPECT_EQ(cfg.logFileSDDL, nullptr);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 10240U);
    EXPECT_EQ(cfg.rolloverMode, 0U);
    EXPECT_EQ(cfg.rolloverPeriod, 43200);
    EXPECT_EQ(cfg.rolloverTime, 0);
    EXPECT_EQ(cfg.numberOfLogFiles, 0xFFFFFFFFU);
    EXPECT_EQ(cfg.logRecycle, 0U);
    EXPECT_STREQ(cfg.eventSource.name, "Application");
    EXPECT_EQ(cfg.eventSource.category, 0);
    EXPECT_STREQ(cfg.originatorNames, "");
    EXPECT_EQ(cfg.l10nLib, nullptr);
    EXPECT_EQ(cfg.l10nResource, nullptr);
    EXPECT_EQ(cfg.l10nResourceDir, nullptr);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(cfg.removeMask, 0U);
    EXPECT_EQ(cfg.dynaReloadInSec, 0);
    EXPECT_EQ(cfg.logSetName, nullptr);
    EXPECT_EQ(cfg.isLogSet, 0U);
    EXPECT_EQ(cfg.logSetFileName, nullptr);
    EXPECT_EQ(cfg.appMsgLogging, 1U);
    EXPECT_EQ(cfg.oidAppMsgLogging, nullptr);
    EXPECT_EQ(cfg.oidDebugLogging, nullptr);
    EXPECT_EQ(cfg.oidDiagLogging, nullptr);
}

} // namespace zantlog::test
