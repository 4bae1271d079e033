// The growable text buffer as the library itself appends to it.
#pragma once

#include "zantlog/serialization.h"

namespace zantlog {

// The end of the content, where the next piece goes.
inline char *contentEnd(const text_msg *buffer) {
    return buffer->data + (buffer->capacity - buffer->free);
}

inline uint64_t contentLength(const text_msg *buffer) {
    return buffer->capacity - buffer->free;
}

// append_text_msg() without a call while the piece fits.
[[nodiscard]] inline char *appendRoom(text_msg *buffer, uint64_t count) {
    if (count >= buffer->free) [[unlikely]] {
        return append_text_msg(buffer, count);
    }
    char *at = contentEnd(buffer);
    buffer->free -= count;
    return at;
}

// Whether the content stands in a heap block of the buffer's own.
inline bool ownsHeapBlock(const text_msg *buffer) {
    return buffer->capacity > ZANTLOG_TEXT_INLINE;
}

} // namespace zantlog
