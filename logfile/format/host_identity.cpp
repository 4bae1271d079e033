// Name and number of this host.
#include "logfile/format/host_identity.h"

#include <cstring>

#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

constexpr uint32_t kHostNameBytes = 512;

// 127.0.0.1 as littleEndian() reads it.
constexpr uint32_t kLoopbackNumber = 16777343;

constexpr uint8_t kIpv4Loopback[4] = {127, 0, 0, 1};
constexpr uint8_t kIpv6Loopback[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};

uint32_t littleEndian(const uint8_t *bytes) {
    return static_cast<uint32_t>(bytes[0]) | static_cast<uint32_t>(bytes[1]) << 8 |
           static_cast<uint32_t>(bytes[2]) << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

uint32_t bigEndian(const uint8_t *bytes) {
    return static_cast<uint32_t>(bytes[0]) << 24 | static_cast<uint32_t>(bytes[1]) << 16 |
           static_cast<uint32_t>(bytes[2]) << 8 | static_cast<uint32_t>(bytes[3]);
}

bool takeFirstNumber(void *context, const os::HostAddress &address) {
    auto *number = static_cast<uint32_t *>(context);
    *number = addressNumber(address);
    return *number == 0;
}

// The sockets of the process, for a scope.
class SocketScope {
public:
    SocketScope() : started_(os::startSockets()) {}
    ~SocketScope() {
        if (started_) {
            os::cleanUpSockets();
        }
    }
    SocketScope(const SocketScope &) = delete;
    SocketScope &operator=(const SocketScope &) = delete;

    [[nodiscard]] bool started() const { return started_; }

private:
    bool started_;
};

} // namespace

namespace zantlog {

uint32_t addressNumber(const os::HostAddress &address) {
    switch (address.family) {
    case os::AddressFamily::Ipv4:
        return std::memcmp(address.bytes, kIpv4Loopback, sizeof kIpv4Loopback) != 0
                   ? littleEndian(address.bytes)
                   : 0;
    case os::AddressFamily::Ipv6:
        return std::memcmp(address.bytes, kIpv6Loopback, sizeof kIpv6Loopback) != 0
                   ? bigEndian(address.bytes + 8) + bigEndian(address.bytes + 12)
                   : 0;
    case os::AddressFamily::Other:
        break;
    }
    return 0;
}

} // namespace zantlog

int32_t osGetHostName(char *buffer, uint32_t size) {
    if (buffer == nullptr || size == 0) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    const SocketScope sockets;
    return sockets.started() && os::hostName(buffer, size) ? ZANTLOG_OS_OK : ZANTLOG_OS_FAILED;
}

uint32_t zantLogHostId(void) {
    const SocketScope sockets;
    char name[kHostNameBytes];
    if (!sockets.started() || !os::hostName(name, sizeof name)) {
        return 0;
    }
    uint32_t number = 0;
    if (!os::resolveHost(name, takeFirstNumber, &number) || number == 0) {
        return kLoopbackNumber;
    }
    return number;
}
