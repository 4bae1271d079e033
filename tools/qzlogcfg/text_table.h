// Columns of text, each as wide as its widest cell.
#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace zantlog::tools {

class TextTable {
public:
    TextTable() = default;
    explicit TextTable(std::vector<std::string> headings) { add(std::move(headings)); }
    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    void print(std::ostream &output) const;

private:
    // In characters; UTF-8 continuation bytes do not count.
    static size_t width(const std::string &text) {
        return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
            return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
        }));
    }

    std::vector<std::vector<std::string>> rows_;
};

inline void TextTable::print(std::ostream &output) const {
    std::vector<size_t> widths;
    for (const auto &row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], width(row[i]));
        }
    }
    for (const auto &row : rows_) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - width(row[i]) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output << line << '\n';
    }
}

} // namespace zantlog::tools
