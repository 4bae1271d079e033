// Loading of a log set's configuration.
#include "base/common_lock.h"
#include "config/config_record.h"
#include "config/config_texts.h"
#include "config/product_config.h"
#include "config/section_loader.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

uint32_t foundOrNot(uint32_t keys) {
    return keys > 0 ? ZANTLOG_OK : ZANTLOG_NOT_REGISTERED;
}

// In the registry, a log set without a key of its own keeps the requested name over the inherited settings;
// in a file every section can be opened, and its loading gives the name.
uint32_t nameAsRequested(zantLogCfg *cfg, const char *logSet) {
    if (cfg->logSetName != nullptr && std::strcmp(cfg->logSetName, logSet) == 0) {
        return ZANTLOG_OK;
    }
    const uint32_t result = replaceText(&cfg->logSetName, logSet);
    return result == ZANTLOG_OK ? replaceText(&cfg->logSetFileName, logSet) : result;
}

// The record is initialised; the product's configuration is at `path`.
uint32_t loadLayers(const char *path, const char *logSet, zantLogCfg *cfg) {
    const OwnedText logSets = logSetsPath(path);
    if (logSets == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    const uint32_t result = foundOrNot(loadLogSet(logSets.get(), kDefaultName, cfg));
    if (!isConfigFile(path) && nameAsRequested(cfg, logSet) != ZANTLOG_OK) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (std::strcmp(logSet, kDefaultName) == 0) {
        return result;
    }
    return foundOrNot(loadLogSet(logSets.get(), logSet, cfg));
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogReadlogsetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg) {
    using namespace zantlog;
    if (productId == 0 || logSet == nullptr || cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogReadlogsetCfg()");
    const uint32_t result = initialiseConfig(productId, 0, logSet, cfg);
    if (result != ZANTLOG_OK) {
        return result;
    }
    const char *location = GetZantLogCfgLoc();
    const OwnedText path = productPath(location, productId);
    if (path == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    storeProductNames(cfg, productNames(location, productId).get());
    return loadLayers(path.get(), logSet, cfg);
}
