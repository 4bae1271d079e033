// Identity of this host on the network.
#include "logfile/os/os_host.h"

#include <cstring>

// winsock2.h comes before windows.h, which would bring the older sockets with it.
#include <winsock2.h>
#include <ws2tcpip.h>

namespace zantlog::os {

namespace {

constexpr WORD kSocketVersion = 0x0202; // 2.2
constexpr int kResolveFlags = 0x400;

HostAddress hostAddress(const addrinfo &entry) {
    HostAddress address{AddressFamily::Other, {}};
    if (entry.ai_family == AF_INET && entry.ai_addrlen >= sizeof(sockaddr_in)) {
        sockaddr_in ipv4{};
        std::memcpy(&ipv4, entry.ai_addr, sizeof(ipv4));
        address.family = AddressFamily::Ipv4;
        std::memcpy(address.bytes, &ipv4.sin_addr, sizeof(ipv4.sin_addr));
    } else if (entry.ai_family == AF_INET6 && entry.ai_addrlen >= sizeof(sockaddr_in6)) {
        sockaddr_in6 ipv6{};
        std::memcpy(&ipv6, entry.ai_addr, sizeof(ipv6));
        address.family = AddressFamily::Ipv6;
        std::memcpy(address.bytes, &ipv6.sin6_addr, sizeof(ipv6.sin6_addr));
    }
    return address;
}

} // namespace

bool startSockets() {
    WSADATA data{};
    return WSAStartup(kSocketVersion, &data) == 0;
}

void cleanUpSockets() {
    WSACleanup();
}

bool hostName(char *buffer, uint32_t size) {
    if (size == 0 || size > INT32_MAX || gethostname(buffer, static_cast<int>(size)) != 0) {
        return false;
    }
    buffer[size - 1] = '\0';
    return true;
}

bool resolveHost(const char *name, AddressVisitor visit, void *context) {
    addrinfo hints{};
    hints.ai_flags = kResolveFlags;
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *first = nullptr;
    if (getaddrinfo(name, "0", &hints, &first) != 0) {
        return false;
    }
    for (const addrinfo *entry = first; entry != nullptr; entry = entry->ai_next) {
        if (!visit(context, hostAddress(*entry))) {
            break;
        }
    }
    freeaddrinfo(first);
    return true;
}

} // namespace zantlog::os
