#include "tests/support/machine.h"

#include "tests/sim/clock.h"
#include "tests/sim/environment.h"
#include "tests/sim/files.h"
#include "tests/sim/process.h"
#include "tests/sim/scheduler.h"

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
}

} // namespace zantlog::test
