/** @file
 * Configuration in the store: where it is, loading, saving, registration of products, reload.
 *
 * The configuration location holds one entry per registered product, which names the product's configuration
 * path; there stand the section "Default", one section per originator and the log sets. Location and paths
 * are each a registry path below the local machine's root, or the path of a `.conf` file.
 * docs/configuration.md describes the layout and every key.
 *
 * Every function returns a result code of results.h unless its description says otherwise. Nothing is cached:
 * each read sees the store as it is.
 */
#pragma once

#include "zantlog/handle.h"
#include "zantlog/property_store.h"

ZANTLOG_BEGIN_DECLS

/**
 * The configuration location: the value of the environment variable ZANTLOG_CFG_LOC, also when that is an
 * empty text, else the registry path "SOFTWARE\\KORVANE\\zantlog". It is taken at the first call and kept for
 * the life of the process. A value of any length that an environment variable can have (32767 characters) is
 * kept whole.
 * @return the location; it belongs to the library. Takes no lock.
 */
ZANTLOG_API const char *GetZantLogCfgLoc(void);

/**
 * Loads the configuration of a product and originator: the built-in defaults, over them the product's section
 * "Default", over that the originator's own section, key by key. A relative "LogDirectory" of the originator
 * is appended to the inherited one. Values outside their limits are skipped. A section that does not exist is
 * no failure. Loading ends with zantLogCfg::changedMask 0.
 * @param productId     not 0
 * @param originatorId  not 0; 112, the default originator, has the section "Default"
 * @param cfg           overwritten without being freed; the caller releases its content with
 * zantLogFreeCfg(), after a 6 too
 * @return 0; 3 null record or an id of 0; 6 the product is not registered (the record then has the built-in
 *     defaults). Takes the common lock as "zantLogReadCfg()".
 */
ZANTLOG_API uint32_t zantLogReadCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg);

/**
 * Loads the configuration of a log set: the built-in defaults, over them the log set "Default", over that the
 * named one, key by key. Without "FileName" the files are named after the log set. A log set in which no key
 * is found counts as not existing; the three keys for the host ("NtEventLogSourceName", "NtEventLogCategory",
 * "LogFileSDDL") do not count.
 * @param productId  not 0
 * @param logSet     name of the log set, case-sensitive
 * @param cfg        overwritten without being freed; the caller releases its content with zantLogFreeCfg(),
 * after a 6 too
 * @return 0; 3 a null argument or a product id of 0; 4 out of memory; 6 the product is not registered, or the
 * log set does not exist (the record then has the settings of the log set "Default"). Takes the common lock
 * as "zantLogReadlogsetCfg()".
 */
ZANTLOG_API uint32_t zantLogReadlogsetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg);

/**
 * Loads every configuration record of every registered product: its "Default" section and its originators,
 * then its log sets. A product that cannot be read is skipped. An originator inherits from the "Default"
 * record all but recycling, reload interval, event category and the texts that are for log sets, and a log
 * set likewise from the log set "Default".
 * @param location  configuration location; null: the one of GetZantLogCfgLoc()
 * @param capacity  elements of the array; records beyond it are not read
 * @param array     receives pointers to records that the library allocates; free them with FreeConfigArray()
 * @param count     receives the number of records
 * @return 0 at least one record; 3 null array or count; 39 none; else, without a record, what
 * utipsres2zantlogres() makes of the store's failure: 6 the location could not be opened, 1 it could not be
 * enumerated. Takes the common lock as "zantLogReadAllCfg()".
 */
ZANTLOG_API uint32_t zantLogReadAllCfg(const char *location, uint32_t capacity, zantLogCfg **array,
                                       uint32_t *count);

/**
 * The same for one product.
 * @param location   configuration location; null: the one of GetZantLogCfgLoc()
 * @param productId  the product
 * @param capacity   elements of the array
 * @param array      receives pointers to records that the library allocates; free them with FreeConfigArray()
 * @param count      receives the number of records
 * @return 0 at least one record, and also, with count 0, when the product is registered and neither its
 * originators nor its log sets could be read; 3 null array or count; 39 the product is not registered, or has
 * no configuration path, or no record was read; else as zantLogReadAllCfg(). Takes the common lock as
 *     "zantLogReadProdIDCfg()".
 */
ZANTLOG_API uint32_t zantLogReadProdIDCfg(const char *location, uint32_t productId, uint32_t capacity,
                                          zantLogCfg **array, uint32_t *count);

/**
 * Frees the records of an array, with what they own, and sets the elements to null. The array itself is the
 * caller's.
 * @param array  as one of the two functions above filled it; null elements are skipped
 * @param count  its number of records
 * @return 0; 3 null array
 */
ZANTLOG_API uint32_t FreeConfigArray(zantLogCfg **array, uint32_t count);

/**
 * Maps a result of the property store to a result code: 0 to 0, 1 to 3, each of 2, 3 and 4 to 6, 5 to 55,
 * 7 to 9, 8 to 50, 9 to 61, 10 to 64, and every other value to 1.
 */
ZANTLOG_API uint32_t utipsres2zantlogres(uint32_t storeResult);

/**
 * Reads the three numbers of a time of day such as "10:30:15"; zantLogStrTimeToT() with the separator ":".
 * @return 1; 0 a null argument, or memory is short
 */
ZANTLOG_API int32_t zantLogGetTime(const char *text, uint32_t *hours, uint32_t *minutes, uint32_t *seconds);

/** @name Saving
 * Key by key: a setting of zantLogCfg::removeMask is removed from the store, else a setting of
 * zantLogCfg::changedMask is written, every other key is left alone. The first key that fails ends the save;
 * the keys before it stay written. The keys for the host ("NtEventLogSourceName", "NtEventLogCategory",
 * "LogFileSDDL") come last, and their failures are not reported. The record, its masks included, is not
 * changed. "AppMsgLogging" goes with any bit of ZANTLOG_SETTING_APP_MSG_LOGGING: it is written, or removed,
 * with every other setting but the log directory.
 * @{
 */
/**
 * Saves a record to the product's section "Default" (originator 112) or to the originator's own, which is
 * created when it is missing. Keys that only log sets have are not written.
 * @param productId     not 0, registered
 * @param originatorId  not 0
 * @param cfg           the record
 * @return 0, also when there was nothing to save; 1 the section could not be opened or created; 3 null record
 * or an id of 0; 6 the product is not registered; else the failed key's store result by
 * utipsres2zantlogres(). Takes the common lock as "zantLogWriteCfg()".
 */
ZANTLOG_API uint32_t zantLogWriteCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg);

/**
 * Saves a record to a log set, which is created when it is missing. Localisation keys are not written.
 * "FileName" cannot be removed; when it is written, the save ends with it, before the keys for the host.
 * @param productId  not 0, registered
 * @param logSet     name of the log set
 * @param cfg        the record
 * @return 0; 1 the log set could not be opened or created; 3 a null argument or a product id of 0; 4 out of
 * memory; 6 the product is not registered; 61 both masks are 0, or "FileName" was to be removed (the rest is
 * saved then); else the failed key's store result by utipsres2zantlogres(). Takes the common lock as
 * "zantLogWritelogSetCfg()".
 */
ZANTLOG_API uint32_t zantLogWritelogSetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg);
/** @} */

/**
 * Registers a product at the configuration location.
 * @param productId  not 0
 * @param names      short names, separated by commas or blanks
 * @param path       configuration path of the product: a registry path, or the path of a `.conf` file
 * @return 0; 3 a null argument or a product id of 0; 6 the product's entry could not be opened or created; 27
 * the product is registered already, nothing is changed; else the failed write's store result by
 * utipsres2zantlogres(). Takes the common lock as "zantLogAddProductCfg" for the writing.
 */
ZANTLOG_API uint32_t zantLogAddProductCfg(uint32_t productId, const char *names, const char *path);

/**
 * Unregisters a product. The configuration at its path stays. The product's values are removed from its
 * entry, then its key below the registry path "SOFTWARE\\KORVANE\\zantlog", whatever the configuration
 * location is; with the last product the key "zantlog" goes too.
 * @param productId  not 0
 * @return 0; 3 a product id of 0; 6 the product is not registered, or there is no such registry path; 50 the
 * registry path lacks the product's key; else the failed removal's store result by utipsres2zantlogres().
 * Takes the common lock as "zantLogRemoveProductCfg" for the removing.
 */
ZANTLOG_API uint32_t zantLogRemoveProductCfg(uint32_t productId);

/**
 * Gets the configuration path of a product.
 * @param location   configuration location
 * @param productId  the product
 * @param out        the path, which the caller frees with zantLogFree(); not touched by a failure
 * @return 0; 3 null out; 6 null location, the product is not registered at the location, or its entry has no
 * path. Takes no lock.
 */
ZANTLOG_API uint32_t GetProductCfgPath(const char *location, uint32_t productId, char **out);

/**
 * Gets the application-message switch of a product's entry at the configuration location, which is not the
 * one of its configuration sections.
 * @param location   configuration location
 * @param productId  the product
 * @param out        1 when the entry's "AppMsgLogging" is the text "true", else 0
 * @return 0; 6 a null argument, the product is not registered at the location, or its entry has no such text;
 * `out` is not touched then. Takes no lock.
 */
ZANTLOG_API uint32_t GetProductLoggingLevel(const char *location, uint32_t productId, uint32_t *out);

/**
 * Gets the resource directory of the tools: the text "L10nResourceDir" of the entry "LoggingTools" at the
 * configuration location.
 * @param out  the directory, which the caller frees with zantLogFree()
 * @return 0; 3 null out; 6 no such entry or text. Takes no lock.
 */
ZANTLOG_API uint32_t zantLogCfgGetToolsResDir(char **out);

/** Opens a section of a store for writing; creates it when it cannot be opened. Takes no lock.
 * A file is created with its directory and four lines of comment; its path must contain a backslash then. A
 * file that exists is opened as it is: in a file a section is nothing that would have to be made.
 * @param location registry path below HKEY_LOCAL_MACHINE, or path of a `.conf` file
 * @param section sub-key, or root of the lines
 * @param store record of the caller's, cleared first; close it with utiClosePropertyStore()
 * @return 0; 3 when `store` is null; 1 when another argument is null; 6 when the section could be neither
 * opened nor created
 */
ZANTLOG_API uint32_t CreatePropertyString(const char *location, const char *section, PropertyStore *store);

/**
 * Reads the levels of an open handle again, when its reload interval has passed since the last time, or since
 * the opening: debug level, diag level and the interval itself are loaded as zantLogReadCfg() does and copied
 * into the handle. Intervals below 60 seconds count as 60; interval 0 means never. Nothing else of the handle
 * changes. A configuration that cannot be read sets levels and interval to 0, which ends the reloading until
 * the handle is opened again.
 * @param handle  an open handle
 * @return 0. Takes the common lock as "zantDynaLoadConfig()" for the copying.
 */
ZANTLOG_API uint32_t zantDynaLoadConfig(zantLogHandle *handle);

ZANTLOG_END_DECLS
