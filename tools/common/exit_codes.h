// Exit codes of the command-line tools.
#pragma once

namespace zantlog::tools {

enum ExitCode {
    kExitSuccess = 0,
    kExitFailure = 1,      // of a tool that writes
    kExitNothingFound = 1, // of a tool that looks for something
    kExitUsage = 2,
    kExitProblemsFound = 3, // of a tool that checks
    kExitNotAccessible = 4  // what is to be read or changed cannot be
};

} // namespace zantlog::tools
