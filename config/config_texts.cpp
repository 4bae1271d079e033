#include "config/config_texts.h"

#include "base/library_name.h"
#include "base/owned_text.h"
#include "zantlog/config.h"
#include "zantlog/results.h"

namespace zantlog {

uint32_t replaceText(char **field, const char *text) {
    OwnedText copy = copyText(text);
    zantLogFree(*field);
    *field = copy.release();
    return *field != nullptr ? ZANTLOG_OK : ZANTLOG_OUT_OF_MEMORY;
}

uint32_t handOutText(const char *field, char **out) {
    OwnedText copy = copyText(field);
    if (copy == nullptr && field != nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    *out = copy.release();
    return ZANTLOG_OK;
}

} // namespace zantlog

namespace {

using TextField = char *zantLogCfg::*;

uint32_t setText(zantLogCfg *cfg, TextField field, const char *text, uint32_t setting) {
    if (cfg == nullptr || text == nullptr || *text == '\0') {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    cfg->changedMask |= setting;
    return zantlog::replaceText(&(cfg->*field), text);
}

uint32_t getText(const zantLogCfg *cfg, TextField field, char **out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    return zantlog::handOutText(cfg->*field, out);
}

} // namespace

extern "C" {

uint32_t zantLogCfgSetL10nLib(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::l10nLib, text, ZANTLOG_SETTING_L10N_LIB);
}

uint32_t zantLogCfgSetL10nResource(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::l10nResource, text, ZANTLOG_SETTING_L10N_RESOURCE);
}

uint32_t zantLogCfgSetL10nResourceDir(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::l10nResourceDir, text, ZANTLOG_SETTING_L10N_RESOURCE_DIR);
}

uint32_t zantLogCfgSetLogsetFilename(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::logSetFileName, text, ZANTLOG_SETTING_FILE_NAME);
}

uint32_t zantLogCfgSetLogsetOIDappMsgLogging(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::oidAppMsgLogging, text, ZANTLOG_SETTING_OID_APP_MSG_LOGGING);
}

uint32_t zantLogCfgSetLogsetOIDDebugLogging(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::oidDebugLogging, text, ZANTLOG_SETTING_OID_DEBUG_LOGGING);
}

uint32_t zantLogCfgSetLogsetOIDDiagLogging(zantLogCfg *cfg, const char *text) {
    return setText(cfg, &zantLogCfg::oidDiagLogging, text, ZANTLOG_SETTING_OID_DIAG_LOGGING);
}

uint32_t zantLogCfgGetL10nLib(zantLogCfg *cfg, char **out) {
    if (out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = nullptr;
    if (cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = zantlog::versionedLibraryName(cfg->l10nLib).release();
    return *out != nullptr ? ZANTLOG_OK : ZANTLOG_OUT_OF_MEMORY;
}

uint32_t zantLogCfgGetL10nResource(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::l10nResource, out);
}

uint32_t zantLogCfgGetL10nResourceDir(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::l10nResourceDir, out);
}

uint32_t zantLogCfgGetLogsetFilename(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::logSetFileName, out);
}

uint32_t zantLogCfgGetLogsetOIDOIDappMsgLogging(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::oidAppMsgLogging, out);
}

uint32_t zantLogCfgGetLogsetOIDDebugLogging(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::oidDebugLogging, out);
}

uint32_t zantLogCfgGetLogsetOIDDiagLogging(zantLogCfg *cfg, char **out) {
    return getText(cfg, &zantLogCfg::oidDiagLogging, out);
}

} // extern "C"
