// qzlogview -f while others write.
#include <chrono>

#include "tests/tools/qzlogview/view_tool.h"

namespace zantlog::test {
namespace {

// Generous: the lines are there within about 300 ms on a machine that is not busy.
constexpr int kSoon = 2000;
constexpr int kStart = 20000;

class ViewerFollowTest : public ViewTool {};

} // namespace

TEST_F(ViewerFollowTest, ShowsNewMessagesAndNewFilesSoon) {
    setting("Default", "RolloverMode", "FileSize");
    setting("Default", "MaxLogFileSizeKB", "1");
    log({"--app", "--context", "a81f", "--title", "night batch", "before"});
    const RunningTool tool("qzlogview", {"--product", "12", "-f"});
    ASSERT_TRUE(tool.waitForOutput(" before\n", kStart)) << tool.output();
    log({"--app", "second process"});
    EXPECT_TRUE(tool.waitForOutput(" second process\n", kSoon)) << tool.output();
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += "line " + std::to_string(i) + " of some length\n";
    }
    const size_t files = logNames().size();
    log({"--app", "--from", "-"}, many);
    EXPECT_GT(logNames().size(), files);
    EXPECT_TRUE(tool.waitForOutput(" line 39 of some length\n", kSoon)) << tool.output();
    log({"--app", "new originator"}, "", "9");
    EXPECT_TRUE(tool.waitForOutput(" new originator\n", kSoon)) << tool.output();
    EXPECT_TRUE(tool.runs());
    size_t lines = 0;
    for (const std::string &line : linesOf(tool.output())) {
        lines += line.find(" of some length") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(lines, 40u); // each once
}

TEST_F(ViewerFollowTest, ShowsTheTitleOfAContextFirst) {
    log({"--app", "--context", "a81f", "--title", "night batch", "one"});
    log({"--app", "other"});
    const RunningTool tool("qzlogview", {"--context", "a81f", "-f", "-n", "1"});
    ASSERT_TRUE(tool.waitForOutput("{a81f} one\n", kStart)) << tool.output();
    EXPECT_EQ(tool.output().find("context a81f: night batch\n"), 0u) << tool.output();
    EXPECT_EQ(tool.output().find("other"), std::string::npos);
}

TEST_F(ViewerFollowTest, GoesOnWhenANamedFileGoes) {
    const ScopedFolder folder;
    const std::string gone = logFile(folder, "a.log", record(1763249000000, 1, "a"));
    const std::string stays = logFile(folder, "b.log", record(1763249000001, 1, "b"));
    const RunningTool tool("qzlogview", {gone, stays, "-f", "--fields", "text"});
    ASSERT_TRUE(tool.waitForOutput("a\nb\n", kStart)) << tool.output();
    EXPECT_TRUE(removeFile(gone));
    appendFileBytes(stays, record(1763249000002, 2, "half").substr(0, 30));
    appendFileBytes(stays, record(1763249000002, 2, "half").substr(30));
    EXPECT_TRUE(tool.waitForOutput("half\n", kSoon)) << tool.output();
    EXPECT_TRUE(tool.runs());
}

} // namespace zantlog::test
