// Passes over bytes that are measured: sixteen at a time where the processor can, which every x86-64 one can.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#define ZANTLOG_BYTE_LANES 1
#include <emmintrin.h>
#else
#define ZANTLOG_BYTE_LANES 0
#endif

// A sanitizer takes a block that reaches over the end of a text for an error; its builds measure texts byte
// by byte.
#if defined(__has_feature)
#define ZANTLOG_SANITIZER_FEATURE(name) __has_feature(name)
#else
#define ZANTLOG_SANITIZER_FEATURE(name) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) ||                                         \
    ZANTLOG_SANITIZER_FEATURE(address_sanitizer) || ZANTLOG_SANITIZER_FEATURE(thread_sanitizer) ||           \
    ZANTLOG_SANITIZER_FEATURE(memory_sanitizer)
#define ZANTLOG_MEASURE_BY_BLOCKS 0
#else
#define ZANTLOG_MEASURE_BY_BLOCKS ZANTLOG_BYTE_LANES
#endif

namespace zantlog {

struct MeasuredText {
    size_t length;
    bool ascii; // no byte above 0x7F
};

// Length of a terminated text, and whether it is pure ASCII, in one pass.
inline MeasuredText measureText(const char *text) {
#if ZANTLOG_MEASURE_BY_BLOCKS
    // Aligned blocks: the bytes around the text that are looked at lie in the text's own pages.
    const unsigned skipped = static_cast<unsigned>(reinterpret_cast<uintptr_t>(text) % 16);
    const char *block = text - skipped;
    const __m128i zero = _mm_setzero_si128();
    __m128i bytes = _mm_load_si128(reinterpret_cast<const __m128i *>(block));
    unsigned ends = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, zero))) >> skipped;
    unsigned high = static_cast<unsigned>(_mm_movemask_epi8(bytes)) >> skipped;
    if (ends != 0) {
        return {static_cast<size_t>(std::countr_zero(ends)), (high & (ends - 1) & ~ends) == 0};
    }
    unsigned seen = high;
    for (;;) {
        block += 16;
        bytes = _mm_load_si128(reinterpret_cast<const __m128i *>(block));
        ends = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, zero)));
        high = static_cast<unsigned>(_mm_movemask_epi8(bytes));
        if (ends != 0) {
            const auto length =
                static_cast<size_t>(block - text) + static_cast<size_t>(std::countr_zero(ends));
            return {length, (seen | (high & (ends - 1) & ~ends)) == 0};
        }
        seen |= high;
    }
#else
    const size_t length = std::strlen(text);
    unsigned char seen = 0;
    for (size_t at = 0; at < length; ++at) {
        seen |= static_cast<unsigned char>(text[at]);
    }
    return {length, seen < 0x80};
#endif
}

// Replaces every `from` in the bytes by `to`.
inline void replaceByte(char *bytes, size_t count, char from, char to) {
    size_t at = 0;
#if ZANTLOG_BYTE_LANES
    const __m128i wanted = _mm_set1_epi8(from);
    const __m128i change = _mm_set1_epi8(static_cast<char>(from ^ to));
    for (; count - at >= 16; at += 16) {
        auto *block = reinterpret_cast<__m128i *>(bytes + at);
        const __m128i now = _mm_loadu_si128(block);
        const __m128i hits = _mm_cmpeq_epi8(now, wanted);
        _mm_storeu_si128(block, _mm_xor_si128(now, _mm_and_si128(hits, change)));
    }
#endif
    for (; at < count; ++at) {
        if (bytes[at] == from) {
            bytes[at] = to;
        }
    }
}

// Number of bytes up to and including the first `wanted`; `count` when there is none.
inline size_t countThrough(const char *bytes, size_t count, char wanted) {
    size_t at = 0;
#if ZANTLOG_BYTE_LANES
    const __m128i wantedLanes = _mm_set1_epi8(wanted);
    for (; count - at >= 16; at += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + at));
        const unsigned hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wantedLanes)));
        if (hits != 0) {
            return at + static_cast<size_t>(std::countr_zero(hits)) + 1;
        }
    }
#endif
    for (; at < count; ++at) {
        if (bytes[at] == wanted) {
            return at + 1;
        }
    }
    return count;
}

} // namespace zantlog
