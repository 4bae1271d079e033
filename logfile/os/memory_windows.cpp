// The heap: the C runtime's.
#include "logfile/os/os_memory.h"

#include <cstdlib>

namespace zantlog::os {

void *allocate(size_t size) {
    return std::malloc(size);
}

void *reallocate(void *block, size_t size) {
    return std::realloc(block, size);
}

void release(void *block) {
    std::free(block);
}

} // namespace zantlog::os
