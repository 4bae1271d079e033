// An id as the name of a section, or of a product's entry.
#pragma once

#include "base/bounded_text.h"
#include "base/decimal.h"

namespace zantlog {

struct IdName {
    char text[kDecimalDigits + 1];

    explicit IdName(uint32_t id) { BoundedText(text).number(id); }
};

} // namespace zantlog
