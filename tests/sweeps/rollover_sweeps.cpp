// Files that are rolled over while one call after the other fails: by size, by the clock, after ten minutes,
// with contexts that are written again, and with old files that go.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

class BySize : public ProductScenario {
public:
    BySize() {
        setting("RolloverMode", "FileSize");
        setting("MaxLogFileSizeKB", "1");
    }

private:
    void act() override {
        open();
        for (int i = 0; isOpen() && i < 4; ++i) {
            log(400);
        }
        close();
    }
};

class ByPeriod : public ProductScenario {
public:
    ByPeriod() {
        setting("RolloverMode", "Periodic");
        setting("RolloverPeriodInSeconds", "60");
    }

private:
    void act() override {
        open();
        for (int i = 0; isOpen() && i < 3; ++i) {
            log();
            sim::clock().advanceSeconds(61);
        }
        close();
    }
};

class AtATimeOfDay : public ProductScenario {
public:
    AtATimeOfDay() {
        setting("RolloverMode", "FileSize | LocalTime");
        setting("RolloverAtLocalTime", "03:00");
    }

private:
    void act() override {
        open();
        for (int i = 0; isOpen() && i < 2; ++i) {
            log();
            sim::clock().advanceSeconds(86400);
        }
        close();
    }
};

// Without rollover a file is opened again after ten minutes; the next day's first message finds a new one.
class AfterTenMinutes : public ProductScenario {
    void act() override {
        open();
        for (int i = 0; isOpen() && i < 3; ++i) {
            log();
            sim::clock().advanceSeconds(i == 0 ? 601 : 86400);
        }
        close();
    }
};

// Each file has the records of the contexts that are alive.
class WithContexts : public ProductScenario {
public:
    WithContexts() {
        setting("RolloverMode", "FileSize");
        setting("MaxLogFileSizeKB", "1");
    }

private:
    void act() override {
        open();
        if (!isOpen()) {
            return;
        }
        zantLogHandle context{};
        const uint32_t created = oneOf(zantLogCreateContext(&handle_, &context, "token", 0, "title"),
                                       {0, 1, 3, 4, 5, 54, 57}, "create");
        if (created == 0) {
            for (int i = 0; i < 3; ++i) {
                const uint32_t number = begin();
                end(zantLogAppMsg2(&context, number, 0, 2, 0, "%s", text(number, 400).c_str()));
            }
        }
        oneOf(zantLogDestroyContext(&context), {0, 1, 3}, "destroy");
        log();
        close();
    }
};

TEST(RolloverSweep, BySize) {
    sweep<BySize>();
}

TEST(RolloverSweep, ByPeriod) {
    sweep<ByPeriod>();
}

TEST(RolloverSweep, AtATimeOfDay) {
    sweep<AtATimeOfDay>();
}

TEST(RolloverSweep, AfterTenMinutes) {
    sweep<AfterTenMinutes>();
}

TEST(RolloverSweep, WithContexts) {
    sweep<WithContexts>();
}

} // namespace

} // namespace zantlog::test
