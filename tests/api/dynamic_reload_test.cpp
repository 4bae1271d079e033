#include <chrono>
#include <cstdint>
#include <future>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

// An open log whose last reload was so many seconds ago.
class ReloadTest : public ProductTest {
protected:
    void age(zantLogHandle &handle, int64_t seconds) { handle.lastReloadTime = secondsNow() - seconds; }

    void changeLevels(int debug, int diag) {
        setting("3", "DebugLevel", std::to_string(debug));
        setting("3", "DiagnosticLevel", std::to_string(diag));
    }
};

} // namespace

TEST_F(ReloadTest, NullHandleIsHarmless) {
    EXPECT_EQ(zantDynaLoadConfig(nullptr), 0u);
}

TEST_F(ReloadTest, IntervalZeroNeverReloads) {
    OpenLog log;
    ASSERT_EQ(log.reloadInterval, 0);
    changeLevels(5, 4);
    age(log, 1000000);
    const int64_t before = log.lastReloadTime;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    EXPECT_EQ(log.diagLevel, 0);
    EXPECT_EQ(log.lastReloadTime, before);
}

TEST_F(ReloadTest, ShortIntervalIsRaisedToAMinute) {
    setting("3", "DynaReloadInSec", "5");
    OpenLog log;
    ASSERT_EQ(log.reloadInterval, 5);
    changeLevels(5, 4);
    age(log, 50);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    age(log, 61);
    const int64_t now = secondsNow();
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
    EXPECT_EQ(log.diagLevel, 4);
    EXPECT_EQ(log.reloadInterval, 5);
    EXPECT_GE(log.lastReloadTime, now);
    EXPECT_LE(log.lastReloadTime, secondsNow());
}

TEST_F(ReloadTest, ReloadWaitsForMoreThanTheInterval) {
    setting("3", "DynaReloadInSec", "120");
    OpenLog log;
    changeLevels(5, 4);
    // A second that ends between two clock reads is met by trying again.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int64_t now = secondsNow();
        log.lastReloadTime = now - 120;
        EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
        if (secondsNow() == now) {
            break;
        }
        log.debugLevel = 0;
    }
    EXPECT_EQ(log.debugLevel, 0);
    age(log, 121);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, ReadIntervalReplacesTheOldOne) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    setting("3", "DynaReloadInSec", "300");
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.reloadInterval, 300);
    changeLevels(5, 4);
    age(log, 290);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    age(log, 301);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, RemovedIntervalStopsReloading) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    removeSetting("3", "DynaReloadInSec");
    changeLevels(5, 4);
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
    EXPECT_EQ(log.reloadInterval, 0);
    changeLevels(1, 1);
    age(log, 1000);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, UnregisteredProductDropsLevelsAndInterval) {
    changeLevels(5, 4);
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    ASSERT_EQ(log.debugLevel, 5);
    unregister();
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    EXPECT_EQ(log.diagLevel, 0);
    EXPECT_EQ(log.reloadInterval, 0);
}

TEST_F(ReloadTest, NothingElseChanges) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    setting("3", "LogToStdout", "true");
    setting("3", "LogDirectory", logFolder() + "\\elsewhere");
    changeLevels(5, 4);
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
    EXPECT_EQ(log.outputFlags, 0u);
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_EQ(logText(&log, "text"), 0u);
    EXPECT_EQ(logNames().size(), 1u);
}

TEST_F(ReloadTest, LevelGettersReloadFirst) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    changeLevels(5, 4);
    int32_t level = 77;
    age(log, 61);
    EXPECT_EQ(zantLogGetDebugLevel(&log, &level), 0u);
    EXPECT_EQ(level, 5);
    changeLevels(2, 1);
    age(log, 61);
    EXPECT_EQ(zantLogGetDiagLevel(&log, &level), 0u);
    EXPECT_EQ(level, 1);
    EXPECT_EQ(log.debugLevel, 2);
}

TEST_F(ReloadTest, OtherGettersDoNotReload) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    changeLevels(5, 4);
    age(log, 1000);
    int32_t level = 0;
    uint32_t number = 0;
    EXPECT_EQ(zantLogGetSecureAuditLevel(&log, &level), 0u);
    EXPECT_EQ(zantLogGetSequenceNumber(&log, &number), 0u);
    EXPECT_EQ(log.debugLevel, 0);
}

TEST_F(ReloadTest, LowHalfOfTheIntervalCounts) {
    OpenLog log;
    changeLevels(5, 4);
    age(log, 1000);
    log.reloadInterval = int64_t{1} << 32;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    log.reloadInterval = (int64_t{7} << 32) + 2000;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    log.reloadInterval = (int64_t{7} << 32) + 900;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, NegativeIntervalIsRaisedToAMinute) {
    OpenLog log;
    changeLevels(5, 4);
    log.reloadInterval = -1;
    age(log, 50);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, AgeIsJudgedIn64Bits) {
    OpenLog log;
    changeLevels(5, 4);
    log.reloadInterval = 60;
    age(log, (int64_t{1} << 32) + 10); // 10 seconds in 32 bits
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 5);
}

TEST_F(ReloadTest, ClockThatWasSetBackReloadsNothing) {
    OpenLog log;
    changeLevels(5, 4);
    log.reloadInterval = 60;
    age(log, -100000);
    const int64_t before = log.lastReloadTime;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 0);
    EXPECT_EQ(log.lastReloadTime, before);
    log.lastReloadTime = INT64_MIN;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    log.lastReloadTime = INT64_MAX;
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
}

TEST_F(ReloadTest, HandleWithoutAFileReadsNothing) {
    changeLevels(5, 4);
    zantLogHandle handle = {};
    handle.noContext = 1;
    handle.originatorId = 3;
    handle.debugLevel = 6;
    handle.diagLevel = 6;
    handle.reloadInterval = 60;
    EXPECT_EQ(zantDynaLoadConfig(&handle), 0u);
    EXPECT_EQ(handle.debugLevel, 0);
    EXPECT_EQ(handle.diagLevel, 0);
    EXPECT_EQ(handle.reloadInterval, 0);
}

// Of a handle without a file, for which nothing is read: the levels change under the lock.
TEST_F(ReloadTest, LevelsAreCopiedUnderTheCommonLock) {
    zantLogHandle handle = {};
    handle.originatorId = 3;
    handle.debugLevel = 6;
    handle.reloadInterval = 60;
    zantLockCommon("a test");
    std::future<uint32_t> reload =
        std::async(std::launch::async, [&handle] { return zantDynaLoadConfig(&handle); });
    EXPECT_EQ(reload.wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
    zantUnlockCommon("a test");
    EXPECT_EQ(reload.get(), 0u);
    EXPECT_EQ(handle.debugLevel, 0);
}

TEST_F(ReloadTest, ReloadsTheFirstOriginatorsLevels) {
    setting("Default", "DynaReloadInSec", "60");
    OpenLog log(3, 4);
    setting("4", "DebugLevel", "1");
    setting("3", "DebugLevel", "6");
    age(log, 61);
    EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
    EXPECT_EQ(log.debugLevel, 6);
}
