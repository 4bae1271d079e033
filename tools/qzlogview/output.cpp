#include "tools/qzlogview/output.h"

#include <cstdio>

namespace zantlog::view {

namespace {

constexpr size_t kPiece = 1 << 16;

} // namespace

Output::Output() {
    text_.reserve(2 * kPiece);
}

bool Output::writeWhenFull() {
    return text_.size() < kPiece ? !failed_ : flush();
}

bool Output::flush() {
    if (!failed_ && !text_.empty()) {
        failed_ =
            std::fwrite(text_.data(), 1, text_.size(), stdout) != text_.size() || std::fflush(stdout) != 0;
    }
    text_.clear();
    return !failed_;
}

} // namespace zantlog::view
