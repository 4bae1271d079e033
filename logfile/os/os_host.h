// Identity of this host on the network.
#pragma once

#include <cstdint>

namespace zantlog::os {

// False on failure. Calls nest.
[[nodiscard]] bool startSockets();
void cleanUpSockets();

// The host name, terminated; false on failure or when it does not fit. startSockets() must have been called.
[[nodiscard]] bool hostName(char *buffer, uint32_t size);

enum class AddressFamily { Ipv4, Ipv6, Other };

struct HostAddress {
    AddressFamily family;
    uint8_t bytes[16]; // network order; 4 of them for IPv4
};

// Called once for each address in the order of the answer, until it returns false.
using AddressVisitor = bool (*)(void *context, const HostAddress &address);

// Resolves a host name (service "0", flags 0x400, any family, stream sockets). False when it cannot be
// resolved. startSockets() must have been called.
[[nodiscard]] bool resolveHost(const char *name, AddressVisitor visit, void *context);

} // namespace zantlog::os
