// Opening, logging and closing with one call after the other failing.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

class OpenAndClose : public ProductScenario {
public:
    OpenAndClose() {
        setting("LogFileSDDL", "D:(A;;FA;;;WD)"); // texts that records own
        setting("L10nLib", "lib");
    }

private:
    void act() override {
        open();
        close();
    }
};

class FileThatIsContinued : public ProductScenario {
    void prepare() override {
        ProductScenario::prepare();
        open();
        log();
        close();
    }
    void act() override {
        open();
        if (isOpen()) {
            log();
        }
        close();
    }
};

// Every family, with arguments that need the heap; a message that is longer than the inline area too.
class EveryFamily : public ProductScenario {
public:
    EveryFamily() {
        setting("DebugLevel", "6");
        setting("DiagnosticLevel", "6");
    }

private:
    void act() override {
        open();
        if (!isOpen()) {
            return;
        }
        uint32_t number = begin();
        // Levels that could not be read are 0.
        endFiltered(handle_.debugLevel,
                    zantLogDebugMsg2(&handle_, number, 0, 2, "who", "%s", text(number).c_str()));
        number = begin();
        endFiltered(handle_.diagLevel,
                    zantLogDiagMsg2(&handle_, number, 0, 2, "who", 0, "%s %d", text(number).c_str(), 5));
        number = begin();
        end(zantLogAppMsg2Ex(&handle_, number, 0, 3, "who", 4711, "%s%ls", text(number, 6000).c_str(), L"w"));
        number = begin();
        end(zantLogAuditMsg2(&handle_, number, 0, "subject", 1, 7, "%s", text(number).c_str()));
        close();
    }
    void endFiltered(uint32_t handleLevel, uint32_t result) {
        if (handleLevel >= 2) {
            end(result);
        } else {
            EXPECT_EQ(result, 0u);
        }
    }
};

// What console and event log answer never shows in the result.
class EverySink : public ProductScenario {
    void act() override {
        open();
        if (!isOpen()) {
            return;
        }
        constexpr uint32_t kSinks = ZANTLOG_TO_STDOUT | ZANTLOG_TO_STDERR | ZANTLOG_TO_EVENT_LOG;
        const uint32_t number = begin();
        end(zantLogAppMsg2(&handle_, number, kSinks, 2, 4711, "%s", text(number).c_str()));
        close();
    }
};

class SeveralHandles : public ProductScenario {
    void act() override {
        open();
        zantLogHandle second{};
        const uint32_t result = oneOf(zantLogOpen(12, 3, &second), {0, 1, 4, 6, 22, 32, 51, 53}, "open");
        const bool secondIsOpen = result == 0 || result == 1 || result == 22 || result == 32 || result == 51;
        if (isOpen()) {
            log();
        }
        if (secondIsOpen) {
            const uint32_t number = begin();
            end(zantLogAppMsg2(&second, number, 0, 2, 0, "%s", text(number).c_str()));
        }
        close();
        if (secondIsOpen) {
            oneOf(zantLogClose(&second), {0, 1}, "close");
        }
    }
};

TEST(LoggingSweep, OpenAndClose) {
    sweep<OpenAndClose>();
}

TEST(LoggingSweep, FileThatIsContinued) {
    sweep<FileThatIsContinued>();
}

TEST(LoggingSweep, EveryFamily) {
    sweep<EveryFamily>();
}

TEST(LoggingSweep, EverySink) {
    sweep<EverySink>();
}

TEST(LoggingSweep, SeveralHandles) {
    sweep<SeveralHandles>();
}

} // namespace

} // namespace zantlog::test
