// What a misspelt name may have meant.
#include "tools/common/suggestions.h"

#include <gtest/gtest.h>

namespace zantlog::tools {
namespace {

using Names = std::vector<std::string>;

TEST(Suggestions, Distances) {
    EXPECT_EQ(editDistance("", ""), 0U);
    EXPECT_EQ(editDistance("abc", ""), 3U);
    EXPECT_EQ(editDistance("", "abc"), 3U);
    EXPECT_EQ(editDistance("abc", "ABC"), 0U);
    EXPECT_EQ(editDistance("abc", "abd"), 1U);
    EXPECT_EQ(editDistance("abc", "acb"), 1U) << "neighbours that changed places";
    EXPECT_EQ(editDistance("abc", "ab"), 1U);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3U);
}

TEST(Suggestions, NearestFirst) {
    const Names names = {"DebugLevel", "DiagnosticLevel", "debug", "RolloverMode", "recycle"};
    EXPECT_EQ(nearest("debg", names), Names{"debug"});
    EXPECT_EQ(nearest("DebugLvel", names), (Names{"DebugLevel"}));
    EXPECT_EQ(nearest("level", names), (Names{"DebugLevel", "DiagnosticLevel"})) << "part of the name";
    EXPECT_EQ(nearest("xyzzy", names), Names{});
}

TEST(Suggestions, AtMostThree) {
    EXPECT_EQ(nearest("ab", {"ab1", "ab2", "ab3", "ab4"}), (Names{"ab1", "ab2", "ab3"}));
}

TEST(Suggestions, Words) {
    EXPECT_EQ(didYouMean({}), "");
    EXPECT_EQ(didYouMean({"a"}), "; did you mean a?");
    EXPECT_EQ(didYouMean({"a", "b"}), "; did you mean a or b?");
    EXPECT_EQ(didYouMean({"a", "b", "c"}), "; did you mean a, b or c?");
}

} // namespace
} // namespace zantlog::tools
