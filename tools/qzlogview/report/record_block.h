// Some thousand records as one JSON object of columns: what the page reads fastest, and is small.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "tools/qzlogview/record.h"

namespace zantlog::view {

// Names of products and originators; either may be missing, and an empty name is no name.
struct ReportNames {
    std::function<std::string(uint32_t product)> product;
    std::function<std::string(uint32_t product, uint32_t originator)> originator;
};

// Texts, log files and originators stand once in a block; the columns hold their places in the lists.
class RecordBlock {
public:
    explicit RecordBlock(const ReportNames *names) : names_(names) {}

    void add(const Record &record);
    bool isEmpty() const { return records_ == 0; }
    bool isFull() const;
    // The JSON of what was added; the block is empty then.
    std::string take();

private:
    // A column whose values are all the same is written as that one value.
    struct Column {
        std::string values;
        std::string last;
        bool uniform = true;
    };
    static constexpr size_t kColumns = 17;

    void put(size_t column, const std::string &value, bool isFirst);
    size_t text(std::string text);
    size_t file(const Source *source);
    size_t originator(uint32_t product, uint32_t originator);
    std::string originatorJson(uint32_t product, uint32_t originator) const;

    const ReportNames *names_;
    size_t records_ = 0;
    std::array<Column, kColumns> columns_;
    std::unordered_map<std::string, size_t> textPlaces_;
    std::map<const Source *, size_t> filePlaces_;
    std::map<std::pair<uint32_t, uint32_t>, size_t> originatorPlaces_;
    std::string texts_;
    std::string files_;
    std::string originators_;
};

} // namespace zantlog::view
