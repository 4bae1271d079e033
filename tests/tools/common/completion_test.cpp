// Completion scripts: what a shell is told. (bash runs its script in the tests of the tools' documents.)
#include "tools/common/completion.h"

#include <gtest/gtest.h>

namespace zantlog::tools {
namespace {

const CompletionSpec kSpec = {"tool",
                              {{"", {"add", "list", "--help"}}, {"add", {"--size", "Key="}}, {"list", {}}}};

bool has(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

TEST(Completion, Bash) {
    const std::string script = bashCompletion(kSpec);
    EXPECT_TRUE(has(script, "            add|list) command=$word; break ;;\n")) << script;
    EXPECT_TRUE(has(script, "        '') words='add list --help' ;;\n"));
    EXPECT_TRUE(has(script, "        add) words='--size Key=' ;;\n"));
    EXPECT_TRUE(has(script, "complete -F _tool tool tool.exe\n"));
    EXPECT_FALSE(has(script, "@PROGRAM@"));
    EXPECT_FALSE(has(script, "@NAMES@"));
    EXPECT_FALSE(has(script, "@CASES@"));
}

TEST(Completion, Powershell) {
    const std::string script = powershellCompletion(kSpec);
    EXPECT_TRUE(has(script, "-CommandName tool, tool.exe")) << script;
    EXPECT_TRUE(has(script, "        '' = @('add', 'list', '--help')\n"));
    EXPECT_TRUE(has(script, "        'add' = @('--size', 'Key=')\n"));
    EXPECT_TRUE(has(script, "        'list' = @()\n"));
    EXPECT_FALSE(has(script, "@CASES@"));
}

TEST(Completion, AToolWithoutCommands) {
    EXPECT_TRUE(
        has(bashCompletion({"tool", {{"", {"--help"}}}}), "            '') command=$word; break ;;\n"));
}

} // namespace
} // namespace zantlog::tools
