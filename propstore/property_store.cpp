// The exported operations of the store: each goes to the registry when the store has a key, else to the file.
#include "zantlog/property_store.h"

#include "propstore/conf_line.h"
#include "propstore/file_store.h"
#include "propstore/registry_store.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

using namespace zantlog;

uint32_t utiOpenPropertyStore(const char *location, const char *section, PropertyStore *store,
                              uint32_t mode) {
    if (store == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    *store = {};
    if (location == nullptr || section == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (namesConfFile(location)) {
        return fileOpenPropertyStore(location, section, &store->file);
    }
    const auto access = mode == ZANTLOG_STORE_WRITE ? os::RegistryAccess::All : os::RegistryAccess::Read;
    return registryOpenStore(location, section, access, &store->key);
}

uint32_t CreatePropertyString(const char *location, const char *section, PropertyStore *store) {
    if (store == nullptr) {
        // The library's code for it, where every other null argument has the store's. Kept.
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const uint32_t opened = utiOpenPropertyStore(location, section, store, ZANTLOG_STORE_WRITE);
    if (opened == ZANTLOG_STORE_OK || opened == ZANTLOG_STORE_NULL_ARGUMENT) {
        return opened;
    }
    const uint32_t created = namesConfFile(location)
                                 ? fileCreatePropertyStore(location, section, &store->file)
                                 : registryCreateStore(location, section, &store->key);
    return created == ZANTLOG_STORE_OK ? ZANTLOG_STORE_OK : ZANTLOG_STORE_FAILED;
}

uint32_t utiClosePropertyStore(PropertyStore *store) {
    if (store == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key == nullptr) {
        return fileClosePropertyStore(&store->file);
    }
    os::closeRegistryKey(store->key);
    store->key = nullptr;
    return ZANTLOG_STORE_OK;
}

uint32_t utiGetPropertyAsStr(PropertyStore *store, const char *name, char **value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryGetPropertyAsStr(store->key, name, value);
    }
    return fileGetPropertyAsStr(&store->file, name, value);
}

uint32_t utiSetPropertyAsStr(PropertyStore *store, const char *name, const char *value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registrySetPropertyAsStr(store->key, name, value);
    }
    return fileSetPropertyAsStr(&store->file, name, value);
}

uint32_t utiGetPropertyAsULong(PropertyStore *store, const char *name, uint32_t *value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryGetPropertyAsULong(store->key, name, value);
    }
    return fileGetPropertyAsULong(&store->file, name, value);
}

uint32_t utiSetPropertyAsULong(PropertyStore *store, const char *name, const uint32_t *value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registrySetPropertyAsULong(store->key, name, *value);
    }
    return fileSetPropertyAsULong(&store->file, name, value);
}

uint32_t utiGetPropertyAsBool(PropertyStore *store, const char *name, uint32_t *value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryGetPropertyAsBool(store->key, name, value);
    }
    return fileGetPropertyAsBool(&store->file, name, value);
}

uint32_t utiSetPropertyAsBool(PropertyStore *store, const char *name, const uint32_t *value) {
    if (store == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registrySetPropertyAsBool(store->key, name, *value);
    }
    return fileSetPropertyAsBool(&store->file, name, value);
}

uint32_t utiRemoveProperty(PropertyStore *store, const char *name) {
    if (store == nullptr || name == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryRemoveProperty(store->key, name);
    }
    return fileRemoveProperty(&store->file, name);
}

uint32_t utiRemovePropertyRoot(PropertyStore *store, const char *root) {
    if (store == nullptr || root == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryRemovePropertyRoot(store->key, root);
    }
    return fileRemovePropertyRoot(&store->file, root);
}

uint32_t utiEnumProductId(PropertyStore *store, uint32_t index, char *buffer, uint32_t *length) {
    if (store == nullptr || buffer == nullptr || length == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryEnumKey(store->key, index, buffer, length);
    }
    return fileEnumProductId(&store->file, buffer, length);
}

uint32_t utiEnumLogsetForProductId(PropertyStore *store, uint32_t index, char *buffer, uint32_t *length) {
    if (store == nullptr || buffer == nullptr || length == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (store->key != nullptr) {
        return registryEnumKey(store->key, index, buffer, length);
    }
    return fileEnumLogset(&store->file, buffer, length);
}
