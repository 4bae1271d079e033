// set, unset, levels.
#include <ostream>

#include "tools/common/ascii.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/commands.h"
#include "tools/qzlogcfg/effective.h"
#include "tools/qzlogcfg/setting_value.h"
#include "tools/qzlogcfg/snapshot.h"
#include "tools/qzlogcfg/system_store.h"

namespace zantlog::tools {

namespace {

Change changeOf(const SectionName &section, const std::string &assignment) {
    const size_t equal = assignment.find('=');
    if (equal == 0 || equal == std::string::npos) {
        usageError("\"" + assignment + "\" is no assignment: write KEY=VALUE");
    }
    const Setting &setting = requireSetting(assignment.substr(0, equal), section.kind);
    const std::string value = storedValue(setting, assignment.substr(equal + 1));
    if (setting.kind == SettingKind::securityDescriptor && !isSecurityDescriptor(value)) {
        usageError(std::string(setting.key) +
                   " takes a security descriptor in SDDL, such as D:(A;;FA;;;BA), not \"" + value + "\"");
    }
    return {section, &setting, value, std::nullopt};
}

// The same setting twice on one command line can only be a mistake.
void checkDistinct(const std::vector<Change> &changes) {
    for (size_t i = 0; i < changes.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (changes[i].setting == changes[j].setting) {
                usageError(std::string(changes[i].setting->key) + " is given twice");
            }
        }
    }
}

int apply(const Registration &product, const std::vector<Change> &changes, DryRun dryRun,
          std::ostream &output) {
    checkDistinct(changes);
    if (makeChanges(product, changes, dryRun, output) == 0) {
        output << "nothing to change: product " << product.product << ", " << changes.front().section.words()
               << " is so already\n";
    }
    return kExitSuccess;
}

std::string valueOf(const std::vector<EffectiveSetting> &all, std::string_view key) {
    for (const EffectiveSetting &effective : all) {
        if (effective.setting->key == key) {
            return effective.value;
        }
    }
    return "";
}

// When a product that runs with this section reads its levels again.
void sayWhenSeen(const Registration &product, const SectionName &section, std::ostream &output) {
    const uint64_t seconds =
        wholeNumber(
            valueOf(effectiveSettings(product.product, product.configuration, section), "DynaReloadInSec"))
            .value_or(0);
    constexpr uint64_t kLeast = 60;
    if (seconds == 0) {
        output << "Running products see it when they open their log again: DynaReloadInSec is 0.\n";
    } else {
        output << "Running products see it within " << std::max(seconds, kLeast)
               << " seconds, with their next debug or diagnostic message (DynaReloadInSec is " << seconds
               << ").\n";
    }
}

} // namespace

int setSettings(const Target &target, const std::vector<std::string> &assignments, DryRun dryRun,
                std::ostream &output) {
    std::vector<Change> changes;
    for (const std::string &assignment : assignments) {
        changes.push_back(changeOf(target.section, assignment));
    }
    return apply(requireProduct(currentLocation(), target.product), changes, dryRun, output);
}

int unsetSettings(const Target &target, const std::vector<std::string> &keys, bool all, DryRun dryRun,
                  std::ostream &output) {
    const Registration product = requireProduct(currentLocation(), target.product);
    std::vector<Change> changes;
    for (const Setting &setting : settings()) {
        if (all && setting.belongsTo(target.section.kind)) {
            changes.push_back({target.section, &setting, std::nullopt, std::nullopt});
        }
    }
    for (const std::string &key : keys) {
        changes.push_back(
            {target.section, &requireSetting(key, target.section.kind), std::nullopt, std::nullopt});
    }
    checkDistinct(changes);
    if (makeChanges(product, changes, dryRun, output) == 0) {
        throw ToolError(kExitNothingFound, "nothing to remove: product " + std::to_string(product.product) +
                                               ", " + target.section.words() + " does not have it");
    }
    return kExitSuccess;
}

int setLevels(const Target &target, const std::optional<std::string> &debug,
              const std::optional<std::string> &diag, DryRun dryRun, std::ostream &output) {
    std::vector<Change> changes;
    if (debug) {
        changes.push_back(changeOf(target.section, "DebugLevel=" + *debug));
    }
    if (diag) {
        changes.push_back(changeOf(target.section, "DiagnosticLevel=" + *diag));
    }
    const Registration product = requireProduct(currentLocation(), target.product);
    apply(product, changes, dryRun, output);
    if (dryRun == DryRun::no) {
        sayWhenSeen(product, target.section, output);
    }
    return kExitSuccess;
}

} // namespace zantlog::tools
