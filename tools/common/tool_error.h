// A failure that ends a tool: what is said, and the exit code.
#pragma once

#include <stdexcept>
#include <string>

#include "tools/common/exit_codes.h"

namespace zantlog::tools {

class ToolError : public std::runtime_error {
public:
    ToolError(ExitCode code, const std::string &message) : std::runtime_error(message), code_(code) {}
    [[nodiscard]] ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

[[noreturn]] inline void usageError(const std::string &message) {
    throw ToolError(kExitUsage, message);
}

} // namespace zantlog::tools
