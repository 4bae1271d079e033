/** @file
 * The result codes of the library. Every function that returns `uint32_t` and whose description says
 * "result code" returns one of these; each description lists the ones that it can return.
 */
#pragma once

#include "zantlog/export.h"

enum {
    ZANTLOG_OK = 0,                       /**< success */
    ZANTLOG_FAILURE = 1,                  /**< generic failure */
    ZANTLOG_CATALOG_FAILURE = 2,          /**< the catalog library failed (its result -4) */
    ZANTLOG_INVALID_ARGUMENT = 3,         /**< null pointer, id 0, value out of range */
    ZANTLOG_OUT_OF_MEMORY = 4,            /**< an allocation failed */
    ZANTLOG_WRITE_FAILED = 5,             /**< a log file could not be written */
    ZANTLOG_NOT_REGISTERED = 6,           /**< product not registered, or its section cannot be read */
    ZANTLOG_RECORD_NOT_LOADED = 7,        /**< one configuration record could not be loaded */
    ZANTLOG_NO_MORE = 9,                  /**< no more entries or files */
    ZANTLOG_CATALOG_OTHER = 10,           /**< any other failure of the catalog library */
    ZANTLOG_EVENT_LOG_UNAVAILABLE = 22,   /**< the event log could not be opened */
    ZANTLOG_ALREADY_REGISTERED = 27,      /**< the product is registered already */
    ZANTLOG_SCAN_FAILED = 30,             /**< a directory could not be scanned */
    ZANTLOG_COPY_SIZE_UNREADABLE = 31,    /**< the size of a file to copy could not be read */
    ZANTLOG_FILE_NOT_OPENED = 32,         /**< a log file could not be opened */
    ZANTLOG_COPY_READ_FAILED = 33,        /**< a file to copy ended early */
    ZANTLOG_COPY_FAILED = 34,             /**< a copy could not be written */
    ZANTLOG_NO_CONFIGURATION = 39,        /**< no configuration record found */
    ZANTLOG_NO_LOG_FILE = 45,             /**< no log file matched */
    ZANTLOG_COPY_DESTINATION_DENIED = 47, /**< the destination's path is missing, or access is denied */
    ZANTLOG_UNSUPPORTED_HEADER = 48,      /**< a log file header of an unsupported version */
    ZANTLOG_STORE_ROOT_NOT_FOUND = 50,    /**< the property store has no such root */
    ZANTLOG_PATH_DENIED = 51,             /**< log file path not found, or access denied */
    ZANTLOG_EMPTY_DIRECTORY = 53,         /**< the configuration names no log directory */
    ZANTLOG_DISK_FULL = 54,               /**< the disk is full */
    ZANTLOG_STORE_NOT_CREATED = 55,       /**< the property store could not be created */
    ZANTLOG_NO_WRITER = 57,               /**< the handle has no log file */
    ZANTLOG_SECURE_AUDIT_TO_FILE = 58,    /**< secure-audit message through a handle that writes a file */
    ZANTLOG_NOTHING_TO_SAVE = 61,         /**< nothing to save, or a refused removal of a file name */
    ZANTLOG_STORE_BUSY = 64               /**< the store's file was denied to its replacement repeatedly */
};

/** Results of the property store (`uti` functions); utipsres2zantlogres() maps them to the ones above. */
enum {
    ZANTLOG_STORE_OK = 0,            /**< success */
    ZANTLOG_STORE_NULL_ARGUMENT = 1, /**< a required argument is null */
    ZANTLOG_STORE_CANNOT_OPEN = 2,   /**< the key or the file could not be opened */
    ZANTLOG_STORE_NOT_FOUND = 3,     /**< not found, wrong type, or (registry) not written */
    ZANTLOG_STORE_CANNOT_CREATE = 5, /**< file, directory or temporary file could not be created */
    ZANTLOG_STORE_FAILED = 6,        /**< deletion, enumeration, write or rename failed */
    ZANTLOG_STORE_NO_MORE = 7,       /**< the enumeration is at its end */
    ZANTLOG_STORE_NO_ROOT = 8,       /**< the root to remove does not exist */
    ZANTLOG_STORE_DENIED = 10        /**< the rename was denied five times */
};

/** Results of host services and of the file layer (functions that return `int32_t`). */
enum {
    ZANTLOG_OS_OK = 0,             /**< success */
    ZANTLOG_OS_FAILED = -1,        /**< the operation failed */
    ZANTLOG_OS_BAD_LIBRARY = -2,   /**< shared library: null or empty argument, or not loadable */
    ZANTLOG_OS_NULL_ARGUMENT = -3, /**< a required argument is null */
    ZANTLOG_OS_OPEN_FAILED = -6,   /**< the file could not be opened */
    ZANTLOG_OS_PATH_DENIED = -7    /**< path not found, or access denied */
};
