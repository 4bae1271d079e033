// Log files that are selected, and old ones that go, while one call after the other fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

constexpr uint32_t kOldFiles = 3;
constexpr uint32_t kKept = 4; // more than the scenario makes

// Of product 12, originator 3, from another host; begun long ago.
void putOldFiles(const std::string &folder) {
    sim::makeFolders(folder);
    for (uint32_t i = 0; i < kOldFiles; ++i) {
        const std::string path = folder + "\\12-3-7-250101-000000000" + std::to_string(i) + ".log";
        sim::putFile(path, "$Header 65543,12,3,1763249000,0,host\n");
        sim::setCreationTime(path, int64_t{1000 + i} * sim::kUnitsPerSecond);
    }
}

// Nothing that a product logs is ever among the files that go; those of others stay.
class Recycling : public ProductScenario {
public:
    Recycling() {
        setting("RolloverMode", "FileSize");
        setting("MaxLogFileSizeKB", "1");
        setting("LogRecycle", "true");
        setting("NumberOfLogFiles", std::to_string(kKept));
    }

private:
    void prepare() override {
        ProductScenario::prepare();
        putOldFiles(logFolder());
        sim::putFile(kOther, "$Header 65543,12,4,1763249000,0,host\n");
        sim::setCreationTime(kOther, 0);
    }
    void act() override {
        open();
        sim::clock().advanceSeconds(1);
        if (isOpen()) {
            log(1100);
        }
        sim::clock().advanceSeconds(1);
        close();
    }
    void check() override {
        ProductScenario::check();
        EXPECT_TRUE(sim::exists(kOther));
        if (!disturbed && !died) {
            // Those of its own and as many old ones as make the number; the last message rolled over too.
            EXPECT_EQ(sim::namesIn(logFolder()).size(), kKept + 1);
        }
    }

    const std::string kOther = logFolder() + "\\12-4-7-250101-0000000000.log";
};

// What is selected is what is there, as far as it can be read.
class Selecting : public ProductScenario {
public:
    Selecting() { setting("NumberOfLogFiles", "2"); }

private:
    void prepare() override {
        ProductScenario::prepare();
        putOldFiles(logFolder());
    }
    void act() override {
        LogFindContext context{};
        oneOf(zantLogGetManageableLogFiles(12, 3, &context), {0, 4, 6, 30, 45}, "both ids");
        EXPECT_LE(fetchAll(&context), kOldFiles - 2);
        oneOf(zantLogGetManageableLogFiles(0, 0, &context), {0, 1, 4, 6, 30, 39, 45}, "any id");
        EXPECT_LE(fetchAll(&context), kOldFiles - 2);
        selectByHost();
    }
    void selectByHost() {
        QueryNode field{259, 0, 278, nullptr, nullptr, nullptr};
        QueryNode host{257, 0, 0, "host", nullptr, nullptr};
        QueryNode root{287, 0, 0, nullptr, &field, &host};
        zantLogCfg cfg{};
        cfg.productId = 12;
        cfg.originatorId = 3;
        (logFolder() + "\\").copy(cfg.logDirectory, sizeof cfg.logDirectory - 1);
        zantLogCfg *array[] = {&cfg};
        LogFindContext context{0, nullptr, nullptr, &root};
        oneOf(GetLogFiles(array, 1, &context), {0, 30, 45}, "a selection");
        context.query = nullptr;
        selected_ = fetchAll(&context);
        EXPECT_LE(selected_, kOldFiles);
    }
    // Fetches until the 9, or until memory is short, and frees the selection.
    static uint32_t fetchAll(LogFindContext *context) {
        uint32_t count = 0;
        char *path = nullptr;
        uint32_t result = 0;
        while ((result = zantLogFetchNextFile(context, &path)) == 0) {
            EXPECT_TRUE(sim::exists(path)) << path;
            zantLogFreeBuffer(&path);
            ++count;
        }
        oneOf(result, {4, 9}, "a fetch");
        EXPECT_EQ(context->badHeaderSeen, 0u);
        while (context->head != nullptr) {
            LogFileEntry *next = context->head->next;
            EXPECT_EQ(context->head->file.file, nullptr);
            zantLogFree(context->head);
            context->head = next;
        }
        return count;
    }
    void check() override {
        if (!disturbed && !died) {
            EXPECT_EQ(selected_, kOldFiles);
        }
        selectByHost();
        EXPECT_EQ(selected_, kOldFiles);
        ProductScenario::check();
    }

    uint32_t selected_ = 0;
};

TEST(SelectionSweep, Recycling) {
    sweep<Recycling>();
}

TEST(SelectionSweep, Selecting) {
    sweep<Selecting>();
}

} // namespace

} // namespace zantlog::test
