// Exit codes of the command-line tools.
#pragma once

namespace zantlog::tools {

enum ExitCode { kExitSuccess = 0, kExitFailure = 1, kExitUsage = 2 };

} // namespace zantlog::tools
