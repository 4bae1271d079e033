// export, import, diff.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>

#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/commands.h"
#include "tools/qzlogcfg/snapshot.h"

namespace zantlog::tools {

namespace {

std::filesystem::path pathOf(const std::string &text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string readFile(const std::string &name) {
    std::ifstream file(pathOf(name), std::ios::binary);
    if (!file.is_open()) {
        throw ToolError(kExitNotAccessible, "cannot read the file " + name);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool isExport(const std::string &name) {
    constexpr std::string_view kExtension = ".json";
    return name.size() > kExtension.size() && name.ends_with(kExtension);
}

Snapshot sideOf(const std::string &name) {
    if (name == "current") {
        return takeSnapshot(currentLocation());
    }
    return isExport(name) ? snapshotFromJson(readFile(name), name) : takeSnapshot(name);
}

const ProductSnapshot *find(const Snapshot &snapshot, uint32_t product) {
    for (const ProductSnapshot &candidate : snapshot.products) {
        if (candidate.registration.product == product) {
            return &candidate;
        }
    }
    return nullptr;
}

const SectionValues *find(const ProductSnapshot *product, const SectionName &name) {
    if (product != nullptr) {
        for (const SectionValues &section : product->sections) {
            if (section.name == name) {
                return &section;
            }
        }
    }
    return nullptr;
}

std::optional<std::string> find(const SectionValues *section, const Setting &setting) {
    if (section == nullptr || section->values.count(&setting) == 0) {
        return std::nullopt;
    }
    return section->values.at(&setting);
}

// What turns one section into the other.
void addChanges(const SectionName &name, const SectionValues *from, const SectionValues *to, bool remove,
                std::vector<Change> *changes) {
    for (const Setting &setting : settings()) {
        const std::optional<std::string> before = find(from, setting);
        const std::optional<std::string> after = find(to, setting);
        if (before != after && (after || remove)) {
            changes->push_back({name, &setting, after, before});
        }
    }
}

std::vector<Change> changesOf(const ProductSnapshot *from, const ProductSnapshot *to, bool remove) {
    std::vector<Change> changes;
    for (const ProductSnapshot *side : {from, to}) {
        for (const SectionValues &section : side == nullptr ? std::vector<SectionValues>() : side->sections) {
            if (side == to && find(from, section.name) != nullptr) {
                continue; // done with the other side
            }
            addChanges(section.name, find(from, section.name), find(to, section.name), remove, &changes);
        }
    }
    return changes;
}

void printDifference(const std::string &heading, const std::optional<std::string> &before,
                     const std::optional<std::string> &after, std::ostream &output) {
    if (before == after) {
        return;
    }
    output << heading << '\n';
    if (before) {
        output << "- " << *before << '\n';
    }
    if (after) {
        output << "+ " << *after << '\n';
    }
}

std::optional<std::string> registrationText(const ProductSnapshot *product) {
    if (product == nullptr) {
        return std::nullopt;
    }
    return "names " + product->registration.names + ", configured in " + product->registration.configuration;
}

// A registration is never changed, so one that differs is refused before anything is written.
std::vector<const ProductSnapshot *> missingProducts(const Snapshot &current, const Snapshot &wanted) {
    std::vector<const ProductSnapshot *> missing;
    for (const ProductSnapshot &product : wanted.products) {
        const ProductSnapshot *present = find(current, product.registration.product);
        if (present == nullptr) {
            missing.push_back(&product);
        } else if (registrationText(present) != registrationText(&product)) {
            throw ToolError(kExitProblemsFound, "product " + std::to_string(product.registration.product) +
                                                    " is registered already (" + *registrationText(present) +
                                                    "), otherwise than the file has it (" +
                                                    *registrationText(&product) + "); nothing was changed");
        }
    }
    return missing;
}

Snapshot currentOrNothing() {
    try {
        return takeSnapshot(currentLocation());
    } catch (const ToolError &error) {
        if (error.code() != kExitNothingFound) {
            throw;
        }
        return {currentLocation(), {}};
    }
}

} // namespace

int exportConfiguration(const std::optional<std::string> &file, std::ostream &output) {
    const Snapshot snapshot = takeSnapshot(currentLocation());
    for (const ProductSnapshot &product : snapshot.products) {
        if (!product.readable) {
            throw ToolError(kExitNotAccessible,
                            "cannot read the " + locationWords(product.registration.configuration) +
                                ", where product " + std::to_string(product.registration.product) +
                                " is configured");
        }
    }
    const std::string json = jsonFromSnapshot(snapshot);
    if (!file) {
        output << json;
        return kExitSuccess;
    }
    std::ofstream stream(pathOf(*file), std::ios::binary);
    if (!(stream << json) || !stream.flush()) {
        throw ToolError(kExitNotAccessible, "cannot write the file " + *file);
    }
    return kExitSuccess;
}

int importConfiguration(const std::string &file, bool replace, DryRun dryRun, std::ostream &output) {
    const Snapshot wanted = snapshotFromJson(readFile(file), file);
    const Snapshot current = currentOrNothing();
    const std::vector<const ProductSnapshot *> missing = missingProducts(current, wanted);
    // All values are looked at before the first is written.
    for (const ProductSnapshot &product : wanted.products) {
        for (const Change &change : changesOf(nullptr, &product, false)) {
            if (change.section.kind == SectionKind::logSet) {
                checkLogSetName(change.section.logSet);
            }
            checkFits(product.registration.configuration, change);
        }
    }
    for (const ProductSnapshot *product : missing) {
        if (dryRun == DryRun::yes) {
            printDifference("product " + std::to_string(product->registration.product), std::nullopt,
                            registrationText(product), output);
        } else {
            registerProduct(product->registration.product, product->registration.names,
                            product->registration.configuration, output);
        }
    }
    for (const ProductSnapshot &product : wanted.products) {
        const ProductSnapshot present = takeProductSnapshot(product.registration);
        makeChanges(product.registration, changesOf(&present, &product, replace), dryRun, output);
    }
    return kExitSuccess;
}

int diffConfigurations(const std::string &a, const std::string &b, std::ostream &output) {
    const Snapshot left = sideOf(a);
    const Snapshot right = sideOf(b);
    std::set<uint32_t> products;
    for (const Snapshot *side : {&left, &right}) {
        for (const ProductSnapshot &product : side->products) {
            products.insert(product.registration.product);
        }
    }
    bool differ = false;
    for (const uint32_t id : products) {
        const ProductSnapshot *before = find(left, id);
        const ProductSnapshot *after = find(right, id);
        const std::vector<Change> changes = changesOf(before, after, true);
        differ = differ || !changes.empty() || registrationText(before) != registrationText(after);
        printDifference("product " + std::to_string(id), registrationText(before), registrationText(after),
                        output);
        printChanges(id, changes, output);
    }
    return differ ? kExitNothingFound : kExitSuccess;
}

} // namespace zantlog::tools
