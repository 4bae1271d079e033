// The allocator of everything that the library hands out, and the checks of ids and names.
#include "logfile/os/os_memory.h"
#include "zantlog/message.h"
#include "zantlog/results.h"

#include <cstring>

using namespace zantlog;

void *zantLogMalloc(size_t size) {
    return size != 0 ? os::allocate(size) : nullptr;
}

void zantLogFree(void *pointer) {
    if (pointer != nullptr) {
        os::release(pointer);
    }
}

char *zantLogSafeStrdup(const char *text) {
    if (text == nullptr) {
        return nullptr;
    }
    const size_t size = std::strlen(text) + 1;
    auto *copy = static_cast<char *>(zantLogMalloc(size));
    if (copy != nullptr) {
        std::memcpy(copy, text, size);
    }
    return copy;
}

uint32_t zantLogResFreeErrorMessage(char *text) {
    if (text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    zantLogFree(text);
    return ZANTLOG_OK;
}

int32_t isOrigIdValid(uint32_t id) {
    return id != 0 ? 1 : 0;
}

int32_t isProdIdValid(uint32_t id) {
    return isOrigIdValid(id);
}

int32_t isLogSetValid(const char *name) {
    return name != nullptr ? 1 : 0;
}
