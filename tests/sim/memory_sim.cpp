#include "tests/sim/memory_sim.h"

#include <cstdlib>

#include "logfile/os/os_memory.h"

namespace zantlog::sim {

Memory &memory() {
    static Memory instance;
    return instance;
}

} // namespace zantlog::sim

namespace zantlog::os {

namespace {

bool isShort() {
    sim::Memory &memory = sim::memory();
    ++memory.allocations;
    if (memory.firstFailure == 0 || memory.allocations < memory.firstFailure) {
        return false;
    }
    return memory.laterOnesFailToo || memory.allocations == memory.firstFailure;
}

} // namespace

void *allocate(size_t size) {
    void *block = isShort() ? nullptr : std::malloc(size);
    if (block != nullptr) {
        ++sim::memory().blocks;
    }
    return block;
}

void *reallocate(void *block, size_t size) {
    return isShort() ? nullptr : std::realloc(block, size);
}

void release(void *block) {
    --sim::memory().blocks;
    std::free(block);
}

} // namespace zantlog::os
