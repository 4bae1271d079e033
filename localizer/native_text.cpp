#include "localizer/native_text.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/shown_text.h"
#include "zantlog/results.h"

namespace zantlog::localizer {

namespace {

constexpr size_t kSmallest = 256;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

} // namespace

// With room for the terminator.
bool NativeText::grow(size_t wanted) {
    if (wanted < capacity_) {
        return true;
    }
    const size_t capacity = std::max({kSmallest, wanted + 1, 2 * capacity_});
    OwnedText larger = allocateBlock<char>(capacity);
    if (!larger) {
        failed_ = true;
        return false;
    }
    if (length_ > 0) {
        std::memcpy(larger.get(), bytes_.get(), length_);
    }
    bytes_ = std::move(larger);
    capacity_ = capacity;
    return true;
}

void NativeText::native(std::string_view piece) {
    const size_t count = std::min(piece.size(), kLongest - length_);
    if (count == 0 || failed_ || !grow(length_ + count)) {
        return;
    }
    std::memcpy(bytes_.get() + length_, piece.data(), count);
    length_ += count;
}

void NativeText::utf8(std::string_view piece) {
    if (isAscii(piece)) {
        native(piece);
        return;
    }
    // No character has more bytes in UTF-8 than four.
    piece = piece.substr(0, 4 * kLongest);
    OwnedText shown;
    size_t length = 0;
    const uint32_t result = shownInCodePage(piece.data(), piece.size(), &shown, &length);
    if (result == ZANTLOG_OUT_OF_MEMORY) {
        failed_ = true;
    } else {
        // A code page without a converter: the bytes are better than nothing.
        native(result == ZANTLOG_OK ? std::string_view(shown.get(), length) : piece);
    }
}

void NativeText::wide(const wchar_t *piece, size_t units) {
    OwnedText shown;
    size_t length = 0;
    const uint32_t result = shownInCodePage(piece, std::min(units, 2 * kLongest), &shown, &length);
    if (result == ZANTLOG_OUT_OF_MEMORY) {
        failed_ = true;
    } else if (result == ZANTLOG_OK) {
        native({shown.get(), length});
    }
}

OwnedText NativeText::take() {
    if (failed_ || !grow(length_)) {
        return nullptr;
    }
    bytes_.get()[length_] = '\0';
    return std::move(bytes_);
}

} // namespace zantlog::localizer
