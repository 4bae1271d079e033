// qzlogview: finds, merges, selects, follows and shows the messages of log files. docs/qzlogview.md describes
// it.
#include <exception>
#include <iostream>

#include "tools/common/command_line.h"
#include "tools/common/terminal.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/view.h"

using namespace zantlog;

int main() {
    try {
        tools::useCodePageOfUser();
        tools::makeStandardOutputBinary();
        int exitCode = tools::kExitNotAccessible;
        const std::optional<view::ViewOptions> options =
            view::readViewOptions(tools::commandLineArguments(), &exitCode);
        return options ? view::view(*options) : exitCode;
    } catch (const tools::ToolError &error) {
        std::cerr << "qzlogview: " << error.what() << '\n';
        if (error.code() == tools::kExitUsage) {
            std::cerr << "qzlogview --help shows how it is used\n";
        }
        return error.code();
    } catch (const std::exception &error) {
        std::cerr << "qzlogview: " << error.what() << '\n';
        return tools::kExitNotAccessible;
    }
}
