#include "logfile/format/text_message.h"

#include <cstring>

#include "base/byte_scan.h"
#include "logfile/os/os_memory.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

// False when the new capacity cannot be expressed.
bool grownCapacity(const text_msg *buffer, uint64_t count, uint64_t *capacity) {
    const uint64_t used = contentLength(buffer);
    uint64_t grown = 0;
    uint64_t needed = 0;
    if (__builtin_add_overflow(buffer->capacity, uint64_t{ZANTLOG_TEXT_INLINE}, &grown) ||
        __builtin_add_overflow(used, count, &needed)) {
        return false;
    }
    if (needed > grown && __builtin_add_overflow(grown, count, &grown)) {
        return false;
    }
    *capacity = grown;
    return grown <= SIZE_MAX;
}

} // namespace

void init_text_msg(text_msg *buffer) {
    if (buffer == nullptr) {
        return;
    }
    buffer->data = buffer->inlineArea;
    buffer->free = ZANTLOG_TEXT_INLINE;
    buffer->capacity = ZANTLOG_TEXT_INLINE;
}

char *append_text_msg(text_msg *buffer, uint64_t count) {
    if (buffer == nullptr) {
        return nullptr;
    }
    // A full buffer grows before its last byte is used, also for a piece that would just fit.
    if (count >= buffer->free && grow_text_msg(buffer, count) != ZANTLOG_OS_OK) {
        return nullptr;
    }
    char *at = contentEnd(buffer);
    buffer->free -= count;
    return at;
}

int32_t grow_text_msg(text_msg *buffer, uint64_t count) {
    uint64_t capacity = 0;
    if (buffer == nullptr || !grownCapacity(buffer, count, &capacity)) {
        return ZANTLOG_OS_FAILED;
    }
    const uint64_t used = contentLength(buffer);
    char *block = nullptr;
    if (ownsHeapBlock(buffer)) {
        block = static_cast<char *>(os::reallocate(buffer->data, capacity));
        if (block == nullptr) {
            // The content is lost with its block, so that nobody has to release a buffer whose growth failed.
            free_text_msg(buffer);
            return ZANTLOG_OS_FAILED;
        }
    } else {
        block = static_cast<char *>(zantLogMalloc(capacity));
        if (block == nullptr) {
            return ZANTLOG_OS_FAILED;
        }
        std::memcpy(block, buffer->data, used);
    }
    buffer->data = block;
    buffer->capacity = capacity;
    buffer->free = capacity - used;
    return ZANTLOG_OS_OK;
}

void free_text_msg(text_msg *buffer) {
    if (buffer == nullptr) {
        return;
    }
    if (ownsHeapBlock(buffer)) {
        zantLogFree(buffer->data);
    }
    init_text_msg(buffer);
}

uint32_t terminate_text_msg(text_msg *buffer) {
    if (buffer == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const uint64_t length = contentLength(buffer);
    char *end = appendRoom(buffer, 1);
    if (end == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    replaceByte(buffer->data, length, '\n', '\r');
    *end = '\n';
    return ZANTLOG_OK;
}
