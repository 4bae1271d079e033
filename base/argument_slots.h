// An argument list of a variadic function, made of values that are known at run time only.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <cstring>

namespace zantlog {

// A list whose arguments are the slots, each of 8 bytes: what an int, a pointer, a 64-bit integer or a double
// takes on x86-64. The slots outlive the list, which is not to be ended with va_end().
inline void listOfSlots(const uint64_t *slots, va_list *list) {
#if defined(_WIN32)
    // A pointer to the next argument.
    *list = reinterpret_cast<char *>(const_cast<uint64_t *>(slots));
#else
    // The registers are used up, so every argument is taken from the memory behind them.
    struct Tag {
        uint32_t usedOfIntegers = 6 * 8;
        uint32_t usedOfReals = 6 * 8 + 16 * 16;
        const uint64_t *memory;
        const void *registers = nullptr;
    } tag;
    static_assert(sizeof tag == sizeof(va_list), "x86-64, as the library's own platform");
    tag.memory = slots;
    std::memcpy(list, &tag, sizeof tag);
#endif
}

} // namespace zantlog
