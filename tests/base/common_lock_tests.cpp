// The common lock, held for a scope.
#include "base/common_lock.h"

#include <gtest/gtest.h>
#include <thread>

namespace zantlog {

namespace {

TEST(CommonLockScope, IsReleasedAtTheEnd) {
    {
        const CommonLock outer("outer()");
        const CommonLock inner("inner()");
    }
    bool taken = false;
    std::thread([&] {
        const CommonLock lock("other()");
        taken = true;
    }).join();
    EXPECT_TRUE(taken);
}

TEST(CommonLockScope, TenScopesNest) {
    {
        const CommonLock l1("1"), l2("2"), l3("3"), l4("4"), l5("5"), l6("6"), l7("7"), l8("8"), l9("9"),
            l10("10");
    }
    bool taken = false; // all ten were released again
    std::thread([&] {
        const CommonLock lock("other()");
        taken = true;
    }).join();
    EXPECT_TRUE(taken);
}

} // namespace

} // namespace zantlog
