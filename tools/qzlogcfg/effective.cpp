#include "tools/qzlogcfg/effective.h"

#include "tools/common/code_page.h"
#include "tools/common/result_text.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/setting_value.h"
#include "tools/qzlogcfg/snapshot.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

namespace zantlog::tools {

namespace {

// Frees itself.
struct LoadedConfig : zantLogCfg {
    LoadedConfig() : zantLogCfg{} {}
    ~LoadedConfig() { zantLogFreeCfg(this); }
    LoadedConfig(const LoadedConfig &) = delete;
    LoadedConfig &operator=(const LoadedConfig &) = delete;
};

void load(uint32_t product, const SectionName &section, zantLogCfg *cfg) {
    const uint32_t result = section.kind == SectionKind::logSet
                                ? zantLogReadlogsetCfg(product, codePageFromUtf8(section.logSet).c_str(), cfg)
                                : zantLogReadCfg(product, section.originator, cfg);
    if (result == ZANTLOG_NOT_REGISTERED && section.kind == SectionKind::logSet) {
        throw ToolError(kExitNothingFound, "product " + std::to_string(product) + " has no log set " +
                                               section.logSet + " that the library would find");
    }
    if (result != ZANTLOG_OK) {
        throw ToolError(kExitNotAccessible, "the configuration of product " + std::to_string(product) +
                                                " cannot be loaded: " + resultText(result));
    }
}

bool counts(const SectionValues &section, const Setting &setting) {
    const auto found = section.values.find(&setting);
    if (found == section.values.end()) {
        return false;
    }
    // What is read as something else, such as a boolean, counts all the same.
    switch (setting.kind) {
    case SettingKind::boolean:
    case SettingKind::onOff:
    case SettingKind::rolloverMode:
        return true;
    default:
        return !problemOfStoredValue(setting, found->second).has_value();
    }
}

bool isFileName(const Setting &setting) {
    return setting.scope == SettingScope::logSet;
}

} // namespace

std::string originWords(Origin origin, SectionKind kind) {
    switch (origin) {
    case Origin::own:
        return "own section";
    case Origin::defaults:
        return kind == SectionKind::logSet ? "log set default" : "product default";
    case Origin::builtIn:
        break;
    }
    return "built-in";
}

std::vector<EffectiveSetting> effectiveSettings(uint32_t product, const std::string &configuration,
                                                const SectionName &section) {
    LoadedConfig loaded;
    load(product, section, &loaded);
    SectionName defaultsName = section;
    defaultsName.originator = ZANTLOG_DEFAULT_ORIGINATOR;
    defaultsName.logSet = section.kind == SectionKind::logSet ? "Default" : "";
    const SectionValues defaults = readSection(configuration, defaultsName);
    const SectionValues own = readSection(configuration, section);
    std::vector<EffectiveSetting> all;
    for (const Setting &setting : settings()) {
        if (!setting.belongsTo(section.kind)) {
            continue;
        }
        Origin origin = Origin::builtIn;
        // A log set does not take the name of its files from the defaults.
        if (counts(defaults, setting) && !isFileName(setting)) {
            origin = Origin::defaults;
        }
        if (!section.isDefault() && counts(own, setting)) {
            origin = Origin::own;
        }
        if (section.isDefault() && isFileName(setting) && counts(own, setting)) {
            origin = Origin::own;
        }
        all.push_back({&setting, setting.effective(loaded), origin});
    }
    return all;
}

} // namespace zantlog::tools
