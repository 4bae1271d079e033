// What a misspelt name may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zantlog::tools {

// Single-character changes (insert, delete, replace, swap of neighbours) from one text to the other; case
// does not count.
size_t editDistance(std::string_view a, std::string_view b);

// The candidates that are near the name, nearest first, at most three.
std::vector<std::string> nearest(std::string_view name, const std::vector<std::string> &candidates);

// "; did you mean A, B or C?", or nothing.
std::string didYouMean(const std::vector<std::string> &names);

} // namespace zantlog::tools
