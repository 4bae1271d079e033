// Owners of memory from the library's allocator.
#pragma once

#include "zantlog/message.h"

#include <cstdint>
#include <memory>

namespace zantlog {

struct FreeDeleter {
    void operator()(void *block) const { zantLogFree(block); }
};

using OwnedText = std::unique_ptr<char, FreeDeleter>;
using OwnedWideText = std::unique_ptr<wchar_t, FreeDeleter>;

template <typename T> using OwnedBlock = std::unique_ptr<T, FreeDeleter>;

// A copy; null for a null text and when memory is short.
[[nodiscard]] inline OwnedText copyText(const char *text) {
    return OwnedText(zantLogSafeStrdup(text));
}

// An uninitialised block of `count` values of a plain type; null when memory is short or count is 0.
template <typename T> [[nodiscard]] OwnedBlock<T> allocateBlock(size_t count) {
    if (count > SIZE_MAX / sizeof(T)) {
        return nullptr;
    }
    return OwnedBlock<T>(static_cast<T *>(zantLogMalloc(count * sizeof(T))));
}

} // namespace zantlog
