#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tools/qzlogger/message_lines.h"

using namespace zantlog::tools;

TEST(MessageLines, WellFormedUtf8) {
    for (const char *text :
         {"", "abc", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF",
          "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA9z"}) {
        EXPECT_TRUE(isUtf8(text)) << text;
    }
}

TEST(MessageLines, MalformedUtf8) {
    for (const char *text : {"\x80",
                             "\xBF",
                             "\xC0\x80",
                             "\xC1\xBF",
                             "\xC2",
                             "\xC2z",
                             "\xE0\x80\x80",
                             "\xE0\x9F\xBF",
                             "\xE2\x82",
                             "\xED\xA0\x80",
                             "\xED\xBF\xBF",
                             "\xF0\x80\x80\x80",
                             "\xF0\x8F\xBF\xBF",
                             "\xF4\x90\x80\x80",
                             "\xF5\x80\x80\x80",
                             "\xF8\x88\x80\x80\x80",
                             "\xFE",
                             "\xFF",
                             "a\xE9",
                             "\xF0\x9F\x98"}) {
        EXPECT_FALSE(isUtf8(text)) << text;
    }
}

TEST(MessageLines, LinesAreCountedFrom1) {
    std::istringstream stream("a\nb");
    MessageLines lines(stream);
    std::string line;
    EXPECT_EQ(lines.number(), 0u);
    ASSERT_TRUE(lines.next(&line));
    EXPECT_EQ(lines.number(), 1u);
    ASSERT_TRUE(lines.next(&line));
    EXPECT_EQ(line, "b");
    EXPECT_EQ(lines.number(), 2u);
    EXPECT_FALSE(lines.next(&line));
    EXPECT_FALSE(lines.failed());
}

TEST(MessageLines, OnlyOneCarriageReturnBelongsToTheLineEnd) {
    std::istringstream stream("a\r\r\n\r\n");
    MessageLines lines(stream);
    std::string line;
    ASSERT_TRUE(lines.next(&line));
    EXPECT_EQ(line, "a\r");
    ASSERT_TRUE(lines.next(&line));
    EXPECT_EQ(line, "");
    EXPECT_FALSE(lines.next(&line));
}

TEST(MessageLines, AReadErrorIsNoEnd) {
    std::istringstream stream("a\nb\n");
    MessageLines lines(stream);
    std::string line;
    ASSERT_TRUE(lines.next(&line));
    stream.setstate(std::ios::badbit);
    EXPECT_FALSE(lines.next(&line));
    EXPECT_TRUE(lines.failed());
}
