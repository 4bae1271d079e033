#include "tools/qzlogcfg/store_section.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/code_page.h"
#include "tools/qzlogcfg/store_location.h"
#include "zantlog/config_store.h"
#include "zantlog/handle.h"
#include "zantlog/results.h"

namespace zantlog::tools {

namespace {

constexpr char kDefault[] = "Default";
constexpr char kLogSetRoot[] = "LOGSET";
constexpr char kLogSetPrefix[] = "LOGSET.";

bool isOriginator(const std::string &name) {
    const std::optional<uint64_t> id = wholeNumber(name);
    return id && *id > 0 && *id <= UINT32_MAX && std::to_string(*id) == name;
}

SectionName logSetNamed(const std::string &name) {
    return {SectionKind::logSet, 0, name};
}

} // namespace

bool isConfFile(const std::string &location) {
    return location.find(".conf") != std::string::npos;
}

std::string SectionName::text() const {
    if (kind == SectionKind::logSet) {
        return kLogSetPrefix + logSet;
    }
    return originator == ZANTLOG_DEFAULT_ORIGINATOR ? kDefault : std::to_string(originator);
}

bool SectionName::isDefault() const {
    return kind == SectionKind::logSet ? logSet == kDefault : originator == ZANTLOG_DEFAULT_ORIGINATOR;
}

std::string SectionName::words() const {
    if (kind == SectionKind::logSet) {
        return isDefault() ? "the defaults of log sets" : "log set " + logSet;
    }
    return isDefault() ? "the defaults" : "originator " + std::to_string(originator);
}

std::optional<SectionName> sectionFromText(const std::string &text) {
    const std::string prefix = kLogSetPrefix;
    if (text.compare(0, prefix.size(), prefix) == 0 && text.size() > prefix.size()) {
        return logSetNamed(text.substr(prefix.size()));
    }
    if (text == kDefault) {
        return SectionName{};
    }
    if (isOriginator(text)) {
        return SectionName{SectionKind::product, static_cast<uint32_t>(*wholeNumber(text)), ""};
    }
    return std::nullopt;
}

SectionAddress addressOf(const std::string &configuration, const SectionName &name) {
    if (isConfFile(configuration) || name.kind == SectionKind::product) {
        return {configuration, name.text()};
    }
    return {configuration + "\\" + kLogSetRoot, name.logSet};
}

StoreSection::StoreSection(const SectionAddress &address, Mode mode) {
    const std::string location = codePageFromUtf8(address.location);
    const std::string section = codePageFromUtf8(address.section);
    result_ = mode == Mode::write
                  ? CreatePropertyString(location.c_str(), section.c_str(), &store_)
                  : utiOpenPropertyStore(location.c_str(), section.c_str(), &store_, ZANTLOG_STORE_READ);
}

StoreSection::~StoreSection() {
    utiClosePropertyStore(&store_);
}

std::optional<std::string> StoreSection::text(const std::string &name) {
    char *text = nullptr;
    if (!isOpen() || utiGetPropertyAsStr(&store_, name.c_str(), &text) != ZANTLOG_STORE_OK) {
        return std::nullopt;
    }
    std::string value = utf8FromCodePage(text);
    zantLogFree(text);
    return value;
}

std::optional<std::string> StoreSection::value(const Setting &setting) {
    if (!setting.isNumber()) {
        return text(setting.key);
    }
    uint32_t number = 0;
    if (!isOpen() || utiGetPropertyAsULong(&store_, setting.key, &number) != ZANTLOG_STORE_OK) {
        return std::nullopt;
    }
    return std::to_string(number);
}

uint32_t StoreSection::set(const Setting &setting, const std::string &value) {
    if (!setting.isNumber()) {
        return utipsres2zantlogres(
            utiSetPropertyAsStr(&store_, setting.key, codePageFromUtf8(value).c_str()));
    }
    const auto number = static_cast<uint32_t>(wholeNumber(value).value_or(0));
    return utipsres2zantlogres(utiSetPropertyAsULong(&store_, setting.key, &number));
}

uint32_t StoreSection::remove(const Setting &setting) {
    return utipsres2zantlogres(utiRemoveProperty(&store_, setting.key));
}

std::vector<std::string> StoreSection::names(Enumerate enumerate) {
    constexpr uint32_t kCapacity = 1024;
    char name[kCapacity] = ""; // a file goes on from the name in it
    std::vector<std::string> all;
    for (uint32_t index = 0; isOpen(); ++index) {
        uint32_t length = kCapacity;
        if (enumerate(&store_, index, name, &length) != ZANTLOG_STORE_OK) {
            break;
        }
        const std::string found = utf8FromCodePage(name);
        if (std::find(all.begin(), all.end(), found) == all.end()) {
            all.push_back(found);
        }
    }
    return all;
}

std::vector<std::string> StoreSection::roots() {
    return names(utiEnumProductId);
}

std::vector<std::string> StoreSection::logSets() {
    return names(utiEnumLogsetForProductId);
}

bool listSections(const std::string &configuration, std::vector<SectionName> *sections,
                  std::vector<std::string> *others) {
    StoreSection store({configuration, ""}, StoreSection::Mode::read);
    if (!store.isOpen()) {
        return false;
    }
    for (const std::string &root : store.roots()) {
        const std::optional<SectionName> name = sectionFromText(root);
        if (!name) {
            if (root != kLogSetRoot) {
                others->push_back(root);
            }
            continue;
        }
        // A file may hold the registration of a product beside its sections.
        if (!isRegistration(configuration, root)) {
            sections->push_back(*name);
        }
    }
    const bool file = isConfFile(configuration);
    StoreSection logSets({file ? configuration : configuration + "\\" + kLogSetRoot, ""},
                         StoreSection::Mode::read);
    for (const std::string &logSet : logSets.logSets()) {
        sections->push_back(logSetNamed(logSet));
    }
    return true;
}

} // namespace zantlog::tools
