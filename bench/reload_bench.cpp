// What it costs a message that the levels may be due to be read again: one look at the clock, against that
// look alone and against a handle that never reloads. Runs under Wine.
#include "bench/timing.h"
#include "logfile/os/os_clock.h"
#include "zantlog/config_store.h"
#include "zantlog/logging.h"

namespace {

constexpr uint32_t kCalls = 200000;
constexpr uint32_t kRounds = 31;

// Levels are 0, so that the message itself ends at its filter.
zantLogHandle handleWith(int64_t interval) {
    zantLogHandle handle{};
    handle.reloadInterval = interval;
    handle.lastReloadTime = zantlog::os::nowSeconds();
    return handle;
}

bench::Contender dropped(const char *name, zantLogHandle *handle) {
    return bench::Contender(name, [handle](uint32_t calls) {
        for (uint32_t i = 0; i < calls; ++i) {
            zantLogDebugMsg(handle, 0, 3, "who", "%s", "dropped");
        }
    });
}

} // namespace

int main() {
    zantLogHandle never = handleWith(0);
    zantLogHandle notDue = handleWith(3600);
    std::vector<bench::Contender> contenders;
    contenders.emplace_back("a look at the clock", [](uint32_t calls) {
        for (uint32_t i = 0; i < calls; ++i) {
            volatile int64_t now = zantlog::os::nowSeconds();
            static_cast<void>(now);
        }
    });
    contenders.push_back(dropped("a dropped message, no reload", &never));
    contenders.push_back(dropped("a dropped message, reload not due yet", &notDue));
    bench::race(contenders, kRounds, kCalls);
    bench::print("levels that follow the store", contenders);
    return 0;
}
