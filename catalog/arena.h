// The one block of memory behind an object: what goes into it is measured first and then laid down by the
// same code.
#pragma once

#include <cstddef>

namespace zantlog::catalog {

class Arena {
public:
    Arena() = default; // measures: hands out null and counts
    ~Arena();
    Arena(const Arena &) = delete;
    Arena &operator=(const Arena &) = delete;

    // Begins to hand out memory, as much as was counted. False when there is none.
    [[nodiscard]] bool allocate();

    // While measuring always null; afterwards null only when more is asked for than was measured, which
    // happens when another thread changes a text between the two passes. Such an arena has failed.
    void *take(size_t bytes, size_t alignment);

    [[nodiscard]] bool measuring() const { return block_ == nullptr; }
    [[nodiscard]] bool failed() const { return failed_; }

    // Hands the block over, to be freed with releaseBlock().
    [[nodiscard]] void *release();

private:
    char *block_ = nullptr;
    size_t size_ = 0; // measured so far, or of the block
    size_t used_ = 0;
    bool failed_ = false;
};

void releaseBlock(void *block);

} // namespace zantlog::catalog
