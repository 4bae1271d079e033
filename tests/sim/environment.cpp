#include "tests/sim/environment.h"

#include <mutex>

#include "tests/sim/paths.h"
#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

std::mutex &environmentLock() {
    static auto &lock = *new std::mutex;
    return lock;
}

} // namespace

std::optional<std::string> environmentValue(const std::string &name) {
    const auto &variables = currentProcess().environment;
    const std::lock_guard guard(environmentLock());
    const auto found = variables.find(upperCase(name));
    return found != variables.end() ? std::optional(found->second) : std::nullopt;
}

void setEnvironmentValue(const std::string &name, const std::optional<std::string> &value) {
    auto &variables = currentProcess().environment;
    const std::lock_guard guard(environmentLock());
    if (value) {
        variables[upperCase(name)] = *value;
    } else {
        variables.erase(upperCase(name));
    }
}

} // namespace zantlog::sim
