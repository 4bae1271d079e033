// What is set is what the library reads, and what the tool shows, in every kind of store.
#include "tests/support/files.h"
#include "tests/tools/qzlogcfg/config_tool.h"

namespace zantlog::test {
namespace {

class SetAndShow : public ConfigTool {
protected:
    SetAndShow() { registerShop(); }
};

INSTANTIATE_TEST_SUITE_P(Stores, SetAndShow, kAllStores, nameOfStores);

TEST_P(SetAndShow, ProductsAreListedById) {
    registerProduct(*location, 7, "C:\\x\\seven.conf", "seven");
    EXPECT_EQ(output({"products"}).substr(0, 5), "PRODU");
    const std::string table = output({"products"});
    EXPECT_LT(table.find("seven"), table.find("shop,store"));
    EXPECT_EQ(output({"products", "--json"}).find("\"product\": 7") < table.size(), true);
}

TEST_P(SetAndShow, SetPrintsWhatItAdds) {
    EXPECT_EQ(output({"set", "12", "3", "DiagnosticLevel=4"}),
              "product 12, originator 3\n+ DiagnosticLevel = 4\n");
    EXPECT_EQ(storedNumber("3", "DiagnosticLevel"), 4U);
}

TEST_P(SetAndShow, SetPrintsWhatItReplaces) {
    store->number("3", "DiagnosticLevel", 1);
    EXPECT_EQ(output({"set", "12", "3", "diag=4"}),
              "product 12, originator 3\n- DiagnosticLevel = 1\n+ DiagnosticLevel = 4\n");
    EXPECT_EQ(storedNumber("3", "DiagnosticLevel"), 4U);
}

TEST_P(SetAndShow, WhatIsSoAlreadyIsNotWritten) {
    store->number("3", "DiagnosticLevel", 4);
    EXPECT_EQ(output({"set", "12", "3", "diag=4"}),
              "nothing to change: product 12, originator 3 is so already\n");
}

TEST_P(SetAndShow, DryRunChangesNothing) {
    EXPECT_EQ(output({"set", "12", "3", "diag=4", "--dry-run"}),
              "product 12, originator 3\n+ DiagnosticLevel = 4\n");
    EXPECT_EQ(shown({"12", "3"}, "DiagnosticLevel"), "0 built-in");
}

TEST_P(SetAndShow, EveryLayerIsNamed) {
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "0 built-in");
    EXPECT_EQ(output({"set", "12", "default", "debug=2"}), "product 12, the defaults\n+ DebugLevel = 2\n");
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "2 product default");
    EXPECT_EQ(shown({"12", "default"}, "DebugLevel"), "2 product default");
    (void)output({"set", "12", "3", "debug=5"});
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "5 own section");
    EXPECT_EQ(shown({"12", "4"}, "DebugLevel"), "2 product default");
}

TEST_P(SetAndShow, LogSetsHaveLayersOfTheirOwn) {
    (void)output({"set", "12", "default", "debug=2"});
    (void)output({"set", "12", "--logset", "default", "debug=3", "file=shared"});
    (void)output({"set", "12", "--logset", "night", "diag=1"});
    EXPECT_EQ(shown({"12", "--logset", "night"}, "DebugLevel"), "3 log set default");
    EXPECT_EQ(shown({"12", "--logset", "night"}, "DiagnosticLevel"), "1 own section");
    // A log set without one names its files after itself.
    EXPECT_EQ(shown({"12", "--logset", "night"}, "FileName"), "night built-in");
    EXPECT_EQ(storedNumber(store->logSet("night"), "DiagnosticLevel"), 1U);
}

TEST_P(SetAndShow, AValueOutOfRangeDoesNotCount) {
    store->number("Default", "DebugLevel", 2);
    store->number("3", "DebugLevel", 7);
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "2 product default");
}

TEST_P(SetAndShow, EveryKindOfValueIsReadAsItWasMeant) {
    (void)output({"set", "12", "3", "LogDirectory=C:\\shop\\logs", "OIDNames=one,two", "L10nLib=lib",
                  "reload=5min", "stdout=on", "app=off", "rollover=size+daily", "max-size=2GB", "at=7:05",
                  "period=1w", "keep=4294967295", "LogRecycle=yes", "event-source=Shop",
                  "event-category=65535", "sddl=D:(A;;FA;;;BA)"});
    const std::vector<std::string> scope = {"12", "3"};
    EXPECT_EQ(shown(scope, "LogDirectory"), "C:\\shop\\logs\\ own section");
    EXPECT_EQ(shown(scope, "OIDNames"), "one,two own section");
    EXPECT_EQ(shown(scope, "L10nLib"), "lib own section");
    EXPECT_EQ(shown(scope, "DynaReloadInSec"), "300 own section");
    EXPECT_EQ(shown(scope, "LogToStdout"), "true own section");
    EXPECT_EQ(shown(scope, "AppMsgLogging"), "OFF own section");
    EXPECT_EQ(shown(scope, "RolloverMode"), "FileSize | LocalTime own section");
    EXPECT_EQ(shown(scope, "MaxLogFileSizeKB"), "2097152 own section");
    EXPECT_EQ(shown(scope, "RolloverAtLocalTime"), "07:05 own section");
    EXPECT_EQ(shown(scope, "RolloverPeriodInSeconds"), "604800 own section");
    EXPECT_EQ(shown(scope, "NumberOfLogFiles"), "4294967295 own section");
    EXPECT_EQ(shown(scope, "LogRecycle"), "true own section");
    EXPECT_EQ(shown(scope, "NtEventLogSourceName"), "Shop own section");
    EXPECT_EQ(shown(scope, "NtEventLogCategory"), "65535 own section");
    EXPECT_EQ(shown(scope, "LogFileSDDL"), "D:(A;;FA;;;BA) own section");
}

TEST_P(SetAndShow, ANetworkDirectoryKeepsBothItsBackslashes) {
    (void)output({"set", "12", "3", "LogDirectory=\\\\server\\logs"});
    EXPECT_EQ(shown({"12", "3"}, "LogDirectory"), "\\\\server\\logs\\ own section");
}

TEST_P(SetAndShow, ARelativeDirectoryGoesBelowTheInheritedOne) {
    (void)output({"set", "12", "default", "dir=C:\\shop"});
    (void)output({"set", "12", "3", "dir=three"});
    EXPECT_EQ(shown({"12", "3"}, "LogDirectory"), "C:\\shop\\three\\ own section");
}

TEST_P(SetAndShow, UnsetBringsTheInheritedValueBack) {
    (void)output({"set", "12", "default", "debug=2"});
    (void)output({"set", "12", "3", "debug=5", "diag=5"});
    EXPECT_EQ(output({"unset", "12", "3", "DebugLevel"}), "product 12, originator 3\n- DebugLevel = 5\n");
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "2 product default");
    EXPECT_EQ(shown({"12", "3"}, "DiagnosticLevel"), "5 own section");
    EXPECT_EQ(shown({"12", "3"}, "AppMsgLogging"), "ON built-in");
}

TEST_P(SetAndShow, UnsetAllEmptiesTheSectionAndNoOther) {
    (void)output({"set", "12", "3", "debug=5", "diag=5", "app=off"});
    (void)output({"set", "12", "4", "debug=4"});
    EXPECT_EQ(output({"unset", "12", "3", "--all"}),
              "product 12, originator 3\n- DebugLevel = 5\n- DiagnosticLevel = 5\n- AppMsgLogging = OFF\n");
    EXPECT_EQ(shown({"12", "3"}, "DebugLevel"), "0 built-in");
    EXPECT_EQ(shown({"12", "4"}, "DebugLevel"), "4 own section");
}

TEST_P(SetAndShow, UnsetOfNothingIsSaid) {
    expectError({"unset", "12", "3", "debug"}, 1, "does not have it");
}

TEST_P(SetAndShow, TheFileNameOfALogSetCanBeRemoved) {
    (void)output({"set", "12", "--logset", "night", "file=n", "diag=1"});
    (void)output({"unset", "12", "--logset", "night", "file"});
    EXPECT_EQ(shown({"12", "--logset", "night"}, "FileName"), "night built-in");
}

TEST_P(SetAndShow, LevelsTellWhenTheyAreSeen) {
    EXPECT_EQ(output({"levels", "shop", "3", "--debug", "6", "--diag", "off"}),
              "product 12, originator 3\n+ DebugLevel = 6\n+ DiagnosticLevel = 0\n"
              "Running products see it when they open their log again: DynaReloadInSec is 0.\n");
    (void)output({"set", "12", "default", "reload=10"});
    EXPECT_EQ(output({"levels", "12", "3", "--debug", "1"}),
              "product 12, originator 3\n- DebugLevel = 6\n+ DebugLevel = 1\n"
              "Running products see it within 60 seconds, with their next debug or diagnostic message "
              "(DynaReloadInSec is 10).\n");
}

TEST_P(SetAndShow, OriginatorsAndLogSetsAreListed) {
    (void)output({"set", "12", "3", "names=scanner"}).size();
    (void)output({"set", "12", "--logset", "night", "diag=1"});
    const std::string originators = output({"originators", "store"});
    EXPECT_NE(originators.find("\n3           scanner  "), std::string::npos) << originators;
    EXPECT_EQ(originators.find("night"), std::string::npos);
    const std::string logSets = output({"logsets", "12"});
    EXPECT_NE(logSets.find("\nnight "), std::string::npos) << logSets;
    EXPECT_EQ(run({"logsets", "12", "--json"}).output.find("\"logSet\": \"night\"") != std::string::npos,
              true);
}

TEST_P(SetAndShow, ShowWithoutASectionShowsThemAll) {
    (void)output({"set", "12", "3", "debug=1"});
    (void)output({"set", "12", "--logset", "night", "diag=1"});
    const std::string all = output({"show"});
    EXPECT_NE(all.find("product 12 (shop,store), the defaults, in the "), std::string::npos) << all;
    EXPECT_NE(all.find("product 12 (shop,store), originator 3, in the "), std::string::npos);
    EXPECT_NE(all.find("product 12 (shop,store), log set night, in the "), std::string::npos);
    EXPECT_EQ(all, output({"show", "12"}));
}

TEST_P(SetAndShow, ShowAsJson) {
    (void)output({"set", "12", "3", "debug=1"});
    const std::string json = output({"show", "12", "3", "--json"});
    EXPECT_NE(
        json.find(
            "\"DebugLevel\": {\n        \"value\": \"1\",\n        \"origin\": \"own section\"\n      }"),
        std::string::npos)
        << json;
}

TEST_P(SetAndShow, WhatIsNotThereIsNotFound) {
    expectError({"show", "99"}, 1, "product 99 is not registered");
    expectError({"show", "shp"}, 1, "did you mean shop?");
    expectError({"show", "12", "--logset", "night"}, 1, "no log set night");
    EXPECT_EQ(run({"logsets", "12"}).exitCode, 1);
}

TEST_P(SetAndShow, UnregisterLeavesTheConfiguration) {
    (void)output({"set", "12", "3", "debug=5"});
    EXPECT_EQ(output({"unregister", "12"}).substr(0, 37), "product 12 is not registered any more");
    EXPECT_EQ(run({"products"}).exitCode, 1);
    EXPECT_EQ(storedNumber("3", "DebugLevel"), 5U);
    EXPECT_NE(output({"register", "12", "--names", "again", "--config", store->path()}).find("is registered"),
              std::string::npos);
    EXPECT_EQ(shown({"again", "3"}, "DebugLevel"), "5 own section");
}

TEST_P(SetAndShow, ARegistrationIsNeverReplaced) {
    expectError({"register", "12", "--names", "x", "--config", "C:\\other\\x.conf"}, 3, "registered already");
    EXPECT_NE(output({"products"}).find("shop,store"), std::string::npos);
}

TEST_P(SetAndShow, PathsTellWhereAndWhy) {
    const std::string paths = output({"paths"});
    EXPECT_NE(paths.find(location->path()), std::string::npos);
    EXPECT_NE(paths.find("the environment variable ZANTLOG_CFG_LOC names it"), std::string::npos);
    EXPECT_NE(paths.find("can be read"), std::string::npos);
    EXPECT_NE(paths.find(store->path()), std::string::npos);
}

} // namespace
} // namespace zantlog::test
