#include "catalog/arena.h"

#include <cstdlib>

namespace zantlog::catalog {

Arena::~Arena() {
    releaseBlock(block_);
}

bool Arena::allocate() {
    if (failed_) {
        return false;
    }
    size_ = used_;
    used_ = 0;
    block_ = static_cast<char *>(std::malloc(size_));
    return block_ != nullptr;
}

void *Arena::take(size_t bytes, size_t alignment) {
    const size_t start = (used_ + alignment - 1) / alignment * alignment;
    if (start < used_ || start + bytes < start || (!measuring() && start + bytes > size_)) {
        failed_ = true;
        return nullptr;
    }
    used_ = start + bytes;
    return measuring() ? nullptr : block_ + start;
}

void *Arena::release() {
    void *block = block_;
    block_ = nullptr;
    return block;
}

void releaseBlock(void *block) {
    std::free(block);
}

} // namespace zantlog::catalog
