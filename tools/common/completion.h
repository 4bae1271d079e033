// Scripts that let a shell complete the command line of a tool.
#pragma once

#include <string>
#include <vector>

namespace zantlog::tools {

struct CompletionCommand {
    std::string name; // empty: what stands before a command, or all there is in a tool without commands
    std::vector<std::string> words;
};

struct CompletionSpec {
    std::string program;
    std::vector<CompletionCommand> commands;
};

std::string bashCompletion(const CompletionSpec &spec);
std::string powershellCompletion(const CompletionSpec &spec);

} // namespace zantlog::tools
