// A number that several threads change without ordering anything else between them.
#pragma once

#include <atomic>

namespace zantlog::sim {

template <class T> class RelaxedNumber {
public:
    RelaxedNumber(T value = 0) : value_(value) {}
    RelaxedNumber(const RelaxedNumber &other) : value_(static_cast<T>(other)) {}
    RelaxedNumber &operator=(const RelaxedNumber &other) { return *this = static_cast<T>(other); }
    RelaxedNumber &operator=(T value) {
        value_.store(value, std::memory_order_relaxed);
        return *this;
    }

    operator T() const { return value_.load(std::memory_order_relaxed); }
    RelaxedNumber &operator-=(T value) {
        value_.fetch_sub(value, std::memory_order_relaxed);
        return *this;
    }
    T operator++() { return value_.fetch_add(1, std::memory_order_relaxed) + 1; }
    T operator--() { return value_.fetch_sub(1, std::memory_order_relaxed) - 1; }

private:
    std::atomic<T> value_;
};

} // namespace zantlog::sim
