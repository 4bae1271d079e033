// Threads that log, open and close, make contexts and change levels at once.
#include "tests/threads/thread_product.h"

#include <atomic>

#include "tests/support/files.h"

namespace zantlog::test {

namespace {

constexpr uint32_t kMessages = 200;

using Threads = ThreadProduct;

TEST_F(Threads, ShareOneHandle) {
    zantLogHandle handle{};
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    inThreads([&handle](uint32_t thread) {
        for (uint32_t i = 0; i < kMessages; ++i) {
            log(&handle, thread, i);
        }
    });
    EXPECT_EQ(zantLogClose(&handle), 0u);
    expectEach(kMessages);
}

TEST_F(Threads, DrawEachAutomaticNumberOnce) {
    zantLogHandle handle{};
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    std::atomic<uint64_t> sum{0};
    inThreads([&](uint32_t) {
        for (uint32_t i = 0; i < kMessages; ++i) {
            sum += GetNextSequenceNumber(&handle);
        }
    });
    EXPECT_EQ(zantLogClose(&handle), 0u);
    constexpr uint64_t kDrawn = uint64_t{kThreads} * kMessages;
    EXPECT_EQ(sum, kDrawn * (kDrawn + 1) / 2);
}

// The writer's state is shared: it comes with the first handle and goes with the last.
TEST_F(Threads, OpenAndCloseHandlesOfOneFile) {
    inThreads([](uint32_t thread) {
        for (uint32_t i = 0; i < 20; ++i) {
            zantLogHandle handle{};
            ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
            log(&handle, thread, 2 * i);
            log(&handle, thread, 2 * i + 1);
            EXPECT_EQ(zantLogClose(&handle), 0u);
        }
    });
    expectEach(40);
}

TEST_F(Threads, RollOverWhileOthersWrite) {
    configure({"Default.LogDirectory=" + logFolder(), "Default.RolloverMode=FileSize",
               "Default.MaxLogFileSizeKB=4"});
    inThreads([](uint32_t thread) {
        zantLogHandle handle{};
        ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
        for (uint32_t i = 0; i < kMessages; ++i) {
            log(&handle, thread, i);
        }
        EXPECT_EQ(zantLogClose(&handle), 0u);
    });
    expectEach(kMessages);
}

TEST_F(Threads, MakeContextsOnOneParent) {
    zantLogHandle parent{};
    ASSERT_EQ(zantLogOpen(12, 3, &parent), 0u);
    inThreads([&parent](uint32_t thread) {
        for (uint32_t i = 0; i < 20; ++i) {
            zantLogHandle context{};
            ASSERT_EQ(zantLogCreateContext(&parent, &context, "token", 0, "title %d", 5), 0u);
            log(&context, thread, i);
            EXPECT_EQ(zantLogDestroyContext(&context), 0u);
        }
    });
    EXPECT_EQ(zantLogClose(&parent), 0u);
    expectEach(20);
}

TEST_F(Threads, ShareOneContext) {
    zantLogHandle parent{};
    ASSERT_EQ(zantLogOpen(12, 3, &parent), 0u);
    zantLogHandle context{};
    ASSERT_EQ(zantLogCreateContext(&parent, &context, "token", 0, "title"), 0u);
    inThreads([&context](uint32_t thread) {
        for (uint32_t i = 0; i < kMessages; ++i) {
            log(&context, thread, i);
        }
    });
    EXPECT_EQ(zantLogDestroyContext(&context), 0u);
    EXPECT_EQ(zantLogClose(&parent), 0u);
    expectEach(kMessages);
    expectToken("5:token");
}

// The records of the contexts that live are written again by whoever meets the end of a file, while others
// make and destroy theirs.
TEST_F(Threads, MakeContextsWhileFilesRollOver) {
    configure({"Default.LogDirectory=" + logFolder(), "Default.RolloverMode=FileSize",
               "Default.MaxLogFileSizeKB=2"});
    zantLogHandle parent{};
    ASSERT_EQ(zantLogOpen(12, 3, &parent), 0u);
    inThreads([&parent](uint32_t thread) {
        for (uint32_t i = 0; i < 20; ++i) {
            zantLogHandle context{};
            ASSERT_EQ(zantLogCreateContext(&parent, &context, "token", 0, "title %d", 5), 0u);
            log(&context, thread, i);
            EXPECT_EQ(zantLogDestroyContext(&context), 0u);
        }
    });
    EXPECT_EQ(zantLogClose(&parent), 0u);
    expectEach(20);
    EXPECT_GT(fileNames(logFolder()).size(), 3u);
    expectToken("5:token");
}

TEST_F(Threads, ChangeLevelsWhileOthersLog) {
    zantLogHandle handle{};
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    inThreads([&handle](uint32_t thread) {
        for (uint32_t i = 0; i < kMessages; ++i) {
            EXPECT_EQ(zantLogSetDebugLevel(&handle, static_cast<int32_t>(i % 7)), 0u);
            int32_t level = -1;
            EXPECT_EQ(zantLogGetDebugLevel(&handle, &level), 0u);
            EXPECT_TRUE(level >= 0 && level <= 6) << level;
            EXPECT_EQ(zantLogSetDiagLevel(&handle, static_cast<int32_t>(i % 7)), 0u);
            EXPECT_EQ(zantLogDebugMsg(&handle, 0, 3, "who", "%s", "dropped or not"), 0u);
            EXPECT_EQ(zantLogDiagMsg(&handle, 0, 3, "who", 0, "%s", "dropped or not"), 0u);
            log(&handle, thread, i);
        }
    });
    EXPECT_EQ(zantLogClose(&handle), 0u);
    expectEach(kMessages);
}

TEST_F(Threads, ReadTheLevelsAgainWhileOthersLog) {
    configure({"Default.LogDirectory=" + logFolder(), "Default.DebugLevel=4", "Default.DynaReloadInSec=60"});
    zantLogHandle handle{};
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    inThreads([&handle](uint32_t thread) {
        for (uint32_t i = 0; i < 50; ++i) {
            EXPECT_EQ(zantDynaLoadConfig(&handle), 0u);
            zantLogCfg cfg;
            EXPECT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
            EXPECT_EQ(cfg.debugLevel, 4u);
            zantLogFreeCfg(&cfg);
            log(&handle, thread, i);
        }
    });
    EXPECT_EQ(zantLogClose(&handle), 0u);
    expectEach(50);
}

} // namespace

} // namespace zantlog::test
