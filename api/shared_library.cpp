// Libraries loaded by their base name.
#include "base/library_name.h"
#include "logfile/os/os_module.h"
#include "zantlog/event_log.h"
#include "zantlog/results.h"

using namespace zantlog;

int32_t SharedLibLoad(void **module, const char *baseName, char **fileName) {
    if (module == nullptr || baseName == nullptr) {
        return ZANTLOG_OS_BAD_LIBRARY;
    }
    *module = nullptr;
    if (fileName != nullptr) {
        *fileName = nullptr;
    }
    OwnedText name = versionedLibraryName(baseName);
    if (!name) {
        return ZANTLOG_OS_BAD_LIBRARY;
    }
    if (os::loadModule(name.get(), module) != os::kErrorNone) {
        return ZANTLOG_OS_BAD_LIBRARY;
    }
    if (fileName != nullptr) {
        *fileName = name.release();
    }
    return ZANTLOG_OS_OK;
}

int32_t SharedLibUnload(void *module) {
    if (module == nullptr) {
        return ZANTLOG_OS_BAD_LIBRARY;
    }
    os::unloadModule(module);
    return ZANTLOG_OS_OK;
}

int32_t SharedLibResolveFunc(void *module, const char *function, void **out) {
    if (function == nullptr || *function == '\0' || out == nullptr || module == nullptr) {
        return ZANTLOG_OS_BAD_LIBRARY;
    }
    *out = os::resolveFunction(module, function);
    return ZANTLOG_OS_OK;
}
