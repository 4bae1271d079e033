// Building of texts in fixed buffers.
#include "base/bounded_text.h"

#include "base/decimal.h"

#include <algorithm>
#include <cstring>

namespace zantlog {

bool copyBounded(char *destination, size_t capacity, const char *source) {
    const size_t length = std::strlen(source);
    const size_t kept = std::min(length, capacity - 1);
    std::memcpy(destination, source, kept);
    destination[kept] = '\0';
    return kept == length;
}

BoundedText::BoundedText(char *buffer, size_t capacity) : buffer_(buffer), capacity_(capacity) {
    if (capacity_ != 0) {
        buffer_[0] = '\0';
    }
}

BoundedText &BoundedText::text(const char *piece) {
    return bytes(piece, std::strlen(piece));
}

BoundedText &BoundedText::bytes(const char *piece, size_t length) {
    const size_t room = capacity_ != 0 ? capacity_ - 1 - length_ : 0;
    const size_t kept = std::min(length, room);
    if (kept != 0) {
        std::memcpy(buffer_ + length_, piece, kept);
        length_ += kept;
        buffer_[length_] = '\0';
    }
    cut_ = cut_ || kept != length;
    return *this;
}

BoundedText &BoundedText::character(char piece) {
    return bytes(&piece, 1);
}

BoundedText &BoundedText::number(uint64_t value, unsigned minimumDigits) {
    char area[kDecimalDigits];
    const char *digits = formatUnsigned(area, value);
    const auto count = static_cast<size_t>(area + kDecimalDigits - digits);
    for (size_t padded = count; padded < minimumDigits; ++padded) {
        character('0');
    }
    return bytes(digits, count);
}

BoundedText &BoundedText::signedNumber(int64_t value, unsigned minimumDigits) {
    const auto magnitude = static_cast<uint64_t>(value);
    if (value >= 0) {
        return number(magnitude, minimumDigits);
    }
    return character('-').number(~magnitude + 1, minimumDigits);
}

BoundedText &BoundedText::twoPlaces(int32_t value) {
    return signedNumber(value, value < 0 ? 1 : 2);
}

BoundedText &BoundedText::hexadecimal(uint64_t value) {
    char area[16];
    char *at = area + sizeof(area);
    do {
        *--at = "0123456789abcdef"[value & 0xf];
        value >>= 4;
    } while (value != 0);
    return bytes(at, static_cast<size_t>(area + sizeof(area) - at));
}

} // namespace zantlog
