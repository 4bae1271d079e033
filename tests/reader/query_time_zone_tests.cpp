// Moving a query's time literals into the local time zone. A zone is chosen before a process starts.
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/reader/query_builder.h"
#include "tests/support/child_process.h"
#include "tests/support/machine.h"
#include "zantlog/log_file.h"

namespace {

using namespace zantlog::test;

constexpr uint32_t kTime = 268;
constexpr uint32_t kStartTime = 269;
constexpr int32_t kGreaterOrEqual = 286;
constexpr int32_t kAnd = 281;

// An offset from the local one, whatever that is.
int32_t offsetPlus(int32_t seconds) {
    return getLocalTZOffsetFromGMT() + seconds;
}

ZANTLOG_CHILD(movesLiteralTo) {
    QueryTree tree;
    QueryNode *query = tree.compare(kTime, kGreaterOrEqual, 1000000u);
    const uint32_t result = updateQueryForTZ(query, std::stoi(arguments[0]));
    if (result == 0 && std::to_string(query->right->value) == arguments[1]) {
        return 0;
    }
    std::fprintf(stderr, "%u, %u\n", result, query->right->value);
    return 1;
}

void expectMoved(const char *zone, const char *queryOffset, const char *expected) {
    const auto before = environmentText("TZ");
    setEnvironment("TZ", zone);
    EXPECT_EQ(runChild("movesLiteralTo", {queryOffset, expected}), 0) << zone << ", " << queryOffset;
    setEnvironment("TZ", before ? before->c_str() : nullptr);
}

TEST(QueryTimeZone, LiteralsMoveByTheQuerysOffsetMinusTheLocalOne) {
    expectMoved("UTC0", "0", "1000000");
    expectMoved("UTC0", "-3600", "996400");
    expectMoved("UTC0", "18000", "1018000");
    expectMoved("EST5", "18000", "1000000");
    expectMoved("EST5", "0", "982000");
    expectMoved("AAA-2", "-7200", "1000000");
    expectMoved("AAA-2", "0", "1007200");
    expectMoved("AAA-2", "18000", "1025200");
}

TEST(QueryTimeZone, OwnOffsetChangesNothing) {
    QueryTree tree;
    QueryNode *time = tree.compare(kTime, kGreaterOrEqual, 1262304000u);
    QueryNode *start = tree.compare(kStartTime, kGreaterOrEqual, 7u);
    EXPECT_EQ(updateQueryForTZ(tree.node(kAnd, time, start), offsetPlus(0)), 0u);
    EXPECT_EQ(time->right->value, 1262304000u);
    EXPECT_EQ(start->right->value, 7u);
}

TEST(QueryTimeZone, BothTimeFieldsAreAdjustedWithEveryOperator) {
    for (const uint32_t field : {kTime, kStartTime}) {
        for (int32_t code = 280; code <= 289; ++code) {
            QueryTree tree;
            QueryNode *query = tree.compare(field, code, 500u);
            EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
            EXPECT_EQ(query->right->value, 560u) << field << ", " << code;
            EXPECT_EQ(query->left->value, field);
        }
    }
}

TEST(QueryTimeZone, EveryKindOfLiteralIsAdjusted) {
    for (const int32_t kind : {257, 258, 260, 261}) {
        QueryTree tree;
        QueryNode *query = tree.node(kGreaterOrEqual, tree.field(kTime), tree.number(500, kind));
        EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
        EXPECT_EQ(query->right->value, 560u) << kind;
    }
}

TEST(QueryTimeZone, OtherFieldsStay) {
    for (uint32_t field = 260; field <= 282; ++field) {
        if (field == kTime || field == kStartTime) {
            continue;
        }
        QueryTree tree;
        QueryNode *query = tree.compare(field, kGreaterOrEqual, 500u);
        EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
        EXPECT_EQ(query->right->value, 500u) << field;
    }
}

TEST(QueryTimeZone, LiteralZeroStays) {
    QueryTree tree;
    QueryNode *query = tree.compare(kTime, kGreaterOrEqual, 0u);
    EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
    EXPECT_EQ(query->right->value, 0u);
}

TEST(QueryTimeZone, FieldOnTheRightStays) {
    QueryTree tree;
    QueryNode *query = tree.node(kGreaterOrEqual, tree.number(500), tree.field(kTime));
    EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
    EXPECT_EQ(query->left->value, 500u);
    EXPECT_EQ(query->right->value, kTime);
}

TEST(QueryTimeZone, LiteralWithTheNumberOfATimeFieldIsNone) {
    QueryTree tree;
    QueryNode *query = tree.node(kGreaterOrEqual, tree.number(kTime), tree.number(500));
    EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
    EXPECT_EQ(query->right->value, 500u);
}

TEST(QueryTimeZone, SubexpressionOnTheRightStays) {
    QueryTree tree;
    QueryNode *inner = tree.compare(263, kGreaterOrEqual, 5u);
    inner->value = 77;
    QueryNode *query = tree.node(kGreaterOrEqual, tree.field(kTime), inner);
    EXPECT_EQ(updateQueryForTZ(query, offsetPlus(60)), 0u);
    EXPECT_EQ(inner->value, 77u);
    EXPECT_EQ(inner->right->value, 5u);
}

TEST(QueryTimeZone, LiteralsWrapAt32Bits) {
    QueryTree tree;
    QueryNode *over = tree.compare(kTime, kGreaterOrEqual, 0xFFFFFFF0u);
    EXPECT_EQ(updateQueryForTZ(over, offsetPlus(0x20)), 0u);
    EXPECT_EQ(over->right->value, 0x10u);
    QueryNode *under = tree.compare(kTime, kGreaterOrEqual, 1u);
    EXPECT_EQ(updateQueryForTZ(under, offsetPlus(-2)), 0u);
    EXPECT_EQ(under->right->value, 0xFFFFFFFFu);
}

TEST(QueryTimeZone, AllLiteralsOfATreeAreAdjusted) {
    QueryTree tree;
    QueryNode *a = tree.compare(kTime, kGreaterOrEqual, 100u);
    QueryNode *b = tree.compare(kTime, kGreaterOrEqual, 200u);
    QueryNode *c = tree.compare(kStartTime, kGreaterOrEqual, 300u);
    QueryNode *d = tree.compare(263, kGreaterOrEqual, 400u);
    QueryNode *query = tree.node(kAnd, tree.node(kAnd, a, d), tree.node(282, b, c));
    EXPECT_EQ(updateQueryForTZ(query, offsetPlus(-60)), 0u);
    EXPECT_EQ(a->right->value, 40u);
    EXPECT_EQ(b->right->value, 140u);
    EXPECT_EQ(c->right->value, 240u);
    EXPECT_EQ(d->right->value, 400u);
    EXPECT_EQ(query->index, 0);
    EXPECT_EQ(a->right->index, 0);
}

TEST(QueryTimeZone, MissingOperandIsOneAndChangesNothing) {
    QueryTree tree;
    QueryNode *time = tree.compare(kTime, kGreaterOrEqual, 100u);
    for (QueryNode *broken :
         {tree.node(kAnd, nullptr, nullptr), tree.node(kAnd, tree.number(1), nullptr),
          tree.node(kAnd, nullptr, tree.number(1)), tree.node(0, nullptr, nullptr),
          tree.node(kAnd, time, tree.node(kAnd, tree.node(287, nullptr, tree.number(1)), time))}) {
        EXPECT_EQ(updateQueryForTZ(broken, offsetPlus(60)), 1u);
        EXPECT_EQ(updateQueryForTZ(tree.node(kAnd, time, broken), offsetPlus(60)), 1u);
        EXPECT_EQ(updateQueryForTZ(tree.node(kAnd, broken, time), offsetPlus(60)), 1u);
        EXPECT_EQ(time->right->value, 100u);
    }
}

TEST(QueryTimeZone, TermsAndNothingNeedNoAdjustment) {
    QueryTree tree;
    QueryNode *term = tree.number(500);
    EXPECT_EQ(updateQueryForTZ(term, offsetPlus(60)), 0u);
    EXPECT_EQ(term->value, 500u);
    EXPECT_EQ(updateQueryForTZ(nullptr, offsetPlus(60)), 0u);
}

TEST(QueryTimeZone, TreesBeyondAllLimitsAreAdjusted) {
    for (const int operators : {199, 201, 397, 399, 20001}) {
        for (const bool onTheLeft : {true, false}) {
            QueryTree tree;
            QueryNode *time = tree.compare(kTime, kGreaterOrEqual, 100u);
            EXPECT_EQ(updateQueryForTZ(tree.chain(time, operators, onTheLeft), offsetPlus(60)), 0u);
            EXPECT_EQ(time->right->value, 160u) << operators;
        }
    }
}

TEST(QueryTimeZone, SharedOperatorIsAdjustedOnceAndACycleEnds) {
    QueryTree tree;
    QueryNode *time = tree.compare(kTime, kGreaterOrEqual, 100u);
    QueryNode *twice = tree.node(kAnd, time, time);
    EXPECT_EQ(updateQueryForTZ(tree.node(kAnd, twice, twice), offsetPlus(60)), 0u);
    EXPECT_EQ(time->right->value, 160u);
    QueryNode *cycle = tree.node(kAnd, time, twice);
    twice->right = cycle;
    EXPECT_EQ(updateQueryForTZ(cycle, offsetPlus(60)), 0u);
    EXPECT_EQ(time->right->value, 220u);
}

} // namespace
