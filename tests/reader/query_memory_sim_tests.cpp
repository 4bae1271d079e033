// Queries and context titles when memory is short.
#include <gtest/gtest.h>

#include "tests/reader/query_builder.h"
#include "tests/sim/memory.h"
#include "zantlog/log_file.h"
#include "zantlog/message.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

class ShortMemory : public testing::Test {
protected:
    ShortMemory() { sim::memory() = {}; }
    ~ShortMemory() override {
        EXPECT_EQ(sim::memory().blocks, 0);
        sim::memory() = {};
    }
    static void failOnce(uint64_t call) { sim::memory().firstFailure = sim::memory().allocations + call; }
};

TEST_F(ShortMemory, LeavesTheOldContextTitle) {
    ContextTitle entry{nullptr, 7, 3, const_cast<char *>("Aa"), zantLogSafeStrdup("old")};
    ContextTitle *table[ZANTLOG_CONTEXT_TITLE_CHAINS] = {};
    table[112] = &entry;
    zantLogMsgRec message{};
    message.type = ZANTLOG_MSG_CONTEXT;
    message.productId = 7;
    message.originatorId = 3;
    failOnce(1);
    EXPECT_EQ(SearchContextTitleInList(&message, "new", "Aa", table), &entry);
    EXPECT_STREQ(entry.title, "old");
    EXPECT_EQ(SearchContextTitleInList(&message, "new", "Aa", table), &entry);
    EXPECT_STREQ(entry.title, "new");
    zantLogFree(entry.title);
}

TEST_F(ShortMemory, LeavesTheLiteralsOfALargeTreeAlone) {
    QueryTree tree;
    QueryNode *time = tree.compare(268, 286, 100u);
    QueryNode *query = tree.chain(time, 999, true); // more than twice the room that costs no heap
    const int32_t offset = getLocalTZOffsetFromGMT() + 60;
    for (const uint64_t call : {1u, 2u}) {
        failOnce(call);
        EXPECT_EQ(updateQueryForTZ(query, offset), 4u);
        EXPECT_EQ(time->right->value, 100u);
        EXPECT_EQ(sim::memory().blocks, 0);
    }
    EXPECT_EQ(updateQueryForTZ(query, offset), 0u);
    EXPECT_EQ(time->right->value, 160u);
}

TEST_F(ShortMemory, IsNoMatterWithinTheLimit) {
    QueryTree tree;
    QueryNode *time = tree.compare(268, 286, 100u);
    EXPECT_EQ(updateQueryForTZ(tree.chain(time, 199, true), getLocalTZOffsetFromGMT() + 60), 0u);
    EXPECT_EQ(time->right->value, 160u);
    EXPECT_EQ(sim::memory().allocations, 0u);
}

} // namespace
