// The heap.
#include "logfile/os/os_memory.h"

#include <cstdlib>

#include "tests/sim/faults.h"
#include "tests/sim/memory.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

bool isShort() {
    sim::Memory &memory = sim::memory();
    const uint64_t number = ++memory.allocations;
    const uint64_t first = memory.firstFailure;
    if (first == 0 || number < first || (number > first && !memory.laterOnesFailToo)) {
        return false;
    }
    ++memory.failures;
    return true;
}

// Blocks of other processes than the first are freed when the process goes.
void note(void *block) {
    if (block != nullptr && !sim::isFirstProcess()) {
        sim::currentProcess().blocks.insert(block);
    }
}

void forget(void *block) {
    if (!sim::isFirstProcess()) {
        sim::currentProcess().blocks.erase(block);
    }
}

} // namespace

void *allocate(size_t size) {
    if (sim::enter(sim::Call::Allocate).fails() || isShort()) {
        return nullptr;
    }
    void *block = std::malloc(size);
    if (block != nullptr) {
        ++sim::memory().blocks;
        note(block);
    }
    return block;
}

void *reallocate(void *block, size_t size) {
    if (sim::enter(sim::Call::Allocate).fails() || isShort()) {
        return nullptr;
    }
    const bool isNew = block == nullptr;
    forget(block);
    void *grown = std::realloc(block, size);
    note(grown != nullptr ? grown : block);
    if (isNew && grown != nullptr) {
        ++sim::memory().blocks;
    }
    return grown;
}

void release(void *block) {
    sim::enter(sim::Call::Release);
    if (block == nullptr) {
        return;
    }
    --sim::memory().blocks;
    forget(block);
    std::free(block);
}

} // namespace zantlog::os
