// Typed arguments, from the lines that hold them.
#include "tools/qzlogview/arguments.h"

#include "tests/tools/qzlogview/record_lines.h"
#include "tools/qzlogview/fields.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;

namespace {

class Arguments : public testing::Test {
protected:
    std::vector<Argument> parse(const std::string &list) {
        entry_ = entryOf(source_, "2,12,3,3,1,1763249000123,1,2,0:,1:x,0:,0," + list);
        return argumentsOf(entry_.record.fields.lis);
    }
    std::string shown(const std::string &list) {
        (void)parse(list);
        std::string out;
        appendArguments(entry_.record, &out);
        return out;
    }

    Source source_ = productSource();
    Entry entry_;
};

} // namespace

TEST_F(Arguments, NoneShowsNothing) {
    EXPECT_TRUE(parse("(0|)").empty());
    EXPECT_EQ(shown("(0|)"), "");
}

TEST_F(Arguments, SignedIntegers) {
    const auto all = parse("(3|i8:-5|i32:-2147483648|i64:-9223372036854775808|)");
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].kind, ZANTLIS_SIGNED);
    EXPECT_EQ(all[0].number, -5);
    EXPECT_EQ(all[1].text, "-2147483648");
    EXPECT_EQ(all[2].number, INT64_MIN);
    EXPECT_EQ(all[2].text, "-9223372036854775808");
}

TEST_F(Arguments, UnsignedIntegers) {
    const auto all = parse("(2|u32:5|u64:18446744073709551615|)");
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].kind, ZANTLIS_UNSIGNED);
    EXPECT_EQ(all[0].word, 5u);
    EXPECT_EQ(all[0].text, "5");
    EXPECT_EQ(all[1].word, UINT64_MAX);
    EXPECT_EQ(all[1].text, "18446744073709551615");
}

TEST_F(Arguments, DoublesPointersCharacters) {
    const auto all = parse("(4|83.250000|8-0.500000|964:4096|11:x|)");
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[0].kind, ZANTLIS_DOUBLE);
    EXPECT_EQ(all[0].real, 3.25);
    EXPECT_EQ(all[0].text, "3.25");
    EXPECT_EQ(all[1].text, "-0.5");
    EXPECT_EQ(all[2].kind, ZANTLIS_POINTER);
    EXPECT_EQ(all[2].word, 4096u);
    EXPECT_EQ(all[2].text, "0x1000");
    EXPECT_EQ(all[3].kind, ZANTLIS_WIDE_CHAR);
    EXPECT_EQ(all[3].text, "x");
}

TEST_F(Arguments, ErrorCodesAndTimes) {
    const auto all = parse("(2|D32:5|C64:1763249000|)");
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].number, 5);
    EXPECT_EQ(all[0].text, "5");
    EXPECT_EQ(kindName(all[0].kind), "error");
    EXPECT_EQ(all[1].kind, ZANTLIS_DATE_TIME);
    EXPECT_EQ(all[1].number, 1763249000);
}

TEST_F(Arguments, TextsOfThreeKinds) {
    const auto all = parse("(3|A6:a\xE2\x82\xAC\xC3\xA4|X2:C:|S2:D:|)");
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].kind, ZANTLIS_WIDE_STRING);
    EXPECT_EQ(all[0].text, "a\xE2\x82\xAC\xC3\xA4");
    EXPECT_EQ(all[1].kind, ZANTLIS_UTF8_STRING);
    EXPECT_EQ(all[1].text, "C:");
    EXPECT_EQ(all[2].kind, ZANTLIS_NATIVE_STRING);
    EXPECT_EQ(all[2].text, "D:");
}

TEST_F(Arguments, WideTextAboveTheBasicPlane) {
    EXPECT_EQ(parse("(1|A4:\xF0\x9F\x98\x80|)").at(0).text, "\xF0\x9F\x98\x80");
}

TEST_F(Arguments, NestedOnesStandInTheirOwnList) {
    const auto all = parse("(2|(2|u32:1|(1|S1:x|),),i32:7|)");
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].kind, ZANTLIS_NESTED);
    ASSERT_EQ(all[0].nested.size(), 2u);
    EXPECT_EQ(all[0].nested[0].word, 1u);
    ASSERT_EQ(all[0].nested[1].nested.size(), 1u);
    EXPECT_EQ(all[0].nested[1].nested[0].text, "x");
    EXPECT_EQ(all[1].number, 7);
}

TEST_F(Arguments, AreShownInBrackets) {
    EXPECT_EQ(shown("(2|u32:5|S2:C:|)"), "[5, \"C:\"]");
    EXPECT_EQ(shown("(2|(2|u32:1|(1|S1:x|),),i32:-7|)"), "[[1, [\"x\"]], -7]");
    EXPECT_EQ(shown("(4|83.250000|964:255|11:y|A1:w|)"), "[3.25, 0xff, \"y\", \"w\"]");
    EXPECT_EQ(shown("(1|S0:|)"), "[\"\"]");
}

TEST_F(Arguments, AreShownSafely) {
    EXPECT_EQ(shown("(2|S4:\x1b[2J|X3:a\nb|)"), "[\"\\x1b[2J\", \"a\\nb\"]");
    EXPECT_EQ(shown("(1|S1:\xFF|)"), "[\"\xEF\xBF\xBD\"]");
}

TEST(ArgumentKinds, HaveNames) {
    EXPECT_EQ(kindName(ZANTLIS_WIDE_CHAR), "character");
    EXPECT_EQ(kindName(ZANTLIS_SIGNED), "signed");
    EXPECT_EQ(kindName(ZANTLIS_UNSIGNED), "unsigned");
    EXPECT_EQ(kindName(ZANTLIS_DOUBLE), "double");
    EXPECT_EQ(kindName(ZANTLIS_POINTER), "pointer");
    EXPECT_EQ(kindName(ZANTLIS_WIDE_STRING), "wide");
    EXPECT_EQ(kindName(ZANTLIS_DATE_TIME), "time");
    EXPECT_EQ(kindName(ZANTLIS_NESTED), "list");
    EXPECT_EQ(kindName(ZANTLIS_UTF8_STRING), "utf8");
    EXPECT_EQ(kindName(ZANTLIS_NATIVE_STRING), "native");
}
