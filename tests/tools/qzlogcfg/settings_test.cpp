// The tool's table of settings against the library's own.
#include "tools/qzlogcfg/settings.h"

#include <gtest/gtest.h>

#include "config/key_table.h"

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

} // namespace
} // namespace zantlog::tools
