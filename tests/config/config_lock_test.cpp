// Which functions of the configuration take the common lock.
#include "tests/config/test_stores.h"
#include "zantlog/dispatch.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

constexpr uint32_t kProduct = 812;

constexpr std::chrono::milliseconds kWhile{200};
constexpr std::chrono::seconds kLongEnough{30}; // for work that does not wait, on a busy machine

// Whether the work waits while this thread holds the common lock.
template <typename Work> bool waitsForCommonLock(Work work, std::chrono::milliseconds patience = kWhile) {
    zantLockCommon("a test");
    std::future<void> done = std::async(std::launch::async, work);
    const bool waits = done.wait_for(patience) == std::future_status::timeout;
    zantUnlockCommon("a test");
    done.get();
    return waits;
}

TEST(ConfigLock, ReadersTakeTheCommonLock) {
    const std::unique_ptr<TestStore> location = makeLocation();
    zantLogCfg *records[1];
    uint32_t count = 0;
    EXPECT_TRUE(waitsForCommonLock([] {
        Config cfg;
        zantLogReadCfg(kProduct, 112, &cfg);
    }));
    EXPECT_TRUE(waitsForCommonLock([] {
        Config cfg;
        zantLogReadlogsetCfg(kProduct, "set", &cfg);
    }));
    EXPECT_TRUE(waitsForCommonLock([&] { zantLogReadAllCfg(nullptr, 1, records, &count); }));
    EXPECT_TRUE(waitsForCommonLock([&] { zantLogReadProdIDCfg(nullptr, kProduct, 1, records, &count); }));
    EXPECT_FALSE(waitsForCommonLock(
        [&] {
            HandedOut path;
            GetProductCfgPath(GetZantLogCfgLoc(), kProduct, &path);
        },
        kLongEnough));
}

TEST(ConfigLock, SaversTakeTheCommonLock) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, kProduct, store->path(), "billing");
    EXPECT_TRUE(waitsForCommonLock([] {
        Config cfg;
        EXPECT_EQ(zantLogWriteCfg(kProduct, 112, &cfg), 0U);
    }));
    EXPECT_TRUE(waitsForCommonLock([] {
        Config cfg;
        EXPECT_EQ(zantLogWritelogSetCfg(kProduct, "set", &cfg), 61U);
    }));
}

TEST(ConfigLock, RegistrationsTakeTheCommonLockForWhatTheyChange) {
    const std::unique_ptr<TestStore> location = makeLocation();
    EXPECT_TRUE(waitsForCommonLock([] { EXPECT_EQ(zantLogAddProductCfg(kProduct, "a", "C:\\a.conf"), 0U); }));
    // That it is there already is found out before.
    EXPECT_FALSE(waitsForCommonLock([] { EXPECT_EQ(zantLogAddProductCfg(kProduct, "a", "C:\\a.conf"), 27U); },
                                    kLongEnough));
    EXPECT_TRUE(waitsForCommonLock([] { zantLogRemoveProductCfg(kProduct); }));
    EXPECT_FALSE(waitsForCommonLock([] { EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 6U); }, kLongEnough));
}

TEST(ConfigLock, WhatAnEntrySaysIsReadWithoutIt) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    EXPECT_FALSE(waitsForCommonLock(
        [] {
            uint32_t on = 0;
            EXPECT_EQ(GetProductLoggingLevel(GetZantLogCfgLoc(), kProduct, &on), 6U);
        },
        kLongEnough));
    EXPECT_FALSE(waitsForCommonLock(
        [] {
            HandedOut directory;
            EXPECT_EQ(zantLogCfgGetToolsResDir(&directory), 6U);
        },
        kLongEnough));
    EXPECT_FALSE(waitsForCommonLock(
        [&store] {
            PropertyStore section{};
            EXPECT_EQ(CreatePropertyString(store->path().c_str(), "3", &section), 0U);
            EXPECT_EQ(utiClosePropertyStore(&section), 0U);
        },
        kLongEnough));
}

TEST(ConfigLock, ReadersMayBeCalledUnderTheLock) {
    const std::unique_ptr<TestStore> location = makeLocation();
    zantLockCommon("a test");
    Config cfg;
    EXPECT_EQ(zantLogReadCfg(kProduct, 112, &cfg), 6U);
    zantUnlockCommon("a test");
}

} // namespace
} // namespace zantlog::test
