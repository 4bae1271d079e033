// The fields of the query language.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qzlogview/record.h"

namespace zantlog::view {

enum class WhereKind { number, text, time, arguments };

struct WhereField {
    const char *name;
    WhereKind kind;
    // The value; nothing where a record has no such field. Times in milliseconds since 1970.
    std::optional<int64_t> (*number)(const Record &record);
    std::optional<std::string_view> (*text)(const Record &record);
    // Numbers that have names: the number of a name, in lower case.
    std::optional<int64_t> (*named)(const std::string &name);
};

// Case does not count. Null when there is none.
const WhereField *findWhereField(std::string_view name);
std::vector<std::string> whereFieldNames();

} // namespace zantlog::view
