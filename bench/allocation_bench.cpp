// Heap blocks a message: every malloc, calloc and realloc of the library is counted (the linker wraps them).
// The catalog library is a DLL with a heap of its own; an object costs it one block.
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "zantlog/zantlog.h"

namespace {
uint64_t blocks = 0;
} // namespace

extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
void *__real_realloc(void *block, size_t size);
void *__wrap_malloc(size_t size);
void *__wrap_calloc(size_t count, size_t size);
void *__wrap_realloc(void *block, size_t size);

void *__wrap_malloc(size_t size) {
    ++blocks;
    return __real_malloc(size);
}
void *__wrap_calloc(size_t count, size_t size) {
    ++blocks;
    return __real_calloc(count, size);
}
void *__wrap_realloc(void *block, size_t size) {
    ++blocks;
    return __real_realloc(block, size);
}
}

namespace {

constexpr uint32_t kCalls = 100;

[[noreturn]] void fail(const char *what, uint32_t code) {
    std::fprintf(stderr, "allocation_bench: %s failed: %u\n", what, code);
    std::exit(1);
}

template <typename Work> void count(const char *name, Work work) {
    if (const uint32_t result = work(); result != 0)
        fail(name, result); // what is made once is made here
    const uint64_t before = blocks;
    for (uint32_t call = 0; call < kCalls; ++call) {
        if (const uint32_t result = work(); result != 0)
            fail(name, result);
    }
    std::printf("  %-52s %6.2f\n", name, static_cast<double>(blocks - before) / kCalls);
}

uint32_t serialize(const char *text) {
    zantLogMsgRec record{};
    record.formatVersion = ZANTLOG_FORMAT_PRODUCT;
    record.type = ZANTLOG_MSG_DEBUG;
    record.text = const_cast<char *>(text);
    record.slot.level = 1;
    text_msg buffer;
    const uint32_t result = zantLogMsgSerialize(&record, &buffer);
    if (result == 0)
        free_text_msg(&buffer);
    return result;
}

} // namespace

int main() {
    if (std::getenv("ZANTLOG_CFG_LOC") == nullptr) {
        std::fprintf(stderr, "usage: ZANTLOG_CFG_LOC names a store in which product 12 is registered "
                             "(scripts/bench.sh makes one)\n");
        return 2;
    }
    zantLogHandle handle{};
    if (const uint32_t result = zantLogOpen(12, 3, &handle); result != 0)
        fail("zantLogOpen", result);
    zantLogSetDebugLevel(&handle, 6);
    static char longText[3001];
    std::memset(longText, 'x', sizeof longText - 1);

    std::printf("heap blocks a message, besides the catalog library's one for an object\n");
    count("serializing, text of 12 bytes", [] { return serialize("disk failure"); });
    count("serializing, text of 3000 bytes", [] { return serialize(longText); });
    count("zantLogFormattedDebugMsg",
          [&] { return zantLogFormattedDebugMsg(&handle, 0, 1, "bench", "disk failure"); });
    count("zantLogFormattedDebugMsg, text of 3000 bytes",
          [&] { return zantLogFormattedDebugMsg(&handle, 0, 1, "bench", longText); });
    count("zantLogDebugMsg, two arguments",
          [&] { return zantLogDebugMsg(&handle, 0, 1, "bench", "%u of %s", 5U, "C:"); });
    count("zantLogAppMsg, catalog message, two arguments",
          [&] { return zantLogAppMsg(&handle, 0, 1, 4711, "%u of %s", 5U, "C:"); });
    count("zantLogAppMsg, text, two arguments",
          [&] { return zantLogAppMsg(&handle, 0, 1, 0, "%u of %s", 5U, "C:"); });
    count("zantLogAuditMsg, two arguments",
          [&] { return zantLogAuditMsg(&handle, 0, "user", 0, 4711, "%u of %s", 5U, "C:"); });
    zantLogClose(&handle);
    return 0;
}
