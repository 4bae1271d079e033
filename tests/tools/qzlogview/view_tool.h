// qzlogview beside qzlogger, as their users meet them.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/tools/support/run_tool.h"

namespace zantlog::test {

class ViewTool : public ProductTest {
protected:
    using Arguments = std::vector<std::string>;
    using Lines = std::vector<std::string>;

    // One process; each line of the input is a message, or the last argument is.
    static void log(const Arguments &arguments, const std::string &input = "",
                    const std::string &originator = "3") {
        Arguments all = {"--product", "12", "--originator", originator};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const ToolRun run = runTool("qzlogger", all, input);
        EXPECT_EQ(run.exitCode, 0) << run.error;
    }
    static ToolRun view(const Arguments &arguments) { return runTool("qzlogview", arguments); }

    // Of a run that finds something and has nothing to complain about.
    static std::string shown(const Arguments &arguments) {
        const ToolRun run = view(arguments);
        EXPECT_EQ(run.exitCode, 0) << run.error;
        EXPECT_EQ(run.error, "");
        return run.output;
    }
    // The texts of the messages.
    static Lines texts(Arguments arguments) {
        arguments.insert(arguments.end(), {"--fields", "text"});
        return linesOf(shown(arguments));
    }
    // A file of its own, with a header.
    [[nodiscard]] static std::string logFile(const ScopedFolder &folder, const std::string &name,
                                             const std::string &lines) {
        writeFileBytes(folder.file(name), "$Header 65543,12,3,1763249000,-3600,buildhost\n" + lines);
        return folder.file(name);
    }
    static std::string record(uint64_t time, uint32_t number, const std::string &text) {
        return "2,12,3,3," + std::to_string(number) + "," + std::to_string(time) + ",4242,777,0:," +
               std::to_string(text.size()) + ":" + text + ",0:,0,(0|)\n";
    }
};

} // namespace zantlog::test
