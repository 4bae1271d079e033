// The simulated machine, as tests set it up, spoil it and look at it.
#pragma once

#include "tests/sim/census.h"      // what is in use, and what was left behind
#include "tests/sim/clock.h"       // time and time zone
#include "tests/sim/console.h"     // what was printed
#include "tests/sim/environment.h" // environment variables
#include "tests/sim/event_log.h"   // what was reported
#include "tests/sim/faults.h"      // calls that fail, are cut short, or are the last ones of their process
#include "tests/sim/files.h"       // files, disks, listings
#include "tests/sim/host.h"        // host name and addresses
#include "tests/sim/memory.h"      // allocations that fail
#include "tests/sim/modules.h"     // libraries that can be loaded
#include "tests/sim/mutexes.h"     // named mutexes: who may not have them, who left them
#include "tests/sim/process.h"     // logical processes
#include "tests/sim/registry.h"    // the registry
