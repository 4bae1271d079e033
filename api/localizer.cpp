#include "api/localizer.h"

#include "logfile/os/os_clock.h"
#include "zantlog/event_log.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr uint64_t kRetryMilliseconds = 1000;

// Guarded by the common lock. A library that was found stays loaded for the life of the process; one that is
// missing is looked for at most once a second, since a search of the whole path for every message would cost
// more than the message.
struct Localizer {
    LogFormatMessage formatter;
    bool missing;
    uint64_t missingSince;
};

Localizer localizer;

LogFormatMessage loadFormatter() {
    void *module = nullptr;
    if (SharedLibLoad(&module, "zantLogFormatMsg", nullptr) != ZANTLOG_OS_OK) {
        return nullptr;
    }
    void *function = nullptr;
    SharedLibResolveFunc(module, "LogFormatMessage", &function);
    if (function == nullptr) {
        SharedLibUnload(module);
    }
    return reinterpret_cast<LogFormatMessage>(function);
}

} // namespace

LogFormatMessage localizerFormatter() {
    if (localizer.formatter != nullptr) {
        return localizer.formatter;
    }
    const uint64_t now = os::nowMilliseconds();
    // A clock that was set back makes the difference huge: the search is repeated then too.
    if (localizer.missing && now - localizer.missingSince < kRetryMilliseconds) {
        return nullptr;
    }
    localizer.formatter = loadFormatter();
    localizer.missing = localizer.formatter == nullptr;
    localizer.missingSince = now;
    return localizer.formatter;
}

} // namespace zantlog
