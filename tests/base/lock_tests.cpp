// The lock that checks its holders: what it allows. What it forbids ends the process: see
// lock_abort_tests.cpp.
#include "tests/support/machine.h"
#include "zantlog/dispatch.h"
#include "zantlog/os_layer.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr char kFirst[] = "first()";
constexpr char kSecond[] = "second()";

class Lock : public testing::Test {
protected:
    const std::unique_ptr<zantLogLockRec> lock = std::make_unique<zantLogLockRec>();
};

TEST_F(Lock, InitialisationIsMarked) {
    EXPECT_EQ(lock->initialised, 0u);
    zantLogLockInit(lock.get());
    EXPECT_EQ(lock->initialised, 1u);
    EXPECT_EQ(lock->depth, 0);
    zantLogDestroyLock(lock.get());
    EXPECT_EQ(lock->initialised, 0u);
}

TEST_F(Lock, FirstUseInitialises) {
    zantLogLock(lock.get(), kFirst);
    EXPECT_EQ(lock->initialised, 1u);
    zantLogUnlock(lock.get(), kFirst);
    zantLogDestroyLock(lock.get());
}

TEST_F(Lock, DestroyedLockCanBeUsedAgain) {
    for (int i = 0; i < 3; ++i) {
        zantLogLock(lock.get(), kFirst);
        zantLogUnlock(lock.get(), kFirst);
        zantLogDestroyLock(lock.get());
    }
    EXPECT_EQ(lock->initialised, 0u);
}

TEST_F(Lock, HoldersAreStackedWithThreadAndLabel) {
    zantLogLock(lock.get(), kFirst);
    EXPECT_EQ(lock->depth, 1);
    zantLogLock(lock.get(), kSecond);
    EXPECT_EQ(lock->depth, 2);
    EXPECT_EQ(lock->holders[0].thread, getTID());
    EXPECT_EQ(lock->holders[0].label, kFirst);
    EXPECT_EQ(lock->holders[1].thread, getTID());
    EXPECT_EQ(lock->holders[1].label, kSecond);
    EXPECT_EQ(lock->holders[2].thread, 0u);
    EXPECT_EQ(lock->holders[2].label, nullptr);

    zantLogUnlock(lock.get(), kSecond);
    EXPECT_EQ(lock->depth, 1);
    EXPECT_EQ(lock->holders[1].thread, 0u);
    EXPECT_EQ(lock->holders[1].label, nullptr);
    EXPECT_EQ(lock->holders[0].label, kFirst);
    zantLogUnlock(lock.get(), kFirst);
    EXPECT_EQ(lock->depth, 0);
    EXPECT_EQ(lock->holders[0].label, nullptr);
    zantLogDestroyLock(lock.get());
}

TEST_F(Lock, TenHoldersAreAllowed) {
    for (int i = 0; i < 10; ++i) {
        zantLogLock(lock.get(), kFirst);
        EXPECT_EQ(lock->depth, i + 1);
    }
    for (int i = 10; i > 0; --i) {
        EXPECT_EQ(lock->depth, i);
        zantLogUnlock(lock.get(), kFirst);
    }
    zantLogDestroyLock(lock.get());
}

TEST_F(Lock, NullLabelIsALabel) {
    zantLogLock(lock.get(), nullptr);
    zantLogUnlock(lock.get(), nullptr);
    EXPECT_EQ(lock->depth, 0);
    zantLogDestroyLock(lock.get());
}

TEST_F(Lock, HolderKeepsOtherThreadsOut) {
    std::atomic<bool> released{false};
    bool waited = false;
    zantLogLock(lock.get(), kFirst);
    std::thread other([&] {
        zantLogLock(lock.get(), kSecond);
        waited = released;
        zantLogUnlock(lock.get(), kSecond);
    });
    zantlog::test::pauseFor(50);
    released = true;
    zantLogUnlock(lock.get(), kFirst);
    other.join();
    EXPECT_TRUE(waited);
    zantLogDestroyLock(lock.get());
}

TEST_F(Lock, CountsOfManyThreadsAreNotLost) {
    int count = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 5000; ++i) {
                zantLogLock(lock.get(), kFirst);
                zantLogLock(lock.get(), kSecond);
                ++count;
                zantLogUnlock(lock.get(), kSecond);
                zantLogUnlock(lock.get(), kFirst);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(count, 20000);
    EXPECT_EQ(lock->depth, 0);
    zantLogDestroyLock(lock.get());
}

// Threads that meet a fresh lock at once must not each initialise it: one of them would lose its critical
// section.
TEST_F(Lock, FirstUseByManyThreadsAtOnceInitialisesOnce) {
    for (int round = 0; round < 100; ++round) {
        std::atomic<int> ready{0};
        int count = 0;
        std::vector<std::thread> threads;
        for (int t = 0; t < 3; ++t) {
            threads.emplace_back([&] {
                ++ready;
                while (ready < 3) {
                }
                zantLogLock(lock.get(), kFirst);
                ++count;
                zantLogUnlock(lock.get(), kFirst);
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        ASSERT_EQ(count, 3);
        ASSERT_EQ(lock->depth, 0);
        ASSERT_EQ(lock->initialised, 1u);
        zantLogDestroyLock(lock.get());
    }
}

TEST(CommonLockFunctions, CommonLockNestsTenDeep) {
    for (int i = 0; i < 10; ++i) {
        zantLockCommon(kFirst);
    }
    for (int i = 0; i < 10; ++i) {
        zantUnlockCommon(kFirst);
    }
}

TEST(CommonLockFunctions, CommonLockIsOneForTheProcess) {
    std::atomic<bool> released{false};
    bool waited = false;
    zantLockCommon(kFirst);
    std::thread other([&] {
        zantLockCommon(kFirst);
        waited = released;
        zantUnlockCommon(kFirst);
    });
    zantlog::test::pauseFor(50);
    released = true;
    zantUnlockCommon(kFirst);
    other.join();
    EXPECT_TRUE(waited);
}

TEST(CommonLockFunctions, DestroyedCommonLockIsMadeAgainByItsNextUse) {
    zantLockCommon(kFirst);
    zantUnlockCommon(kFirst);
    zantDestroyCommonLock();
    zantLockCommon(kSecond);
    zantUnlockCommon(kSecond);
}

} // namespace
