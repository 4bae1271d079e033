/** @file
 * The property store: one interface over a `.conf` file and the registry.
 *
 * A store is opened on a location and a section. A location that contains ".conf" is the path of a text file
 * (docs/conf-format.md); any other is the path of a registry key below HKEY_LOCAL_MACHINE. In a file the
 * section is the root of the lines that the store works on, in the registry it is a sub-key.
 *
 * | | file | registry |
 * |---|---|---|
 * | text | UTF-8, converted from and to the process's code page | REG_SZ, as the caller passes it |
 * | whole number | decimal, as a signed 32-bit number | REG_DWORD |
 * | boolean | "true" or "false", read with regard to case | REG_SZ, read without regard to case |
 *
 * Every change of a file copies it into the file of that name with ".tmp" appended and renames that over it:
 * a reader sees the old file or the new one. Between opening and closing, a file store keeps the file open
 * and thereby keeps others from changing it: their changes give ZANTLOG_STORE_DENIED.
 *
 * `store` is an open store throughout, `name` the name of a property, which belongs to the section of the
 * store. A root, a log set's name and a property's name contain no "=", the first two no "." either.
 *
 * Results are the store's own codes (ZANTLOG_STORE_OK and so on in results.h); utipsres2zantlogres() maps
 * them to the library's. Every function returns ZANTLOG_STORE_NULL_ARGUMENT when an argument is null. No
 * function takes a lock: callers that change one store from several threads serialise their calls. A failed
 * get stores nothing.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

enum {
    ZANTLOG_STORE_TEXT = 400, /**< bytes of a root or path, with its terminator */
    ZANTLOG_STORE_LINE = 500  /**< bytes of a line buffer: a line holds 499 characters */
};

/** How a store is opened. */
enum {
    ZANTLOG_STORE_READ = 0, /**< a registry key is opened for reading only */
    ZANTLOG_STORE_WRITE = 1 /**< a registry key is opened with full access */
};

/** An open `.conf` file. */
typedef struct PropertyFile {
    void *stream;                  /**< null when closed */
    char root[ZANTLOG_STORE_TEXT]; /**< root that the store works on; may be empty; cut to 399 bytes */
    char path[ZANTLOG_STORE_TEXT]; /**< path of the file; cut to 399 bytes */
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

/** Opens a store. The record is cleared first; a failed open leaves nothing to close.
 * @param location registry path or path of a `.conf` file; a file whose path has 396 bytes or more can be
 * read but not changed (ZANTLOG_STORE_CANNOT_CREATE)
 * @param section sub-key, or root of the lines; "" is the location itself, or the empty root
 * @param store record of the caller's; close it with utiClosePropertyStore()
 * @param mode ZANTLOG_STORE_WRITE, or else for reading; a file can be changed in either mode
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_CANNOT_OPEN
 */
ZANTLOG_API uint32_t utiOpenPropertyStore(const char *location, const char *section, PropertyStore *store,
                                          uint32_t mode);

/** Closes a store. Closing it again is harmless.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT
 */
ZANTLOG_API uint32_t utiClosePropertyStore(PropertyStore *store);

/** Reads a text.
 * In a file it is the value of the first line with the key, at most 399 bytes and up to the next "=", without
 * the blanks at its end.
 * @param value receives a text that the caller frees with zantLogFree(). It must hold null, or a text from
 * the library's allocator, going in: the registry frees that text; the file leaves it to the caller.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_NOT_FOUND: no such property, a
 * registry value that is not REG_SZ, a file's text that the code page cannot hold, or out of memory
 */
ZANTLOG_API uint32_t utiGetPropertyAsStr(PropertyStore *store, const char *name, char **value);

/** Writes a text.
 * In a file the line of the property keeps its place; a new one goes to the end of the first run of lines of
 * its root, or else to the end of the file. A line holds 499 bytes, its line end included; a longer value is
 * cut. The value must not contain a line end.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT (also for a closed file store);
 * ZANTLOG_STORE_NOT_FOUND: the registry refused it, or the text is none of the code page; and of a file
 * ZANTLOG_STORE_CANNOT_CREATE: the temporary file; ZANTLOG_STORE_FAILED: root and name do not fit a line, the
 * copy could not be written whole (the store stays open and as it was, the temporary file stays), or the
 * rename failed; ZANTLOG_STORE_DENIED: the rename was denied five times, 10 ms apart. After a failed rename,
 * and after ZANTLOG_STORE_CANNOT_OPEN (the new file could not be opened), the store is closed.
 */
ZANTLOG_API uint32_t utiSetPropertyAsStr(PropertyStore *store, const char *name, const char *value);

/** Reads a whole number.
 * In a file it is read as `strtoul` reads the value, in 32 bits and base 10: what follows the digits is not
 * looked at, and without digits it is 0.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_NOT_FOUND: no such property, or a
 * registry value that is not REG_DWORD
 */
ZANTLOG_API uint32_t utiGetPropertyAsULong(PropertyStore *store, const char *name, uint32_t *value);

/** Writes a whole number. In a file, numbers from 2147483648 on are written as negative ones.
 * @param value the number; not kept
 * @return as utiSetPropertyAsStr()
 */
ZANTLOG_API uint32_t utiSetPropertyAsULong(PropertyStore *store, const char *name, const uint32_t *value);

/** Reads a boolean: 1 for the text "true", 0 for any other. Case counts in a file, and does not in the
 * registry.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_NOT_FOUND: no such property, or a
 * registry value that is not REG_SZ
 */
ZANTLOG_API uint32_t utiGetPropertyAsBool(PropertyStore *store, const char *name, uint32_t *value);

/** Writes a boolean: "true" when the value is 1, "false" for any other.
 * @param value the flag; not kept
 * @return as utiSetPropertyAsStr()
 */
ZANTLOG_API uint32_t utiSetPropertyAsBool(PropertyStore *store, const char *name, const uint32_t *value);

/** Removes a property: all lines with its key, or the registry value.
 * A property that does not exist is a success in a file, which stays as it is; the temporary file is then
 * left beside it and an enumeration would be at its end. In the registry it is ZANTLOG_STORE_FAILED.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_FAILED; and of a file as
 * utiSetPropertyAsStr()
 */
ZANTLOG_API uint32_t utiRemoveProperty(PropertyStore *store, const char *name);

/** Removes a root with all that it holds, whichever section the store was opened on.
 * @param root file: the root, "LOGSET.name" for a log set. Registry: a sub-key of the store's key ("" is the
 * key itself); with backslashes, of which it needs two at least, a path below HKEY_LOCAL_MACHINE. Either: a
 * root that contains ".conf" is the path of a file to delete.
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT; ZANTLOG_STORE_NO_ROOT: there was no such root;
 * ZANTLOG_STORE_FAILED: any other failure; and of a file as utiSetPropertyAsStr(), which rewrites it also
 * when there was nothing to remove
 */
ZANTLOG_API uint32_t utiRemovePropertyRoot(PropertyStore *store, const char *root);

/** The next product id, or other root, of a store that was opened with an empty section.
 * In a file the enumeration goes on where the last one, or any other operation, has left the store, so it
 * begins with a freshly opened store. Successive lines of one root are reported once; log sets report the
 * root "LOGSET".
 * @param index registry: number of the sub-key, from 0; file: not looked at
 * @param buffer receives the name, terminated. In a file it must hold the name reported before, "" at first.
 * @param length capacity of the buffer in bytes going in; length of the name without its terminator coming
 * out
 * @return ZANTLOG_STORE_OK; ZANTLOG_STORE_NULL_ARGUMENT (of a file also when it is closed or the capacity is
 * 0); ZANTLOG_STORE_NO_MORE; ZANTLOG_STORE_FAILED: the name does not fit, buffer and length are as they were,
 * and a file has moved past it; or the registry failed
 */
ZANTLOG_API uint32_t utiEnumProductId(PropertyStore *store, uint32_t index, char *buffer, uint32_t *length);

/** The next log set of a store: of a file opened with an empty section, or of the registry key that holds the
 * log sets. Parameters and results are those of utiEnumProductId().
 */
ZANTLOG_API uint32_t utiEnumLogsetForProductId(PropertyStore *store, uint32_t index, char *buffer,
                                               uint32_t *length);

ZANTLOG_END_DECLS
