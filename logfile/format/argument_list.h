// The typed arguments of a catalog object in a record line.
#pragma once

#include "zantlog/catalog.h"
#include "zantlog/serialization.h"

namespace zantlog {

// "(<count>|<arguments>),". Result codes: 0; 1 an argument of unknown kind, a null text or list, a text that
// is not UTF-16, a list nested more than 1000 times; 4 out of memory.
[[nodiscard]] uint32_t appendArgumentList(text_msg *buffer, const zantLis &list);

} // namespace zantlog
