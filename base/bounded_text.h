// Building of texts in fixed buffers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zantlog {

// Copies at most capacity - 1 characters and terminates; capacity is not 0. Returns false when the text was
// cut.
bool copyBounded(char *destination, size_t capacity, const char *source);

// Appends pieces to a buffer of the caller's, which stays terminated; what does not fit is cut and
// remembered.
class BoundedText {
public:
    BoundedText(char *buffer, size_t capacity);
    template <size_t N> explicit BoundedText(char (&buffer)[N]) : BoundedText(buffer, N) {}

    BoundedText &text(const char *piece);
    BoundedText &bytes(const char *piece, size_t length);
    BoundedText &character(char piece);
    BoundedText &number(uint64_t value, unsigned minimumDigits = 1); // decimal, zero-padded
    BoundedText &signedNumber(int64_t value, unsigned minimumDigits = 1);
    BoundedText &twoPlaces(int32_t value);    // as "%02d": of two places a sign takes one
    BoundedText &hexadecimal(uint64_t value); // lower case, no prefix

    [[nodiscard]] size_t length() const { return length_; }
    [[nodiscard]] bool cut() const { return cut_; }

private:
    char *buffer_;
    size_t capacity_;
    size_t length_ = 0;
    bool cut_ = false;
};

} // namespace zantlog
