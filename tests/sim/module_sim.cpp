// Libraries loaded by name.
#include "logfile/os/os_module.h"

#include <string>

#include "tests/sim/faults.h"
#include "tests/sim/handles.h"
#include "tests/sim/modules.h"

namespace zantlog::os {

namespace {

struct ModuleHandle : sim::Object {
    explicit ModuleHandle(std::string file) : fileName(std::move(file)) {}
    [[nodiscard]] const char *kind() const override { return "module"; }
    std::string fileName;
};

} // namespace

SystemError loadModule(const char *fileName, void **module) {
    *module = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::LoadModule); verdict.fails()) {
        return verdict.error;
    }
    if (!sim::hasModule(fileName)) {
        return kErrorModuleNotFound;
    }
    *module = sim::newHandle(std::make_shared<ModuleHandle>(fileName));
    return kErrorNone;
}

void unloadModule(void *module) {
    sim::enter(sim::Call::UnloadModule);
    sim::closeHandle(module);
}

void *resolveFunction(void *module, const char *name) {
    const sim::Verdict verdict = sim::enter(sim::Call::ResolveFunction);
    const auto handle = sim::objectOf<ModuleHandle>(module);
    return verdict.fails() || handle == nullptr ? nullptr : sim::functionOf(handle->fileName, name);
}

} // namespace zantlog::os
