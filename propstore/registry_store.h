// The registry back end of the property store: a key below the local machine's root, one value a property.
// Results are the store's codes (ZANTLOG_STORE_...).
#pragma once

#include <cstdint>

#include "logfile/os/os_registry.h"

namespace zantlog {

// Opens `location`, and `section` below it unless that is empty.
[[nodiscard]] uint32_t registryOpenStore(const char *location, const char *section, os::RegistryAccess access,
                                         void **key);
[[nodiscard]] uint32_t registryCreateStore(const char *location, const char *section, void **key);

// A text that *value holds already is freed.
[[nodiscard]] uint32_t registryGetPropertyAsStr(void *key, const char *name, char **value);
[[nodiscard]] uint32_t registryGetPropertyAsULong(void *key, const char *name, uint32_t *value);
[[nodiscard]] uint32_t registryGetPropertyAsBool(void *key, const char *name, uint32_t *value);

[[nodiscard]] uint32_t registrySetPropertyAsStr(void *key, const char *name, const char *value);
[[nodiscard]] uint32_t registrySetPropertyAsULong(void *key, const char *name, uint32_t value);
[[nodiscard]] uint32_t registrySetPropertyAsBool(void *key, const char *name, uint32_t value);

[[nodiscard]] uint32_t registryRemoveProperty(void *key, const char *name);

// The root is a sub-key, or a path with at least two backslashes that does not depend on the key, or a
// ".conf" file.
[[nodiscard]] uint32_t registryRemovePropertyRoot(void *key, const char *root);

// Name of the sub-key at `index`; *length is the buffer's capacity going in and the name's length coming out.
[[nodiscard]] uint32_t registryEnumKey(void *key, uint32_t index, char *buffer, uint32_t *length);

} // namespace zantlog
