// A section of the configuration, in a file or in the registry.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qzlogcfg/settings.h"
#include "zantlog/property_store.h"

namespace zantlog::tools {

// The text contains ".conf": it is the path of a file, any other is a registry path.
bool isConfFile(const std::string &location);

// Names a section of a product: of an originator (112 for the product's defaults), or of a log set.
struct SectionName {
    SectionKind kind = SectionKind::product;
    uint32_t originator = ZANTLOG_DEFAULT_ORIGINATOR;
    std::string logSet;

    // "Default", "3", "LOGSET.Default", "LOGSET.night", as in files.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] bool isDefault() const;
    // "the defaults", "originator 3", "log set night".
    [[nodiscard]] std::string words() const;
    bool operator==(const SectionName &) const = default;
};

// What text() gives; nothing for any other text.
std::optional<SectionName> sectionFromText(const std::string &text);

// Where a section is, as the property store wants it. UTF-8.
struct SectionAddress {
    std::string location;
    std::string section;
};

SectionAddress addressOf(const std::string &configuration, const SectionName &name);

// An open section. Texts are UTF-8.
class StoreSection {
public:
    enum class Mode { read, write };
    // For writing, a file or key that is not there is made.
    StoreSection(const SectionAddress &address, Mode mode);
    ~StoreSection();
    StoreSection(const StoreSection &) = delete;
    StoreSection &operator=(const StoreSection &) = delete;

    [[nodiscard]] bool isOpen() const { return result_ == 0; }
    [[nodiscard]] std::optional<std::string> text(const std::string &name);
    // As it is stored: numbers in decimal, without a sign. Nothing when the library does not find it.
    [[nodiscard]] std::optional<std::string> value(const Setting &setting);
    // Result of the library's that comes nearest (results.h); 0 is success.
    [[nodiscard]] uint32_t set(const Setting &setting, const std::string &value);
    [[nodiscard]] uint32_t remove(const Setting &setting);

    // Names of what the store holds, each once: sections, or log sets.
    [[nodiscard]] std::vector<std::string> roots();
    [[nodiscard]] std::vector<std::string> logSets();

private:
    using Enumerate = uint32_t (*)(PropertyStore *, uint32_t, char *, uint32_t *);
    [[nodiscard]] std::vector<std::string> names(Enumerate enumerate);

    PropertyStore store_ = {};
    uint32_t result_ = 0;
};

// Sections of a product's configuration that hold something, in the order in which they stand there, and
// roots that are neither an originator nor a log set. False when the configuration cannot be opened.
bool listSections(const std::string &configuration, std::vector<SectionName> *sections,
                  std::vector<std::string> *others);

} // namespace zantlog::tools
