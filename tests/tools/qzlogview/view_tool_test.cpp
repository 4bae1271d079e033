// What qzlogview shows of logs that other processes wrote, and with which exit code it ends.
#include <algorithm>

#include "tests/tools/qzlogview/view_tool.h"

namespace zantlog::test {
namespace {

class ViewerTest : public ViewTool {};

constexpr uint64_t kTime = 1763249000000; // 2025-11-15 23:23:20

// Lines "a0" to "a99", long enough for several files of 1 KB.
std::string manyLines(char letter, int count) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += letter + std::to_string(i) + "\n";
    }
    return lines;
}

std::vector<std::string> linesFrom(char letter, int first, int end) {
    std::vector<std::string> lines;
    for (int i = first; i < end; ++i) {
        lines.push_back(letter + std::to_string(i));
    }
    return lines;
}

} // namespace

TEST_F(ViewerTest, ShowsProcessesAndRolloversAsOneStream) {
    setting("Default", "RolloverMode", "FileSize");
    setting("Default", "MaxLogFileSizeKB", "1");
    log({"--app", "--from", "-"}, manyLines('a', 60));
    log({"--app", "--from", "-"}, manyLines('b', 60), "5");
    log({"--app", "--from", "-"}, manyLines('c', 60));
    ASSERT_GT(logNames().size(), 6u);
    Lines expected = linesFrom('a', 0, 60);
    for (const char letter : {'b', 'c'}) {
        const Lines more = linesFrom(letter, 0, 60);
        expected.insert(expected.end(), more.begin(), more.end());
    }
    EXPECT_EQ(texts({"--product", "12"}), expected);
    EXPECT_EQ(texts({logFolder()}), expected);
    EXPECT_EQ(texts({}), expected);
    EXPECT_EQ(texts({"--tail", "70"}), Lines(expected.end() - 70, expected.end()));
    EXPECT_EQ(texts({"--head", "70"}), Lines(expected.begin(), expected.begin() + 70));
    EXPECT_EQ(texts({"--originator", "5"}), linesFrom('b', 0, 60));
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(texts({"--reverse"}), expected);
    EXPECT_EQ(texts({"--reverse", "--head", "3"}), (Lines{"c59", "c58", "c57"}));
    EXPECT_EQ(texts({"--reverse", "-n", "2"}), (Lines{"c59", "c58"}));
    const ToolRun verified = view({"--verify", "--product", "12"});
    EXPECT_EQ(verified.exitCode, 0) << verified.output;
    EXPECT_EQ(verified.output,
              "180 records in " + std::to_string(logNames().size()) + " files, nothing wrong\n");
}

TEST_F(ViewerTest, SelectsByProductOriginatorAndNames) {
    setting("5", "OIDNames", "Billing");
    log({"--app", "three"});
    log({"--app", "five"}, "", "5");
    EXPECT_EQ(texts({"--product", "Scanner"}), (Lines{"three", "five"}));
    EXPECT_EQ(texts({"--originator", "Billing"}), Lines{"five"});
    EXPECT_EQ(texts({"--originator", "3", "--originator", "5"}), (Lines{"three", "five"}));
    EXPECT_EQ(view({"--product", "13"}).exitCode, 1);
    EXPECT_EQ(view({"--product", "NoSuchName"}).exitCode, 2);
    const std::string line = shown({"--originator", "5"});
    EXPECT_NE(line.find(" Scanner/Billing "), std::string::npos) << line;
}

TEST_F(ViewerTest, SelectsLogSets) {
    setting("LOGSET.Default", "LogDirectory", logFolder());
    setting("LOGSET.nightly", "RolloverMode", "FileSize");
    log({"--app", "--log-set", "nightly", "in the set"});
    log({"--app", "not in the set"});
    EXPECT_EQ(texts({"--logset", "nightly"}), Lines{"in the set"});
    EXPECT_EQ(texts({}), (Lines{"in the set", "not in the set"}));
    const std::string line = shown({"--logset", "nightly"});
    EXPECT_NE(line.find("Scanner/nightly"), std::string::npos) << line;
    EXPECT_EQ(view({"--logset", "other"}).exitCode, 1);
}

TEST_F(ViewerTest, SelectsSeveritiesAndTimes) {
    log({"--app", "--severity", "0", "fine"});
    log({"--app", "--severity", "2", "--who", "disk", "bad"});
    log({"--app", "--severity", "4", "worst"});
    EXPECT_EQ(texts({"--severity", ">=error"}), (Lines{"bad", "worst"}));
    EXPECT_EQ(texts({"--severity", "2"}), Lines{"bad"});
    EXPECT_EQ(texts({"--since", "-1h"}), (Lines{"fine", "bad", "worst"}));
    EXPECT_EQ(view({"--since", "-1h", "--until", "-30m"}).exitCode, 1);
    EXPECT_EQ(texts({"--until", "now", "--who", "disk"}), Lines{"bad"});
    EXPECT_EQ(shown({"--count"}), "3\n");
    EXPECT_EQ(shown({"--count-by", "severity"}), "1  error\n1  fatal\n1  information\n");
}

TEST_F(ViewerTest, ShowsTheTitleOfAContextFirst) {
    log({"--app", "--context", "a81f", "--title", "night batch", "--from", "-"}, "one\ntwo\n");
    log({"--app", "--context", "b2", "--title", "day batch", "three"});
    const Lines lines = linesOf(shown({"--context", "a81f"}));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "context a81f: night batch");
    EXPECT_NE(lines[1].find(" context "), std::string::npos) << lines[1];
    EXPECT_EQ(lines[2].substr(lines[2].size() - 10), "{a81f} one") << lines[2];
    EXPECT_EQ(lines[3].substr(lines[3].size() - 10), "{a81f} two") << lines[3];
    EXPECT_EQ(linesOf(shown({"--context", "a81f", "-n", "1"})).front(), "context a81f: night batch");
    EXPECT_EQ(linesOf(shown({"--context", "a81f", "-o", "csv", "--fields", "text"})),
              (Lines{"text", "night batch", "one", "two"}));
    EXPECT_EQ(linesOf(shown({"--context", "a81f", "-o", "json", "--fields", "text"})).front(),
              "{\"text\":\"night batch\"}");
}

TEST_F(ViewerTest, WritesEveryFormat) {
    const ScopedFolder folder;
    const std::string path = logFile(folder, "a.log", record(kTime, 1, "a\rb"));
    EXPECT_EQ(shown({path, "--utc"}), "2025-11-15 23:23:20.000 info    Scanner/3 4242:777 a\n    b\n");
    EXPECT_EQ(shown({path, "--tz", "+01:00", "--fields", "time"}), "2025-11-16 00:23:20.000\n");
    // Without the carriage return inside: the test takes all of them out.
    EXPECT_EQ(shown({path, "-o", "raw"}), "2,12,3,3,1,1763249000000,4242,777,0:,3:ab,0:,0,(0|)\n");
    EXPECT_EQ(shown({path, "-o", "csv", "--fields", "text,pid"}), "text,pid\n\"a\nb\",4242\n");
    EXPECT_EQ(shown({path, "-o", "json", "--fields", "text,pid"}), "{\"text\":\"a\\nb\",\"pid\":4242}\n");
    EXPECT_EQ(shown({path, "-o", "long", "--fields", "text,pid"}),
              "text:           a\n                b\npid:            4242\n\n");
    EXPECT_EQ(shown({path, "--fields", "pid,text"}), "4242\ta\\nb\n");
}

TEST_F(ViewerTest, AMessageCannotForgeALineOrDriveATerminal) {
    log({"--app", "--who", "a\nb", "first\n2025-11-15 23:23:20.000 fatal   12/3 1:1 forged \x1b[2J\xC2\x9B"});
    const std::string output = shown({});
    const Lines lines = linesOf(output);
    ASSERT_EQ(lines.size(), 2u) << output;
    EXPECT_NE(lines[0].find(" a\\nb: first"), std::string::npos) << output;
    EXPECT_EQ(lines[1], "    2025-11-15 23:23:20.000 fatal   12/3 1:1 forged \\x1b[2J\\x9b");
    EXPECT_EQ(linesOf(shown({"--fields", "text"})).size(), 1u);
}

TEST_F(ViewerTest, VerifySaysWhatIsWrongWhere) {
    const ScopedFolder folder;
    const std::string path = logFile(folder, "a.log",
                                     record(kTime, 1, "a") + "garbage\n" + record(kTime, 3, "b") +
                                         record(kTime, 4, "c") + record(kTime, 5, "d") + "2,12");
    const ToolRun run = view({"--verify", path});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_NE(run.output.find(path + ":97: the line is no record\n"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("before number 3 number 2 is not there"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("the last line has no end\n"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("4 records in 1 files, 3 places where something is wrong\n"), std::string::npos)
        << run.output;
}

TEST_F(ViewerTest, ExitCodesSayWhatBecameOfIt) {
    const ScopedFolder folder;
    const std::string good = logFile(folder, "good.log", record(kTime, 1, "a"));
    const std::string bad = logFile(folder, "bad.log", "garbage\n" + record(kTime, 1, "b"));
    EXPECT_EQ(view({good}).exitCode, 0);
    EXPECT_EQ(view({good, "--who", "nobody"}).exitCode, 1);
    EXPECT_EQ(view({good, "--bad-option"}).exitCode, 2);
    EXPECT_EQ(view({good, "--fields", "nothing"}).exitCode, 2);
    EXPECT_EQ(view({good, "--count", "--verify"}).exitCode, 2);
    EXPECT_EQ(view({good, "--head", "1", "--tail", "1"}).exitCode, 2);
    EXPECT_EQ(view({good, "--tail", "x"}).exitCode, 2);
    EXPECT_EQ(view({good, "--count-by", "day"}).exitCode, 2);
    const ToolRun damaged = view({good, bad, "--fields", "text"});
    EXPECT_EQ(damaged.exitCode, 3);
    EXPECT_EQ(damaged.output, "a\nb\n");
    EXPECT_NE(damaged.error.find("bad.log at byte 46: the line is no record"), std::string::npos)
        << damaged.error;
    EXPECT_EQ(view({folder.file("missing.log")}).exitCode, 4);
    writeFileBytes(folder.file("other.log"), "no header\n");
    EXPECT_EQ(view({good, folder.file("other.log")}).exitCode, 4);
    EXPECT_EQ(view({"--verify", good}).exitCode, 0);
    EXPECT_EQ(view({"--verify", bad}).exitCode, 3);
    EXPECT_EQ(view({"--verify", folder.file("missing.log")}).exitCode, 4);
}

TEST_F(ViewerTest, HelpBeginsWithExamples) {
    const ToolRun help = view({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.output.find("Examples:"), 0u) << help.output.substr(0, 200);
    EXPECT_NE(help.output.find("--count-by"), std::string::npos);
    EXPECT_NE(help.output.find("Exit code: 0 done"), std::string::npos);
    EXPECT_EQ(view({"--version"}).output, "qzlogview 3.9.0.3\n");
}

TEST_F(ViewerTest, CompletesCommandLines) {
    const ToolRun bash = view({"--completion", "bash"});
    EXPECT_EQ(bash.exitCode, 0);
    for (const char *word : {"qzlogview", "--product", "--follow", "--count-by"}) {
        EXPECT_NE(bash.output.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(view({"--completion", "powershell"}).exitCode, 0);
    EXPECT_EQ(view({"--completion", "other"}).exitCode, 2);
}

TEST_F(ViewerTest, AFileThatIsNamedTwiceIsShownOnce) {
    const ScopedFolder folder;
    const std::string path = logFile(folder, "a.log", record(kTime, 1, "a"));
    writeFileBytes(folder.file("notes.txt"), "no log\n");
    EXPECT_EQ(texts({folder.path()}), Lines{"a"});
    EXPECT_EQ(texts({path, path, folder.path()}), Lines{"a"});
}

} // namespace zantlog::test
