// Registration of products at the configuration location, and what their entries say.
#include "base/common_lock.h"
#include "config/id_name.h"
#include "config/open_store.h"
#include "config/product_config.h"
#include "config/writable_store.h"
#include "logfile/os/os_stream.h"
#include "zantlog/config_store.h"

namespace zantlog {

namespace {

constexpr char kPathKey[] = "Configuration";
constexpr char kNamesKey[] = "Names";
constexpr size_t kEntryName = 80;

// Read as a boolean, for which a text of any kind will do: want of memory must not pass for its absence.
bool hasValue(PropertyStore *entry, const char *name) {
    uint32_t ignored = 0;
    return utiGetPropertyAsBool(entry, name, &ignored) == ZANTLOG_STORE_OK;
}

// After a value was not found: a file that could not be read to its end may hold it all the same.
bool wasReadWhole(const PropertyStore *entry) {
    return entry->key != nullptr || os::atEndOfStream(entry->file.stream);
}

bool holdsNoProduct(const char *location, const char *section) {
    OpenStore store(location, section);
    char name[kEntryName] = "";
    uint32_t length = sizeof name;
    return store.isOpen() && utiEnumProductId(store.store(), 0, name, &length) == ZANTLOG_STORE_NO_MORE;
}

// Kept: the entry is looked for below the built-in registry path, wherever the configuration location is. The
// store's own result.
uint32_t removeEntry(const char *product) {
    WritableStore products;
    uint32_t result = products.openExisting("SOFTWARE\\KORVANE", "zantlog");
    if (result == ZANTLOG_STORE_OK) {
        result = utiRemovePropertyRoot(products.store(), product);
    }
    if (result == ZANTLOG_STORE_OK && holdsNoProduct("SOFTWARE\\KORVANE", "zantlog")) {
        WritableStore maker;
        if (maker.openExisting("SOFTWARE", "KORVANE") == ZANTLOG_STORE_OK) {
            // The product is unregistered by now, whatever comes of the empty key.
            (void)utiRemovePropertyRoot(maker.store(), "zantlog");
        }
    }
    return result;
}

} // namespace

} // namespace zantlog

using namespace zantlog;

extern "C" uint32_t zantLogAddProductCfg(uint32_t productId, const char *names, const char *path) {
    if (productId == 0 || names == nullptr || path == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    WritableStore entry;
    if (!entry.openOrCreate(GetZantLogCfgLoc(), IdName(productId).text)) {
        return ZANTLOG_NOT_REGISTERED;
    }
    if (hasValue(entry.store(), kPathKey)) {
        return ZANTLOG_ALREADY_REGISTERED;
    }
    if (!wasReadWhole(entry.store())) {
        return ZANTLOG_NOT_REGISTERED;
    }
    const CommonLock lock("zantLogAddProductCfg");
    uint32_t result = utiSetPropertyAsStr(entry.store(), kPathKey, path);
    if (result == ZANTLOG_STORE_OK) {
        result = utiSetPropertyAsStr(entry.store(), kNamesKey, names);
    }
    return utipsres2zantlogres(result);
}

extern "C" uint32_t zantLogRemoveProductCfg(uint32_t productId) {
    if (productId == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const char *location = GetZantLogCfgLoc();
    const IdName product(productId);
    WritableStore entry;
    if (productPath(location, productId) == nullptr ||
        entry.openExisting(location, product.text) != ZANTLOG_STORE_OK) {
        return ZANTLOG_NOT_REGISTERED;
    }
    const CommonLock lock("zantLogRemoveProductCfg");
    uint32_t result = utiRemoveProperty(entry.store(), kPathKey);
    if (result == ZANTLOG_STORE_OK) {
        result = utiRemoveProperty(entry.store(), kNamesKey);
    }
    if (result == ZANTLOG_STORE_OK) {
        result = removeEntry(product.text);
    }
    return utipsres2zantlogres(result);
}

extern "C" uint32_t GetProductLoggingLevel(const char *location, uint32_t productId, uint32_t *out) {
    OpenStore entry(location, IdName(productId).text);
    // Kept: the entry's own switch is a boolean, while that of the sections is "ON" or "OFF".
    return entry.isOpen() && entry.boolean("AppMsgLogging", out) ? uint32_t{ZANTLOG_OK}
                                                                 : uint32_t{ZANTLOG_NOT_REGISTERED};
}

extern "C" uint32_t zantLogCfgGetToolsResDir(char **out) {
    if (out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    OpenStore tools(GetZantLogCfgLoc(), "LoggingTools");
    OwnedText directory = tools.isOpen() ? tools.text("L10nResourceDir") : nullptr;
    if (directory == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    *out = directory.release();
    return ZANTLOG_OK;
}
