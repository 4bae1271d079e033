// The content of a file: as large as it likes, of which only what was written takes memory.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>

namespace zantlog::sim {

class SparseBytes {
public:
    [[nodiscard]] uint64_t size() const { return size_; }

    // What is new is zero.
    void resize(uint64_t size);

    // Makes the content larger where needed.
    void write(uint64_t position, const void *bytes, size_t count);

    // Fewer than asked for at the end.
    size_t read(uint64_t position, void *buffer, size_t count) const;

private:
    static constexpr size_t kPage = 16384;
    using Page = std::array<char, kPage>;

    uint64_t size_ = 0;
    std::map<uint64_t, std::unique_ptr<Page>> pages_; // by number; a missing one is all zero
};

} // namespace zantlog::sim
