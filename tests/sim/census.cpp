#include "tests/sim/census.h"

#include "tests/sim/handles.h"
#include "tests/sim/host.h"
#include "tests/sim/memory.h"
#include "tests/sim/mutexes.h"

namespace zantlog::sim {

namespace {

void add(std::string *text, int64_t difference, const std::string &what) {
    if (difference != 0) {
        *text += (text->empty() ? "" : ", ") + std::to_string(difference) + " " + what;
    }
}

} // namespace

Census takeCensus() {
    return {openHandles(),       heldMutexes(),
            memory().blocks,     memory().criticalSections,
            host().socketStarts, handleMisuses() + mutexMisuses()};
}

std::string leftSince(const Census &before) {
    const Census now = takeCensus();
    std::map<std::string, int> handles = now.handles;
    for (const auto &[kind, count] : before.handles) {
        handles[kind] -= count;
    }
    std::string text;
    for (const auto &[kind, count] : handles) {
        add(&text, count, kind + " handles");
    }
    add(&text, now.heldMutexes - before.heldMutexes, "held mutexes");
    add(&text, now.heapBlocks - before.heapBlocks, "heap blocks");
    add(&text, now.criticalSections - before.criticalSections, "critical sections");
    add(&text, now.socketStarts - before.socketStarts, "starts of the sockets");
    add(&text, static_cast<int64_t>(now.misuses - before.misuses), "misuses of handles");
    return text;
}

} // namespace zantlog::sim
