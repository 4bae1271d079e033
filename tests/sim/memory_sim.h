// The heap, as tests make it run short.
#pragma once

#include <cstdint>

namespace zantlog::sim {

struct Memory {
    uint64_t allocations = 0;      // calls that asked for memory since the record was reset
    uint64_t firstFailure = 0;     // the call that fails, counted from 1; 0: none
    bool laterOnesFailToo = false; // every call from then on fails
    int64_t blocks = 0;            // blocks handed out and not released yet
};

Memory &memory();

} // namespace zantlog::sim
