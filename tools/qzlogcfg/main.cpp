// qzlogcfg: shows and changes the configuration of products. docs/tools.md describes it.
#include <exception>
#include <iostream>

#include "tools/common/command_line.h"
#include "tools/common/exit_codes.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/options.h"

using namespace zantlog::tools;

int main() {
    try {
        useCodePageOfUser();
        int exitCode = kExitNotAccessible;
        const std::optional<Command> command = readConfigCommand(commandLineArguments(), &exitCode);
        return command ? (*command)() : exitCode;
    } catch (const ToolError &error) {
        std::cerr << "qzlogcfg: " << error.what() << '\n';
        if (error.code() == kExitUsage) {
            std::cerr << "qzlogcfg --help shows how it is used\n";
        }
        return error.code();
    } catch (const std::exception &error) {
        std::cerr << "qzlogcfg: " << error.what() << '\n';
        return kExitNotAccessible;
    }
}
