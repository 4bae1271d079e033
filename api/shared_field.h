// Fields of a handle that one thread reads without the lock while another changes them under it.
#pragma once

#include <atomic>

namespace zantlog {

template <typename T> T readShared(T &field) {
    return std::atomic_ref<T>(field).load(std::memory_order_relaxed);
}

template <typename T> void writeShared(T &field, T value) {
    std::atomic_ref<T>(field).store(value, std::memory_order_relaxed);
}

} // namespace zantlog
