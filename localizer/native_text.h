// A text that grows, in the process's code page.
#pragma once

#include <string_view>

#include "base/owned_text.h"

namespace zantlog::localizer {

class NativeText {
public:
    // Longer texts are cut.
    static constexpr size_t kLongest = size_t{1024} * 1024;

    void native(std::string_view piece);
    void utf8(std::string_view piece);
    void wide(const wchar_t *piece, size_t units);

    [[nodiscard]] bool full() const { return length_ == kLongest; }

    // The text, terminated; null when it failed.
    [[nodiscard]] OwnedText take();

private:
    [[nodiscard]] bool grow(size_t wanted);

    OwnedText bytes_;
    size_t capacity_ = 0;
    size_t length_ = 0;
    bool failed_ = false; // for want of memory
};

} // namespace zantlog::localizer
