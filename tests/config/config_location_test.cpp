// The configuration location, which a process takes once: each case is a process of its own.
#include "tests/config/test_stores.h"
#include "tests/support/child_process.h"
#include "tests/support/empty_variable.h"
#include "tests/support/test_folder.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

constexpr char kVariable[] = "ZANTLOG_CFG_LOC";

ZANTLOG_CHILD(locationIsBuiltIn) {
    setEnvironment(kVariable, nullptr);
    return std::strcmp(GetZantLogCfgLoc(), "SOFTWARE\\KORVANE\\zantlog") == 0 ? 0 : 1;
}

ZANTLOG_CHILD(locationIsEmpty) {
    setEmptyVariable(kVariable);
    return std::strcmp(GetZantLogCfgLoc(), "") == 0 ? 0 : 1;
}

ZANTLOG_CHILD(locationIsKept) {
    setEnvironment(kVariable, "first.conf");
    const char *first = GetZantLogCfgLoc();
    setEnvironment(kVariable, "second.conf");
    return std::strcmp(first, "first.conf") == 0 && GetZantLogCfgLoc() == first &&
                   std::strcmp(first, "first.conf") == 0
               ? 0
               : 1;
}

ZANTLOG_CHILD(longLocationIsWhole) {
    const std::string value(30000, 'l');
    setEnvironment(kVariable, value.c_str());
    Config cfg;
    return GetZantLogCfgLoc() == value && zantLogReadCfg(1, 112, &cfg) == 6 ? 0 : 1;
}

// arguments: the location, the expected debug level of originator 3 of product 51
ZANTLOG_CHILD(locationServesTheReaders) {
    setEnvironment(kVariable, arguments[0].c_str());
    Config cfg;
    if (zantLogReadCfg(51, 3, &cfg) != 0) {
        return 1;
    }
    Config set;
    if (zantLogReadlogsetCfg(51, "nightly", &set) != 0) {
        return 2;
    }
    zantLogCfg *array[8] = {};
    uint32_t count = 0;
    if (zantLogReadAllCfg(nullptr, 8, array, &count) != 0 || FreeConfigArray(array, count) != 0) {
        return 3;
    }
    if (zantLogReadProdIDCfg(nullptr, 51, 8, array, &count) != 0 || FreeConfigArray(array, count) != 0) {
        return 4;
    }
    return std::to_string(cfg.debugLevel) == arguments[1] && count == 3 ? 0 : 5;
}

TEST(ConfigLocation, IsBuiltInWithoutTheVariable) {
    EXPECT_EQ(runChild("locationIsBuiltIn"), 0);
}

TEST(ConfigLocation, IsEmptyWithAnEmptyVariable) {
    EXPECT_EQ(runChild("locationIsEmpty"), 0);
}

TEST(ConfigLocation, IsKeptWhenTheVariableChanges) {
    EXPECT_EQ(runChild("locationIsKept"), 0);
}

TEST(ConfigLocation, IsKeptWhole) {
    EXPECT_EQ(runChild("longLocationIsWhole"), 0);
}

TEST(ConfigLocation, ServesTheReadersFromEitherBackEnd) {
    for (BackEnd locationIn : {BackEnd::Conf, BackEnd::Registry}) {
        for (BackEnd storeIn : {BackEnd::Conf, BackEnd::Registry}) {
            const std::unique_ptr<TestStore> location = makeStore(locationIn);
            const std::unique_ptr<TestStore> store = makeStore(storeIn);
            registerProduct(*location, 51, store->path(), "billing");
            store->number("3", "DebugLevel", 5);
            store->number(store->logSet("nightly"), "DebugLevel", 4);
            EXPECT_EQ(runChild("locationServesTheReaders", {location->path(), "5"}), 0)
                << location->path() << " with " << store->path();
        }
    }
}

TEST(ConfigLocation, StaysTheSameInThisProcess) {
    const char *first = GetZantLogCfgLoc();
    EXPECT_EQ(GetZantLogCfgLoc(), first);
    EXPECT_EQ(first, environmentText(kVariable).value_or("none"));
}

} // namespace
} // namespace zantlog::test
