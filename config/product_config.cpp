#include "config/product_config.h"

#include "base/bounded_text.h"
#include "base/common_lock.h"
#include "config/config_record.h"
#include "config/id_name.h"
#include "config/open_store.h"
#include "config/section_loader.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr char kPathKey[] = "Configuration";
constexpr char kNamesKey[] = "Names";

OwnedText registrationText(const char *location, uint32_t productId, const char *key) {
    OpenStore store(location, IdName(productId).text);
    return store.isOpen() ? store.text(key) : nullptr;
}

} // namespace

OwnedText productPath(const char *location, uint32_t productId) {
    return registrationText(location, productId, kPathKey);
}

OwnedText productNames(const char *location, uint32_t productId) {
    return registrationText(location, productId, kNamesKey);
}

void storeProductNames(zantLogCfg *cfg, const char *names) {
    if (names != nullptr) {
        copyBounded(cfg->productNames, sizeof cfg->productNames, names);
    }
}

} // namespace zantlog

extern "C" uint32_t zantLogReadCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg) {
    using namespace zantlog;
    if (productId == 0 || originatorId == 0 || cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogReadCfg()");
    uint32_t result = initialiseConfig(productId, originatorId, nullptr, cfg);
    if (result != ZANTLOG_OK) {
        return result;
    }
    const char *location = GetZantLogCfgLoc();
    const OwnedText path = productPath(location, productId);
    if (path == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    storeProductNames(cfg, productNames(location, productId).get());
    result = loadSection(path.get(), kDefaultName, cfg);
    if (result == ZANTLOG_OK && originatorId != ZANTLOG_DEFAULT_ORIGINATOR) {
        result = loadSection(path.get(), IdName(originatorId).text, cfg);
    }
    return result;
}

extern "C" uint32_t GetProductCfgPath(const char *location, uint32_t productId, char **out) {
    if (out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    zantlog::OwnedText path = zantlog::productPath(location, productId);
    if (path == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    *out = path.release();
    return ZANTLOG_OK;
}
