// Reading of all configuration records of all products, or of one.
#include "base/common_lock.h"
#include "base/scan.h"
#include "config/config_record.h"
#include "config/open_store.h"
#include "config/product_config.h"
#include "config/section_loader.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

constexpr char kNoSection[] = "";
constexpr char kLogSetSection[] = "LOGSET";
constexpr uint32_t kNameCapacity = 80;

// The caller's array.
struct ConfigArray {
    zantLogCfg **records;
    uint32_t capacity;
    uint32_t *count;

    [[nodiscard]] bool full() const { return *count >= capacity; }

    // Whether an element satisfies the condition.
    template <typename Condition> [[nodiscard]] bool holds(Condition condition) const {
        for (uint32_t i = 0; i < *count; ++i) {
            if (condition(*records[i])) {
                return true;
            }
        }
        return false;
    }

    // Takes the record over if there is room; returns it, or null when it has gone.
    zantLogCfg *append(OwnedConfig record) {
        if (full()) {
            return nullptr;
        }
        records[*count] = record.release();
        return records[(*count)++];
    }
};

struct Product {
    uint32_t id;
    OwnedText path;
    OwnedText names; // may be null
};

// The names of the entries of an open store, one after the other.
struct Names {
    uint32_t (*enumerate)(PropertyStore *, uint32_t, char *, uint32_t *);
    PropertyStore *store;
    uint32_t index = 0;
    char name[kNameCapacity] = ""; // the file back end goes on from the name that it finds here

    [[nodiscard]] uint32_t next() {
        uint32_t length = sizeof name;
        return enumerate(store, index++, name, &length);
    }
};

bool isDefault(const char *name) {
    return std::strcmp(name, kDefaultName) == 0;
}

OwnedConfig newConfig(uint32_t productId, uint32_t originatorId, const char *logSet) {
    OwnedBlock<zantLogCfg> block = allocateBlock<zantLogCfg>(1);
    if (block == nullptr || initialiseConfig(productId, originatorId, logSet, block.get()) != ZANTLOG_OK) {
        return nullptr;
    }
    return OwnedConfig(block.release());
}

OwnedConfig newCopy(const zantLogCfg *source) {
    OwnedBlock<zantLogCfg> block = allocateBlock<zantLogCfg>(1);
    if (block == nullptr || copyConfig(block.get(), source) != ZANTLOG_OK) {
        return nullptr;
    }
    return OwnedConfig(block.release());
}

// `inherited` is the record of the product's "Default" section, or null.
void readOriginator(ConfigArray &array, const Product &product, const zantLogCfg *inherited,
                    const char *section) {
    OwnedConfig record = inherited != nullptr ? newCopy(inherited)
                                              : newConfig(product.id, ZANTLOG_DEFAULT_ORIGINATOR, nullptr);
    if (record == nullptr || loadSection(product.path.get(), section, record.get()) != ZANTLOG_OK) {
        return;
    }
    storeProductNames(record.get(), product.names.get());
    const uint32_t id = leadingUnsigned32(section);
    record->originatorId = id;
    // A section that stands in two runs of the file is enumerated twice.
    const bool known = array.holds([&](const zantLogCfg &other) {
        return other.productId == product.id && other.originatorId == id && other.logSetName == nullptr;
    });
    if (!known) {
        array.append(std::move(record));
    }
}

// False when the product's configuration could not be read.
bool readOriginators(ConfigArray &array, const Product &product) {
    OpenStore store(product.path.get(), kNoSection);
    if (!store.isOpen()) {
        return false;
    }
    OwnedConfig record = newConfig(product.id, ZANTLOG_DEFAULT_ORIGINATOR, nullptr);
    if (record == nullptr) {
        return false;
    }
    const zantLogCfg *inherited = nullptr;
    if (loadSection(product.path.get(), kDefaultName, record.get()) == ZANTLOG_OK) {
        storeProductNames(record.get(), product.names.get());
        inherited = array.append(std::move(record));
    }
    Names sections{utiEnumProductId, store.store()};
    while (!array.full() && sections.next() == ZANTLOG_STORE_OK) {
        if (!isDefault(sections.name) && std::strcmp(sections.name, kLogSetSection) != 0) {
            readOriginator(array, product, inherited, sections.name);
        }
    }
    return true;
}

// Appends the record if the log set exists; returns it, or null when it was not appended.
zantLogCfg *readLogSet(ConfigArray &array, const Product &product, const char *path, const char *logSet,
                       OwnedConfig record) {
    if (record == nullptr || loadLogSet(path, logSet, record.get()) == 0) {
        return nullptr;
    }
    const bool known = array.holds([&](const zantLogCfg &other) {
        return other.productId == product.id && other.logSetName != nullptr &&
               std::strcmp(other.logSetName, logSet) == 0;
    });
    if (known) {
        return nullptr;
    }
    record->isLogSet = 1;
    storeProductNames(record.get(), product.names.get());
    return array.append(std::move(record));
}

// False when the product's log sets could not be read.
bool readLogSets(ConfigArray &array, const Product &product) {
    const OwnedText path = logSetsPath(product.path.get());
    if (path == nullptr) {
        return false;
    }
    OpenStore store(path.get(), kNoSection);
    if (!store.isOpen()) {
        return false;
    }
    OwnedConfig record = newConfig(product.id, 0, kDefaultName);
    if (record == nullptr) {
        return false;
    }
    const zantLogCfg *inherited = readLogSet(array, product, path.get(), kDefaultName, std::move(record));
    Names logSets{utiEnumLogsetForProductId, store.store()};
    while (!array.full() && logSets.next() == ZANTLOG_STORE_OK) {
        if (!isDefault(logSets.name)) {
            readLogSet(array, product, path.get(), logSets.name,
                       inherited != nullptr ? newCopy(inherited) : newConfig(product.id, 0, logSets.name));
        }
    }
    return true;
}

// False when the product has no configuration path.
bool findProduct(const char *location, uint32_t id, Product *product) {
    product->id = id;
    product->path = productPath(location, id);
    if (product->path == nullptr) {
        return false;
    }
    product->names = productNames(location, id);
    return true;
}

uint32_t noneFound(uint32_t storeResult) {
    return storeResult == ZANTLOG_STORE_NO_MORE ? uint32_t{ZANTLOG_NO_CONFIGURATION}
                                                : utipsres2zantlogres(storeResult);
}

uint32_t readAllProducts(ConfigArray &array, const char *location) {
    OpenStore store(location, kNoSection);
    if (!store.isOpen()) {
        return noneFound(store.result());
    }
    Names products{utiEnumProductId, store.store()};
    uint32_t result = products.next();
    for (; result == ZANTLOG_STORE_OK; result = products.next()) {
        const uint32_t id = leadingUnsigned32(products.name);
        // A product that stands in two runs of the file is enumerated twice.
        const bool known = array.holds([id](const zantLogCfg &other) { return other.productId == id; });
        Product product;
        if (!known && findProduct(location, id, &product)) {
            (void)readOriginators(array, product);
            (void)readLogSets(array, product);
        }
    }
    return *array.count > 0 ? uint32_t{ZANTLOG_OK} : noneFound(result);
}

uint32_t readOneProduct(ConfigArray &array, const char *location, uint32_t productId) {
    OpenStore store(location, kNoSection);
    if (!store.isOpen()) {
        return noneFound(store.result());
    }
    Names products{utiEnumProductId, store.store()};
    do {
        const uint32_t result = products.next();
        if (result != ZANTLOG_STORE_OK) {
            return noneFound(result);
        }
    } while (leadingUnsigned32(products.name) != productId);

    Product product;
    if (!findProduct(location, productId, &product)) {
        return ZANTLOG_NO_CONFIGURATION;
    }
    const bool originators = readOriginators(array, product);
    const bool logSets = readLogSets(array, product);
    // Kept: a registered product whose configuration cannot be read at all is a success without records.
    if (*array.count > 0 || (!originators && !logSets)) {
        return ZANTLOG_OK;
    }
    return ZANTLOG_NO_CONFIGURATION;
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogReadAllCfg(const char *location, uint32_t capacity, zantLogCfg **array,
                                      uint32_t *count) {
    if (array == nullptr || count == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const zantlog::CommonLock lock("zantLogReadAllCfg()");
    *count = 0;
    zantlog::ConfigArray records{array, capacity, count};
    return zantlog::readAllProducts(records, location != nullptr ? location : GetZantLogCfgLoc());
}

extern "C" uint32_t zantLogReadProdIDCfg(const char *location, uint32_t productId, uint32_t capacity,
                                         zantLogCfg **array, uint32_t *count) {
    if (array == nullptr || count == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const zantlog::CommonLock lock("zantLogReadProdIDCfg()");
    *count = 0;
    zantlog::ConfigArray records{array, capacity, count};
    return zantlog::readOneProduct(records, location != nullptr ? location : GetZantLogCfgLoc(), productId);
}

extern "C" uint32_t FreeConfigArray(zantLogCfg **array, uint32_t count) {
    if (array == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    for (uint32_t i = 0; i < count; ++i) {
        zantlog::OwnedConfig(array[i]).reset();
        array[i] = nullptr;
    }
    return ZANTLOG_OK;
}
