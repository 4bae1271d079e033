#include "tools/common/suggestions.h"

#include <algorithm>
#include <utility>

#include "tools/common/ascii.h"

namespace zantlog::tools {

size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<size_t> beforeLast(b.size() + 1);
    std::vector<size_t> last(b.size() + 1);
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) {
        last[j] = j;
    }
    const auto same = [&](size_t i, size_t j) { return lower(a[i]) == lower(b[j]); };
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t replaced = last[j - 1] + (same(i - 1, j - 1) ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && same(i - 1, j - 2) && same(i - 2, j - 1)) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[b.size()];
}

std::vector<std::string> nearest(std::string_view name, const std::vector<std::string> &candidates) {
    constexpr size_t kMost = 3;
    const std::string wanted = lowered(name);
    std::vector<std::pair<size_t, std::string>> found;
    for (const std::string &candidate : candidates) {
        const size_t distance = editDistance(name, candidate);
        const bool contains = name.size() >= 3 && lowered(candidate).find(wanted) != std::string::npos;
        if (contains || distance <= 1 + std::max(name.size(), candidate.size()) / 4) {
            found.emplace_back(distance, candidate);
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (const auto &[distance, candidate] : found) {
        if (names.size() < kMost && std::find(names.begin(), names.end(), candidate) == names.end()) {
            names.push_back(candidate);
        }
    }
    return names;
}

std::string didYouMean(const std::vector<std::string> &names) {
    std::string text;
    for (size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? "; did you mean " : i + 1 == names.size() ? " or " : ", ";
        text += names[i];
    }
    return text.empty() ? text : text + "?";
}

} // namespace zantlog::tools
