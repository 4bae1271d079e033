// What is in use at a moment, to find what a test has left behind.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace zantlog::sim {

struct Census {
    std::map<std::string, int> handles; // by kind
    int heldMutexes = 0;
    int64_t heapBlocks = 0;
    int64_t criticalSections = 0;
    int socketStarts = 0;
    uint64_t misuses = 0; // of handles that were not open, and of mutexes that were not held
};

Census takeCensus();

// What is in use now beyond what was then, in words: "1 file, 2 heap blocks"; empty when there is nothing.
std::string leftSince(const Census &before);

} // namespace zantlog::sim
