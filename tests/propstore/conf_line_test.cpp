// The splitting of lines.
#include "propstore/conf_line.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST(ConfLine, TokensAreThoseOfStrtok) {
    std::string_view rest = "==a=b..c=";
    EXPECT_EQ("a", takeToken(&rest, "="));
    EXPECT_EQ("b", takeToken(&rest, ".="));
    EXPECT_EQ(".c=", rest); // the delimiter behind a token goes with it, and no more
    EXPECT_EQ("c", takeToken(&rest, ".="));
    EXPECT_EQ("", rest);
    EXPECT_EQ("", takeToken(&rest, "="));
    EXPECT_EQ("", takeToken(&rest, "="));
}

TEST(ConfLine, TextOfDelimitersHasNoToken) {
    std::string_view rest = "===";
    EXPECT_EQ("", takeToken(&rest, "="));
    EXPECT_EQ("", rest);
    rest = "";
    EXPECT_EQ("", takeToken(&rest, "="));
}

TEST(ConfLine, TextWithoutDelimiterIsOneToken) {
    std::string_view rest = "abc\n";
    EXPECT_EQ("abc\n", takeToken(&rest, "="));
    EXPECT_EQ("", rest);
}

TEST(ConfLine, KeyEndsAtTheFirstEqualsSign) {
    EXPECT_EQ("1.A", keyOfLine("1.A=x=y\n"));
    EXPECT_EQ("1.A", keyOfLine("=1.A=x\n"));
    EXPECT_EQ("1.A\n", keyOfLine("1.A\n"));
    EXPECT_EQ("", keyOfLine(""));
}

TEST(ConfLine, RootOfALogSetLineIsItsName) {
    EXPECT_EQ("1", rootOfLine("1.A=x", ".=").name);
    EXPECT_FALSE(rootOfLine("1.A=x", ".=").logset);
    EXPECT_EQ("a", rootOfLine("LOGSET.a.A=x", ".=").name);
    EXPECT_TRUE(rootOfLine("LOGSET.a.A=x", ".=").logset);
    EXPECT_FALSE(rootOfLine("LOGSETS.a.A=x", ".=").logset);
    EXPECT_EQ("", rootOfLine("LOGSET", ".=").name);
    EXPECT_TRUE(rootOfLine("LOGSET", ".=").logset);
    EXPECT_EQ("1=x", rootOfLine("1=x", ".").name);
}

TEST(ConfLine, LogsetRootIsThePrefixAndTheName) {
    const LineRoot line = {"a", true};
    EXPECT_TRUE(isLogsetRoot(line, "LOGSET.a"));
    EXPECT_FALSE(isLogsetRoot(line, "a"));
    EXPECT_FALSE(isLogsetRoot(line, "LOGSET.ab"));
    EXPECT_FALSE(isLogsetRoot(line, "LOGSET.A"));
    EXPECT_FALSE(isLogsetRoot(line, "LOGSETa"));
    EXPECT_FALSE(isLogsetRoot(line, "LOGSET"));
    EXPECT_FALSE(isLogsetRoot({"a", false}, "LOGSET.a"));
    EXPECT_FALSE(isLogsetRoot({"", true}, "LOGSET."));
}

TEST(ConfLine, CommentBeginsWithBlanksAndAHash) {
    EXPECT_TRUE(fileIsCommentLine("#"));
    EXPECT_TRUE(fileIsCommentLine("# x\n"));
    EXPECT_TRUE(fileIsCommentLine("   #x=y\n"));
    EXPECT_FALSE(fileIsCommentLine("\t# x\n"));
    EXPECT_FALSE(fileIsCommentLine("x # y\n"));
    EXPECT_FALSE(fileIsCommentLine(""));
    EXPECT_FALSE(fileIsCommentLine("\n"));
    EXPECT_FALSE(fileIsCommentLine("   "));
    EXPECT_FALSE(fileIsCommentLine("   \n"));
}

TEST(ConfLine, ConfAnywhereNamesAFile) {
    EXPECT_TRUE(namesConfFile("C:\\x.conf"));
    EXPECT_TRUE(namesConfFile(".config\\x"));
    EXPECT_FALSE(namesConfFile("C:\\x.CONF"));
    EXPECT_FALSE(namesConfFile("SOFTWARE\\conf"));
    EXPECT_FALSE(namesConfFile(""));
}

} // namespace
} // namespace zantlog::test
