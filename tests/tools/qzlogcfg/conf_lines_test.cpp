// Lines of a .conf file as the tool reads them: as docs/conf-format.md has it.
#include "tools/qzlogcfg/conf_lines.h"

#include <gtest/gtest.h>

namespace zantlog::tools {
namespace {

ConfLine line(const std::string &text) {
    const ConfFile file = parseConfText(text + "\r\n");
    EXPECT_EQ(file.lines.size(), 1U);
    return file.lines.at(0);
}

struct Example {
    const char *text;
    const char *key;
    const char *value;
};

TEST(ConfLines, KeysAndValues) {
    for (const Example &example : {Example{"12.A=one", "12.A", "one"},
                                   {"12.A=a=b", "12.A", "a"},
                                   {"12.A==x", "12.A", "x"},
                                   {"=12.A=x", "12.A", "x"},
                                   {"12.A=", "12.A", ""},
                                   {"12.A= x  ", "12.A", " x"},
                                   {"12.A.B=x", "12.A.B", "x"},
                                   {" 12.A=x", " 12.A", "x"},
                                   {"12.A", "", ""},
                                   {"#12.A=x", "", ""},
                                   {"  # 12.A=x", "", ""}}) {
        EXPECT_EQ(line(example.text).key, example.key) << example.text;
        EXPECT_EQ(line(example.text).value, example.value) << example.text;
    }
    EXPECT_TRUE(line("#12.A=x").comment);
    EXPECT_TRUE(line("").comment);
    EXPECT_FALSE(line("12.A").comment);
}

TEST(ConfLines, WhatIsNotRead) {
    EXPECT_FALSE(line("12.A=one").cut);
    EXPECT_TRUE(line("12.A=a=b").cut);
    EXPECT_FALSE(line("12.A==x").cut);
    EXPECT_FALSE(line("12.A=" + std::string(399, 'x')).cut);
    EXPECT_TRUE(line("12.A=" + std::string(400, 'x')).cut);
    EXPECT_EQ(line("12.A=" + std::string(400, 'x')).value, std::string(399, 'x'));
    EXPECT_FALSE(line(std::string(498, 'x')).tooLong);
    EXPECT_TRUE(line(std::string(499, 'x')).tooLong);
    EXPECT_FALSE(line("=").hasValue);
}

TEST(ConfLines, NumbersAndEnds) {
    const ConfFile file = parseConfText("a=1\r\n\r\nb=2");
    ASSERT_EQ(file.lines.size(), 3U);
    EXPECT_EQ(file.lines[2].number, 3U);
    EXPECT_EQ(file.lines[2].key, "b");
    EXPECT_FALSE(file.endsInLineEnd);
    EXPECT_TRUE(parseConfText("").endsInLineEnd);
    EXPECT_TRUE(parseConfText("a=1\n").endsInLineEnd);
    EXPECT_EQ(parseConfText("a=1\n\x1a"
                            "b=2\n")
                  .lines.size(),
              1U);
    EXPECT_TRUE(parseConfText("a=1\n\x1a").endsInControlZ);
}

TEST(ConfLines, TheFirstValueCounts) {
    const auto values = valuesOf(parseConfText("a.x=1\na.x=2\nb.y\nb.y=3\n"));
    EXPECT_EQ(values.size(), 2U);
    EXPECT_EQ(values.at("a.x"), "1");
    EXPECT_EQ(values.at("b.y"), "3");
}

TEST(ConfLines, RootsOfKeys) {
    EXPECT_EQ(rootOfKey("3.DebugLevel"), "3");
    EXPECT_EQ(nameOfKey("3.DebugLevel"), "DebugLevel");
    EXPECT_EQ(rootOfKey("LOGSET.night.DebugLevel"), "LOGSET.night");
    EXPECT_EQ(nameOfKey("LOGSET.night.DebugLevel"), "DebugLevel");
    EXPECT_EQ(rootOfKey("LOGSET.night"), "");
    EXPECT_EQ(rootOfKey("DebugLevel"), "");
    EXPECT_EQ(nameOfKey("DebugLevel"), "");
}

} // namespace
} // namespace zantlog::tools
