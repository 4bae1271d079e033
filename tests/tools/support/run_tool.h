// Runs the programs of this build and takes what they say.
#pragma once

#include <string>
#include <vector>

namespace zantlog::test {

struct ToolRun {
    int exitCode = -1;  // -1: not started
    std::string output; // of standard output, with LF line ends
    std::string error;  // of standard error
};

// The program "name" beside the test executable. Arguments are UTF-8; `input` is what its standard input
// holds.
ToolRun runTool(const std::string &name, const std::vector<std::string> &arguments,
                const std::string &input = "");

} // namespace zantlog::test
