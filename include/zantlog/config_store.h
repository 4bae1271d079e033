/** @file
 * Configuration in the store: where it is, loading, saving, registration of products, reload.
 */
#pragma once

#include "zantlog/handle.h"
#include "zantlog/property_store.h"

ZANTLOG_BEGIN_DECLS

ZANTLOG_API const char *GetZantLogCfgLoc(void);
ZANTLOG_API uint32_t zantLogReadCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogReadlogsetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogReadAllCfg(const char *location, uint32_t capacity, zantLogCfg **array, uint32_t *count);
ZANTLOG_API uint32_t zantLogReadProdIDCfg(const char *location, uint32_t productId, uint32_t capacity, zantLogCfg **array, uint32_t *count);
ZANTLOG_API uint32_t FreeConfigArray(zantLogCfg **array, uint32_t count);
ZANTLOG_API uint32_t utipsres2zantlogres(uint32_t storeResult);
ZANTLOG_API int32_t zantLogGetTime(const char *text, uint32_t *hours, uint32_t *minutes, uint32_t *seconds);

ZANTLOG_API uint32_t zantLogWriteCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogWritelogSetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogAddProductCfg(uint32_t productId, const char *names, const char *path);
ZANTLOG_API uint32_t zantLogRemoveProductCfg(uint32_t productId);
ZANTLOG_API uint32_t GetProductCfgPath(const char *location, uint32_t productId, char **out);
ZANTLOG_API uint32_t GetProductLoggingLevel(const char *location, uint32_t productId, uint32_t *out);
ZANTLOG_API uint32_t zantLogCfgGetToolsResDir(char **out);
ZANTLOG_API uint32_t CreatePropertyString(const char *location, const char *section, PropertyStore *store);

ZANTLOG_API uint32_t zantDynaLoadConfig(zantLogHandle *handle);

ZANTLOG_END_DECLS
