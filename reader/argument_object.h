// Catalog objects out of record lines.
#pragma once

#include <cstdint>
#include <string_view>

#include "zantlog/catalog.h"

namespace zantlog {

// Takes an argument list, "(" to ")", off the text and makes the object that zantLisFree() releases; without
// arguments it is one of zeros, and the catalog library is not called. Results: 0; 1 it is no list, or the
// catalog library refused it; 4 out of memory. After a failure the object is one of zeros.
[[nodiscard]] uint32_t takeArgumentList(std::string_view *rest, zantLis *object);

} // namespace zantlog
