// The heap.
#pragma once

#include <cstddef>

namespace zantlog::os {

// Null when memory is short. The size is not 0.
[[nodiscard]] void *allocate(size_t size);

// Null when memory is short; the old block is then untouched.
[[nodiscard]] void *reallocate(void *block, size_t size);

void release(void *block);

} // namespace zantlog::os
