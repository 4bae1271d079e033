#include <algorithm>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "zantlog/zantlog.h"

TEST(Levels, SetAndGetAnyValue) {
    zantLogHandle handle = {};
    const auto expect = [&](auto set, auto get) {
        for (const int32_t value : {0, 6, -1, 1000, INT32_MIN, INT32_MAX}) {
            int32_t out = 77;
            EXPECT_EQ(set(&handle, value), 0u);
            EXPECT_EQ(get(&handle, &out), 0u);
            EXPECT_EQ(out, value);
        }
    };
    expect(zantLogSetDebugLevel, zantLogGetDebugLevel);
    expect(zantLogSetDiagLevel, zantLogGetDiagLevel);
    expect(zantLogSetSecureAuditLevel, zantLogGetSecureAuditLevel);
}

TEST(Levels, EachHasItsOwnField) {
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogSetDebugLevel(&handle, 1), 0u);
    EXPECT_EQ(zantLogSetDiagLevel(&handle, 2), 0u);
    EXPECT_EQ(zantLogSetSecureAuditLevel(&handle, 3), 0u);
    EXPECT_EQ(zantLogSetSequenceNumber(&handle, 4), 0u);
    EXPECT_EQ(handle.debugLevel, 1);
    EXPECT_EQ(handle.diagLevel, 2);
    EXPECT_EQ(handle.secureAuditLevel, 3);
    EXPECT_EQ(handle.sequence, 4u);
}

TEST(Levels, NullIsAnInvalidArgument) {
    zantLogHandle handle = {};
    int32_t level = 77;
    uint32_t number = 78;
    EXPECT_EQ(zantLogSetDebugLevel(nullptr, 5), 3u);
    EXPECT_EQ(zantLogSetDiagLevel(nullptr, 5), 3u);
    EXPECT_EQ(zantLogSetSecureAuditLevel(nullptr, 5), 3u);
    EXPECT_EQ(zantLogSetSequenceNumber(nullptr, 5), 3u);
    EXPECT_EQ(zantLogGetDebugLevel(nullptr, &level), 3u);
    EXPECT_EQ(zantLogGetDebugLevel(&handle, nullptr), 3u);
    EXPECT_EQ(zantLogGetDiagLevel(nullptr, &level), 3u);
    EXPECT_EQ(zantLogGetDiagLevel(&handle, nullptr), 3u);
    EXPECT_EQ(zantLogGetSecureAuditLevel(nullptr, &level), 3u);
    EXPECT_EQ(zantLogGetSecureAuditLevel(&handle, nullptr), 3u);
    EXPECT_EQ(zantLogGetSequenceNumber(nullptr, &number), 3u);
    EXPECT_EQ(zantLogGetSequenceNumber(&handle, nullptr), 3u);
    EXPECT_EQ(level, 77);
    EXPECT_EQ(number, 78u);
}

TEST(SequenceNumbers, NextReturnsTheNumberAndAdvances) {
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogSetSequenceNumber(&handle, 7), 0u);
    EXPECT_EQ(GetNextSequenceNumber(&handle), 7u);
    EXPECT_EQ(GetNextSequenceNumber(&handle), 8u);
    uint32_t number = 0;
    EXPECT_EQ(zantLogGetSequenceNumber(&handle, &number), 0u);
    EXPECT_EQ(number, 9u);
}

TEST(SequenceNumbers, WrapAround) {
    zantLogHandle handle = {};
    EXPECT_EQ(zantLogSetSequenceNumber(&handle, 0xFFFFFFFF), 0u);
    EXPECT_EQ(GetNextSequenceNumber(&handle), 0xFFFFFFFFu);
    EXPECT_EQ(GetNextSequenceNumber(&handle), 0u);
    EXPECT_EQ(handle.sequence, 1u);
}

TEST(SequenceNumbers, NullHandleGivesZero) {
    EXPECT_EQ(GetNextSequenceNumber(nullptr), 0u);
}

TEST(SequenceNumbers, NoNumberIsDrawnTwice) {
    constexpr uint32_t kThreads = 4;
    constexpr uint32_t kEach = 2000;
    zantLogHandle handle = {};
    std::vector<std::vector<uint32_t>> drawn(kThreads);
    std::vector<std::thread> threads;
    for (uint32_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&handle, &mine = drawn[i]] {
            for (uint32_t n = 0; n < kEach; ++n) {
                mine.push_back(GetNextSequenceNumber(&handle));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    std::vector<uint32_t> all;
    for (const auto &mine : drawn) {
        EXPECT_TRUE(std::is_sorted(mine.begin(), mine.end()));
        all.insert(all.end(), mine.begin(), mine.end());
    }
    std::sort(all.begin(), all.end());
    for (uint32_t n = 0; n < kThreads * kEach; ++n) {
        ASSERT_EQ(all[n], n);
    }
}

TEST(SequenceNumbers, AccessorsNestInTheCommonLock) {
    static const char label[] = "test";
    zantLogHandle handle = {};
    uint32_t number = 0;
    int32_t level = 0;
    for (int i = 0; i < 9; ++i) {
        zantLockCommon(label);
    }
    EXPECT_EQ(GetNextSequenceNumber(&handle), 0u);
    EXPECT_EQ(zantLogGetSequenceNumber(&handle, &number), 0u);
    EXPECT_EQ(zantLogGetDebugLevel(&handle, &level), 0u);
    for (int i = 0; i < 9; ++i) {
        zantUnlockCommon(label);
    }
}

TEST(LocalizerList, IsCleared) {
    zantLogLocalizerList list;
    list.words[0] = &list;
    list.words[1] = &list;
    InitializeLocalizerList(&list);
    EXPECT_EQ(list.words[0], nullptr);
    EXPECT_EQ(list.words[1], nullptr);
    InitializeLocalizerList(nullptr);
}
