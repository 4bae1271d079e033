// The heap of the seam, linked in place of the real one: it counts the live blocks, and fails where a test
// tells it to.
#pragma once

#include <cstddef>
#include <functional>

namespace zantlog::test {

// From now on, the call with this number fails (1: the next one; 0: none).
void failAllocation(int number);

// Whether the call that was to fail has come.
bool allocationHasFailed();

size_t liveBlocks();

// Runs a scenario with its first allocation failing, then its second, and so on until none fails in it. Each
// run must leave as many blocks as it found. Returns the number of runs with a failure.
int sweepAllocations(const std::function<void()> &scenario);

} // namespace zantlog::test
