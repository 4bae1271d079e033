// The number that stands for this host in names of log files.
#pragma once

#include "logfile/os/os_host.h"

namespace zantlog {

// The number that an address of a host gives it; 0 for one that tells nothing of the host.
uint32_t addressNumber(const os::HostAddress &address);

} // namespace zantlog
