#include "tests/support/machine.h"

#include <cstdlib>

#include "tests/sim/clock.h"
#include "tests/sim/environment.h"
#include "tests/sim/files.h"
#include "tests/sim/process.h"
#include "tests/sim/scheduler.h"

// A heap that has not as much as was asked for says so, as Windows' does.
extern "C" const char *__asan_default_options() {
    return "allocator_may_return_null=1";
}
extern "C" const char *__tsan_default_options() {
    return "allocator_may_return_null=1";
}

namespace zantlog::test {

void setEnvironment(const char *name, const char *value) {
    sim::setEnvironmentValue(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
}

std::optional<std::string> environmentText(const char *name) {
    return sim::environmentValue(name);
}

int64_t secondsNow() {
    return sim::clock().seconds();
}

int64_t millisecondsNow() {
    return sim::clock().now() / sim::kUnitsPerMillisecond;
}

std::tm localDate(int daysFromToday) {
    std::tm day{};
    sim::breakDownLocal(sim::localZone(), secondsNow(), &day);
    day.tm_mday += daysFromToday;
    day.tm_hour = 12;
    day.tm_isdst = -1;
    sim::composeLocal(sim::localZone(), &day);
    return day;
}

void pauseFor(uint32_t milliseconds) {
    sim::sleepFor(milliseconds);
}

uint32_t ownProcessId() {
    return sim::currentProcessId();
}

bool useTimeZone(const char *zone) {
    setEnvironment("TZ", zone);
    return true;
}

void startMachine() {
    sim::keepProgramImage();
    sim::makeFolders("C:\\Temp");
    setEnvironment("TEMP", "C:\\Temp");
    setEnvironment("PATH", "C:\\Windows");
    // So that a test program can be started with another location, as under Wine.
    setEnvironment("ZANTLOG_CFG_LOC", std::getenv("ZANTLOG_CFG_LOC"));
}

} // namespace zantlog::test
