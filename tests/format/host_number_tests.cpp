// The number that stands for a host.
#include <gtest/gtest.h>

#include "logfile/format/host_identity.h"

namespace {

using namespace zantlog;
using os::AddressFamily;
using os::HostAddress;

TEST(AddressNumber, OfIpv4IsItsBytesReadAsALittleEndianNumber) {
    EXPECT_EQ(addressNumber({AddressFamily::Ipv4, {10, 1, 2, 3}}), 50462986u);
    EXPECT_EQ(addressNumber({AddressFamily::Ipv4, {255, 255, 255, 255}}), 4294967295u);
    EXPECT_EQ(addressNumber({AddressFamily::Ipv4, {192, 168, 0, 200}}), 3355486400u);
}

TEST(AddressNumber, OfTheIpv4LoopbackIsNothing) {
    EXPECT_EQ(addressNumber({AddressFamily::Ipv4, {127, 0, 0, 1}}), 0u);
    // Only that one address is the loopback.
    EXPECT_EQ(addressNumber({AddressFamily::Ipv4, {127, 0, 1, 1}}), 16842879u);
}

TEST(AddressNumber, OfIpv6IsTheSumOfItsLastTwoWords) {
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6, {0xFE, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0}}),
              257u);
    // 0x12345678 + 0x9ABCDEF0 = 0xACF13568
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6,
                             {1, 2, 3, 4, 5, 6, 7, 8, 0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0}}),
              2901489000u);
}

TEST(AddressNumber, OfIpv6WrapsAtThirtyTwoBits) {
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6, {1, 0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0, 0, 0, 3}}),
              2u);
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6, {1, 0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0, 0, 0, 1}}),
              0u);
}

TEST(AddressNumber, OfTheIpv6LoopbackIsNothing) {
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}}), 0u);
    EXPECT_EQ(addressNumber({AddressFamily::Ipv6, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}}), 1u);
}

TEST(AddressNumber, OfOtherFamiliesIsNothing) {
    EXPECT_EQ(addressNumber({AddressFamily::Other, {10, 1, 2, 3}}), 0u);
}

} // namespace
