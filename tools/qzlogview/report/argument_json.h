// The typed arguments of a message, as the page reads them.
#pragma once

#include <string>

#include "zantlog/catalog.h"

namespace zantlog::view {

// [[kind, value], ...]: kind in words, value as text ("12" also for numbers, since those of JavaScript have
// 53 bits), or an array of that form for nested arguments. Empty without arguments.
std::string argumentJson(const zantLis &object);

} // namespace zantlog::view
