// Numbers of records, by what they have in common.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "tools/qzlogview/fields.h"

namespace zantlog::view {

// "who", "type", "severity", "originator", "hour" or "minute"; empty: all together.
class RecordCounter {
public:
    explicit RecordCounter(std::string by) : by_(std::move(by)) {}

    void add(const Record &record, Look *look);
    [[nodiscard]] uint64_t total() const { return total_; }
    // The total alone, or a line for each group, the most frequent first (times in their order), with a bar
    // of at most that many columns (0: none).
    [[nodiscard]] std::string text(size_t barWidth) const;

    static bool isKnown(const std::string &by);

private:
    [[nodiscard]] bool byTime() const { return by_ == "hour" || by_ == "minute"; }

    std::string by_;
    uint64_t total_ = 0;
    std::map<std::string, uint64_t> groups_;
    std::string key_;
};

} // namespace zantlog::view
