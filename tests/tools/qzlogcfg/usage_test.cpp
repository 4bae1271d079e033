// Wrong command lines: what is said, exit code 2, and nothing changed.
#include "tests/support/files.h"
#include "tests/tools/qzlogcfg/config_tool.h"

namespace zantlog::test {
namespace {

class Usage : public ConfigTool {
protected:
    Usage() { registerShop(); }

    void expectUsageError(const std::vector<std::string> &arguments, const std::string &words) const {
        expectError(arguments, 2, words);
        expectError(arguments, 2, "--help");
        EXPECT_EQ(store->isFile() ? fileLength(store->path()) : 0U, 0U) << words;
    }
};

class FileFormat : public Usage {};
class RegistryFormat : public Usage {};

INSTANTIATE_TEST_SUITE_P(Stores, Usage, kFiles, nameOfStores);
INSTANTIATE_TEST_SUITE_P(Stores, FileFormat, kFiles, nameOfStores);
INSTANTIATE_TEST_SUITE_P(Stores, RegistryFormat, kRegistry, nameOfStores);

TEST_P(Usage, SettingsAreKnownAndSpeltRight) {
    expectUsageError({"set", "12", "3", "DebugLevl=1"}, "did you mean DebugLevel?");
    expectUsageError({"set", "12", "3", "MaxFileSize=1"}, "MaxLogFileSizeKB");
    expectUsageError({"set", "12", "3", "xyzzy=1"}, "there is no setting \"xyzzy\"\n");
    expectUsageError({"unset", "12", "3", "Recycel"}, "recycle");
    expectUsageError({"set", "12", "3", "FileName=x"},
                     "FileName is a setting of log sets; give --logset NAME");
    expectUsageError({"set", "12", "--logset", "n", "L10nLib=x"}, "L10nLib is a setting of originators");
}

TEST_P(Usage, ValuesAreInTheirRanges) {
    expectUsageError({"set", "12", "3", "debug=7"},
                     "DebugLevel takes a level from 0 (none) to 6 (all), not \"7\"");
    expectUsageError({"set", "12", "3", "diag=-1"}, "not \"-1\"");
    expectUsageError({"set", "12", "3", "max-size=0"}, "from 1 to 4294967295 KB");
    expectUsageError({"set", "12", "3", "max-size=5000TB"}, "from 1 to 4294967295 KB");
    expectUsageError({"set", "12", "3", "max-size=10 parsec"}, "a size in KB, or with a unit");
    expectUsageError({"set", "12", "3", "reload=2147483648"}, "from 0 to 2147483647 seconds");
    expectUsageError({"set", "12", "3", "period=0"}, "from 1 to 4294967295 seconds");
    expectUsageError({"set", "12", "3", "keep=0"}, "from 1 to 4294967295");
    expectUsageError({"set", "12", "3", "event-category=65536"}, "from 1 to 65535");
    expectUsageError({"set", "12", "3", "at=24:00"}, "a time of day from 00:00 to 23:59, not \"24:00\"");
    expectUsageError({"set", "12", "3", "stdout=maybe"}, "on or off, not \"maybe\"");
    expectUsageError({"set", "12", "3", "rollover=daily,periodic"}, "FileSize and one of the other two");
    expectUsageError({"set", "12", "3", "dir="}, "a text that is not empty");
    expectUsageError({"set", "12", "3", "sddl=nonsense"}, "a security descriptor in SDDL");
    expectUsageError({"set", "12", "3", "event-source=" + std::string(80, 'x')}, "at most 79 bytes");
    expectUsageError({"levels", "12", "3", "--debug", "7"}, "from 0 (none) to 6 (all)");
}

TEST_P(Usage, AllIsCheckedBeforeAnythingIsWritten) {
    expectUsageError({"set", "12", "3", "debug=1", "diag=7"}, "DiagnosticLevel");
    expectUsageError({"set", "12", "3", "debug=1", "DebugLevel=2"}, "DebugLevel is given twice");
}

TEST_P(Usage, CommandLinesAreWhole) {
    expectUsageError({"set", "12"}, "whose settings?");
    expectUsageError({"set", "12", "3"}, "nothing to set");
    expectUsageError({"set", "12", "3", "debug"}, "write KEY=VALUE");
    expectUsageError({"set", "12", "3", "=1"}, "write KEY=VALUE");
    expectUsageError({"set", "12", "debug=1"},
                     "an originator is a number from 1 to 4294967295, not \"debug=1\"");
    expectUsageError({"set", "12", "0", "debug=1"}, "not \"0\"");
    expectUsageError({"unset", "12", "3"}, "give the settings to remove, or --all");
    expectUsageError({"unset", "12", "3", "debug", "--all"}, "give the settings to remove, or --all");
    expectUsageError({"levels", "12", "3"}, "which level?");
    expectUsageError({"register", "13", "--names", "x"}, "--config");
    expectUsageError({"register", "0", "--names", "x", "--config", "C:\\x\\x.conf"}, "a product is a number");
    expectUsageError({"frobnicate"}, "");
    expectUsageError({}, "subcommand");
}

TEST_P(Usage, LogSetNamesMakeFilesThatAreFoundAgain) {
    expectUsageError({"set", "12", "--logset", "a-b", "debug=1"}, "would not be found again");
    expectUsageError({"set", "12", "--logset", "a.b", "debug=1"}, "it contains \".\"");
    expectUsageError({"set", "12", "--logset", "a\\b", "debug=1"}, "it contains \"\\\"");
    expectUsageError({"set", "12", "--logset", "a=b", "debug=1"}, "it contains \"=\"");
    expectUsageError({"set", "12", "--logset", "", "debug=1"}, "1 to 79 bytes");
    expectUsageError({"set", "12", "--logset", std::string(80, 'a'), "debug=1"}, "1 to 79 bytes");
    expectUsageError({"set", "12", "--logset", " a", "debug=1"}, "begins or ends with a blank");
}

TEST_P(FileFormat, WhatAFileCannotHoldIsRefused) {
    expectUsageError({"set", "12", "3", "OIDNames=a=b"}, "contains \"=\", which a .conf file cannot hold");
    expectUsageError({"set", "12", "3", "OIDNames=a "}, "ends in a blank");
    expectUsageError({"set", "12", "3", "OIDNames=" + std::string(400, 'x')}, "too long for a .conf file");
    expectUsageError({"set", "12", "3", "OIDNames=a\nb"}, "line ends and other control characters");
    expectError({"register", "13", "--names", "a=b", "--config", "C:\\x\\x.conf"}, 2, "contains \"=\"");
}

TEST_P(FileFormat, TheLongestValueFits) {
    const std::string longest(399, 'x');
    (void)output({"set", "12", "3", "OIDNames=" + longest});
    EXPECT_EQ(stored("3", "OIDNames"), longest);
}

TEST_P(RegistryFormat, TheRegistryHoldsMore) {
    const std::string text = std::string(1000, 'x') + "=y ";
    (void)output({"set", "12", "3", "OIDNames=" + text});
    EXPECT_EQ(stored("3", "OIDNames"), text);
}

TEST_P(Usage, HelpBeginsWithExamples) {
    const std::string help = output({"--help"});
    EXPECT_EQ(help.find("Examples:\n"), 0U);
    EXPECT_NE(help.find("Exit code:"), std::string::npos);
    EXPECT_NE(output({"set", "--help"}).find("--dry-run"), std::string::npos);
}

TEST_P(Usage, CompletionsNameCommandsAndKeys) {
    const std::string bash = output({"completion", "bash"});
    EXPECT_NE(bash.find("complete -F _qzlogcfg qzlogcfg"), std::string::npos);
    EXPECT_NE(bash.find("DebugLevel="), std::string::npos);
    EXPECT_EQ(bash.find('@'), bash.find("[@]") + 1) << "a placeholder was left";
    const std::string powershell = output({"completion", "powershell"});
    EXPECT_NE(powershell.find("Register-ArgumentCompleter -Native -CommandName qzlogcfg"), std::string::npos);
    EXPECT_NE(powershell.find("'levels' = @("), std::string::npos);
    expectUsageError({"completion", "fish"}, "fish");
}

} // namespace
} // namespace zantlog::test
