// Contexts that are made, used, written again after a rollover and destroyed, with one call after the other
// failing.
#include <gtest/gtest.h>
#include <sstream>

#include "tests/sim/sim.h"
#include "tests/support/log_folder.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

constexpr char kNoToken[] = "0:";
constexpr char kLostText[] = "**UNABLE TO PROCESS LOG MESSAGE**"; // stands for a text without memory

// The Nth field of a record line, from 1.
std::string fieldOf(const std::string &line, int number) {
    std::istringstream fields(line);
    std::string field;
    for (int i = 0; i < number; ++i) {
        std::getline(fields, field, ',');
    }
    return field;
}

struct Tagged {
    std::string token; // as it stands in a record
    zantLogHandle handle{};
    bool usable = false;
};

// Two contexts of one handle, and one within the first of them.
class SeveralContexts : public ProductScenario {
public:
    SeveralContexts() {
        setting("RolloverMode", "FileSize");
        setting("MaxLogFileSizeKB", "1");
    }

private:
    void act() override {
        open();
        if (!isOpen()) {
            return;
        }
        create(&handle_, &outer_, "outer");
        create(&handle_, &second_, "second");
        if (outer_.usable) {
            create(&outer_.handle, &inner_, "inner");
        }
        for (int i = 0; i < 2; ++i) {
            for (Tagged *tagged : {&outer_, &second_, &inner_}) {
                logTagged(tagged);
            }
        }
        for (Tagged *tagged : {&inner_, &second_, &outer_}) {
            oneOf(zantLogDestroyContext(&tagged->handle), {0, 1, 3}, "destroy");
        }
        log();
        close();
    }

    static void create(zantLogHandle *parent, Tagged *tagged, const std::string &token) {
        const uint32_t result =
            oneOf(zantLogCreateContext(parent, &tagged->handle, token.c_str(), 0, "title"),
                  {0, 1, 2, 4, 5, 10, 54}, "create");
        // With the record unwritten messages go without a token; without a record there is no context.
        tagged->token = result == 0 ? std::to_string(token.size()) + ":" + token : kNoToken;
        tagged->usable = tagged->handle.file != nullptr;
    }

    void logTagged(Tagged *tagged) {
        if (tagged->usable) {
            const uint32_t number = begin();
            tokens_[number] = tagged->token;
            end(zantLogAppMsg2(&tagged->handle, number, 0, 2, 0, "%s", text(number, 300).c_str()));
        }
    }

    void check() override {
        ProductScenario::check();
        for (const std::string &name : sim::namesIn(logFolder())) {
            expectTokens(name, linesOf(sim::bytesOf(logFolder() + "\\" + name)));
        }
    }

    // Each message has the token of its context, which a record in the same file tells of.
    void expectTokens(const std::string &name, const std::vector<std::string> &lines) const {
        std::string told;
        for (const std::string &line : lines) {
            if (line[0] == '3') {
                told += line;
            } else if (line[0] == '2') {
                const auto given = tokens_.find(static_cast<uint32_t>(std::stoul(fieldOf(line, 5))));
                const std::string expected = given != tokens_.end() ? given->second : kNoToken;
                const std::string found = fieldOf(line, 9);
                EXPECT_TRUE(found == expected || (disturbed && found.find(kLostText) != std::string::npos))
                    << name << ": " << line;
                EXPECT_TRUE(disturbed || expected == kNoToken ||
                            told.find("," + expected + ",") != std::string::npos)
                    << name << ": nothing tells of " << expected;
            }
        }
    }

    Tagged outer_;
    Tagged second_;
    Tagged inner_;
    std::map<uint32_t, std::string> tokens_; // by the number of the message
};

TEST(ContextSweep, SeveralContexts) {
    sweep<SeveralContexts>();
}

} // namespace

} // namespace zantlog::test
