// The words of the query language.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/common/tool_error.h"

namespace zantlog::view {

enum class WhereToken { name, number, text, symbol, end };

struct WhereWord {
    WhereToken token = WhereToken::end;
    std::string text; // name in lower case, symbol, or what stood between the quotation marks
    uint64_t number = 0;
    bool negative = false;
    size_t position = 0; // of its first byte
};

// A usage error with the expression, and a caret below the place.
[[noreturn]] void whereError(std::string_view expression, size_t position, const std::string &what);

// Where a byte of a text that stood between quotation marks stands in the expression.
size_t placeInText(std::string_view expression, const WhereWord &text, size_t byte);

// The words, with an end behind them.
std::vector<WhereWord> whereWords(std::string_view expression);

} // namespace zantlog::view
