#include "tools/qzlogcfg/snapshot.h"

#include <algorithm>

namespace zantlog::tools {

SectionValues readSection(const std::string &configuration, const SectionName &name) {
    SectionValues section{name, {}};
    StoreSection store(addressOf(configuration, name), StoreSection::Mode::read);
    for (const Setting &setting : settings()) {
        if (!setting.belongsTo(name.kind)) {
            continue;
        }
        if (const std::optional<std::string> value = store.value(setting)) {
            section.values.emplace(&setting, *value);
        }
    }
    return section;
}

ProductSnapshot takeProductSnapshot(const Registration &registration) {
    ProductSnapshot product{registration, true, {}};
    std::vector<SectionName> names;
    std::vector<std::string> others;
    product.readable = listSections(registration.configuration, &names, &others);
    for (const SectionName &name : names) {
        product.sections.push_back(readSection(registration.configuration, name));
    }
    // Defaults first, then originators by id, then log sets by name.
    const auto rank = [](const SectionValues &section) {
        return section.name.kind == SectionKind::logSet ? 1 : 0;
    };
    std::stable_sort(product.sections.begin(), product.sections.end(),
                     [&](const SectionValues &a, const SectionValues &b) {
                         if (rank(a) != rank(b)) {
                             return rank(a) < rank(b);
                         }
                         if (a.name.isDefault() != b.name.isDefault()) {
                             return a.name.isDefault();
                         }
                         return rank(a) == 0 ? a.name.originator < b.name.originator
                                             : a.name.logSet < b.name.logSet;
                     });
    return product;
}

Snapshot takeSnapshot(const std::string &location) {
    Snapshot snapshot{location, {}};
    for (const Registration &registration : registrations(location)) {
        snapshot.products.push_back(takeProductSnapshot(registration));
    }
    return snapshot;
}

} // namespace zantlog::tools
