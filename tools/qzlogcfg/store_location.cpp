#include "tools/qzlogcfg/store_location.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/code_page.h"
#include "tools/common/command_line.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/store_section.h"
#include "tools/qzlogcfg/system_store.h"
#include "zantlog/config_store.h"

namespace zantlog::tools {

namespace {

constexpr char kConfiguration[] = "Configuration";
constexpr char kNames[] = "Names";

std::vector<std::string> splitNames(const std::string &names) {
    constexpr char kSeparators[] = ", ";
    std::vector<std::string> all;
    for (size_t begin = names.find_first_not_of(kSeparators); begin != std::string::npos;) {
        const size_t end = std::min(names.find_first_of(kSeparators, begin), names.size());
        all.push_back(names.substr(begin, end - begin));
        begin = names.find_first_not_of(kSeparators, end);
    }
    return all;
}

void checkAccess(const std::string &location) {
    const Access access = accessTo(location);
    if (access == Access::missing) {
        throw ToolError(kExitNothingFound, "nothing is configured: there is no " + locationWords(location));
    }
    if (access == Access::denied) {
        throw ToolError(kExitNotAccessible, "cannot read the " + locationWords(location) +
                                                ": check its rights, and whether another program holds it");
    }
}

} // namespace

std::string currentLocation() {
    return utf8FromCodePage(GetZantLogCfgLoc());
}

bool locationIsFromEnvironment() {
    return hasEnvironment("ZANTLOG_CFG_LOC");
}

std::string locationWords(const std::string &location) {
    return isConfFile(location) ? "file " + location : "registry path HKEY_LOCAL_MACHINE\\" + location;
}

bool isRegistration(const std::string &location, const std::string &root) {
    StoreSection entry({location, root}, StoreSection::Mode::read);
    return entry.text(kConfiguration).has_value() &&
           std::none_of(settings().begin(), settings().end(),
                        [&](const Setting &setting) { return entry.value(setting).has_value(); });
}

std::vector<Registration> registrations(const std::string &location) {
    checkAccess(location);
    StoreSection store({location, ""}, StoreSection::Mode::read);
    if (!store.isOpen()) {
        throw ToolError(kExitNotAccessible, "cannot read the " + locationWords(location));
    }
    std::vector<Registration> all;
    for (const std::string &root : store.roots()) {
        const std::optional<uint64_t> id = wholeNumber(root);
        if (!id || *id == 0 || *id > UINT32_MAX) {
            continue;
        }
        StoreSection entry({location, root}, StoreSection::Mode::read);
        if (const std::optional<std::string> path = entry.text(kConfiguration)) {
            all.push_back({static_cast<uint32_t>(*id), entry.text(kNames).value_or(""), *path});
        }
    }
    std::sort(all.begin(), all.end(),
              [](const Registration &a, const Registration &b) { return a.product < b.product; });
    return all;
}

Registration requireProduct(const std::string &location, const std::string &idOrName) {
    const std::vector<Registration> all = registrations(location);
    const std::optional<uint64_t> id = wholeNumber(idOrName);
    std::vector<std::string> known;
    for (const Registration &product : all) {
        const std::vector<std::string> names = splitNames(product.names);
        if (id ? product.product == *id : std::find(names.begin(), names.end(), idOrName) != names.end()) {
            return product;
        }
        known.insert(known.end(), names.begin(), names.end());
    }
    throw ToolError(kExitNothingFound, "product " + idOrName + " is not registered in the " +
                                           locationWords(location) + didYouMean(nearest(idOrName, known)));
}

} // namespace zantlog::tools
