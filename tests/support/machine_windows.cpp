#include "tests/support/machine.h"

#include <chrono>
#include <cstdlib>
#include <process.h>
#include <thread>

namespace zantlog::test {

void setEnvironment(const char *name, const char *value) {
    // An empty value removes the variable; the runtime passes both on to the system.
    _putenv_s(name, value != nullptr ? value : "");
}

std::optional<std::string> environmentText(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

int64_t secondsNow() {
    return std::time(nullptr);
}

int64_t millisecondsNow() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::tm localDate(int daysFromToday) {
    const std::time_t now = std::time(nullptr);
    std::tm day = *std::localtime(&now);
    day.tm_mday += daysFromToday;
    day.tm_hour = 12;
    day.tm_isdst = -1;
    std::mktime(&day);
    return day;
}

void pauseFor(uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

uint32_t ownProcessId() {
    return static_cast<uint32_t>(_getpid());
}

bool useTimeZone(const char *zone) {
    setEnvironment("TZ", zone);
    _tzset();
    return true;
}

void startMachine() {}

} // namespace zantlog::test
