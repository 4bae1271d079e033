// Identity of this host on the network.
#include "logfile/os/os_host.h"

#include <cstdio>
#include <cstring>

#include "tests/sim/faults.h"
#include "tests/sim/host.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

sim::Host &hostInUse() {
    sim::Host &host = sim::host();
    if (host.socketStarts == 0) {
        ++host.callsWithoutSockets;
    }
    return host;
}

// An address in its dotted form needs no resolution.
bool isAddress(const char *text, HostAddress *address) {
    unsigned parts[4] = {};
    char rest = 0;
    if (std::sscanf(text, "%3u.%3u.%3u.%3u%c", &parts[0], &parts[1], &parts[2], &parts[3], &rest) != 4) {
        return false;
    }
    *address = {AddressFamily::Ipv4, {}};
    for (size_t i = 0; i < 4; ++i) {
        address->bytes[i] = static_cast<uint8_t>(parts[i]);
    }
    return true;
}

} // namespace

bool startSockets() {
    if (sim::enter(sim::Call::StartSockets).fails() || sim::host().socketsFail) {
        return false;
    }
    ++sim::host().socketStarts;
    ++sim::currentProcess().socketStarts;
    return true;
}

void cleanUpSockets() {
    sim::enter(sim::Call::CleanUpSockets);
    --sim::host().socketStarts;
    --sim::currentProcess().socketStarts;
}

bool hostName(char *buffer, uint32_t size) {
    const sim::Verdict verdict = sim::enter(sim::Call::HostName);
    const sim::Host &host = hostInUse();
    if (verdict.fails() || host.nameFails || host.name.size() >= size) {
        return false;
    }
    std::memcpy(buffer, host.name.c_str(), host.name.size() + 1);
    return true;
}

bool resolveHost(const char *name, AddressVisitor visit, void *context) {
    const sim::Verdict verdict = sim::enter(sim::Call::ResolveHost);
    const sim::Host &host = hostInUse();
    if (verdict.fails() || host.resolutionFails) {
        return false;
    }
    HostAddress literal{};
    if (isAddress(name, &literal)) {
        visit(context, literal);
        return true;
    }
    if (host.name != name) {
        return false;
    }
    for (const HostAddress &address : host.addresses) {
        if (!visit(context, address)) {
            break;
        }
    }
    return true;
}

} // namespace zantlog::os
