// What the library makes of a section: the value that counts for each setting, and where it comes from.
#pragma once

#include <string>
#include <vector>

#include "tools/qzlogcfg/store_location.h"
#include "tools/qzlogcfg/store_section.h"

namespace zantlog::tools {

enum class Origin { builtIn, defaults, own };

struct EffectiveSetting {
    const Setting *setting;
    std::string value; // empty: none
    Origin origin;
};

// Loads the section through the library. An error when it does not exist or cannot be read.
std::vector<EffectiveSetting> effectiveSettings(uint32_t product, const std::string &configuration,
                                                const SectionName &section);

// "built-in", "product default", "log set default", "own section".
std::string originWords(Origin origin, SectionKind kind);

} // namespace zantlog::tools
