// The host's name and number, on hosts that tests make.
#include <gtest/gtest.h>

#include "tests/sim/host.h"
#include "zantlog/log_file.h"

namespace {

using namespace zantlog;
using os::AddressFamily;

class SimulatedHost : public testing::Test {
protected:
    SimulatedHost() { sim::host() = {}; }
    ~SimulatedHost() override {
        EXPECT_EQ(sim::host().socketStarts, 0);
        EXPECT_EQ(sim::host().callsWithoutSockets, 0);
        sim::host() = {};
    }
};

TEST_F(SimulatedHost, NumberIsTheFirstAddressThatGivesOne) {
    sim::host().addresses = {{AddressFamily::Other, {9, 9, 9, 9}},
                             {AddressFamily::Ipv4, {127, 0, 0, 1}},
                             {AddressFamily::Ipv6, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}},
                             {AddressFamily::Ipv4, {0, 0, 0, 0}},
                             {AddressFamily::Ipv4, {10, 1, 2, 3}},
                             {AddressFamily::Ipv4, {10, 1, 2, 4}}};
    EXPECT_EQ(zantLogHostId(), 50462986u);
}

TEST_F(SimulatedHost, NumberMayComeFromAnIpv6Address) {
    sim::host().addresses = {{AddressFamily::Ipv6, {0xFE, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0}},
                             {AddressFamily::Ipv4, {10, 1, 2, 3}}};
    EXPECT_EQ(zantLogHostId(), 257u);
}

TEST_F(SimulatedHost, WithTheLoopbackAloneHasItsNumber) {
    sim::host().addresses = {{AddressFamily::Ipv4, {127, 0, 0, 1}}};
    EXPECT_EQ(zantLogHostId(), 16777343u);
}

TEST_F(SimulatedHost, WithoutAddressesHasTheLoopbackNumber) {
    EXPECT_EQ(zantLogHostId(), 16777343u);
}

TEST_F(SimulatedHost, ThatCannotBeResolvedHasTheLoopbackNumber) {
    sim::host().addresses = {{AddressFamily::Ipv4, {10, 1, 2, 3}}};
    sim::host().resolutionFails = true;
    EXPECT_EQ(zantLogHostId(), 16777343u);
}

TEST_F(SimulatedHost, WithoutANameHasNoNumber) {
    sim::host().addresses = {{AddressFamily::Ipv4, {10, 1, 2, 3}}};
    sim::host().nameFails = true;
    EXPECT_EQ(zantLogHostId(), 0u);
    sim::host() = {};
    sim::host().socketsFail = true;
    EXPECT_EQ(zantLogHostId(), 0u);
}

TEST_F(SimulatedHost, NameHasRoomFor511Bytes) {
    sim::host().name = std::string(511, 'h');
    sim::host().addresses = {{AddressFamily::Ipv4, {10, 1, 2, 3}}};
    EXPECT_EQ(zantLogHostId(), 50462986u);
    sim::host().name = std::string(512, 'h');
    EXPECT_EQ(zantLogHostId(), 0u);
}

TEST_F(SimulatedHost, NameIsHandedOut) {
    char name[8];
    EXPECT_EQ(osGetHostName(name, sizeof name), 0);
    EXPECT_STREQ(name, "simhost");
}

TEST_F(SimulatedHost, NameThatCannotBeHadFails) {
    char name[64];
    EXPECT_EQ(osGetHostName(name, 7), -1);
    sim::host().nameFails = true;
    EXPECT_EQ(osGetHostName(name, sizeof name), -1);
    sim::host().nameFails = false;
    sim::host().socketsFail = true;
    EXPECT_EQ(osGetHostName(name, sizeof name), -1);
}

} // namespace
