// qzlogcfg check: each kind of problem is named with its place.
#include "tests/support/files.h"
#include "tests/tools/qzlogcfg/config_tool.h"

namespace zantlog::test {
namespace {

class Check : public ConfigTool {
protected:
    Check() {
        registerShop();
        store->text("Default", "LogDirectory", folder.path());
    }

    // The lines that it prints; each ends in a line feed.
    std::string problems(int exitCode = 3) const {
        const ToolRun result = run({"check"});
        EXPECT_EQ(result.exitCode, exitCode) << result.error;
        EXPECT_EQ(result.error, "");
        return result.output;
    }
};

class CheckOfFiles : public Check {
protected:
    void line(const std::string &text) const { appendFileBytes(store->path(), text + "\r\n"); }
    // The first line is the directory's.
    [[nodiscard]] std::string at(int number) const {
        return store->path() + ":" + std::to_string(number) + ": ";
    }
};

class CheckOfTheRegistry : public Check {
protected:
    [[nodiscard]] std::string at(const std::string &section) const {
        return "HKEY_LOCAL_MACHINE\\" + store->path() + "\\" + section + ": ";
    }
};

INSTANTIATE_TEST_SUITE_P(Stores, Check, kAllStores, nameOfStores);
INSTANTIATE_TEST_SUITE_P(Stores, CheckOfFiles, kFiles, nameOfStores);
INSTANTIATE_TEST_SUITE_P(Stores, CheckOfTheRegistry, kRegistry, nameOfStores);

TEST_P(Check, NothingIsWrongWithAGoodConfiguration) {
    store->number("3", "DebugLevel", 6);
    store->boolean("3", "LogToStdout", true);
    store->text("3", "RolloverMode", "FileSize | LocalTime");
    store->text(store->logSet("night"), "LogDirectory", folder.path());
    EXPECT_EQ(problems(0), "");
}

TEST_P(Check, AConfigurationThatIsNotThere) {
    registerProduct(*location, 13, "C:\\nowhere\\at-all.conf", "x");
    EXPECT_EQ(problems(), "C:\\nowhere\\at-all.conf: product 13 is configured here, and it does not exist\n");
}

TEST_P(Check, NoLogDirectory) {
    const auto other = makeStore(GetParam().product);
    other->number("4", "DebugLevel", 1);
    registerProduct(*location, 13, other->path(), "x");
    const std::string found = problems();
    EXPECT_NE(found.find("product 13, originator 4: there is no LogDirectory, so no log can be opened\n"),
              std::string::npos)
        << found;
}

TEST_P(Check, ALogDirectoryThatIsAFile) {
    writeFileBytes(folder.file("file"), "x");
    store->text("3", "LogDirectory", folder.file("file"));
    EXPECT_NE(problems().find("is no directory\n"), std::string::npos);
}

TEST_P(Check, TwoLogSetsWithTheSameFiles) {
    store->text(store->logSet("night"), "LogDirectory", folder.path());
    store->text(store->logSet("day"), "LogDirectory", folder.path());
    EXPECT_EQ(problems(0), "");
    store->text(store->logSet("day"), "FileName", "night");
    EXPECT_NE(problems().find("under the same names as those of product 12, log set "), std::string::npos);
}

TEST_P(Check, ProblemsAsJson) {
    store->number("3", "DebugLevel", 7);
    const ToolRun result = run({"check", "--json"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_NE(result.output.find("\"problem\": \"DebugLevel is 7, out of the range from 0 to 6\""),
              std::string::npos)
        << result.output;
}

TEST_P(CheckOfFiles, ValuesByLine) {
    line("3.DebugLevel=7");
    line("3.DiagnosticLevel=two");
    line("3.LogToStdout=True");
    line("3.AppMsgLogging=on");
    line("3.RolloverMode=filesize");
    line("3.RolloverAtLocalTime=25:00");
    line("3.MaxLogFileSizeKB=-1");
    line("3.LogFileSDDL=nonsense");
    line("3.NumberOfLogFiles=0");
    EXPECT_EQ(problems(),
              at(2) + "DebugLevel is 7, out of the range from 0 to 6\n" + at(3) +
                  "DiagnosticLevel is \"two\", which is no number that the library reads\n" + at(4) +
                  "LogToStdout is \"True\", which is neither true nor false and reads as false\n" + at(5) +
                  "AppMsgLogging is \"on\", which is neither ON nor OFF and reads as OFF\n" + at(6) +
                  "RolloverMode is \"filesize\", which reads as None\n" + at(7) +
                  "RolloverAtLocalTime is \"25:00\", which is no time of day from 00:00 to 23:59\n" + at(9) +
                  "LogFileSDDL is no security descriptor that the system reads; no log file can be "
                  "made with it\n" +
                  at(10) + "NumberOfLogFiles is 0, out of the range from 1 to 4294967295\n");
}

TEST_P(CheckOfFiles, NamesByLine) {
    line("3.DebugLevl=1");
    line("three.DebugLevel=1");
    line("DebugLevel=1");
    line("3.FileName=x");
    line("LOGSET.a-b.DebugLevel=1");
    EXPECT_EQ(problems(),
              at(2) + "the setting \"DebugLevl\" is unknown; did you mean DebugLevel?\n" + at(3) +
                  "\"three\" is neither an originator nor a log set, so \"three.DebugLevel\" is never "
                  "read\n" +
                  at(4) + "\"DebugLevel\" belongs to no section and is never read\n" + at(5) +
                  "FileName does not count in a section of an originator\n" + at(6) +
                  "\"a-b\" is no name for a log set: it contains \"-\", and its log files would not be "
                  "found again\n" +
                  store->path() +
                  ": product 12, log set a-b: there is no LogDirectory, so no log can be opened\n");
}

TEST_P(CheckOfFiles, FormByLine) {
    line("3.DebugLevel=1");
    line("3.DebugLevel=2");
    line("3.OIDNames=a=b");
    line("no setting");
    line(" 3.DiagnosticLevel=1");
    line("# a comment");
    line("");
    line("3.L10nLib=" + std::string(490, 'x'));
    appendFileBytes(store->path(), "3.L10nResource=x");
    const std::string found = problems();
    EXPECT_EQ(found,
              at(3) + "\"3.DebugLevel\" stands in line 2 already, and that one counts\n" + at(4) +
                  "the value of \"3.OIDNames\" is read only up to its second \"=\" or its 399th byte\n" +
                  at(5) + "the line is no setting: it has no \"=\", or nothing before it\n" + at(6) +
                  "\" 3.DiagnosticLevel\" is never read: a blank stands before or behind the name\n" + at(9) +
                  "the line is longer than 499 bytes and is read as several lines\n" + at(10) +
                  "the last line has no line end: the next line that is added would join it\n");
}

TEST_P(CheckOfFiles, AFileLeftBehind) {
    writeFileBytes(store->path() + ".tmp", "x");
    EXPECT_EQ(problems(), store->path() +
                              ".tmp: a temporary file was left behind; it can be deleted while no program "
                              "changes the configuration\n");
    removeFile(store->path() + ".tmp");
}

TEST_P(CheckOfFiles, AFileThatIsReadInPart) {
    line("3.DebugLevel=1\x1a");
    line("3.DebugLevel=7");
    const std::string found = problems();
    EXPECT_NE(found.find("the file is read only up to its byte 1A (Ctrl-Z)\n"), std::string::npos) << found;
}

// One file may be the location and hold the configuration of a product.
TEST_P(CheckOfFiles, OneFileForAll) {
    const std::string all = folder.file("all.conf");
    writeFileBytes(all, "12.Configuration=" + all + "\r\n12.Names=x\r\nDefault.LogDirectory=" +
                            folder.path() + "\r\n3.DebugLevel=9\r\n");
    const ToolRun result = runTool("qzlogcfg", {"--location", all, "check"});
    EXPECT_EQ(result.output, all + ":4: DebugLevel is 9, out of the range from 0 to 6\n");
    EXPECT_EQ(runTool("qzlogcfg", {"--location", all, "originators", "12"}).output.find("\n12 "),
              std::string::npos);
}

TEST_P(CheckOfTheRegistry, ValuesByPath) {
    store->number("3", "DebugLevel", 7);
    store->text("4", "DebugLevel", "3");
    store->number("5", "RolloverMode", 3);
    store->text("6", "DebugLevl", "3");
    EXPECT_EQ(problems(), at("3") + "DebugLevel is 7, out of the range from 0 to 6\n" + at("4") +
                              "DebugLevel is of type REG_SZ and does not count; REG_DWORD would\n" + at("5") +
                              "RolloverMode is of type REG_DWORD and does not count; REG_SZ would\n" +
                              at("6") + "the setting \"DebugLevl\" is unknown; did you mean DebugLevel?\n");
}

TEST_P(CheckOfTheRegistry, AKeyThatIsNeverRead) {
    store->number("three", "DebugLevel", 1);
    EXPECT_EQ(problems(), "HKEY_LOCAL_MACHINE\\" + store->path() +
                              "\\three: the key is neither an originator nor a log set and is never read\n");
}

TEST_P(CheckOfTheRegistry, ATypeThatDoesNotCountIsReplacedAndRemoved) {
    store->text("4", "DebugLevel", "3");
    EXPECT_EQ(output({"set", "12", "4", "debug=2"}),
              "product 12, originator 4\n- DebugLevel = 3 (REG_SZ)\n+ DebugLevel = 2\n");
    store->text("5", "DebugLevel", "3");
    EXPECT_EQ(output({"unset", "12", "5", "debug"}), "product 12, originator 5\n- DebugLevel = 3 (REG_SZ)\n");
    EXPECT_EQ(stored("5", "DebugLevel"), "(none)");
}

} // namespace
} // namespace zantlog::test
