// Timing for the benchmarks: contenders take turns in short rounds, so that whatever else the machine does
// hits them alike, and the median of the rounds is what counts.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

class Contender {
public:
    template <typename Work> Contender(std::string name, Work work) : name_(std::move(name)), work_(work) {}

    void runRound(uint32_t calls) {
        const auto start = std::chrono::steady_clock::now();
        work_(calls);
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        rounds_.push_back(spent.count() / calls);
    }

    [[nodiscard]] const std::string &name() const { return name_; }

    [[nodiscard]] double medianNanoseconds() const {
        std::vector<double> sorted = rounds_;
        std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2),
                         sorted.end());
        return sorted[sorted.size() / 2];
    }

private:
    std::string name_;
    std::function<void(uint32_t)> work_;
    std::vector<double> rounds_;
};

// Runs all contenders `rounds` times in turn, `calls` calls each, after one round that does not count.
inline void race(std::vector<Contender> &contenders, uint32_t rounds, uint32_t calls) {
    for (Contender &contender : contenders)
        contender.runRound(calls);
    for (uint32_t round = 0; round < rounds; ++round) {
        for (Contender &contender : contenders)
            contender.runRound(calls);
    }
}

// One line a contender: nanoseconds a call, and the ratio to the first one.
inline void print(const char *title, const std::vector<Contender> &contenders) {
    std::printf("%s\n", title);
    const double floor = contenders.front().medianNanoseconds();
    for (const Contender &contender : contenders) {
        const double median = contender.medianNanoseconds();
        std::printf("  %-44s %10.1f ns  %5.2f x\n", contender.name().c_str(), median, median / floor);
    }
}

} // namespace bench
