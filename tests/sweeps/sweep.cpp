#include "tests/sweeps/sweep.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "logfile/os/os_error.h"
#include "tests/sim/sim.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

constexpr uint64_t kDiskSteps = 40;
constexpr uint64_t kMostRuns = 2000; // a sweep that meets failures without end

// A way of disturbing a run at its Nth opportunity.
struct Disturbance {
    std::string name;
    std::function<void(uint64_t n)> begin;
    std::function<bool()> met;
    bool kills = false; // the process that is disturbed
};

bool faultWasMet() {
    return sim::faultsMet() > 0;
}

Disturbance failingCalls(const std::string &name, os::SystemError error, bool laterOnesToo) {
    return {name,
            [=](uint64_t n) { sim::setFault({.number = n, .laterOnesToo = laterOnesToo, .error = error}); },
            faultWasMet};
}

Disturbance failingAllocations(const std::string &name, bool laterOnesToo) {
    return {name,
            [=](uint64_t n) {
                sim::memory().allocations = 0;
                sim::memory().failures = 0;
                sim::memory().laterOnesFailToo = laterOnesToo;
                sim::memory().firstFailure = n;
            },
            [] { return sim::memory().failures > 0; }};
}

Disturbance shortWrites(const std::string &name, uint32_t bytes) {
    return {name,
            [=](uint64_t n) {
                sim::setFault({.call = sim::Call::WriteFile,
                               .number = n,
                               .action = sim::FaultAction::Shorten,
                               .bytes = bytes});
            },
            faultWasMet};
}

// The disk has room for ever more bytes; all is well with this many steps of room.
Disturbance fullDisk(const std::string &name, bool inPart) {
    constexpr uint64_t kStep = 23;
    auto step = std::make_shared<uint64_t>(0);
    return {name,
            [=](uint64_t n) {
                *step = n;
                sim::writeInPartOnAFullDisk(inPart);
                sim::setRoom((n - 1) * kStep);
            },
            [=] { return *step < kDiskSteps; }};
}

Disturbance deaths(const std::string &name) {
    return {name, [](uint64_t n) { sim::setFault({.number = n, .action = sim::FaultAction::EndProcess}); },
            faultWasMet, true};
}

void undisturb() {
    sim::clearFaults();
    sim::memory().firstFailure = 0;
    sim::setRoom(sim::kNoLimit);
    sim::writeInPartOnAFullDisk(false);
}

// What a process keeps from its first use of the library on is there before it is counted.
void useFirst() {
    zantLockCommon("sweep");
    zantUnlockCommon("sweep");
    GetZantLogCfgLoc();
}

class Run {
public:
    Run(const MakeScenario &make, const Disturbance &disturbance, uint64_t number)
        : scenario_(make()), disturbance_(disturbance), number_(number) {}

    // Whether it was disturbed. Only what is to die runs in a process of its own, for those take their time;
    // any other run must leave this one as it was.
    bool run() {
        if (disturbance_.kills) {
            prepareAndDie();
        } else {
            prepare();
            disturbance_.begin(number_);
            act();
        }
        endDisturbance();
        check();
        return scenario_->disturbed;
    }

private:
    [[nodiscard]] std::string place(const std::string &step) const {
        return step + "; call hit: " + hit_ + "; again with ZANTLOG_SWEEP=\"" + disturbance_.name + "/" +
               std::to_string(number_) + "\"";
    }

    void prepare() {
        SCOPED_TRACE(place("prepare"));
        scenario_->prepare();
    }

    void act() {
        SCOPED_TRACE(place("act"));
        scenario_->act();
    }

    void prepareAndDie() {
        sim::Process process;
        process.run([this] { prepare(); });
        disturbance_.begin(number_);
        process.run([this] { act(); });
        scenario_->died = true; // at the end, if not before
    }

    void endDisturbance() {
        scenario_->disturbed = disturbance_.met();
        hit_ = sim::faultsMet() > 0 ? sim::nameOf(sim::firstCallHit()) : "none";
        undisturb();
    }

    void check() {
        SCOPED_TRACE(place("check"));
        scenario_->check();
        EXPECT_EQ(sim::leftSince(before_), "") << "is left in use";
    }

    sim::Census before_ = sim::takeCensus();
    std::unique_ptr<Scenario> scenario_;
    const Disturbance &disturbance_;
    uint64_t number_;
    std::string hit_ = "not yet";
};

// The runs of ZANTLOG_SWEEP ("name/number"), or all of them.
std::optional<uint64_t> chosenRun(const Disturbance &disturbance, bool *chosen) {
    const char *text = std::getenv("ZANTLOG_SWEEP");
    *chosen = text == nullptr;
    if (text == nullptr) {
        return std::nullopt;
    }
    const std::string choice = text;
    const size_t slash = choice.rfind('/');
    *chosen = choice.substr(0, slash) == disturbance.name;
    return std::strtoull(choice.c_str() + slash + 1, nullptr, 10);
}

void sweepOne(const MakeScenario &make, const Disturbance &disturbance, uint64_t *met) {
    bool chosen = false;
    if (const auto only = chosenRun(disturbance, &chosen); only || !chosen) {
        if (chosen) {
            Run(make, disturbance, *only).run();
        }
        return;
    }
    uint64_t number = 1;
    while (Run(make, disturbance, number).run()) {
        if (testing::Test::HasFailure()) {
            return; // the first one says it all
        }
        ASSERT_LT(++number, kMostRuns) << disturbance.name << " has no end";
    }
    testing::Test::RecordProperty(disturbance.name, std::to_string(number - 1));
    *met += number - 1;
}

} // namespace

void sweepAll(const MakeScenario &make) {
    useFirst();
    const Disturbance all[] = {
        failingCalls("denied once", os::kErrorAccessDenied, false),
        failingCalls("denied from then on", os::kErrorAccessDenied, true),
        failingCalls("not found once", os::kErrorFileNotFound, false),
        failingCalls("not found from then on", os::kErrorFileNotFound, true),
        failingCalls("disk full once", os::kErrorDiskFull, false),
        failingCalls("disk full from then on", os::kErrorDiskFull, true),
        failingAllocations("no memory once", false),
        failingAllocations("no memory from then on", true),
        shortWrites("nothing written", 0),
        shortWrites("one byte written", 1),
        shortWrites("thirty bytes written", 30),
        fullDisk("room on the disk", false),
        fullDisk("room on the disk for a part", true),
        deaths("death"),
    };
    // A full disk counts its own steps, whatever they meet.
    constexpr uint64_t kMetAnyway = 2 * (kDiskSteps - 1);
    uint64_t met = 0;
    for (const Disturbance &disturbance : all) {
        if (!disturbance.kills || make()->changesAnything()) {
            sweepOne(make, disturbance, &met);
        }
    }
    if (std::getenv("ZANTLOG_SWEEP") == nullptr && !testing::Test::HasFailure()) {
        EXPECT_GT(met, kMetAnyway + 10) << "the scenario calls hardly anything that could fail";
    }
}

} // namespace zantlog::test
