// The fields of a log file at the two levels of evaluation.
#pragma once

#include "reader/query.h"

namespace zantlog {

// A field of the file against its other operand.
struct FieldComparison {
    int32_t operatorCode;
    uint32_t field;
    uint32_t number;     // for a field that is a number
    const char *literal; // for a field that is a text; null when there is none
};

[[nodiscard]] bool holds(const FieldComparison &comparison, const FileLevelFields &file);
[[nodiscard]] bool holds(const FieldComparison &comparison, const HeaderLevelFields &header);

} // namespace zantlog
