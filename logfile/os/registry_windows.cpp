// The registry, below the local machine's root.
#include "logfile/os/os_registry.h"

#include <windows.h>

#include <shlwapi.h>

namespace zantlog::os {

namespace {

HKEY asKey(void *key) {
    return static_cast<HKEY>(key);
}

SystemError asError(LSTATUS status) {
    return static_cast<SystemError>(status);
}

} // namespace

SystemError openRegistryKey(const char *path, RegistryAccess access, void **key) {
    HKEY opened = nullptr;
    const REGSAM rights = access == RegistryAccess::All ? KEY_ALL_ACCESS : KEY_READ;
    const LSTATUS status = RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, rights, &opened);
    *key = status == ERROR_SUCCESS ? opened : nullptr;
    return asError(status);
}

SystemError createRegistryKey(const char *path, void **key) {
    HKEY created = nullptr;
    const LSTATUS status = RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_ALL_ACCESS, nullptr, &created, nullptr);
    *key = status == ERROR_SUCCESS ? created : nullptr;
    return asError(status);
}

void closeRegistryKey(void *key) {
    RegCloseKey(asKey(key));
}

SystemError queryRegistryValue(void *key, const char *name, uint32_t *type, void *buffer, uint32_t *size) {
    DWORD valueType = 0;
    DWORD valueSize = buffer != nullptr ? *size : 0;
    const LSTATUS status =
        RegQueryValueExA(asKey(key), name, nullptr, &valueType, static_cast<BYTE *>(buffer), &valueSize);
    *type = valueType;
    *size = valueSize;
    return asError(status);
}

SystemError setRegistryValue(void *key, const char *name, RegistryType type, const void *bytes,
                             uint32_t size) {
    static_assert(static_cast<DWORD>(RegistryType::Text) == REG_SZ);
    static_assert(static_cast<DWORD>(RegistryType::Number) == REG_DWORD);
    return asError(RegSetValueExA(asKey(key), name, 0, static_cast<DWORD>(type),
                                  static_cast<const BYTE *>(bytes), size));
}

SystemError deleteRegistryValue(void *key, const char *name) {
    return asError(RegDeleteValueA(asKey(key), name));
}

SystemError enumRegistryKey(void *key, uint32_t index, char *buffer, uint32_t *length) {
    DWORD count = *length;
    const LSTATUS status =
        RegEnumKeyExA(asKey(key), index, buffer, &count, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) {
        *length = count;
    }
    return asError(status);
}

SystemError deleteRegistryTree(void *key, const char *subKey) {
    return SHDeleteKeyA(asKey(key), subKey);
}

} // namespace zantlog::os
