// The heap, as tests make it run short.
#pragma once

#include <cstdint>

#include "tests/sim/relaxed_number.h"

namespace zantlog::sim {

struct Memory {
    RelaxedNumber<uint64_t> allocations;     // calls that asked for memory since the record was reset
    RelaxedNumber<uint64_t> firstFailure;    // the call that fails, counted from 1; 0: none
    bool laterOnesFailToo = false;           // every call from then on fails
    RelaxedNumber<uint64_t> failures;        // calls that failed so
    RelaxedNumber<int64_t> blocks;           // blocks handed out and not released yet
    RelaxedNumber<int64_t> criticalSections; // made and not deleted yet
};

Memory &memory();

} // namespace zantlog::sim
