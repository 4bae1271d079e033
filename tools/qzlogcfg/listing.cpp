#include "tools/qzlogcfg/listing.h"

#include <algorithm>
#include <ostream>
#include <vector>

#include <nlohmann/json.hpp>

#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/effective.h"
#include "tools/qzlogcfg/snapshot.h"
#include "tools/qzlogcfg/system_store.h"
#include "tools/qzlogcfg/text_table.h"

namespace zantlog::tools {

namespace {

using Json = nlohmann::ordered_json;

void writeJson(const Json &json, std::ostream &output) {
    output << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

int finish(size_t found) {
    return found > 0 ? kExitSuccess : kExitNothingFound;
}

std::string ownNames(const SectionValues &section) {
    const auto names = section.values.find(settingWithKey("OIDNames"));
    return names == section.values.end() ? "" : names->second;
}

// One line for each section of a kind.
int listSectionsOf(const std::string &product, SectionKind kind, Format format, std::ostream &output) {
    const Registration registration = requireProduct(currentLocation(), product);
    const ProductSnapshot snapshot = takeProductSnapshot(registration);
    if (!snapshot.readable) {
        throw ToolError(kExitNotAccessible, "cannot read the " + locationWords(registration.configuration) +
                                                ", where product " + product + " is configured");
    }
    const bool logSets = kind == SectionKind::logSet;
    TextTable table({logSets ? "LOG SET" : "ORIGINATOR", "NAMES", "CONFIGURED IN"});
    Json json = Json::array();
    for (const SectionValues &section : snapshot.sections) {
        if (section.name.kind != kind) {
            continue;
        }
        const std::string name = logSets ? section.name.logSet : section.name.text();
        const SectionAddress address = addressOf(registration.configuration, section.name);
        const std::string names = ownNames(section);
        const std::string where = isConfFile(address.location)
                                      ? address.location + ", lines " + address.section + ".*"
                                      : "HKEY_LOCAL_MACHINE\\" + address.location + "\\" + address.section;
        table.add({name, names, where});
        json.push_back({{logSets ? "logSet" : "originator", name},
                        {"names", names},
                        {"location", address.location},
                        {"section", address.section}});
    }
    format == Format::json ? writeJson(json, output) : table.print(output);
    return finish(json.size());
}

std::string nameOfProduct(const Registration &registration) {
    return "product " + std::to_string(registration.product) +
           (registration.names.empty() ? "" : " (" + registration.names + ")");
}

Json jsonOfSection(const Registration &registration, const SectionName &section) {
    Json values = Json::object();
    for (const EffectiveSetting &effective :
         effectiveSettings(registration.product, registration.configuration, section)) {
        values[effective.setting->key] = {{"value", effective.value},
                                          {"origin", originWords(effective.origin, section.kind)}};
    }
    Json json = {{"product", registration.product}};
    if (section.kind == SectionKind::logSet) {
        json["logSet"] = section.logSet;
    } else {
        json["originator"] = section.originator;
    }
    json["configuration"] = registration.configuration;
    json["settings"] = values;
    return json;
}

void printSection(const Registration &registration, const SectionName &section, std::ostream &output) {
    const std::vector<EffectiveSetting> all =
        effectiveSettings(registration.product, registration.configuration, section);
    TextTable table;
    for (const EffectiveSetting &effective : all) {
        table.add({"  " + std::string(effective.setting->key),
                   effective.value.empty() ? "-" : effective.value,
                   originWords(effective.origin, section.kind)});
    }
    output << nameOfProduct(registration) << ", " << section.words() << ", in the "
           << locationWords(registration.configuration) << '\n';
    table.print(output);
}

std::vector<SectionName> sectionsToShow(const Registration &registration,
                                        const std::optional<SectionName> &wanted) {
    if (wanted) {
        return {*wanted};
    }
    // The defaults count even where their section is missing.
    std::vector<SectionName> names = {SectionName{}};
    for (const SectionValues &section : takeProductSnapshot(registration).sections) {
        const bool empty = section.values.empty() && section.name.kind == SectionKind::logSet;
        if (section.name != names.front() && !empty) {
            names.push_back(section.name);
        }
    }
    return names;
}

} // namespace

int listProducts(Format format, std::ostream &output) {
    TextTable table({"PRODUCT", "NAMES", "CONFIGURED IN"});
    Json json = Json::array();
    for (const Registration &product : registrations(currentLocation())) {
        table.add({std::to_string(product.product), product.names, product.configuration});
        json.push_back({{"product", product.product},
                        {"names", product.names},
                        {"configuration", product.configuration}});
    }
    format == Format::json ? writeJson(json, output) : table.print(output);
    return finish(json.size());
}

int listOriginators(const std::string &product, Format format, std::ostream &output) {
    return listSectionsOf(product, SectionKind::product, format, output);
}

int listLogSets(const std::string &product, Format format, std::ostream &output) {
    return listSectionsOf(product, SectionKind::logSet, format, output);
}

int showSettings(const ShowScope &scope, Format format, std::ostream &output) {
    const std::string location = currentLocation();
    const std::vector<Registration> products =
        scope.product ? std::vector<Registration>{requireProduct(location, *scope.product)}
                      : registrations(location);
    Json json = Json::array();
    size_t shown = 0;
    for (const Registration &product : products) {
        for (const SectionName &section : sectionsToShow(product, scope.section)) {
            if (format == Format::json) {
                json.push_back(jsonOfSection(product, section));
            } else {
                output << (shown > 0 ? "\n" : "");
                printSection(product, section, output);
            }
            ++shown;
        }
    }
    if (format == Format::json) {
        writeJson(json, output);
    }
    return finish(shown);
}

int showPaths(Format format, std::ostream &output) {
    const std::string location = currentLocation();
    const bool fromEnvironment = locationIsFromEnvironment();
    const std::string why = fromEnvironment ? "the environment variable ZANTLOG_CFG_LOC names it"
                                            : "the environment variable ZANTLOG_CFG_LOC is not set";
    const Access access = accessTo(location);
    const std::string state = access == Access::there     ? "can be read"
                              : access == Access::missing ? "does not exist"
                                                          : "cannot be read";
    if (format == Format::json) {
        writeJson({{"location", location},
                   {"kind", isConfFile(location) ? "file" : "registry"},
                   {"why", why},
                   {"state", state}},
                  output);
        return kExitSuccess;
    }
    TextTable table;
    table.add({"location", locationWords(location)});
    table.add({"why", why});
    table.add({"state", state});
    if (access == Access::there) {
        for (const Registration &product : registrations(location)) {
            table.add({nameOfProduct(product), locationWords(product.configuration)});
        }
    }
    table.print(output);
    return kExitSuccess;
}

} // namespace zantlog::tools
