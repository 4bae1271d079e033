// The host's identity on the network, as tests set it.
#pragma once

#include <string>
#include <vector>

#include "logfile/os/os_host.h"
#include "tests/sim/relaxed_number.h"

namespace zantlog::sim {

struct Host {
    bool socketsFail = false;
    bool nameFails = false;
    bool resolutionFails = false;
    std::string name = "simhost";
    std::vector<os::HostAddress> addresses;

    RelaxedNumber<int> socketStarts;        // starts that succeeded and have not been cleaned up
    RelaxedNumber<int> callsWithoutSockets; // names asked for and resolved while sockets were not started
};

Host &host();

} // namespace zantlog::sim
