// Ten years of logging in every rollover mode, beside the model of the rules: in zones with and without
// daylight saving on both halves of the earth, with restarts, and with clocks that are set back by an hour
// and by ten years.
#include <gtest/gtest.h>
#include <random>

#include "tests/sim/sim.h"
#include "tests/time_travel/traveller.h"

namespace zantlog::test {

namespace {

constexpr int64_t kHour = 3600;
constexpr int64_t kDay = 24 * kHour;
constexpr int64_t kTenYears = 3653 * kDay;

struct Zone {
    const char *name;
    sim::TimeZone zone;
};

// Half an hour of daylight saving, on the southern half.
sim::TimeZone lordHowe() {
    sim::TimeZone zone = sim::easternAustralia();
    zone.bias = -37800;
    zone.saving = 1800;
    return zone;
}

struct Journey {
    const char *name;
    Zone zone;
    WriterRules rules;
};

void PrintTo(const Journey &journey, std::ostream *out) {
    *out << journey.name << " in " << journey.zone.name;
}

std::vector<Journey> journeys() {
    const Zone zones[] = {{"UTC", {}},
                          {"CentralEurope", sim::centralEurope()},
                          {"EasternAustralia", sim::easternAustralia()},
                          {"LordHowe", lordHowe()}};
    const std::pair<const char *, WriterRules> rules[] = {
        {"Off", {}},
        {"Size", {.mode = 1, .maximumSizeKB = 2}},
        {"TimeOfDay", {.mode = 2, .timeOfDay = 2 * kHour + 1800}},
        {"SizeAndTimeOfDay", {.mode = 3, .maximumSizeKB = 2}},
        {"Period", {.mode = 4, .period = 36 * kHour}},
        {"SizeAndPeriod", {.mode = 5, .maximumSizeKB = 1, .period = kHour}},
        {"LogSetBySize", {.mode = 1, .maximumSizeKB = 2, .logSet = true}},
        {"LogSetByTimeOfDay", {.mode = 2, .timeOfDay = 23 * kHour, .logSet = true}},
    };
    std::vector<Journey> all;
    for (const Zone &zone : zones) {
        for (const auto &[name, rule] : rules) {
            all.push_back({name, zone, rule});
        }
    }
    return all;
}

class TenYears : public testing::TestWithParam<Journey> {};

// Now and then some minutes, now and then some days; restarts between them.
void travel(Traveller *traveller, int64_t until, std::mt19937 *random) {
    const auto below = [random](uint32_t limit) { return static_cast<int64_t>((*random)() % limit); };
    while (sim::clock().seconds() < until && !testing::Test::HasFatalFailure()) {
        const int64_t step = below(3) == 0 ? below(10 * kDay) : 1 + below(25 * 60);
        traveller->logAt(sim::clock().seconds() + step);
        if (below(40) == 0) {
            traveller->restart();
        }
    }
}

TEST_P(TenYears, EveryMessageIsInTheFileThatTheRulesSay) {
    const int64_t start = utc(2026, 1, 1, 10);
    Traveller traveller(GetParam().rules, GetParam().zone.zone, start);
    std::mt19937 random(20261121);
    travel(&traveller, start + 4 * 365 * kDay, &random);
    sim::clock().advanceSeconds(-kHour);
    travel(&traveller, start + kTenYears, &random);
    const size_t before = traveller.files().size();
    sim::clock().advanceSeconds(-kTenYears);
    travel(&traveller, start + kDay * 60, &random);
    sim::clock().setSeconds(start + kTenYears);
    travel(&traveller, start + kTenYears + 60 * kDay, &random);
    traveller.expectFilesOfModel();
    EXPECT_LE(traveller.model().mostFilesAtOnce(), 2) << "one message never begins more";
    EXPECT_GE(traveller.files().size(), before);
}

INSTANTIATE_TEST_SUITE_P(EveryMode, TenYears, testing::ValuesIn(journeys()), [](const auto &journey) {
    return std::string(journey.param.name) + "In" + journey.param.zone.name;
});

} // namespace

} // namespace zantlog::test
