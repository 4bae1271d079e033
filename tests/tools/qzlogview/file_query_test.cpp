// The trees that expressions give the library.
#include "tools/qzlogview/file_query.h"

#include <gtest/gtest.h>

#include "tools/qzlogview/where_parser.h"
#include "zantlog/query.h"

namespace zantlog::view {
namespace {

std::string shown(const QueryNode *node) {
    if (node == nullptr) {
        return "all";
    }
    switch (node->type) {
    case 257:
        return std::string("'") + node->text + "'";
    case 258:
        return std::to_string(node->value);
    case 259:
        return node->value == 263   ? "product"
               : node->value == 265 ? "fileoriginator"
               : node->value == 268 ? "time"
               : node->value == 279 ? "logset"
                                    : "field " + std::to_string(node->value);
    default:
        break;
    }
    static const char *const kNames[] = {"and", "or", "<", ">", "<=", ">=", "==", "!="};
    const bool known = node->type >= 281 && node->type <= 288;
    return "(" + shown(node->left) + " " + (known ? kNames[node->type - 281] : "?") + " " +
           shown(node->right) + ")";
}

std::string treeOf(const std::string &expression) {
    const Expression parsed = parseWhere(expression, {1763249100000, kUtc});
    FileQuery query(&parsed);
    return shown(query.root());
}

struct TreeCase {
    const char *expression;
    const char *tree;
};

void PrintTo(const TreeCase &one, std::ostream *out) {
    *out << one.expression;
}

class FileQueries : public testing::TestWithParam<TreeCase> {};

TEST_P(FileQueries, AreTreesOfTheLibrary) {
    EXPECT_EQ(treeOf(GetParam().expression), GetParam().tree);
}

const TreeCase kProducts[] = {
    {"product == 12", "(product == 12)"},
    {"product != 12", "(product != 12)"},
    {"product < 12", "(product < 12)"},
    {"product <= 12", "(product <= 12)"},
    {"product > 12", "(product > 12)"},
    {"product >= 12", "(product >= 12)"},
    {"not product == 12", "(product != 12)"},
    {"not product != 12", "(product == 12)"},
    {"not product < 12", "(product >= 12)"},
    {"not product <= 12", "(product > 12)"},
    {"not product > 12", "(product <= 12)"},
    {"not product >= 12", "(product < 12)"},
    {"not not product == 12", "(product == 12)"},
    {"product == 4294967295", "(product == 4294967295)"},
    {"product == 4294967296", "all"},
    {"product == -1", "all"},
    {"product != -1", "all"},
    {"product in (12, 13)", "((product == 12) or (product == 13))"},
};
INSTANTIATE_TEST_SUITE_P(Products, FileQueries, testing::ValuesIn(kProducts));

// 1763249000 is 2025-11-15 23:23:20 UTC; five seconds, or a second and 26 hours, are left for clocks.
const TreeCase kTimes[] = {
    {"time >= \"2025-11-15 23:23:20\"", "(time >= 1763248995)"},
    {"time > \"2025-11-15 23:23:20.999\"", "(time >= 1763248995)"},
    {"time <= \"2025-11-15 23:23:20\"", "((time <= 1763342601) or (fileoriginator >= 0))"},
    {"time < \"2025-11-15 23:23:20\"", "((time <= 1763342601) or (fileoriginator >= 0))"},
    {"time == \"2025-11-15 23:23:20\"",
     "((time >= 1763248995) and ((time <= 1763342601) or (fileoriginator >= 0)))"},
    {"time != \"2025-11-15 23:23:20\"", "all"},
    {"not time != \"2025-11-15 23:23:20\"",
     "((time >= 1763248995) and ((time <= 1763342601) or (fileoriginator >= 0)))"},
    {"not time < \"2025-11-15 23:23:20\"", "(time >= 1763248995)"},
    {"not time > \"2025-11-15 23:23:20\"", "((time <= 1763342601) or (fileoriginator >= 0))"},
    {"not time == \"2025-11-15 23:23:20\"", "all"},
    {"time > \"1970-01-01 00:00:05\"", "(time >= 0)"},
    {"time > \"1970-01-01 00:00:04\"", "all"},
    {"time < \"1969-12-30\"", "all"},
    {"time > \"2106-02-07 06:28:20\"", "(time >= 4294967295)"},
    {"time > \"2106-02-07 06:28:21\"", "all"},
    {"time < \"2106-02-07 06:28:20\"", "all"},
    {"time == \"1970-01-01\"", "all"},
};
INSTANTIATE_TEST_SUITE_P(Times, FileQueries, testing::ValuesIn(kTimes));

const TreeCase kLogSets[] = {
    {"logset == \"night\"", "((logset == 'night') or (fileoriginator >= 0))"},
    {"not not logset == \"night\"", "((logset == 'night') or (fileoriginator >= 0))"},
    {"logset != \"night\"", "all"},
    {"not logset == \"night\"", "all"},
    {"not logset != \"night\"", "all"},
    {"logset startswith \"n\"", "all"},
    {"logset < \"night\"", "all"},
    {"logset matches \"night\"", "all"},
};
INSTANTIATE_TEST_SUITE_P(LogSets, FileQueries, testing::ValuesIn(kLogSets));

const TreeCase kOthers[] = {
    {"originator == 3", "all"},   {"fileoriginator == 3", "all"}, {"text == \"x\"", "all"},
    {"not text == \"x\"", "all"}, {"severity >= 2", "all"},       {"host == \"x\"", "all"},
    {"file == \"x\"", "all"},     {"args == \"x\"", "all"},       {"version == 65543", "all"},
};
INSTANTIATE_TEST_SUITE_P(Others, FileQueries, testing::ValuesIn(kOthers));

const TreeCase kJoined[] = {
    {"product == 12 && text == \"x\"", "(product == 12)"},
    {"text == \"x\" && product == 12", "(product == 12)"},
    {"product == 12 || text == \"x\"", "all"},
    {"text == \"x\" || product == 12", "all"},
    {"not (product == 12 && text == \"x\")", "all"},
    {"not (product == 12 || text == \"x\")", "(product != 12)"},
    {"not (product == 12 && product == 13)", "((product != 12) or (product != 13))"},
    {"not (product == 12 || product == 13)", "((product != 12) and (product != 13))"},
    {"product > 1 && product < 9 && product != 5", "(((product > 1) and (product < 9)) and (product != 5))"},
    {"product == 1 || product == 2 && product == 3",
     "((product == 1) or ((product == 2) and (product == 3)))"},
    {"product == 1 && (product == 2 || text == \"x\")", "(product == 1)"},
    {"not (product == 1 && not (product == 2 || text == \"x\"))", "all"},
    {"not (product == 1 || not (product == 2 && text == \"x\"))", "((product != 1) and (product == 2))"},
    {"text == \"x\" && text == \"y\"", "all"},
    {"text == \"x\" || text == \"y\"", "all"},
    {"not product in (1, 2)", "((product != 1) and (product != 2))"},
};
INSTANTIATE_TEST_SUITE_P(Joined, FileQueries, testing::ValuesIn(kJoined));

TEST(FileQuery, NoExpressionIsAllFiles) {
    EXPECT_EQ(FileQuery(nullptr).root(), nullptr);
}

std::string alternatives(int count) {
    std::string expression = "product == 1";
    for (int i = 1; i < count; ++i) {
        expression += " || product == 1";
    }
    return expression;
}

// Each comparison is an operator, and each "or" between them.
TEST(FileQuery, TreesThatAreTooLargeForTheLibraryAreAllFiles) {
    EXPECT_NE(treeOf(alternatives(100)), "all");
    EXPECT_EQ(treeOf(alternatives(101)), "all");
    EXPECT_EQ(treeOf(alternatives(100000)), "all");
}

TEST(FileQuery, TextsThatAreTooLongForTheLibraryAreAllFiles) {
    const std::string longest(511, 'x');
    EXPECT_EQ(treeOf("logset == \"" + longest + "\""),
              "((logset == '" + longest + "') or (fileoriginator >= 0))");
    EXPECT_EQ(treeOf("logset == \"" + longest + "x\""), "all");
}

} // namespace
} // namespace zantlog::view
