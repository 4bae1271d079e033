// Libraries loaded by name.
#include "logfile/os/os_module.h"

#include <windows.h>

namespace zantlog::os {

SystemError loadModule(const char *fileName, void **module) {
    *module = nullptr;
    HMODULE loaded = LoadLibraryExA(fileName, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (loaded == nullptr) {
        return GetLastError();
    }
    *module = loaded;
    return kErrorNone;
}

void unloadModule(void *module) {
    FreeLibrary(static_cast<HMODULE>(module));
}

void *resolveFunction(void *module, const char *name) {
    return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(module), name));
}

} // namespace zantlog::os
