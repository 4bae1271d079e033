// The query language.
#pragma once

#include <string_view>

#include "tools/qzlogview/expression.h"
#include "tools/qzlogview/time_text.h"

namespace zantlog::view {

struct WhereContext {
    int64_t now = 0; // milliseconds since 1970-01-01 00:00 UTC
    Zone zone;
};

// A usage error shows the place where the expression is wrong.
Expression parseWhere(std::string_view expression, const WhereContext &context);

// The regular expression; a usage error shows what is wrong with it.
Regex compileRegex(std::string_view expression);

} // namespace zantlog::view
