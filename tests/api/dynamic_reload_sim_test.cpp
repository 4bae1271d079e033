// Reloads to the second, and what they cost.
#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/sim/sim.h"

namespace zantlog::test {

namespace {

using sim::Call;

class ReloadOnSim : public ProductTest {
protected:
    ReloadOnSim() : begin_(sim::clock().now()) { sim::clearFaults(); }
    ~ReloadOnSim() override {
        sim::clearFaults();
        sim::clock().set(begin_);
    }
    // The debug level that a reload finds, and the interval.
    void store(int level, int interval) {
        setting("3", "DebugLevel", std::to_string(level));
        setting("3", "DynaReloadInSec", std::to_string(interval));
    }
    static int32_t levelAfter(zantLogHandle *handle, int64_t seconds) {
        sim::clock().advanceSeconds(seconds);
        EXPECT_EQ(zantDynaLoadConfig(handle), 0u);
        return handle->debugLevel;
    }

private:
    int64_t begin_;
};

TEST_F(ReloadOnSim, AShortIntervalIsAMinuteAfterTheOpenAndAfterEachReload) {
    store(1, 5);
    OpenLog log;
    store(2, 5);
    EXPECT_EQ(levelAfter(&log, 60), 1);
    EXPECT_EQ(levelAfter(&log, 1), 2);
    store(3, 5);
    EXPECT_EQ(levelAfter(&log, 60), 2);
    EXPECT_EQ(levelAfter(&log, 1), 3);
}

TEST_F(ReloadOnSim, AnIntervalHasToBeOver) {
    store(1, 120);
    OpenLog log;
    store(2, 300);
    EXPECT_EQ(levelAfter(&log, 120), 1);
    EXPECT_EQ(levelAfter(&log, 1), 2);
    store(3, 300);
    EXPECT_EQ(levelAfter(&log, 300), 2);
    EXPECT_EQ(levelAfter(&log, 1), 3);
}

TEST_F(ReloadOnSim, TouchesTheStoreOnceAnInterval) {
    store(1, 60);
    OpenLog log;
    for (int reloads = 0; reloads < 3; ++reloads) {
        sim::clock().advanceSeconds(60);
        sim::resetCalls();
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 6, "nobody", "wants this"), 0u);
        }
        EXPECT_EQ(sim::calls(Call::OpenStream), 0u);
        EXPECT_EQ(levelAfter(&log, 1), 1);
        const uint64_t once = sim::calls(Call::OpenStream);
        EXPECT_GT(once, 0u);
        EXPECT_EQ(zantLogFormattedDebugMsg(&log, 0, 6, "nobody", "wants this"), 0u);
        EXPECT_EQ(sim::calls(Call::OpenStream), once);
    }
}

// Another thread that finds the reload due meanwhile does not read as well.
TEST_F(ReloadOnSim, ItsTimeIsTakenBeforeTheRead) {
    store(1, 60);
    sim::Process process;
    zantLogHandle log{};
    process.run([&] { ASSERT_EQ(zantLogOpen(12, 3, &log), 0u); });
    store(2, 60);
    sim::clock().advanceSeconds(61);
    sim::setFault({.call = Call::OpenStream, .action = sim::FaultAction::Pause, .processId = process.id()});
    EXPECT_EQ(process.run([&] { zantDynaLoadConfig(&log); }), sim::ProcessState::Paused);
    EXPECT_EQ(log.lastReloadTime, sim::clock().seconds());
    EXPECT_EQ(log.debugLevel, 1);
    sim::clearFaults();
    EXPECT_EQ(process.resume(), sim::ProcessState::Idle);
    EXPECT_EQ(log.debugLevel, 2);
    process.run([&] { EXPECT_EQ(zantLogClose(&log), 0u); });
}

TEST_F(ReloadOnSim, LeavesNothingBehind) {
    store(1, 60);
    for (const char *key :
         {"L10nLib", "L10nResource", "L10nResourceDir", "OIDAppMsgLogging", "LogFileSDDL"}) {
        setting("3", key, "D:");
    }
    OpenLog log;
    const sim::Census before = sim::takeCensus();
    EXPECT_EQ(levelAfter(&log, 61), 1);
    unregister();
    EXPECT_EQ(levelAfter(&log, 61), 0);
    EXPECT_EQ(sim::leftSince(before), "");
}

} // namespace

} // namespace zantlog::test
