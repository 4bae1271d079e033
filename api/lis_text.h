// A catalog object as plain text, in memory of the library's.
#pragma once

#include "base/owned_text.h"
#include "zantlog/catalog.h"

namespace zantlog {

// Null when nothing is to be rendered, when an argument cannot be, and when memory is short.
[[nodiscard]] OwnedText renderLis(zantLis *lis);

} // namespace zantlog
