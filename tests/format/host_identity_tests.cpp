// Name and number of the host that the tests run on.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "zantlog/log_file.h"

namespace {

TEST(HostIdentity, NameIsTerminatedAndAlwaysTheSame) {
    char first[512];
    std::memset(first, 'x', sizeof first);
    ASSERT_EQ(osGetHostName(first, sizeof first), 0);
    EXPECT_LT(std::strlen(first), sizeof first);
    EXPECT_STRNE(first, "");
    char second[512];
    ASSERT_EQ(osGetHostName(second, sizeof second), 0);
    EXPECT_STREQ(first, second);
}

TEST(HostIdentity, NameThatDoesNotFitFails) {
    char name[512];
    ASSERT_EQ(osGetHostName(name, sizeof name), 0);
    const std::string whole = name;
    const auto length = static_cast<uint32_t>(whole.size());
    EXPECT_EQ(osGetHostName(name, length + 1), 0);
    EXPECT_EQ(whole, name);
    EXPECT_EQ(osGetHostName(name, length), -1);
    EXPECT_EQ(osGetHostName(name, 1), -1);
}

TEST(HostIdentity, NameNeedsABuffer) {
    char name[16] = "as it was";
    EXPECT_EQ(osGetHostName(nullptr, 512), -3);
    EXPECT_EQ(osGetHostName(name, 0), -3);
    EXPECT_EQ(osGetHostName(nullptr, 0), -3);
    EXPECT_EQ(name[0], 'a');
}

TEST(HostIdentity, NumberIsNeverZeroAndAlwaysTheSame) {
    const uint32_t number = zantLogHostId();
    EXPECT_NE(number, 0u);
    EXPECT_EQ(zantLogHostId(), number);
}

TEST(HostIdentity, NumberDoesNotDependOnSocketsBeingStarted) {
    const uint32_t number = zantLogHostId();
    ASSERT_EQ(osSocketStartup(), 0);
    EXPECT_EQ(zantLogHostId(), number);
    EXPECT_EQ(osSocketCleanup(), 0);
    EXPECT_EQ(zantLogHostId(), number);
}

} // namespace
