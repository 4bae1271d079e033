// Any format builds an object or is refused. Every argument that it may ask for is the address of one block,
// which is a narrow text, a wide text and an object without arguments at once.
#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <sys/mman.h>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "zantlog/message.h"
#include "zantlog/rendering.h"

namespace {

using namespace zantlog;

union Anything {
    char bytes[32];
    zantLis object;
};

// At an address so low that it is a small number too.
Anything *anything() {
    static void *const block = mmap(reinterpret_cast<void *>(0x10000), 0x1000, PROT_READ | PROT_WRITE,
                                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
    fuzz::expect(block != MAP_FAILED, "the low address is free");
    return static_cast<Anything *>(block);
}

// A text as long as such a number would be made; it says nothing of the library.
bool asksForHugeTexts(const std::string &format) {
    size_t digits = 0;
    for (const char byte : format) {
        digits = byte >= '0' && byte <= '9' ? digits + 1 : 0;
        if (digits > 5) {
            return true;
        }
    }
    return false;
}

// A format is not to name more arguments than it is given.
bool asksForMoreArguments(const std::string &format) {
    return std::count(format.begin(), format.end(), '%') + std::count(format.begin(), format.end(), '*') >
           100;
}

int32_t build(zantLis *lis, bool plain, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int32_t result = plain ? zantLisTextV(lis, format, args) : zantLisVEx(lis, 0, 4711, format, args);
    va_end(args);
    return result;
}

uint32_t print(char **out, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const uint32_t result = listxt_svnprintf(out, format, args);
    va_end(args);
    return result;
}

// As many arguments as a format may name, and the doubles that stand in registers of their own.
#define TEN(x) x, x, x, x, x, x, x, x, x, x
#define ARGUMENTS(x) 1.5, -2e300, 0.0, 1e-300, 4.0, 5.0, 6.0, 7.0, TEN(TEN(x)), TEN(x)

void expectSound(zantLis *lis, int32_t result) {
    uint32_t chain = 0;
    for (const zantLisArg *at = lis->first; at != nullptr; at = at->next) {
        fuzz::expect(at->kind >= ZANTLIS_WIDE_CHAR && at->kind <= ZANTLIS_NATIVE_STRING, "the kind is known");
        ++chain;
    }
    fuzz::expectEqual(chain, lis->argCount, "the chain is as long as the object says");
    fuzz::expect(result == 0 || (result < 0 && result >= -4), "the result is documented");
    fuzz::expect(result == 0 || (lis->argCount == 0 && lis->textId == 0),
                 "a refused format leaves no object");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const bool plain = input.below(2) != 0;
    const std::string format = input.rest();
    if (asksForHugeTexts(format) || asksForMoreArguments(format)) {
        return -1;
    }
    Anything *const any = anything();
    std::memcpy(any->bytes, "abc", 4);

    zantLis lis;
    const int32_t result = build(&lis, plain, format.c_str(), ARGUMENTS(any));
    expectSound(&lis, result);
    size_t needed = 0;
    strncatlis(nullptr, &needed, &lis);
    zantLisFree(&lis);

    char *text = nullptr;
    fuzz::expectEqual(print(&text, format.c_str(), ARGUMENTS(any)), 0, "printing answers 0");
    zantLogFree(text);
    return 0;
}
