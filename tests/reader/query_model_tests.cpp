// Random trees against a recursive model of what they mean.
#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "reader/query.h"
#include "tests/reader/query_builder.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

bool modelEval(int32_t code, uint32_t a, uint32_t b) {
    switch (code) {
    case 281:
        return a && b;
    case 282:
        return a || b;
    case 283:
        return b > a;
    case 284:
        return b < a;
    case 285:
        return !(b < a);
    case 286:
        return !(b > a);
    case 287:
        return (a ^ b) == 0;
    case 288:
        return (a ^ b) != 0;
    }
    return false;
}

bool modelText(int32_t code, const char *value, const char *literal) {
    if (!value || !literal)
        return false;
    return (code == 287 && std::string(value) == literal) || (code == 288 && std::string(value) != literal);
}

bool modelField(const FileLevelFields &file, int32_t code, uint32_t field, uint32_t number,
                const char *literal) {
    const auto created = static_cast<uint32_t>(file.creationTime % 0x1'0000'0000);
    const auto written = static_cast<uint32_t>(file.lastWriteTime % 0x1'0000'0000);
    static const std::vector<uint32_t> ofRecords{264, 266, 267, 270, 271, 272, 273, 274, 275, 277};
    if (std::count(ofRecords.begin(), ofRecords.end(), field) != 0)
        return true;
    if (field == 263)
        return modelEval(code, file.productId, number);
    if (field == 265)
        return modelEval(code, file.originatorId, number);
    if (field == 268)
        return modelEval(code, created, number) || modelEval(code, written, number);
    if (field == 269)
        return modelEval(code, created, number);
    if (field == 278)
        return modelText(code, file.headerText, literal);
    return field == 279 && modelText(code, file.logSetFileName, literal);
}

bool modelField(const HeaderLevelFields &header, int32_t code, uint32_t field, uint32_t number,
                const char *literal) {
    const auto started = static_cast<uint32_t>(header.startTime % 0x1'0000'0000);
    const auto written = static_cast<uint32_t>(header.lastWriteTime % 0x1'0000'0000);
    if (field == 263)
        return modelEval(code, header.productId, number);
    if (field == 264)
        return modelEval(code, header.originatorId, number);
    if (field == 268)
        return modelEval(code, started, number) || modelEval(code, written, number);
    if (field == 269)
        return modelEval(code, started, number);
    return field == 279 && modelText(code, header.logSetName, literal);
}

// No value: the tree cannot be evaluated.
template <typename Fields> std::optional<bool> model(const QueryNode *node, const Fields &fields) {
    if (!node || !node->left || !node->right)
        return {};
    struct Operand {
        bool term, field;
        uint32_t number;
    };
    const auto valueOf = [&fields](const QueryNode *operand) -> std::optional<Operand> {
        if (operand->type >= 257 && operand->type <= 261)
            return Operand{true, operand->type == 259, operand->value};
        const std::optional<bool> result = model(operand, fields);
        return result ? std::optional<Operand>({false, false, *result}) : std::nullopt;
    };
    const auto left = valueOf(node->left);
    const auto right = valueOf(node->right);
    if (!left || !right)
        return {};
    const char *literal = node->right->type == 257 ? node->right->text : nullptr;
    if (right->field)
        return modelField(fields, node->type, right->number, left->number, literal);
    if (left->field)
        return modelField(fields, node->type, left->number, right->number, literal);
    if (left->term || right->term)
        return {};
    return modelEval(node->type, left->number, right->number);
}

class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}

    uint32_t below(uint32_t limit) { return static_cast<uint32_t>(engine_() % limit); }
    bool oneIn(uint32_t times) { return below(times) == 0; }
    template <typename T> T anyOf(const std::vector<T> &values) {
        return values[below(static_cast<uint32_t>(values.size()))];
    }

private:
    std::mt19937 engine_;
};

const std::vector<uint32_t> kNumbers{0,   1,    2,    3,          263,        264,
                                     265, 1000, 1001, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
const std::vector<int64_t> kTimes{0, 1, 2, 999, 1000, 1001, 0x80000000, 0x1'0000'0001, 0x7'0000'03E8};
const std::vector<const char *> kTexts{"", "a", "hostA", "hosta", nullptr};

// Shapes a random tree; `flaws` says how often one in so many nodes is not as it should be (0: never).
class TreeMaker {
public:
    TreeMaker(QueryTree &tree, Random &random, uint32_t flaws)
        : tree_(tree), random_(random), flaws_(flaws) {}

    // Of so many operators.
    QueryNode *make(uint32_t operators) {
        if (flawed())
            return random_.oneIn(2) ? nullptr : anyTerm();
        if (operators == 1)
            return comparison();
        if (random_.oneIn(6)) // a field beside a result
            return withField(make(operators - 1));
        if (operators == 2)
            return withField(make(1));
        // A one-sided tree now and then, else one of any shape.
        const uint32_t left =
            random_.oneIn(4) ? 1 + (random_.oneIn(2) ? operators - 3 : 0) : 1 + random_.below(operators - 2);
        QueryNode *first = make(left);
        return tree_.node(anyOperator(), first, make(operators - 1 - left));
    }

private:
    bool flawed() { return flaws_ != 0 && random_.oneIn(flaws_); }

    int32_t anyOperator() {
        return random_.oneIn(20) ? random_.anyOf<int32_t>({0, 256, 262, 280, 289})
                                 : 281 + static_cast<int32_t>(random_.below(8));
    }
    QueryNode *anyField() {
        return tree_.field(random_.oneIn(20) ? random_.below(400) : 263 + random_.below(17));
    }
    QueryNode *anyLiteral() {
        return random_.oneIn(3)
                   ? tree_.string(random_.anyOf(kTexts))
                   : tree_.number(random_.anyOf(kNumbers), random_.anyOf<int32_t>({258, 260, 261}));
    }
    QueryNode *anyTerm() { return random_.oneIn(2) ? anyField() : anyLiteral(); }

    QueryNode *withField(QueryNode *other) {
        QueryNode *field = anyField();
        return random_.oneIn(2) ? tree_.node(anyOperator(), field, other)
                                : tree_.node(anyOperator(), other, field);
    }
    QueryNode *comparison() { return withField(random_.oneIn(8) ? anyField() : anyLiteral()); }

    QueryTree &tree_;
    Random &random_;
    uint32_t flaws_;
};

struct Tally {
    int isTrue = 0;
    int isFalse = 0;
    int cannotBeEvaluated = 0;
};

template <typename Fields>
void expectAsModelled(QueryNode *query, const Fields &fields, bool actual, Tally *tally) {
    const std::optional<bool> expected = model(query, fields);
    ++(!expected ? tally->cannotBeEvaluated : *expected ? tally->isTrue : tally->isFalse);
    ASSERT_EQ(actual, expected.value_or(false));
}

// Random files through one random tree.
void compare(QueryNode *query, Random &random, Tally *tally) {
    for (int files = 0; files < 4; ++files) {
        const FileLevelFields file{random.anyOf(kNumbers), random.anyOf(kNumbers), random.anyOf(kTexts),
                                   random.anyOf(kTexts),   random.anyOf(kTimes),   random.anyOf(kTimes)};
        const HeaderLevelFields header{random.anyOf(kNumbers), random.anyOf(kNumbers), random.anyOf(kTimes),
                                       random.anyOf(kTexts), random.anyOf(kTimes)};
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(query, file, fileMatches(query, file), tally));
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(query, header, headerMatches(query, header), tally));
    }
}

TEST(QueryModel, AgreesOnTreesOfEverySize) {
    Random random(20240117);
    Tally tally;
    for (uint32_t operators = 1; operators <= 199; ++operators) {
        for (int trees = 0; trees < 10; ++trees) {
            QueryTree tree;
            QueryNode *query = TreeMaker(tree, random, 0).make(operators);
            SCOPED_TRACE(testing::Message() << operators << " operators, tree " << trees);
            ASSERT_NO_FATAL_FAILURE(compare(query, random, &tally));
            EXPECT_EQ(query->index, static_cast<int32_t>(operators));
        }
    }
    EXPECT_EQ(tally.cannotBeEvaluated, 0);
    EXPECT_GT(tally.isTrue, 4000);
    EXPECT_GT(tally.isFalse, 4000);
}

TEST(QueryModel, AgreesOnSmallTrees) {
    Random random(7);
    Tally tally;
    for (int trees = 0; trees < 4000; ++trees) {
        QueryTree tree;
        SCOPED_TRACE(trees);
        ASSERT_NO_FATAL_FAILURE(
            compare(TreeMaker(tree, random, 0).make(1 + random.below(6)), random, &tally));
    }
    EXPECT_GT(tally.isTrue, 8000);
    EXPECT_GT(tally.isFalse, 8000);
}

TEST(QueryModel, AgreesOnTreesWithFlaws) {
    Random random(99);
    Tally tally;
    for (int trees = 0; trees < 4000; ++trees) {
        QueryTree tree;
        SCOPED_TRACE(trees);
        QueryNode *query = TreeMaker(tree, random, 20).make(1 + random.below(40));
        if (query != nullptr) {
            ASSERT_NO_FATAL_FAILURE(compare(query, random, &tally));
        }
    }
    EXPECT_GT(tally.cannotBeEvaluated, 2000);
    EXPECT_GT(tally.isTrue, 1000);
    EXPECT_GT(tally.isFalse, 1000);
}

TEST(QueryModel, AnyGraphIsAnswered) {
    Random random(3);
    for (int graphs = 0; graphs < 4000; ++graphs) {
        QueryTree tree;
        std::vector<QueryNode *> nodes;
        const uint32_t size = 1 + random.below(300);
        for (uint32_t made = 0; made < size; ++made) {
            nodes.push_back(tree.node(random.oneIn(3) ? 257 + static_cast<int32_t>(random.below(5))
                                                      : 281 + static_cast<int32_t>(random.below(8)),
                                      nullptr, nullptr));
            nodes.back()->value = 263 + random.below(17);
            nodes.back()->index = static_cast<int32_t>(random.below(400)) - 100;
        }
        const uint32_t loose = random.below(4) == 0 ? 50 : 100000;
        for (QueryNode *node : nodes) {
            node->left = random.oneIn(loose) ? nullptr : random.anyOf(nodes);
            node->right = random.oneIn(loose) ? nullptr : random.anyOf(nodes);
        }
        // Without an end, or with an answer: that it comes is the test.
        QueryNode *root = nodes.front();
        const bool matched = fileMatches(root, {7, 3, "a", "b", 1, 2});
        EXPECT_EQ(fileMatches(root, {7, 3, "a", "b", 1, 2}), matched);
        static_cast<void>(readsHeaderText(root));
        EXPECT_LE(updateQueryForTZ(root, 0), 1u);
    }
}

} // namespace
