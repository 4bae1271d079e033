// The registry, below the local machine's root.
#pragma once

#include "logfile/os/os_error.h"

namespace zantlog::os {

enum class RegistryAccess { Read, All };
enum class RegistryType : uint32_t { Text = 1, Number = 4 }; // REG_SZ, REG_DWORD

[[nodiscard]] SystemError openRegistryKey(const char *path, RegistryAccess access, void **key);
[[nodiscard]] SystemError createRegistryKey(const char *path, void **key); // full access, default security
void closeRegistryKey(void *key);

// Type and size of a value (buffer null), or the value itself; *size is the buffer's size going in and the
// value's coming out. kErrorMoreData when the value does not fit.
[[nodiscard]] SystemError queryRegistryValue(void *key, const char *name, uint32_t *type, void *buffer,
                                             uint32_t *size);
[[nodiscard]] SystemError setRegistryValue(void *key, const char *name, RegistryType type, const void *bytes,
                                           uint32_t size);
[[nodiscard]] SystemError deleteRegistryValue(void *key, const char *name);

// Name of the sub-key at `index`; *length is the buffer's capacity going in, the length without terminator
// coming out. kErrorNoMoreItems past the last one; kErrorMoreData when the name and its terminator do not
// fit.
[[nodiscard]] SystemError enumRegistryKey(void *key, uint32_t index, char *buffer, uint32_t *length);

// Deletes a sub-key with everything below it.
[[nodiscard]] SystemError deleteRegistryTree(void *key, const char *subKey);

} // namespace zantlog::os
