#include "tests/config/failing_memory.h"

#include "logfile/os/os_memory.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

int countdown = 0;
bool failed = false;
size_t live = 0;

bool failsNow() {
    if (countdown == 0 || --countdown != 0) {
        return false;
    }
    failed = true;
    return true;
}

} // namespace

namespace zantlog::os {

void *allocate(size_t size) {
    if (failsNow()) {
        return nullptr;
    }
    ++live;
    return std::malloc(size);
}

void *reallocate(void *block, size_t size) {
    if (failsNow()) {
        return nullptr;
    }
    if (block == nullptr) {
        ++live;
    }
    return std::realloc(block, size);
}

void release(void *block) {
    if (block != nullptr) {
        --live;
    }
    std::free(block);
}

} // namespace zantlog::os

namespace zantlog::test {

void failAllocation(int number) {
    countdown = number;
    failed = false;
}

bool allocationHasFailed() {
    return failed;
}

size_t liveBlocks() {
    return live;
}

int sweepAllocations(const std::function<void()> &scenario) {
    constexpr int kEndless = 100000;
    for (int number = 1; number < kEndless; ++number) {
        const size_t before = liveBlocks();
        failAllocation(number);
        scenario();
        const bool reached = allocationHasFailed();
        failAllocation(0);
        EXPECT_EQ(liveBlocks(), before) << "allocation " << number << " failing";
        if (!reached) {
            return number - 1;
        }
    }
    ADD_FAILURE() << "the scenario never ends";
    return 0;
}

} // namespace zantlog::test
