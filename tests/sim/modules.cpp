#include "tests/sim/modules.h"

#include <mutex>

#include "tests/sim/paths.h"

namespace zantlog::sim {

namespace {

using Functions = std::map<std::string, void *>;

struct Modules {
    std::mutex lock;
    std::map<std::string, Functions> byName; // in upper case
};

// The one library that every Windows has.
void systemFunction() {}

Modules &modules() {
    static auto &instance = *[] {
        auto *made = new Modules;
        made->byName["KERNEL32.DLL"] = {{"GetTickCount", asFunction(systemFunction)}};
        return made;
    }();
    return instance;
}

using Guard = std::lock_guard<std::mutex>;

} // namespace

void addModule(const std::string &fileName, const std::map<std::string, void *> &functions) {
    const Guard guard(modules().lock);
    modules().byName[upperCase(fileName)] = functions;
}

void removeModule(const std::string &fileName) {
    const Guard guard(modules().lock);
    modules().byName.erase(upperCase(fileName));
}

bool hasModule(const std::string &fileName) {
    const Guard guard(modules().lock);
    return modules().byName.contains(upperCase(fileName));
}

void *functionOf(const std::string &fileName, const std::string &name) {
    const Guard guard(modules().lock);
    const auto module = modules().byName.find(upperCase(fileName));
    if (module == modules().byName.end()) {
        return nullptr;
    }
    const auto function = module->second.find(name);
    return function != module->second.end() ? function->second : nullptr;
}

} // namespace zantlog::sim
