// The file back end of the property store: a ".conf" text file with one property a line. docs/conf-format.md
// describes the file. Results are the store's codes (ZANTLOG_STORE_...). No lock is taken: callers that
// change a store from several threads serialise their calls.
#pragma once

#include <cstddef>

#include "zantlog/property_store.h"

namespace zantlog {

// Opens the file for reading. A root or path of 400 bytes or more is kept cut to 399.
[[nodiscard]] uint32_t fileOpenPropertyStore(const char *path, const char *root, PropertyFile *file);

// Opens the file that the state names already; the state is left closed when that fails.
[[nodiscard]] uint32_t fileReopenPropertyStore(PropertyFile *file);

// Creates the directory and the file with its banner, and opens it. The path must contain a backslash. A file
// that is there already is opened as it is.
[[nodiscard]] uint32_t fileCreatePropertyStore(const char *path, const char *root, PropertyFile *file);

uint32_t fileClosePropertyStore(PropertyFile *file);

// Creates the temporary file beside the store file; one that was left over is deleted first.
[[nodiscard]] uint32_t fileOpenTempStore(const char *path, const char *root, PropertyFile *temporary);

// Renames the temporary file over the store file, with retries while that is denied. Deletes it when it
// cannot.
[[nodiscard]] uint32_t fileReplaceStore(const char *temporaryPath, const char *path);

// Finds the first line with this key and copies its value, cut at length - 1 bytes. False when there is none.
[[nodiscard]] bool fileFindProperty(PropertyFile *file, const char *name, char *value, size_t length);

[[nodiscard]] uint32_t fileGetPropertyAsULong(PropertyFile *file, const char *name, uint32_t *value);
[[nodiscard]] uint32_t fileGetPropertyAsBool(PropertyFile *file, const char *name, uint32_t *value);
[[nodiscard]] uint32_t fileGetPropertyAsStr(PropertyFile *file, const char *name, char **value);

// Replaces or inserts the line of a property; the value is UTF-8.
[[nodiscard]] uint32_t fileSetProperty(PropertyFile *file, const char *name, const char *value);
[[nodiscard]] uint32_t fileSetPropertyAsULong(PropertyFile *file, const char *name, const uint32_t *value);
[[nodiscard]] uint32_t fileSetPropertyAsBool(PropertyFile *file, const char *name, const uint32_t *value);
[[nodiscard]] uint32_t fileSetPropertyAsStr(PropertyFile *file, const char *name, const char *value);

[[nodiscard]] uint32_t fileRemoveProperty(PropertyFile *file, const char *name);
[[nodiscard]] uint32_t fileRemovePropertyRoot(PropertyFile *file, const char *root);

// The next root, or log set, from where the stream stands that differs from the one in the buffer.
[[nodiscard]] uint32_t fileEnumProductId(PropertyFile *file, char *buffer, uint32_t *length);
[[nodiscard]] uint32_t fileEnumLogset(PropertyFile *file, char *buffer, uint32_t *length);

} // namespace zantlog
