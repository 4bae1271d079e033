#include "tools/qzlogcfg/check.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <ostream>
#include <set>

#include <nlohmann/json.hpp>

#include "tools/common/ascii.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/check_sections.h"
#include "tools/qzlogcfg/effective.h"
#include "tools/qzlogcfg/snapshot.h"
#include "tools/qzlogcfg/system_store.h"

namespace zantlog::tools {

namespace {

namespace fs = std::filesystem;

std::string placeOf(const std::string &location) {
    return isConfFile(location) ? location : "HKEY_LOCAL_MACHINE\\" + location;
}

std::string effectiveValue(const std::vector<EffectiveSetting> &all, std::string_view key) {
    for (const EffectiveSetting &effective : all) {
        if (effective.setting->key == key) {
            return effective.value;
        }
    }
    return "";
}

// A directory that is not there is made with the first log file; one that cannot be listed stays a problem.
std::optional<std::string> problemOfDirectory(const std::string &directory) {
    if (directory.empty()) {
        return std::string("there is no LogDirectory, so no log can be opened");
    }
    const fs::path path(std::u8string(directory.begin(), directory.end()));
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return std::nullopt;
    }
    if (status.type() != fs::file_type::directory) {
        return "LogDirectory " + directory + " is no directory";
    }
    fs::directory_iterator listing(path, error);
    return error ? std::optional("LogDirectory " + directory + " cannot be read") : std::nullopt;
}

// Log files as a section names them: two sections with the same ones would share their files.
using FileOwners = std::map<std::string, std::string>;

std::string fileNames(uint32_t product, const SectionName &section,
                      const std::vector<EffectiveSetting> &all) {
    const std::string name = section.kind == SectionKind::logSet ? effectiveValue(all, "FileName")
                                                                 : std::to_string(section.originator);
    const std::string directory = effectiveValue(all, "LogDirectory");
    return lowered(directory + std::to_string(product) + "-" + name);
}

void checkSection(const Registration &product, const SectionName &section, FileOwners *owners,
                  std::vector<Problem> *problems) {
    const SectionAddress address = addressOf(product.configuration, section);
    const std::string place =
        isConfFile(address.location) ? address.location : placeOf(address.location) + "\\" + address.section;
    const std::string who = "product " + std::to_string(product.product) + ", " + section.words();
    std::vector<EffectiveSetting> effective;
    try {
        effective = effectiveSettings(product.product, product.configuration, section);
    } catch (const ToolError &error) {
        problems->push_back({place, error.what()});
        return;
    }
    const std::string directory = effectiveValue(effective, "LogDirectory");
    // The defaults of log sets are no log set themselves.
    const bool writes = section.kind == SectionKind::product || !section.isDefault();
    if (const std::optional<std::string> problem = problemOfDirectory(directory); writes && problem) {
        problems->push_back({place, who + ": " + *problem});
    }
    if (directory.empty() || !writes) {
        return;
    }
    const auto [owner, isNew] = owners->emplace(fileNames(product.product, section, effective), who);
    if (!isNew) {
        problems->push_back({place, who + ": its log files go to " + directory +
                                        " under the same names as those of " + owner->second});
    }
}

void checkProduct(const Registration &product, FileOwners *owners, std::vector<Problem> *problems) {
    const ProductSnapshot snapshot = takeProductSnapshot(product);
    const std::string who = "product " + std::to_string(product.product);
    if (!snapshot.readable) {
        const bool missing = accessTo(product.configuration) == Access::missing;
        problems->push_back(
            {placeOf(product.configuration),
             who + " is configured here, and it " + (missing ? "does not exist" : "cannot be read")});
        return;
    }
    const bool onlyLogSets =
        std::none_of(snapshot.sections.begin(), snapshot.sections.end(),
                     [](const SectionValues &section) { return section.name.kind == SectionKind::product; });
    if (snapshot.sections.empty() || !onlyLogSets) {
        checkSection(product, SectionName{}, owners, problems);
    }
    for (const SectionValues &section : snapshot.sections) {
        const bool emptyLogSet = section.name.kind == SectionKind::logSet && section.values.empty();
        if (section.name != SectionName{} && !emptyLogSet) {
            checkSection(product, section.name, owners, problems);
        }
    }
}

} // namespace

std::vector<Problem> findProblems(const std::string &location) {
    const std::vector<Registration> products = registrations(location);
    std::vector<Problem> problems;
    std::set<std::string> checked; // a file may be the location and hold the configuration of products too
    const auto checkStore = [&](const std::string &store, bool isLocation) {
        if (accessTo(store) != Access::there || !checked.insert(lowered(store)).second) {
            return;
        }
        const std::vector<Problem> found = isConfFile(store) ? problemsOfConfFile(store)
                                           : isLocation      ? problemsOfRegistryLocation(store)
                                                             : problemsOfRegistryConfiguration(store);
        problems.insert(problems.end(), found.begin(), found.end());
    };
    checkStore(location, true);
    FileOwners owners;
    for (const Registration &product : products) {
        checkStore(product.configuration, false);
        checkProduct(product, &owners, &problems);
    }
    return problems;
}

int checkConfiguration(Format format, std::ostream &output) {
    const std::vector<Problem> problems = findProblems(currentLocation());
    if (format == Format::json) {
        auto json = nlohmann::ordered_json::array();
        for (const Problem &problem : problems) {
            json.push_back({{"place", problem.place}, {"problem", problem.what}});
        }
        output << json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const Problem &problem : problems) {
            output << problem.place << ": " << problem.what << '\n';
        }
    }
    return problems.empty() ? kExitSuccess : kExitProblemsFound;
}

} // namespace zantlog::tools
