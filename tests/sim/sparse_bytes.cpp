#include "tests/sim/sparse_bytes.h"

#include <algorithm>
#include <cstring>

namespace zantlog::sim {

void SparseBytes::resize(uint64_t size) {
    if (size < size_) {
        const uint64_t kept = (size + kPage - 1) / kPage;
        pages_.erase(pages_.lower_bound(kept), pages_.end());
        const auto last = pages_.find(size / kPage);
        if (last != pages_.end()) {
            std::fill(last->second->begin() + static_cast<std::ptrdiff_t>(size % kPage), last->second->end(),
                      '\0');
        }
    }
    size_ = size;
}

void SparseBytes::write(uint64_t position, const void *bytes, size_t count) {
    const char *from = static_cast<const char *>(bytes);
    size_ = count != 0 ? std::max(size_, position + count) : size_;
    while (count != 0) {
        std::unique_ptr<Page> &page = pages_[position / kPage];
        if (page == nullptr) {
            page = std::make_unique<Page>();
        }
        const size_t at = position % kPage;
        const size_t part = std::min(count, kPage - at);
        std::memcpy(page->data() + at, from, part);
        from += part;
        position += part;
        count -= part;
    }
}

size_t SparseBytes::read(uint64_t position, void *buffer, size_t count) const {
    if (position >= size_) {
        return 0;
    }
    count = static_cast<size_t>(std::min<uint64_t>(count, size_ - position));
    char *to = static_cast<char *>(buffer);
    for (size_t left = count; left != 0;) {
        const size_t at = position % kPage;
        const size_t part = std::min(left, kPage - at);
        const auto page = pages_.find(position / kPage);
        if (page != pages_.end()) {
            std::memcpy(to, page->second->data() + at, part);
        } else {
            std::memset(to, 0, part);
        }
        to += part;
        position += part;
        left -= part;
    }
    return count;
}

} // namespace zantlog::sim
