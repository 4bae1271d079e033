// Taking a line out of a block of a log file.
#pragma once

#include <bit>
#include <cstddef>

#include "base/byte_scan.h"

namespace zantlog {

struct CopiedLine {
    size_t length; // bytes copied, the line feed included
    bool ended;    // the last of them is the line feed
};

inline constexpr char kLineFeed = '\n';
inline constexpr char kCarriageReturn = '\r';

#if ZANTLOG_BYTE_LANES
// Copies sixteen bytes, carriage returns as line feeds; returns a bit for each line feed among them.
inline unsigned copyBlock(char *destination, const char *bytes) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes));
    const __m128i returns = _mm_cmpeq_epi8(block, _mm_set1_epi8(kCarriageReturn));
    const __m128i change = _mm_and_si128(returns, _mm_set1_epi8(kCarriageReturn ^ kLineFeed));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(destination), _mm_xor_si128(block, change));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(kLineFeed))));
}
#endif

// Copies bytes up to and including the first line feed, `count` at most, carriage returns as line feeds: a
// writer stores the line breaks inside a record that way. The destination has room for `count` bytes, and
// what lies behind the copied ones in that room is undefined afterwards.
inline CopiedLine copyLine(char *destination, const char *bytes, size_t count) {
    size_t at = 0;
#if ZANTLOG_BYTE_LANES
    // Two blocks at a time: most records end in the first few, and each turn of the loop is a guess of the
    // processor's.
    for (; count - at >= 32; at += 32) {
        const unsigned first = copyBlock(destination + at, bytes + at);
        const unsigned second = copyBlock(destination + at + 16, bytes + at + 16);
        const unsigned ends = first | second << 16;
        if (ends != 0) {
            return {at + static_cast<size_t>(std::countr_zero(ends)) + 1, true};
        }
    }
#endif
    for (; at < count; ++at) {
        const char byte = bytes[at];
        destination[at] = byte == kCarriageReturn ? kLineFeed : byte;
        if (byte == kLineFeed) {
            return {at + 1, true};
        }
    }
    return {count, false};
}

} // namespace zantlog
