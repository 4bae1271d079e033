#include "localizer/resource_settings.h"

#include <new>

#include "logfile/os/os_clock.h"
#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

namespace zantlog::localizer {

namespace {

constexpr size_t kRememberedSettings = 16;
constexpr uint64_t kSettingsMilliseconds = 10000; // reading a configuration costs far more than a message

struct Settings {
    uint32_t product = 0; // 0: free
    uint32_t originator = 0;
    uint64_t readAt = 0;
    OwnedText directory;
    OwnedText name;
};

struct Memory {
    Settings settings[kRememberedSettings];
    size_t next = 0;
};

// Never destroyed: the process may log until its very end.
Memory &memory() {
    alignas(Memory) static unsigned char storage[sizeof(Memory)];
    static Memory *const made = new (storage) Memory;
    return *made;
}

Settings *settingsOf(uint32_t product, uint32_t originator) {
    for (Settings &settings : memory().settings) {
        if (settings.product == product && settings.originator == originator) {
            return &settings;
        }
    }
    Settings &taken = memory().settings[memory().next];
    memory().next = (memory().next + 1) % kRememberedSettings;
    taken = Settings{};
    return &taken;
}

void readSettings(Settings *settings) {
    settings->directory.reset();
    settings->name.reset();
    const OwnedBlock<zantLogCfg> cfg = allocateBlock<zantLogCfg>(1);
    if (!cfg) {
        return;
    }
    *cfg = zantLogCfg{};
    if (zantLogReadCfg(settings->product, settings->originator, cfg.get()) == ZANTLOG_OK) {
        settings->directory = copyText(cfg->l10nResourceDir);
        settings->name = copyText(cfg->l10nResource);
    }
    zantLogFreeCfg(cfg.get());
}

Resource configured(uint32_t product, uint32_t originator) {
    if (product == 0 || originator == 0) {
        return {};
    }
    Settings *const settings = settingsOf(product, originator);
    const uint64_t now = os::nowMilliseconds();
    // A clock that was set back makes the difference huge: the configuration is read then too.
    if (settings->product == 0 || now - settings->readAt >= kSettingsMilliseconds) {
        settings->product = product;
        settings->originator = originator;
        settings->readAt = now;
        readSettings(settings);
    }
    return {.directory = settings->directory.get(), .name = settings->name.get()};
}

} // namespace

Resource resourceOf(const zantLogLocalizerList *list, const zantLogMsgRec &rec, const zantLogHandle *handle) {
    Resource own = {};
    if (list != nullptr) {
        own = {.directory = static_cast<const char *>(list->words[0]),
               .name = static_cast<const char *>(list->words[1])};
    }
    if (own.directory != nullptr && own.name != nullptr) {
        return own;
    }
    Resource found = {};
    if (handle != nullptr && handle->secureConfig != nullptr) {
        found = {.directory = handle->secureConfig->l10nResourceDir,
                 .name = handle->secureConfig->l10nResource};
    } else {
        found = configured(rec.productId, rec.originatorId);
    }
    return {.directory = own.directory != nullptr ? own.directory : found.directory,
            .name = own.name != nullptr ? own.name : found.name};
}

void forgetSettings() {
    for (Settings &settings : memory().settings) {
        settings = Settings{};
    }
}

} // namespace zantlog::localizer
