// Runs the programs of this build and takes what they say.
#pragma once

#include <string>
#include <vector>

#include "tests/support/test_folder.h"

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

// A program that goes on until it is stopped; its standard output goes to a file meanwhile.
class RunningTool {
public:
    RunningTool(const std::string &name, const std::vector<std::string> &arguments);
    ~RunningTool();
    RunningTool(const RunningTool &) = delete;
    RunningTool &operator=(const RunningTool &) = delete;

    [[nodiscard]] bool runs() const;
    // What it has written so far, with LF line ends.
    [[nodiscard]] std::string output() const;
    // Waits until the output holds the text; false when that takes longer.
    [[nodiscard]] bool waitForOutput(const std::string &text, int milliseconds) const;

private:
    ScopedFolder folder_;
    void *process_ = nullptr;
};

} // namespace zantlog::test
