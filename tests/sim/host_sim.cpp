#include "tests/sim/host_sim.h"

#include <cstring>

namespace zantlog::sim {

Host &host() {
    static Host instance;
    return instance;
}

} // namespace zantlog::sim

namespace zantlog::os {

namespace {

sim::Host &hostInUse() {
    sim::Host &host = sim::host();
    if (host.socketStarts == 0) {
        ++host.callsWithoutSockets;
    }
    return host;
}

} // namespace

bool startSockets() {
    if (sim::host().socketsFail) {
        return false;
    }
    ++sim::host().socketStarts;
    return true;
}

void cleanUpSockets() {
    --sim::host().socketStarts;
}

bool hostName(char *buffer, uint32_t size) {
    const sim::Host &host = hostInUse();
    if (host.nameFails || host.name.size() >= size) {
        return false;
    }
    std::memcpy(buffer, host.name.c_str(), host.name.size() + 1);
    return true;
}

bool resolveHost(const char *name, AddressVisitor visit, void *context) {
    const sim::Host &host = hostInUse();
    if (host.resolutionFails || host.name != name) {
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
