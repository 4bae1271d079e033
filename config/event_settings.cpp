// Settings for the host: event source, event category, security of new files.
#include "base/bounded_text.h"
#include "base/owned_text.h"
#include "config/config_texts.h"
#include "zantlog/config.h"
#include "zantlog/results.h"

#include <cstring>

extern "C" {

uint32_t zantLogCfgSetNtEventSource(zantLogCfg *cfg, const char *text) {
    if (cfg == nullptr || text == nullptr || *text == '\0') {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Copied aside: the text may be the field's own.
    zantLogEventSource source{};
    zantlog::copyBounded(source.name, sizeof source.name, text);
    std::memcpy(cfg->eventSource.name, source.name, sizeof source.name);
    cfg->changedMask |= ZANTLOG_SETTING_EVENT_SOURCE;
    return ZANTLOG_OK;
}

uint32_t zantLogCfgGetNtEventSource(zantLogCfg *cfg, char **out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return zantlog::handOutText(cfg->eventSource.name, out);
}

uint32_t zantLogCfgSetNtEventCategory(zantLogCfg *cfg, uint16_t category) {
    if (cfg == nullptr || category == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    cfg->eventSource.category = category;
    cfg->changedMask |= ZANTLOG_SETTING_EVENT_CATEGORY;
    return ZANTLOG_OK;
}

uint32_t zantLogCfgGetNtEventCategory(zantLogCfg *cfg, uint16_t *category) {
    if (cfg == nullptr || category == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *category = cfg->eventSource.category;
    return ZANTLOG_OK;
}

uint32_t zantLogCfgSetLogFileSDDL(zantLogCfg *cfg, const char *text) {
    if (cfg == nullptr || text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    cfg->changedMask |= ZANTLOG_SETTING_LOG_FILE_SDDL;
    return zantlog::replaceText(&cfg->logFileSDDL, text);
}

uint32_t zantLogCfgGetLogFileSDDL(zantLogCfg *cfg, char **out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return zantlog::handOutText(cfg->logFileSDDL, out);
}

uint32_t FreeFileSecuritySetting(char **sddl) {
    constexpr uint32_t kNullArgument = 0xFFFFFFFF;
    if (sddl == nullptr) {
        return kNullArgument;
    }
    zantLogFree(*sddl);
    *sddl = nullptr;
    return ZANTLOG_OK;
}

} // extern "C"
