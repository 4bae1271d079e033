// How far a long run is, on a terminal's standard error.
#pragma once

#include <chrono>
#include <cstdint>

namespace zantlog::view {

class Progress {
public:
    explicit Progress(uint64_t totalBytes);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void update(uint64_t bytes);

private:
    uint64_t total_;
    std::chrono::steady_clock::time_point next_;
    uint32_t calls_ = 0;
    bool shown_ = false;
    bool wanted_;
};

} // namespace zantlog::view
