// Trees of operators: their order, their limit, and shapes that are no trees.
#include <gtest/gtest.h>
#include <vector>

#include "reader/query.h"
#include "tests/reader/query_builder.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

constexpr int32_t kAnd = 281;
constexpr int32_t kOr = 282;
constexpr int32_t kLess = 283;
constexpr int32_t kEqual = 287;
constexpr int32_t kNotEqual = 288;

bool holds(QueryNode *query) {
    const FileLevelFields file{.productId = 7,
                               .originatorId = 3,
                               .headerText = "hostA",
                               .logSetFileName = nullptr,
                               .creationTime = 1000,
                               .lastWriteTime = 2000};
    const HeaderLevelFields header{
        .productId = 7, .originatorId = 3, .startTime = 1000, .logSetName = nullptr, .lastWriteTime = 2000};
    const bool atFile = fileMatches(query, file);
    EXPECT_EQ(atFile, headerMatches(query, header));
    return atFile;
}

class QueryEvaluation : public testing::Test {
protected:
    QueryNode *yes() { return tree.compare(263, kEqual, 7u); }
    QueryNode *no() { return tree.compare(263, kEqual, 8u); }

    QueryTree tree;
};

TEST_F(QueryEvaluation, NoQueryIsTrue) {
    EXPECT_TRUE(holds(nullptr));
}

TEST_F(QueryEvaluation, OperatorsJoinResults) {
    struct Case {
        int32_t code;
        bool noNo, noYes, yesNo, yesYes;
    };
    for (const Case &one : {Case{kAnd, false, false, false, true}, Case{kOr, false, true, true, true},
                            Case{kLess, false, true, false, false}, Case{284, false, false, true, false},
                            Case{285, true, true, false, true}, Case{286, true, false, true, true},
                            Case{kEqual, true, false, false, true}, Case{kNotEqual, false, true, true, false},
                            Case{280, false, false, false, false}, Case{0, false, false, false, false}}) {
        EXPECT_EQ(holds(tree.node(one.code, no(), no())), one.noNo) << one.code;
        EXPECT_EQ(holds(tree.node(one.code, no(), yes())), one.noYes) << one.code;
        EXPECT_EQ(holds(tree.node(one.code, yes(), no())), one.yesNo) << one.code;
        EXPECT_EQ(holds(tree.node(one.code, yes(), yes())), one.yesYes) << one.code;
    }
}

TEST_F(QueryEvaluation, UnknownOperatorIsFalseWithinATree) {
    EXPECT_FALSE(holds(tree.node(262, yes(), yes())));
    EXPECT_TRUE(holds(tree.node(kEqual, tree.node(262, yes(), yes()), no())));
}

TEST_F(QueryEvaluation, NodesAreNumberedLeftRightParent) {
    QueryNode *a = yes();
    QueryNode *b = no();
    QueryNode *c = yes();
    QueryNode *left = tree.node(kAnd, a, b);
    QueryNode *root = tree.node(kOr, left, c);
    EXPECT_TRUE(holds(root));
    EXPECT_EQ(a->index, 1);
    EXPECT_EQ(b->index, 2);
    EXPECT_EQ(left->index, 3);
    EXPECT_EQ(c->index, 4);
    EXPECT_EQ(root->index, 5);
    EXPECT_EQ(a->left->index, 0);
    EXPECT_EQ(a->right->index, 0);
}

TEST_F(QueryEvaluation, WritesNothingButTheIndex) {
    QueryNode *inner = tree.compare(278, kEqual, "hostA");
    QueryNode *right = yes();
    QueryNode *root = tree.node(kOr, inner, right);
    const std::vector<const QueryNode *> nodes{root,         inner,       right,       inner->left,
                                               inner->right, right->left, right->right};
    std::vector<QueryNode> before;
    for (const QueryNode *node : nodes) {
        before.push_back(*node);
    }
    EXPECT_TRUE(holds(root));
    for (size_t at = 0; at < nodes.size(); ++at) {
        EXPECT_EQ(nodes[at]->type, before[at].type);
        EXPECT_EQ(nodes[at]->value, before[at].value);
        EXPECT_EQ(nodes[at]->text, before[at].text);
        EXPECT_EQ(nodes[at]->left, before[at].left);
        EXPECT_EQ(nodes[at]->right, before[at].right);
    }
}

TEST_F(QueryEvaluation, CanBeRepeatedForOtherFiles) {
    QueryNode *query = tree.node(kAnd, tree.compare(263, kEqual, 7u), tree.compare(265, kEqual, 3u));
    for (int round = 0; round < 3; ++round) {
        for (uint32_t product = 6; product <= 8; ++product) {
            EXPECT_EQ(fileMatches(query, {product, 3, nullptr, nullptr, 0, 0}), product == 7);
            EXPECT_EQ(query->index, 3);
        }
    }
}

TEST_F(QueryEvaluation, WhateverStandsInTheIndexBeforeDoesNotMatter) {
    for (const int32_t index : {0, 1, 2, 3, 199, 200, 201, 0x7FFFFFFF, -1, -0x7FFFFFFF - 1}) {
        QueryNode *left = no();
        QueryNode *right = yes();
        QueryNode *root = tree.node(kOr, left, right);
        for (QueryNode *node : {root, left, right, left->left, left->right, right->left, right->right}) {
            node->index = index;
        }
        EXPECT_TRUE(holds(root)) << index;
        root->type = kAnd;
        left->left->index = index;
        EXPECT_FALSE(holds(root)) << index;
    }
}

TEST_F(QueryEvaluation, DeepestTreesAreEvaluated) {
    for (const bool onTheLeft : {true, false}) {
        QueryNode *root = tree.chain(yes(), 199, onTheLeft);
        EXPECT_TRUE(holds(root));
        EXPECT_EQ(root->index, 199);
        EXPECT_FALSE(holds(tree.chain(no(), 199, onTheLeft)));
    }
}

TEST_F(QueryEvaluation, TheLimitCountsOperatorsNotDepth) {
    // Two chains of 99 under one node: 199.
    QueryNode *full = tree.node(kAnd, tree.chain(yes(), 99, true), tree.chain(yes(), 99, false));
    EXPECT_TRUE(holds(full));
    EXPECT_EQ(full->index, 199);
    QueryNode *over = tree.node(kAnd, tree.chain(yes(), 99, true), tree.chain(yes(), 101, false));
    EXPECT_FALSE(holds(over));
}

TEST_F(QueryEvaluation, MoreOperatorsThanTheLimitAreFalse) {
    // "field equals (everything below)": 200 operators, which would be true.
    for (const bool onTheLeft : {true, false}) {
        QueryNode *below = tree.chain(yes(), 199, onTheLeft);
        EXPECT_FALSE(holds(tree.node(kNotEqual, tree.field(263), below)));
        for (const int operators : {201, 203, 401, 5001}) {
            EXPECT_FALSE(holds(tree.chain(yes(), operators, onTheLeft))) << operators;
        }
    }
}

TEST_F(QueryEvaluation, TermAsRootIsFalse) {
    for (const int32_t kind : {258, 260, 261}) {
        EXPECT_FALSE(holds(tree.number(1, kind))) << kind;
    }
    EXPECT_FALSE(holds(tree.string("hostA")));
    EXPECT_FALSE(holds(tree.field(263)));
    EXPECT_FALSE(holds(tree.field(264)));
}

TEST_F(QueryEvaluation, MissingOperandMakesTheTreeFalse) {
    for (const int32_t code : {kAnd, kOr, kEqual, kNotEqual, 0, 256, 262}) {
        for (QueryNode *broken : {tree.node(code, nullptr, nullptr), tree.node(code, yes(), nullptr),
                                  tree.node(code, nullptr, yes()), tree.node(code, tree.field(263), nullptr),
                                  tree.node(code, nullptr, tree.field(263))}) {
            EXPECT_FALSE(holds(broken)) << code;
            EXPECT_FALSE(holds(tree.node(kOr, broken, yes()))) << code;
            EXPECT_FALSE(holds(tree.node(kOr, yes(), broken))) << code;
            EXPECT_FALSE(holds(tree.node(kOr, yes(), tree.node(kAnd, yes(), broken)))) << code;
        }
    }
}

TEST_F(QueryEvaluation, LiteralsWithoutAFieldMakeTheTreeFalse) {
    for (QueryNode *broken :
         {tree.node(kEqual, tree.number(5), tree.number(5)), tree.node(kOr, tree.number(1), tree.number(1)),
          tree.node(kEqual, tree.string("a"), tree.string("a")), tree.node(kOr, tree.number(1), yes()),
          tree.node(kOr, yes(), tree.number(1))}) {
        EXPECT_FALSE(holds(broken));
        EXPECT_FALSE(holds(tree.node(kOr, broken, yes())));
        EXPECT_FALSE(holds(tree.node(kOr, yes(), broken)));
        EXPECT_FALSE(holds(tree.node(kNotEqual, yes(), broken)));
    }
}

TEST_F(QueryEvaluation, SharedNodesAreEvaluatedOnce) {
    QueryNode *shared = yes();
    QueryNode *root = tree.node(kAnd, tree.node(kAnd, shared, shared), tree.node(kOr, no(), shared));
    EXPECT_TRUE(holds(root));
    EXPECT_EQ(shared->index, 1);
    EXPECT_EQ(root->index, 5);
    // 198 doublings: as a tree it would have more nodes than can be counted.
    QueryNode *top = yes();
    for (int made = 1; made < 199; ++made) {
        top = tree.node(kAnd, top, top);
    }
    EXPECT_TRUE(holds(top));
    EXPECT_EQ(top->index, 199);
    EXPECT_FALSE(holds(tree.node(kAnd, top, top)));
}

TEST_F(QueryEvaluation, TreesThatContainThemselvesAreFalse) {
    QueryNode *own = tree.node(kOr, nullptr, yes());
    own->left = own;
    EXPECT_FALSE(holds(own));
    own->right = own;
    EXPECT_FALSE(holds(own));
    own->left = yes();
    EXPECT_FALSE(holds(own));
    EXPECT_FALSE(holds(tree.node(kOr, yes(), own)));

    QueryNode *deep = tree.chain(yes(), 151, true);
    QueryNode *root = tree.node(kOr, deep, yes());
    EXPECT_TRUE(holds(root));
    QueryNode *bottom = deep;
    while (bottom->left->type == kAnd) {
        bottom = bottom->left;
    }
    bottom->left = root;
    EXPECT_FALSE(holds(root));
    EXPECT_FALSE(holds(deep));
    bottom->left = bottom;
    EXPECT_FALSE(holds(root));
    EXPECT_FALSE(readsHeaderText(root));
}

TEST_F(QueryEvaluation, LongestCycleIsFalse) {
    // 199 operators in one ring.
    std::vector<QueryNode *> ring;
    for (int made = 0; made < 199; ++made) {
        ring.push_back(tree.node(kOr, ring.empty() ? nullptr : ring.back(), tree.field(263)));
    }
    ring.front()->left = ring.back();
    EXPECT_FALSE(holds(ring.back()));
    EXPECT_FALSE(holds(ring.front()));
}

} // namespace
