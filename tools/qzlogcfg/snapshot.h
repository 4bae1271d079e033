// All that a configuration location holds, as the library reads it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/qzlogcfg/store_location.h"
#include "tools/qzlogcfg/store_section.h"

namespace zantlog::tools {

struct SectionValues {
    SectionName name;
    std::map<const Setting *, std::string> values; // in the order of settings()
};

struct ProductSnapshot {
    Registration registration;
    bool readable = true; // its configuration could be opened
    std::vector<SectionValues> sections;
};

struct Snapshot {
    std::string location; // where it was taken
    std::vector<ProductSnapshot> products;
};

SectionValues readSection(const std::string &configuration, const SectionName &name);
ProductSnapshot takeProductSnapshot(const Registration &registration);
Snapshot takeSnapshot(const std::string &location);

// As JSON text, and back; an error names what is wrong with the text. Values are checked as the library
// would.
std::string jsonFromSnapshot(const Snapshot &snapshot);
Snapshot snapshotFromJson(const std::string &text, const std::string &name);

} // namespace zantlog::tools
