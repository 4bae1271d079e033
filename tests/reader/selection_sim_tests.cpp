// Selection on the simulated machine: exact times, calls that are counted, calls and allocations that fail.
#include "tests/reader/selection_fixture.h"

#include <algorithm>
#include <functional>

#include "tests/sim/sim.h"

namespace zantlog::test {

namespace {

using sim::Call;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int64_t kMonday = 1763300000;

class SelectionOnSim : public SelectionTest {
protected:
    SelectionOnSim() { sim::clearFaults(); }
    ~SelectionOnSim() override {
        sim::clearFaults();
        sim::memory().firstFailure = 0;
        sim::setListingOrder(sim::ListingOrder::ByName);
    }
    void setTimes(const std::string &name, int64_t creation, int64_t lastWrite) {
        sim::setCreationTime(directory() + name, creation * sim::kUnitsPerSecond);
        sim::setLastWriteTime(directory() + name, lastWrite * sim::kUnitsPerSecond);
    }
    Query query_;
};

TEST_F(SelectionOnSim, ADayAheadIsSelectedAndASecondMoreIsNot) {
    const std::string name = makeProductFile(12, 3, 0);
    Selection selection;
    setTimes(name, kMonday, secondsNow() + 86400);
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    selection.clear();
    setTimes(name, kMonday, secondsNow() + 86401);
    EXPECT_EQ(select({product(12, 3)}, &selection), kNoLogFile);
    // The creation may lie as far ahead as it will.
    setTimes(name, secondsNow() + 1000000, secondsNow());
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
}

TEST_F(SelectionOnSim, ADayAheadHoldsForLogSetsToo) {
    const std::string name = make("12-audit-251116100000.log", logSetHeader());
    Selection selection;
    setTimes(name, kMonday, secondsNow() + 86400);
    EXPECT_EQ(select({logSet(12, "audit")}, &selection), 0u);
    selection.clear();
    setTimes(name, kMonday, secondsNow() + 86401);
    EXPECT_EQ(select({logSet(12, "audit")}, &selection), kNoLogFile);
}

TEST_F(SelectionOnSim, OrderIsThatOfCreationAndNotOfTheLastWrite) {
    const std::string second = makeProductFile(12, 3, 0);
    const std::string first = makeProductFile(12, 3, 1);
    setTimes(second, kMonday + 1, kMonday + 5);
    setTimes(first, kMonday, kMonday + 9);
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(first, second));
    EXPECT_EQ(selection.head->creationTime, kMonday);
}

TEST_F(SelectionOnSim, OrderDoesNotDependOnTheListings) {
    for (uint32_t i = 0; i < 50; ++i) {
        setTimes(makeProductFile(12, 3, i), kMonday + i % 7, kMonday);
    }
    std::vector<std::string> expected;
    for (const sim::ListingOrder order :
         {sim::ListingOrder::ByName, sim::ListingOrder::ByNameDownwards, sim::ListingOrder::Shuffled}) {
        sim::setListingOrder(order, 3);
        Selection selection;
        EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
        std::vector<int64_t> times;
        for (const LogFileEntry *entry = selection.head; entry != nullptr; entry = entry->next) {
            times.push_back(entry->creationTime);
        }
        EXPECT_EQ(times.size(), 50u);
        EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
    }
}

TEST_F(SelectionOnSim, FieldsOfTimeTellCreationFromLastWrite) {
    const std::string name = makeProductFile(12, 3, 0);
    setTimes(name, 1000, 2000);
    const auto selects = [&](QueryNode *root) {
        Selection selection(root);
        return select({product(12, 3)}, &selection) == 0;
    };
    EXPECT_TRUE(selects(query_.is(268, 1000)));
    EXPECT_TRUE(selects(query_.is(268, 2000)));
    EXPECT_FALSE(selects(query_.is(268, 1500)));
    EXPECT_TRUE(selects(query_.is(269, 1000)));
    EXPECT_FALSE(selects(query_.is(269, 2000)));
}

TEST_F(SelectionOnSim, OneHeaderReadPerFileAndOneFileOpenAtATime) {
    for (uint32_t i = 0; i < 20; ++i) {
        makeProductFile(12, 3, i);
    }
    makeProductFile(12, 4, 0);
    const sim::Census before = sim::takeCensus();
    Selection selection(query_.isText(278, "buildhost"));
    sim::resetCalls();
    // The record that comes again reads nothing again.
    EXPECT_EQ(select({product(12, 3), product(12, 3)}, &selection), 0u);
    EXPECT_EQ(sim::calls(Call::OpenFile), 20u);
    EXPECT_EQ(sim::calls(Call::CloseFile), 20u);
    EXPECT_EQ(sim::calls(Call::ReadFile), 20u);
    selection.clear();
    EXPECT_EQ(sim::leftSince(before), "");
    // Without need no file is opened.
    selection.query = query_.is(263, 12);
    sim::resetCalls();
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_EQ(sim::calls(Call::OpenFile), 0u);
    EXPECT_EQ(sim::calls(Call::FileStatus), 0u);
}

TEST_F(SelectionOnSim, FetchingOpensEachFileOnceAndClosesItBeforeTheNext) {
    makeProductFile(12, 3, 0);
    makeProductFile(12, 3, 1);
    Selection selection;
    ASSERT_EQ(select({product(12, 3)}, &selection), 0u);
    const sim::Census before = sim::takeCensus();
    LogFileEntry *entry = nullptr;
    for (int i = 0; i < 2; ++i) {
        sim::resetCalls();
        ASSERT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
        EXPECT_EQ(sim::calls(Call::OpenFile), 1u);
        EXPECT_EQ(sim::calls(Call::CloseFile), 1u);
        EXPECT_EQ(sim::calls(Call::FileStatus), 1u);
        EXPECT_EQ(sim::leftSince(before), "");
    }
}

TEST_F(SelectionOnSim, AFileWithoutStatusKeepsTheModificationTimeOfTheOneBefore) {
    const std::string first = makeProductFile(12, 3, 0, kMonday);
    const std::string second = makeProductFile(12, 3, 1, kMonday + 1);
    Selection selection;
    ASSERT_EQ(select({product(12, 3)}, &selection), 0u);
    // The header's start time is no answer to this; the first file is none either.
    selection.query =
        query_.both(query_.is(268, kMonday), query_.op(288, query_.field(269), query_.number(1)));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(first));
    // Now the first file does not match by its header, and the second one has no status.
    sim::putFile(directory() + first, productHeader(99, 3));
    setFileTimes(directory() + first, kMonday);
    selection.query = query_.both(query_.is(263, 12), query_.is(268, kMonday));
    selection.current = selection.head;
    sim::setFault({.call = Call::FileStatus, .number = 2});
    EXPECT_THAT(selection.fetchNames(), ElementsAre(second));
    // As the first one of a fetch it has none at all.
    sim::clearFaults();
    selection.query = query_.is(268, 0);
    selection.current = selection.head->next;
    sim::setFault({.call = Call::FileStatus});
    EXPECT_THAT(selection.fetchNames(), ElementsAre(second));
}

TEST_F(SelectionOnSim, AFolderHasNoModificationTime) {
    makeFolder(directory() + productFile(12, 3, 0));
    setTimes(productFile(12, 3, 0), kMonday, kMonday);
    const std::string file = makeProductFile(12, 3, 1, kMonday + 1);
    Selection selection;
    ASSERT_EQ(select({product(12, 3)}, &selection), 0u);
    ASSERT_EQ(selection.names().size(), 2u);
    selection.query = query_.is(268, 0);
    sim::setFault({.call = Call::FileStatus, .number = 2});
    EXPECT_THAT(selection.fetchNames(), ElementsAre(file));
}

TEST_F(SelectionOnSim, AListingThatBreaksOffKeepsWhatItHasGiven) {
    const std::string first = makeProductFile(12, 3, 0);
    makeProductFile(12, 3, 1);
    const std::string other = makeProductFile(12, 4, 0, 0, "other");
    sim::setFault({.call = Call::FindNext});
    Selection selection;
    const sim::Census before = sim::takeCensus();
    EXPECT_EQ(select({product(12, 3), product(12, 4, "other")}, &selection), 0u);
    std::vector<std::string> names = selection.names();
    std::sort(names.begin(), names.end());
    EXPECT_THAT(names, ElementsAre(first, other));
    selection.clear();
    EXPECT_EQ(sim::leftSince(before), "");
}

TEST_F(SelectionOnSim, AListingThatCannotBeginLeavesTheOthers) {
    makeProductFile(12, 3, 0);
    const std::string other = makeProductFile(12, 4, 0, 0, "other");
    sim::setFault({.call = Call::FindFirst});
    Selection selection;
    EXPECT_EQ(select({product(12, 3), product(12, 4, "other")}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(other));
}

} // namespace

} // namespace zantlog::test
