// The host's identity on the network, as tests set it.
#pragma once

#include <string>
#include <vector>

#include "logfile/os/os_host.h"

namespace zantlog::sim {

struct Host {
    bool socketsFail = false;
    bool nameFails = false;
    bool resolutionFails = false;
    std::string name = "simhost";
    std::vector<os::HostAddress> addresses;

    int socketStarts = 0;        // starts that succeeded and have not been cleaned up
    int callsWithoutSockets = 0; // names asked for and resolved while sockets were not started
};

Host &host();

} // namespace zantlog::sim
