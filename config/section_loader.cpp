#include "config/section_loader.h"

#include "base/bounded_text.h"
#include "config/config_record.h"
#include "config/config_texts.h"
#include "config/key_table.h"
#include "config/open_store.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

constexpr char kLogSetKey[] = "\\LOGSET";
constexpr char kLogSetRoot[] = "LOGSET.";

struct Source {
    OpenStore store;
    KeyScope scope;
    bool isDefault;
};

// Whether the key is there and counts.
bool loadKey(Source &source, const ConfigKey &key, zantLogCfg *cfg) {
    KeyValue value{nullptr, 0, source.isDefault};
    OwnedText text;
    bool present = false;
    switch (key.type) {
    case KeyType::Text:
        text = source.store.text(key.name);
        value.text = text.get();
        present = text != nullptr;
        break;
    case KeyType::Number:
        present = source.store.number(key.name, &value.number);
        break;
    case KeyType::Boolean:
        present = source.store.boolean(key.name, &value.number);
        break;
    }
    if (present) {
        return key.store(cfg, value);
    }
    if (key.absent != nullptr) {
        key.absent(cfg);
    }
    return false;
}

// Returns the number of keys found.
uint32_t loadKeys(Source &source, zantLogCfg *cfg) {
    uint32_t found = 0;
    for (const ConfigKey &key : configKeys()) {
        const bool here = key.scope == KeyScope::Both || key.scope == source.scope;
        if (here && loadKey(source, key, cfg)) {
            ++found;
        }
    }
    return found;
}

} // namespace

uint32_t loadSection(const char *path, const char *section, zantLogCfg *cfg) {
    Source source{{path, section}, KeyScope::Product, std::strcmp(section, kDefaultName) == 0};
    const uint32_t result = utipsres2zantlogres(source.store.result());
    if (result != ZANTLOG_OK && result != ZANTLOG_NOT_REGISTERED) {
        return result;
    }
    if (source.store.isOpen()) {
        (void)loadKeys(source, cfg);
    }
    cfg->changedMask = 0;
    return ZANTLOG_OK;
}

uint32_t loadLogSet(const char *logSetsPath, const char *logSet, zantLogCfg *cfg) {
    LogSetSection section;
    if (!nameLogSetSection(logSetsPath, logSet, &section)) {
        return 0;
    }
    Source source{{logSetsPath, section.name}, KeyScope::LogSet, std::strcmp(logSet, kDefaultName) == 0};
    if (!source.store.isOpen() || replaceText(&cfg->logSetName, logSet) != ZANTLOG_OK) {
        return 0;
    }
    const uint32_t found = loadKeys(source, cfg);
    cfg->changedMask = 0;
    return found;
}

bool nameLogSetSection(const char *logSetsPath, const char *logSet, LogSetSection *section) {
    BoundedText name(section->name);
    name.text(isConfigFile(logSetsPath) ? kLogSetRoot : "").text(logSet);
    return !name.cut();
}

bool isConfigFile(const char *path) {
    return std::strstr(path, ".conf") != nullptr;
}

OwnedText logSetsPath(const char *path) {
    if (isConfigFile(path)) {
        return copyText(path);
    }
    const size_t capacity = std::strlen(path) + sizeof kLogSetKey;
    OwnedText joined = allocateBlock<char>(capacity);
    if (joined != nullptr) {
        BoundedText(joined.get(), capacity).text(path).text(kLogSetKey);
    }
    return joined;
}

} // namespace zantlog
