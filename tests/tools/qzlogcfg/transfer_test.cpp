// export, import, diff; and changes that a file's lines would not survive.
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/tools/qzlogcfg/config_tool.h"

#include <future>

namespace zantlog::test {
namespace {

class Transfer : public ConfigTool {
protected:
    Transfer() {
        registerShop();
        store->text("Default", "LogDirectory", "C:\\shop");
        store->number("3", "NumberOfLogFiles", 7);
        store->boolean("3", "LogToStdout", true);
        store->text(store->logSet("night"), "FileName", "n");
    }
    [[nodiscard]] std::string exported() const {
        const std::string file = folder.file("export.json");
        EXPECT_EQ(output({"export", "-o", file}), "");
        return file;
    }
};

class OneFile : public ConfigTool {
protected:
    OneFile() { registerShop(); }
    [[nodiscard]] std::vector<std::string> linesOfFile() const { return linesOf(fileBytes(store->path())); }
};

INSTANTIATE_TEST_SUITE_P(Stores, Transfer, kAllStores, nameOfStores);
INSTANTIATE_TEST_SUITE_P(Stores, OneFile, kFiles, nameOfStores);

TEST_P(Transfer, WhatIsExportedIsTheConfiguration) {
    const std::string file = exported();
    EXPECT_EQ(fileBytes(file), output({"export"}));
    EXPECT_NE(fileBytes(file).find(
                  "\"sections\": {\n        \"Default\": {\n          \"LogDirectory\": \"C:\\\\shop\"\n"
                  "        },\n        \"3\": {\n          \"LogToStdout\": true,\n"
                  "          \"NumberOfLogFiles\": 7\n        },\n        \"LOGSET.night\": {\n"
                  "          \"FileName\": \"n\"\n        }\n      }\n"),
              std::string::npos)
        << fileBytes(file);
    EXPECT_EQ(output({"diff", "current", file}), "");
}

TEST_P(Transfer, ImportBringsBackWhatChanged) {
    const std::string file = exported();
    (void)output({"set", "12", "3", "keep=8", "debug=1"});
    EXPECT_EQ(run({"diff", "current", file}).output, "product 12, originator 3\n- DebugLevel = 1\n"
                                                     "- NumberOfLogFiles = 8\n+ NumberOfLogFiles = 7\n");
    EXPECT_EQ(run({"diff", "current", file}).exitCode, 1);
    EXPECT_EQ(output({"import", file}),
              "product 12, originator 3\n- NumberOfLogFiles = 8\n+ NumberOfLogFiles = 7\n");
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "1 own section");
    EXPECT_EQ(output({"import", file, "--replace", "--dry-run"}),
              "product 12, originator 3\n- DebugLevel = 1\n");
    EXPECT_EQ(output({"import", file, "--replace"}), "product 12, originator 3\n- DebugLevel = 1\n");
    EXPECT_EQ(output({"diff", "current", file}), "");
}

TEST_P(Transfer, ImportMakesItAllAnew) {
    const std::string file = exported();
    (void)output({"unregister", "12"});
    (void)output({"import", file});
    EXPECT_EQ(output({"diff", file, "current"}), "");
}

TEST_P(Transfer, AFileWithAWrongValueChangesNothing) {
    const std::string file = folder.file("wrong.json");
    const auto importOf = [&](const std::string &sections) {
        std::string path;
        for (const char character : store->path()) {
            path += character == '\\' ? "\\\\" : std::string(1, character);
        }
        writeFileBytes(file,
                       "{\"format\": \"zantlog-configuration\", \"version\": 1, \"products\": [{\"id\": 12, "
                       "\"names\": \"shop,store\", \"configuration\": \"" +
                           path + "\", \"sections\": " + sections + "}]}");
        return std::vector<std::string>{"import", file};
    };
    const std::string before = output({"export"});
    expectError(importOf(R"({"3": {"DebugLevel": 1, "DiagnosticLevel": 7}})"), 2,
                "DiagnosticLevel takes a level");
    expectError(importOf(R"({"3": {"DebugLevel": 1}, "4": {"DebugLvel": 1}})"), 2, "did you mean DebugLevel");
    expectError(importOf(R"({"3": {"DebugLevel": null}})"), 2, "neither a text, a number nor true or false");
    expectError(importOf(R"({"three": {"DebugLevel": 1}})"), 2, "section \"three\" is none");
    expectError(importOf(R"({"LOGSET.a-b": {"DebugLevel": 1}})"), 2, "is no name for a log set");
    expectError(importOf(R"([1])"), 2, "is none");
    writeFileBytes(file, "{");
    expectError({"import", file}, 2, "cannot be read as JSON");
    writeFileBytes(file, "{}");
    expectError({"import", file}, 2, "is no configuration that qzlogcfg export has written");
    expectError({"import", folder.file("none.json")}, 4, "cannot read the file");
    EXPECT_EQ(output({"export"}), before);
}

TEST_P(Transfer, ARegistrationThatDiffersIsRefused) {
    const std::string file = exported();
    (void)output({"unregister", "12"});
    registerProduct(*location, 12, store->path(), "other");
    expectError({"import", file}, 3, "registered already");
}

// The library would join a new line to it.
TEST_P(OneFile, ALastLineWithoutALineEndIsLeftAlone) {
    writeFileBytes(store->path(), "3.DebugLevel=1");
    expectError({"set", "12", "4", "debug=2"}, 3, "the change would damage \"3.DebugLevel\"");
    EXPECT_EQ(fileBytes(store->path()), "3.DebugLevel=1");
}

// Behind a first line that is removed, a second one with the key would count again.
TEST_P(OneFile, DuplicateLinesGoTogether) {
    writeFileBytes(store->path(), "3.DebugLevel=1\r\n3.DebugLevel=2\r\n");
    EXPECT_EQ(output({"unset", "12", "3", "debug"}), "product 12, originator 3\n- DebugLevel = 1\n");
    EXPECT_EQ(fileBytes(store->path()), "");
}

TEST_P(OneFile, EverythingElseInTheFileStaysByteForByte) {
    const std::string before = "# mine\r\n\r\n3.Unknown=x\r\n12.Names=y\r\nLOGSET.3.DebugLevel=4\r\n";
    writeFileBytes(store->path(), before);
    (void)output({"set", "12", "4", "debug=2"});
    EXPECT_EQ(fileBytes(store->path()), before + "4.DebugLevel=2\r\n");
}

TEST_P(OneFile, NothingIsLeftBeside) {
    (void)output({"set", "12", "4", "debug=2"});
    EXPECT_FALSE(fileExists(store->path() + ".tmp"));
}

TEST_P(OneFile, ALocationThatIsNotThere) {
    const std::string nowhere = folder.file("nowhere.conf");
    const ToolRun result = runTool("qzlogcfg", {"--location", nowhere, "products"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.error.find("nothing is configured: there is no file " + nowhere), std::string::npos);
    const ToolRun made = runTool("qzlogcfg", {"--location", nowhere, "register", "5", "--names", "five",
                                              "--config", folder.file("new\\five.conf")});
    EXPECT_EQ(made.exitCode, 0) << made.error;
    EXPECT_EQ(runTool("qzlogcfg", {"--location", nowhere, "set", "five", "default", "debug=1"}).exitCode, 0);
    EXPECT_NE(fileBytes(folder.file("new\\five.conf")).find("Default.DebugLevel=1\r\n"), std::string::npos);
}

// Two tools at once: every change of both is there in the end, and the file is whole.
TEST_P(OneFile, TwoToolsAtOnce) {
    constexpr int kRounds = 6;
    const auto change = [&](const std::string &originator) {
        int failures = 0;
        for (int round = 0; round < kRounds; ++round) {
            const std::string section = originator + std::to_string(round);
            failures += run({"set", "12", section, "debug=" + std::to_string(round)}).exitCode != 0 ? 1 : 0;
        }
        return failures;
    };
    std::future<int> other = std::async(std::launch::async, change, "1");
    EXPECT_EQ(change("2"), 0);
    EXPECT_EQ(other.get(), 0);
    for (int round = 0; round < kRounds; ++round) {
        EXPECT_EQ(storedNumber("1" + std::to_string(round), "DebugLevel"), static_cast<uint32_t>(round));
        EXPECT_EQ(storedNumber("2" + std::to_string(round), "DebugLevel"), static_cast<uint32_t>(round));
    }
    EXPECT_EQ(linesOfFile().size(), 2U * kRounds);
}

} // namespace
} // namespace zantlog::test
