// Changes of a product's settings: made ready, checked, rehearsed, made.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tools/qzlogcfg/settings.h"
#include "tools/qzlogcfg/store_location.h"
#include "tools/qzlogcfg/store_section.h"

namespace zantlog::tools {

struct Change {
    SectionName section;
    const Setting *setting = nullptr;
    std::optional<std::string> after;  // as it is stored; nothing: the setting is removed
    std::optional<std::string> before; // the same; makeChanges() fills it
};

enum class DryRun { no, yes };

// Makes the changes and prints each as a removed and an added line. Those that change nothing are left out.
// All are checked before the first is made; an error says which could not be made and what has been made
// until then. Returns the number of changes.
size_t makeChanges(const Registration &product, std::vector<Change> changes, DryRun dryRun,
                   std::ostream &output);

// As removed and added lines, below a heading for each section.
void printChanges(uint32_t product, const std::vector<Change> &changes, std::ostream &output);

// A usage error when the format of the store cannot hold the value.
void checkFits(const std::string &configuration, const Change &change);

// A usage error when no log file of that name would be found again, or the store cannot hold it.
void checkLogSetName(const std::string &name);

} // namespace zantlog::tools
