/** @file
 * The property store: one interface over a `.conf` file and the registry.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

enum {
    ZANTLOG_STORE_TEXT = 400, /**< bytes of a root or path, with its terminator */
    ZANTLOG_STORE_LINE = 500  /**< bytes of a line buffer: a line holds 499 characters */
};

/** How a store is opened. */
enum { ZANTLOG_STORE_READ = 0, ZANTLOG_STORE_WRITE = 1 };

/** An open `.conf` file. */
typedef struct PropertyFile {
    void *stream;                  /**< null when closed */
    char root[ZANTLOG_STORE_TEXT]; /**< root that the store works on; may be empty */
    char path[ZANTLOG_STORE_TEXT];
} PropertyFile;

/** An open store: a registry key, or else a `.conf` file. */
typedef struct PropertyStore {
    void *key; /**< registry key; null: the store is a file */
    PropertyFile file;
} PropertyStore;

ZANTLOG_FIELD_AT(PropertyFile, root, 8);
ZANTLOG_FIELD_AT(PropertyFile, path, 408);
ZANTLOG_RECORD_SIZE(PropertyFile, 808);

ZANTLOG_FIELD_AT(PropertyStore, file, 8);
ZANTLOG_RECORD_SIZE(PropertyStore, 816);

ZANTLOG_API uint32_t utiOpenPropertyStore(const char *location, const char *section, PropertyStore *store, uint32_t mode);
ZANTLOG_API uint32_t utiClosePropertyStore(PropertyStore *store);
ZANTLOG_API uint32_t utiGetPropertyAsStr(PropertyStore *store, const char *name, char **value);
ZANTLOG_API uint32_t utiSetPropertyAsStr(PropertyStore *store, const char *name, const char *value);
ZANTLOG_API uint32_t utiGetPropertyAsULong(PropertyStore *store, const char *name, uint32_t *value);
ZANTLOG_API uint32_t utiSetPropertyAsULong(PropertyStore *store, const char *name, const uint32_t *value);
ZANTLOG_API uint32_t utiGetPropertyAsBool(PropertyStore *store, const char *name, uint32_t *value);
ZANTLOG_API uint32_t utiSetPropertyAsBool(PropertyStore *store, const char *name, const uint32_t *value);
ZANTLOG_API uint32_t utiRemoveProperty(PropertyStore *store, const char *name);
ZANTLOG_API uint32_t utiRemovePropertyRoot(PropertyStore *store, const char *root);
ZANTLOG_API uint32_t utiEnumProductId(PropertyStore *store, uint32_t index, char *buffer, uint32_t *length);
ZANTLOG_API uint32_t utiEnumLogsetForProductId(PropertyStore *store, uint32_t index, char *buffer, uint32_t *length);

ZANTLOG_END_DECLS
