#include "tests/sim/clock.h"

#include "tests/sim/environment.h"

namespace zantlog::sim {

Clock &clock() {
    static auto &instance = *new Clock;
    return instance;
}

TimeZone &machineZone() {
    static auto &instance = *new TimeZone;
    return instance;
}

TimeZone localZone() {
    const std::optional<std::string> text = environmentValue("TZ");
    return text ? timeZoneFromText(*text).value_or(TimeZone{}) : machineZone();
}

} // namespace zantlog::sim
