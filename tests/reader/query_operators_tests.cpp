// Terms, operators on numbers and texts.
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "zantlog/query.h"

namespace {

TEST(QueryTerm, IsOneOfFiveKinds) {
    for (int32_t kind = 257; kind <= 261; ++kind) {
        EXPECT_EQ(isterm(kind), 1) << kind;
    }
    for (const int32_t kind : {256, 262, 0, 1, -257, -1, 281, 288, std::numeric_limits<int32_t>::max(),
                               std::numeric_limits<int32_t>::min()}) {
        EXPECT_EQ(isterm(kind), 0) << kind;
    }
}

struct Case {
    uint32_t a;
    uint32_t b;
    int32_t result;
};

void expectEval(int32_t operatorCode, const std::vector<Case> &cases) {
    for (const Case &one : cases) {
        EXPECT_EQ(eval(operatorCode, one.a, one.b), one.result)
            << operatorCode << ": " << one.a << ", " << one.b;
    }
}

constexpr uint32_t kMost = 0xFFFFFFFF;

TEST(QueryOperator, AndWantsBothNotZero) {
    expectEval(281, {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 1}, {2, 4, 1}, {kMost, 1, 1}, {0, kMost, 0}});
}

TEST(QueryOperator, OrWantsOneNotZero) {
    expectEval(282, {{0, 0, 0}, {0, 1, 1}, {1, 0, 1}, {1, 1, 1}, {0, kMost, 1}, {8, 0, 1}});
}

TEST(QueryOperator, LessIsUnsigned) {
    expectEval(283,
               {{1, 2, 1}, {2, 1, 0}, {2, 2, 0}, {0, kMost, 1}, {kMost, 0, 0}, {0x7FFFFFFF, 0x80000000, 1}});
}

TEST(QueryOperator, GreaterIsUnsigned) {
    expectEval(284,
               {{1, 2, 0}, {2, 1, 1}, {2, 2, 0}, {0, kMost, 0}, {kMost, 0, 1}, {0x80000000, 0x7FFFFFFF, 1}});
}

TEST(QueryOperator, LessOrEqualIsUnsigned) {
    expectEval(285, {{1, 2, 1}, {2, 1, 0}, {2, 2, 1}, {kMost, 0, 0}, {kMost, kMost, 1}, {0, 0, 1}});
}

TEST(QueryOperator, GreaterOrEqualIsUnsigned) {
    expectEval(286, {{1, 2, 0}, {2, 1, 1}, {2, 2, 1}, {0, kMost, 0}, {kMost, kMost, 1}, {kMost, 0, 1}});
}

TEST(QueryOperator, Equal) {
    expectEval(287, {{1, 2, 0}, {2, 2, 1}, {0, 0, 1}, {kMost, kMost, 1}, {kMost, 0, 0}});
}

TEST(QueryOperator, NotEqual) {
    expectEval(288, {{1, 2, 1}, {2, 2, 0}, {0, 0, 0}, {kMost, kMost, 0}, {kMost, 0, 1}});
}

TEST(QueryOperator, OfAnyOtherCodeIsFalse) {
    for (const int32_t code :
         {0, 1, -1, 257, 259, 268, 280, 289, 1000, std::numeric_limits<int32_t>::min()}) {
        expectEval(code, {{0, 0, 0}, {1, 1, 0}, {1, 2, 0}, {2, 1, 0}});
    }
}

TEST(QueryText, IsEqualByteForByte) {
    EXPECT_EQ(evalString(287, "hostA", "hostA"), 1);
    EXPECT_EQ(evalString(287, "hostA", "hosta"), 0);
    EXPECT_EQ(evalString(287, "hostA", "hostAB"), 0);
    EXPECT_EQ(evalString(287, "hostAB", "hostA"), 0);
    EXPECT_EQ(evalString(287, "", ""), 1);
    EXPECT_EQ(evalString(287, "", " "), 0);
    EXPECT_EQ(evalString(287, "\xE9", "\xE9"), 1);
    EXPECT_EQ(evalString(287, "\xE9", "\xC3\xA9"), 0);
}

TEST(QueryText, IsNotEqualWhenAByteDiffers) {
    EXPECT_EQ(evalString(288, "hostA", "hostA"), 0);
    EXPECT_EQ(evalString(288, "hostA", "hosta"), 1);
    EXPECT_EQ(evalString(288, "hostA", "hostAB"), 1);
    EXPECT_EQ(evalString(288, "", ""), 0);
    EXPECT_EQ(evalString(288, "", "a"), 1);
}

TEST(QueryText, KnowsNoOtherOperator) {
    for (const int32_t code : {0, 281, 282, 283, 284, 285, 286, 289, -1}) {
        EXPECT_EQ(evalString(code, "a", "a"), 0) << code;
        EXPECT_EQ(evalString(code, "a", "b"), 0) << code;
        EXPECT_EQ(evalString(code, "b", "a"), 0) << code;
    }
}

TEST(QueryText, ThatIsNullComparesWithNothing) {
    for (const int32_t code : {287, 288}) {
        EXPECT_EQ(evalString(code, nullptr, "a"), 0);
        EXPECT_EQ(evalString(code, "a", nullptr), 0);
        EXPECT_EQ(evalString(code, nullptr, nullptr), 0);
    }
}

} // namespace
