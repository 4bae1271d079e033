// Values of settings: as people write them, and as the store holds them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/qzlogcfg/settings.h"

namespace zantlog::tools {

// The text that is stored for what was written: "12h" for a number of seconds is "43200". A usage error says
// what is wrong with a value that the library would not take.
std::string storedValue(const Setting &setting, std::string_view written);

// Why the library does not take a stored value as it stands, in words that follow "is" or "has"; nothing when
// it does.
std::optional<std::string> problemOfStoredValue(const Setting &setting, std::string_view stored);

// A directory as it is stored: the library makes one backslash of each pair.
std::string storedDirectory(std::string_view directory);

} // namespace zantlog::tools
