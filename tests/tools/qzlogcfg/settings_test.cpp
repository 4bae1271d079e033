// The tool's table of settings against the library's own.
#include "tools/qzlogcfg/settings.h"

#include <fstream>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "config/key_table.h"
#include "tools/qzlogcfg/setting_value.h"

namespace zantlog::tools {
namespace {

SettingScope scopeOf(const ConfigKey &key) {
    switch (key.scope) {
    case KeyScope::Product:
        return SettingScope::product;
    case KeyScope::LogSet:
        return SettingScope::logSet;
    default:
        return SettingScope::both;
    }
}

TEST(Settings, AreThoseThatTheLibraryReads) {
    const auto keys = configKeys();
    ASSERT_EQ(settings().size(), keys.size());
    for (size_t i = 0; i < keys.size(); ++i) {
        const Setting &setting = settings()[i];
        EXPECT_STREQ(setting.key, keys[i].name);
        EXPECT_EQ(setting.scope, scopeOf(keys[i])) << setting.key;
        EXPECT_EQ(setting.isNumber(), keys[i].type == KeyType::Number) << setting.key;
        EXPECT_EQ(setting.kind == SettingKind::boolean, keys[i].type == KeyType::Boolean) << setting.key;
    }
}

// Key and example of each row of the document's table of keys.
std::map<std::string, std::string> documentedExamples() {
    std::ifstream file(ZANTLOG_SOURCE_FOLDER "/docs/configuration.md");
    std::map<std::string, std::string> examples;
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> quoted; // what stands between backquotes
        std::istringstream stream(line);
        for (std::string part; std::getline(stream, part, '`');) {
            quoted.push_back(part);
        }
        const bool row = line.rfind("| `", 0) == 0 && line.find("| 0x") != std::string::npos;
        if (row && quoted.size() > 3) {
            examples[quoted[1]] = quoted[quoted.size() - 2];
        }
    }
    return examples;
}

TEST(Settings, TheDocumentsExamplesAreTaken) {
    const std::map<std::string, std::string> examples = documentedExamples();
    ASSERT_EQ(examples.size(), 25U);
    for (const Setting &setting : settings()) {
        const std::string stored = storedValue(setting, examples.at(setting.key));
        EXPECT_EQ(problemOfStoredValue(setting, stored), std::nullopt) << setting.key << " = " << stored;
    }
}

} // namespace
} // namespace zantlog::tools
