// A product that is configured with qzlogcfg, in stores of the kinds that the parameter names.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/config/test_stores.h"
#include "tests/support/test_folder.h"
#include "tests/tools/support/run_tool.h"

namespace zantlog::test {

struct Stores {
    BackEnd location;
    BackEnd product;
};

class ConfigTool : public testing::TestWithParam<Stores> {
protected:
    ConfigTool() : location(makeStore(GetParam().location)), store(makeStore(GetParam().product)) {}

    // Product 12, "shop"; through the stores themselves, not through the tool.
    void registerShop() { registerProduct(*location, 12, store->path(), "shop,store"); }

    [[nodiscard]] ToolRun run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--location", location->path()});
        return runTool("qzlogcfg", arguments);
    }
    // The output of a run that succeeds.
    [[nodiscard]] std::string output(const std::vector<std::string> &arguments) const {
        const ToolRun result = run(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.error;
        EXPECT_EQ(result.error, "");
        return result.output;
    }
    void expectError(const std::vector<std::string> &arguments, int exitCode,
                     const std::string &words) const {
        const ToolRun result = run(arguments);
        EXPECT_EQ(result.exitCode, exitCode) << words << '\n' << result.error;
        EXPECT_NE(result.error.find(words), std::string::npos) << result.error;
        EXPECT_EQ(result.output, "") << words;
    }
    // Value and origin in the table that "show" prints; empty when it has no such line.
    [[nodiscard]] std::string shown(const std::vector<std::string> &scope, const std::string &key) const;

    // What a reader of the store finds: "(none)" for nothing.
    [[nodiscard]] std::string stored(const std::string &section, const std::string &key) const;
    [[nodiscard]] uint32_t storedNumber(const std::string &section, const std::string &key) const;

    ScopedFolder folder;
    std::unique_ptr<TestStore> location;
    std::unique_ptr<TestStore> store;
};

inline std::string nameOfStores(const testing::TestParamInfo<Stores> &info) {
    const auto name = [](BackEnd backEnd) { return backEnd == BackEnd::Conf ? "File" : "Registry"; };
    return std::string("LocationIn") + name(info.param.location) + "ProductIn" + name(info.param.product);
}

inline const auto kAllStores =
    testing::Values(Stores{BackEnd::Conf, BackEnd::Conf}, Stores{BackEnd::Registry, BackEnd::Registry},
                    Stores{BackEnd::Conf, BackEnd::Registry}, Stores{BackEnd::Registry, BackEnd::Conf});

inline const auto kFiles = testing::Values(Stores{BackEnd::Conf, BackEnd::Conf});
inline const auto kRegistry = testing::Values(Stores{BackEnd::Registry, BackEnd::Registry});

} // namespace zantlog::test
