// The settings that a section of the configuration can hold.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zantlog/config.h"

namespace zantlog::tools {

enum class SettingKind {
    text,
    directory,
    securityDescriptor,
    number,
    kilobytes,
    seconds,
    level,
    boolean,
    onOff,
    rolloverMode,
    timeOfDay
};

enum class SettingScope { product, logSet, both };

// Whose section it is.
enum class SectionKind { product, logSet };

struct Setting {
    const char *key; // as it is stored
    SettingKind kind;
    SettingScope scope;
    uint32_t lowest;  // of a number, or of the length of a text
    uint32_t highest; // the same; the library keeps no more characters
    std::vector<std::string> aliases;
    const char *description;
    std::string (*effective)(const zantLogCfg &); // what the library has loaded

    [[nodiscard]] bool isNumber() const;
    [[nodiscard]] bool belongsTo(SectionKind section) const;
};

// In the order in which the library reads them.
std::span<const Setting> settings();

// By the key as it is stored. Null when there is none.
const Setting *settingWithKey(std::string_view key);

// By key or alias; case, "-" and "_" do not count. Null when there is none.
const Setting *findSetting(std::string_view name);

// The same for a section that has it; a usage error says which names are near.
const Setting &requireSetting(std::string_view name, SectionKind section);

} // namespace zantlog::tools
