// The command line of qzlogcfg.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zantlog::tools {

// What the command line asks for; its result is the exit code of the process.
using Command = std::function<int()>;

// Reads the command line. When there is nothing to do (help, version, a usage error), it has said so and
// stores the exit code of the process.
std::optional<Command> readConfigCommand(std::vector<std::string> arguments, int *exitCode);

} // namespace zantlog::tools
