// Environment variables of a logical process. Names are the same whatever their case.
#pragma once

#include <optional>
#include <string>

namespace zantlog::sim {

// Of the calling process; none when it is not set.
std::optional<std::string> environmentValue(const std::string &name);

// None removes the variable.
void setEnvironmentValue(const std::string &name, const std::optional<std::string> &value);

} // namespace zantlog::sim
