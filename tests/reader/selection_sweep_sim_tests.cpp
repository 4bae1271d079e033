// Selection with every call and every allocation failing in turn.
#include "tests/reader/selection_fixture.h"

#include <algorithm>
#include <functional>

#include "tests/sim/sim.h"

namespace zantlog::test {

namespace {

constexpr int64_t kMonday = 1763300000;

// Fails call 1, 2, 3, ... of a work, one in each run, until a run meets no failure; nothing may be left
// behind. Returns the number of runs that met one.
template <typename Work> int sweepCalls(Work work) {
    for (int number = 1;; ++number) {
        const sim::Census before = sim::takeCensus();
        sim::clearFaults();
        sim::setFault({.number = static_cast<uint64_t>(number)});
        work();
        const bool met = sim::faultsMet() != 0;
        sim::clearFaults();
        EXPECT_EQ(sim::leftSince(before), "") << "call " << number;
        if (!met) {
            return number - 1;
        }
    }
}

template <typename Work> int sweepAllocations(bool laterOnesToo, Work work) {
    for (int number = 1;; ++number) {
        const sim::Census before = sim::takeCensus();
        sim::memory().allocations = 0;
        sim::memory().failures = 0;
        sim::memory().laterOnesFailToo = laterOnesToo;
        sim::memory().firstFailure = static_cast<uint64_t>(number);
        work();
        const bool met = sim::memory().failures != 0;
        sim::memory().firstFailure = 0;
        sim::memory().laterOnesFailToo = false;
        EXPECT_EQ(sim::leftSince(before), "") << "allocation " << number;
        if (!met) {
            return number - 1;
        }
    }
}

class SelectionSweep : public SelectionTest {
protected:
    SelectionSweep() {
        sim::clearFaults();
        for (uint32_t i = 0; i < 4; ++i) {
            makeProductFile(12, 3, i, kMonday + i);
            makeProductFile(12, 4, i, kMonday + i, "other");
        }
        records_ = {product(12, 3), product(12, 4, "other")};
        root_ = query_.isText(278, "buildhost");
    }
    ~SelectionSweep() override {
        sim::clearFaults();
        sim::memory().firstFailure = 0;
    }
    uint32_t selectAll(Selection *selection) { return GetLogFiles(records_.data(), 2, selection); }

    std::vector<zantLogCfg *> records_;
    Query query_;
    QueryNode *root_ = nullptr;
};

TEST_F(SelectionSweep, AFailingCallOfASelectionCostsItsOwnFilesOnly) {
    const int failures = sweepCalls([&] {
        Selection selection(root_);
        EXPECT_EQ(selectAll(&selection), 0u);
        // A listing that breaks off loses four at most; a file that cannot be opened itself. A header that
        // cannot be read is an empty text.
        EXPECT_GE(selection.names().size(), 4u);
        EXPECT_EQ(selection.badHeaderSeen, 0u);
    });
    EXPECT_GT(failures, 16);
}

TEST_F(SelectionSweep, AFailingCallOfAFetchCostsOneFile) {
    const int failures = sweepCalls([&] {
        Selection selection;
        selection.query = nullptr;
        const auto faults = sim::faultsMet();
        EXPECT_EQ(faults, 0u);
        if (selectAll(&selection) != 0) {
            return;
        }
        const size_t selected = selection.names().size();
        EXPECT_GE(selection.fetchPaths().size() + 1, selected);
        EXPECT_EQ(selection.badHeaderSeen, 0u);
    });
    EXPECT_GT(failures, 16);
}

TEST_F(SelectionSweep, AFailingAllocationOfASelectionEndsItsDirectoryOrTheScan) {
    std::vector<uint32_t> results;
    const auto once = [&] {
        Selection selection(root_);
        LogFileEntry *const garbage = reinterpret_cast<LogFileEntry *>(&results);
        selection.head = garbage;
        selection.current = garbage;
        results.push_back(selectAll(&selection));
        if (results.back() == 0) {
            EXPECT_GE(selection.names().size(), 4u);
        } else {
            EXPECT_EQ(selection.head, nullptr);
            EXPECT_EQ(selection.current, nullptr);
        }
    };
    // The table's two blocks and the block for headers, then an entry for each file.
    EXPECT_EQ(sweepAllocations(false, once), 3 + 8);
    EXPECT_EQ(results, (std::vector<uint32_t>{30, 30, 30, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(SelectionSweep, MemoryThatStaysShortLeavesWhatWasFound) {
    std::vector<size_t> counts;
    sweepAllocations(true, [&] {
        Selection selection;
        const uint32_t result = selectAll(&selection);
        counts.push_back(selection.names().size());
        EXPECT_EQ(result, counts.size() <= 2 ? 30u : counts.back() == 0 ? kNoLogFile : 0u);
    });
    EXPECT_EQ(counts, (std::vector<size_t>{0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(SelectionSweep, ATableThatCannotGrowKeepsWhatItHas) {
    for (uint32_t i = 4; i < 70; ++i) {
        makeProductFile(12, 3, i, kMonday + i);
    }
    Selection selection;
    sim::memory().allocations = 0;
    sim::memory().firstFailure = 2 + 64 + 2; // the first block of the larger table
    EXPECT_EQ(selectAll(&selection), 0u);
    EXPECT_EQ(sim::memory().failures, 1u);
    sim::memory().firstFailure = 0;
    const std::vector<std::string> names = selection.names();
    // The directory ends with the 64th file; the next one's first file finds memory again.
    EXPECT_EQ(std::count_if(names.begin(), names.end(),
                            [](const std::string &name) { return name.starts_with("12-3-"); }),
              64);
    EXPECT_EQ(names.size(), 68u);
}

TEST_F(SelectionSweep, AFetchWithoutMemoryForThePathCanBeTriedAgain) {
    Selection selection;
    ASSERT_EQ(selectAll(&selection), 0u);
    sim::memory().allocations = 0;
    sim::memory().firstFailure = 1;
    char *path = nullptr;
    EXPECT_EQ(zantLogFetchNextFile(&selection, &path), 4u);
    EXPECT_EQ(path, nullptr);
    sim::memory().firstFailure = 0;
    EXPECT_EQ(selection.fetchPaths().size(), 8u);
}

// ---- manageable files

class ManageableSweep : public SelectionSweep {
protected:
    ManageableSweep() {
        const std::string location = *environmentText("ZANTLOG_CFG_LOC");
        writeFileBytes(location, "12.Configuration=" + store_.file("12.conf") + "\r\n");
        writeFileBytes(store_.file("12.conf"),
                       "Default.LogDirectory=" + directory() + "\r\nDefault.NumberOfLogFiles=1\r\n" +
                           "4.LogDirectory=" + directory("other") + "\r\n4.NumberOfLogFiles=2\r\n" +
                           "3.DebugLevel=1\r\nLOGSET.audit.LogDirectory=" + directory() +
                           "\r\nLOGSET.audit.NumberOfLogFiles=2\r\n");
        for (int i = 0; i < 4; ++i) {
            make("12-audit-25111610000" + std::to_string(i) + ".log", logSetHeader(), kMonday + i);
        }
    }
    ~ManageableSweep() override { removeFile(*environmentText("ZANTLOG_CFG_LOC")); }

    static bool isDocumented(uint32_t result) {
        for (const uint32_t code : {0u, 1u, 3u, 4u, 6u, 9u, 30u, 39u, 45u}) {
            if (result == code) {
                return true;
            }
        }
        return false;
    }

    ScopedFolder store_;
};

using Manage = std::function<uint32_t(LogFindContext *)>;

TEST_F(ManageableSweep, NeverNamesAFileThatIsToBeKept) {
    const std::vector<std::string> surplus{
        productFile(12, 3, 0), productFile(12, 3, 1),       productFile(12, 3, 2),      productFile(12, 4, 0),
        productFile(12, 4, 1), "12-audit-251116100000.log", "12-audit-251116100001.log"};
    const std::vector<Manage> works{
        [](LogFindContext *context) { return zantLogGetManageableLogFiles(12, 3, context); },
        [](LogFindContext *context) { return zantLogGetManageableLogFiles(12, 4, context); },
        [](LogFindContext *context) { return zantLogGetManageableLogFilesSL(12, "audit", context); }};
    for (const Manage &work : works) {
        const auto once = [&] {
            Selection selection;
            EXPECT_TRUE(isDocumented(work(&selection)));
            for (const std::string &name : selection.names()) {
                // Without its own section an originator has the number of all, which here is no greater.
                EXPECT_THAT(surplus, testing::Contains(name));
            }
        };
        EXPECT_GT(sweepAllocations(false, once), 10);
        EXPECT_GT(sweepAllocations(true, once), 10);
    }
}

TEST_F(ManageableSweep, OfAllConfigurationsLeavesNothingBehind) {
    const auto once = [&] {
        Selection selection;
        EXPECT_TRUE(isDocumented(zantLogGetManageableLogFiles(0, 0, &selection)));
        EXPECT_TRUE(selection.names().size() <= 8u);
    };
    EXPECT_GT(sweepAllocations(false, once), 20);
    EXPECT_GT(sweepAllocations(true, once), 20);
    EXPECT_GT(sweepCalls(once), 20);
}

TEST_F(ManageableSweep, AFailingCallLeavesNothingBehind) {
    EXPECT_GT(sweepCalls([] {
                  Selection selection;
                  EXPECT_TRUE(isDocumented(zantLogGetManageableLogFiles(12, 3, &selection)));
              }),
              5);
    EXPECT_GT(sweepCalls([] {
                  Selection selection;
                  EXPECT_TRUE(isDocumented(zantLogGetManageableLogFilesSL(12, "audit", &selection)));
              }),
              5);
}

} // namespace

} // namespace zantlog::test
