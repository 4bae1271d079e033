// Arguments of a catalog object in a record line.
#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "tests/format/record_line.h"

namespace {

using namespace zantlog::test;

// The whole line of an application record around its argument list.
std::string lineAround(const std::string &list) {
    return "2,1,2,3,4,5,6,7,0:,0:,0:,2," + list + "\n";
}

void expectArguments(const std::vector<zantLisArg> &arguments, const std::string &list) {
    const SerializedLine line = serializeArguments(arguments);
    EXPECT_EQ(line.result, 0u) << list;
    EXPECT_EQ(line.bytes, lineAround(list));
}

uint32_t resultOf(const std::vector<zantLisArg> &arguments) {
    return serializeArguments(arguments).result;
}

TEST(Arguments, AnEmptyListHasItsCount) {
    expectArguments({}, "(0|)");
}

TEST(Arguments, TheCountIsTheListsOwnAndUnsigned) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
    record.slot.level = 2;
    record.lis.argCount = 4294967295u;
    EXPECT_EQ(serialize(record).bytes, lineAround("(4294967295|)"));
    zantLisArg argument = unsignedOf(32, 5);
    record.lis.first = &argument;
    record.lis.argCount = 3;
    EXPECT_EQ(serialize(record).bytes, lineAround("(3|u32:5|)"));
}

TEST(Arguments, TheMessageIdIsNotWritten) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
    record.slot.level = 2;
    record.lis.textId = 4711;
    EXPECT_EQ(serialize(record).bytes, lineAround("(0|)"));
}

TEST(Arguments, StandInTheOrderOfTheChain) {
    expectArguments(
        {unsignedOf(8, 1), narrowOf(ZANTLIS_NATIVE_STRING, "b"), signedOf(ZANTLIS_SIGNED, 16, -3)},
        "(3|u8:1|S1:b|i16:-3|)");
}

// ---- wide characters

TEST(Arguments, AnAsciiCharacter) {
    expectArguments({characterOf('x')}, "(1|11:x|)");
    expectArguments({characterOf('|')}, "(1|11:||)");
    expectArguments({characterOf('\n')}, "(1|11:\r|)");
}

TEST(Arguments, ACharacterOfTwoBytesLosesTheSecondToTheBar) {
    // The byte at the end of its field says nothing.
    const std::string bytes = serializeArguments({characterOf(0x00E9), unsignedOf(8, 1)}).bytes;
    const std::string before = "2,1,2,3,4,5,6,7,0:,0:,0:,2,(2|12:\xC3|";
    ASSERT_EQ(bytes.size(), before.size() + 1 + 7);
    EXPECT_EQ(bytes.substr(0, before.size()), before);
    EXPECT_EQ(bytes.substr(before.size() + 1), "u8:1|)\n");
}

TEST(Arguments, ACharacterOfThreeBytesLosesTheSecondToTheBar) {
    for (const auto &[character, first, third] :
         {std::tuple{uint16_t{0x20AC}, '\xE2', '\xAC'}, std::tuple{uint16_t{0xFFFF}, '\xEF', '\xBF'}}) {
        const std::string bytes = serializeArguments({characterOf(character), unsignedOf(8, 1)}).bytes;
        std::string before = "2,1,2,3,4,5,6,7,0:,0:,0:,2,(2|13:";
        before += {first, '|', third};
        ASSERT_EQ(bytes.size(), before.size() + 1 + 7);
        EXPECT_EQ(bytes.substr(0, before.size()), before);
        EXPECT_EQ(bytes.substr(before.size() + 1), "u8:1|)\n");
    }
}

TEST(Arguments, CharacterZeroKeepsToItsField) {
    const std::string bytes = serializeArguments({characterOf(0), unsignedOf(8, 1)}).bytes;
    const std::string before = "2,1,2,3,4,5,6,7,0:,0:,0:,2,(2|10:";
    ASSERT_EQ(bytes.size(), before.size() + 1 + 7);
    EXPECT_EQ(bytes.substr(0, before.size()), before);
    EXPECT_EQ(bytes.substr(before.size() + 1), "u8:1|)\n");
}

TEST(Arguments, ASurrogateCharacterFails) {
    for (const uint16_t character :
         {uint16_t{0xD800}, uint16_t{0xDBFF}, uint16_t{0xDC00}, uint16_t{0xDFFF}}) {
        EXPECT_EQ(resultOf({characterOf(character)}), 1u);
    }
}

// ---- integers

TEST(Arguments, SignedIntegersOfAnyWidth) {
    expectArguments({signedOf(ZANTLIS_SIGNED, 32, 5)}, "(1|i32:5|)");
    expectArguments({signedOf(ZANTLIS_SIGNED, 8, -128)}, "(1|i8:-128|)");
    expectArguments({signedOf(ZANTLIS_SIGNED, 64, INT64_MIN)}, "(1|i64:-9223372036854775808|)");
    expectArguments({signedOf(ZANTLIS_SIGNED, 64, INT64_MAX)}, "(1|i64:9223372036854775807|)");
    expectArguments({signedOf(ZANTLIS_SIGNED, 0, 0)}, "(1|i0:0|)");
    expectArguments({signedOf(ZANTLIS_SIGNED, 65535, -1)}, "(1|i65535:-1|)");
}

TEST(Arguments, TheWidthIsTheLowSixteenBitsOfItsSlot) {
    zantLisArg argument = signedOf(ZANTLIS_SIGNED, 0, 5);
    argument.first.word = 0xFFFFFFFFFFFF0020u;
    expectArguments({argument}, "(1|i32:5|)");
}

TEST(Arguments, TheWidthDoesNotCutTheValue) {
    expectArguments({unsignedOf(8, 4294967296u)}, "(1|u8:4294967296|)");
}

TEST(Arguments, UnsignedIntegersOfAnyWidth) {
    expectArguments({unsignedOf(32, 5)}, "(1|u32:5|)");
    expectArguments({unsignedOf(64, UINT64_MAX)}, "(1|u64:18446744073709551615|)");
    expectArguments({unsignedOf(16, 0)}, "(1|u16:0|)");
}

TEST(Arguments, EveryNumberOfDigitsIsWhole) {
    uint64_t value = 1;
    std::string digits = "1";
    for (int count = 1; count <= 20; ++count) {
        expectArguments({unsignedOf(64, value)}, "(1|u64:" + digits + "|)");
        if (count > 1) {
            expectArguments({unsignedOf(64, value - 1)},
                            "(1|u64:" + std::string(digits.size() - 1, '9') + "|)");
        }
        value *= 10;
        digits += "0";
    }
}

TEST(Arguments, PointersHaveTheFullWidth) {
    zantLisArg argument = argumentOf(ZANTLIS_POINTER);
    argument.first.word = 4096;
    expectArguments({argument}, "(1|964:4096|)");
    argument.first.word = UINT64_MAX;
    expectArguments({argument}, "(1|964:18446744073709551615|)");
}

TEST(Arguments, BothKindsOfErrorCodesAreWrittenAlike) {
    expectArguments({signedOf(ZANTLIS_OS_ERROR, 32, 5), signedOf(ZANTLIS_OS_ERROR_WIDE, 64, -2147024891)},
                    "(2|D32:5|D64:-2147024891|)");
}

TEST(Arguments, DatesHaveTheFullWidth) {
    zantLisArg argument = argumentOf(ZANTLIS_DATE_TIME);
    argument.first.seconds = 1763249000;
    argument.second.number = 77; // not looked at
    expectArguments({argument}, "(1|C64:1763249000|)");
    argument.first.seconds = INT64_MIN;
    expectArguments({argument}, "(1|C64:-9223372036854775808|)");
}

// ---- floating-point numbers

TEST(Arguments, DoublesHaveSixDecimals) {
    expectArguments({realOf(3.25)}, "(1|83.250000|)");
    expectArguments({realOf(2.5)}, "(1|82.500000|)");
    expectArguments({realOf(0)}, "(1|80.000000|)");
    expectArguments({realOf(-0.0)}, "(1|8-0.000000|)");
    expectArguments({realOf(-1234567.015625)}, "(1|8-1234567.015625|)");
    expectArguments({realOf(DBL_MIN)}, "(1|80.000000|)");
}

TEST(Arguments, DoublesAreRoundedToTheNearest) {
    expectArguments({realOf(0.1)}, "(1|80.100000|)");
    expectArguments({realOf(2.0 / 3.0)}, "(1|80.666667|)");
    expectArguments({realOf(0.9999999)}, "(1|81.000000|)");
    expectArguments({realOf(0.0000004)}, "(1|80.000000|)");
    // Exactly halfway: to the even one.
    expectArguments({realOf(1.0 / 128)}, "(1|80.007812|)");
    expectArguments({realOf(3.0 / 128)}, "(1|80.023438|)");
}

TEST(Arguments, DoublesHaveAllTheirDigits) {
    expectArguments({realOf(1e22)}, "(1|810000000000000000000000.000000|)");
    expectArguments({realOf(1e23)}, "(1|899999999999999991611392.000000|)");
    expectArguments({realOf(2251799813685248.5)}, "(1|82251799813685248.500000|)");
    const std::string largest =
        "1797693134862315708145274237317043567980705675258449965989174768031572607800285387605895586327668781"
        "7154045895"
        "3514382464234321326889464182768467546703537516986049910576551282076245490090389328944075868508455133"
        "9423045832"
        "36903222948165808559332123348274797826204144723168738177180919299881250404026184124858368.000000";
    expectArguments({realOf(DBL_MAX)}, "(1|8" + largest + "|)");
    expectArguments({realOf(-DBL_MAX)}, "(1|8-" + largest + "|)");
}

TEST(Arguments, WhatIsNoNumberIsNamed) {
    expectArguments({realOf(INFINITY)}, "(1|8inf|)");
    expectArguments({realOf(-INFINITY)}, "(1|8-inf|)");
    expectArguments({realOf(std::fabs(NAN))}, "(1|8nan|)");
}

// ---- strings

TEST(Arguments, WideStringsBecomeUtf8) {
    expectArguments({wideOf(L"abc")}, "(1|A3:abc|)");
    expectArguments({wideOf(L"")}, "(1|A0:|)");
    expectArguments({wideOf(L"Gr\x00FC\x00DF"
                            L"e \x20AC")},
                    "(1|A11:Gr\xC3\xBC\xC3\x9F"
                    "e \xE2\x82\xAC|)");
    expectArguments({wideOf(L"\xD83D\xDE00")}, "(1|A4:\xF0\x9F\x98\x80|)");
    expectArguments({wideOf(L"\xFFFF")}, "(1|A3:\xEF\xBF\xBF|)");
}

TEST(Arguments, WideStringsWithLoneSurrogatesFail) {
    EXPECT_EQ(resultOf({wideOf(L"a\xD83D")}), 1u);
    EXPECT_EQ(resultOf({wideOf(L"\xD83D"
                               L"b")}),
              1u);
    EXPECT_EQ(resultOf({wideOf(L"\xDE00")}), 1u);
    EXPECT_EQ(resultOf({wideOf(L"\xDE00\xD83D")}), 1u);
}

TEST(Arguments, NarrowStringsAreCopiedByteForByte) {
    expectArguments({narrowOf(ZANTLIS_UTF8_STRING, "\xC3\xA9"), narrowOf(ZANTLIS_NATIVE_STRING, "\xE9\xFF")},
                    "(2|X2:\xC3\xA9|S2:\xE9\xFF|)");
    expectArguments({narrowOf(ZANTLIS_UTF8_STRING, ""), narrowOf(ZANTLIS_NATIVE_STRING, "")}, "(2|X0:|S0:|)");
}

TEST(Arguments, LineFeedsInStringsBecomeCarriageReturns) {
    expectArguments({narrowOf(ZANTLIS_UTF8_STRING, "a\nb"), wideOf(L"c\n")}, "(2|X3:a\rb|A2:c\r|)");
}

TEST(Arguments, LongStringsAreWhole) {
    const std::string text(50000, 's');
    std::vector<wchar_t> wide(50001,
                              L'w'); // not std::wstring: the native runtime's wide characters are wider
    wide.back() = 0;
    expectArguments({narrowOf(ZANTLIS_UTF8_STRING, text.c_str()), wideOf(wide.data())},
                    "(2|X50000:" + text + "|A50000:" + std::string(50000, 'w') + "|)");
}

TEST(Arguments, NullStringsAndListsFail) {
    EXPECT_EQ(resultOf({wideOf(nullptr)}), 1u);
    EXPECT_EQ(resultOf({narrowOf(ZANTLIS_UTF8_STRING, nullptr)}), 1u);
    EXPECT_EQ(resultOf({narrowOf(ZANTLIS_NATIVE_STRING, nullptr)}), 1u);
    EXPECT_EQ(resultOf({nestedOf(nullptr)}), 1u);
}

// ---- nested lists

TEST(Arguments, ANestedListEndsInACommaNotABar) {
    zantLis empty{};
    expectArguments({nestedOf(&empty)}, "(1|(0|),)");
    std::vector<zantLisArg> inside{unsignedOf(32, 5), narrowOf(ZANTLIS_UTF8_STRING, "x")};
    zantLis list{};
    chain(&list, inside);
    expectArguments({unsignedOf(8, 1), nestedOf(&list), unsignedOf(8, 2)}, "(3|u8:1|(2|u32:5|X1:x|),u8:2|)");
}

// An empty list within so many others that hold nothing else.
class Nest {
public:
    explicit Nest(size_t count) : lists_(count), arguments_(count) {
        for (size_t depth = 1; depth < count; ++depth) {
            arguments_[depth] = nestedOf(&lists_[depth - 1]);
            lists_[depth].argCount = 1;
            lists_[depth].first = &arguments_[depth];
        }
    }
    zantLisArg argument() { return nestedOf(&lists_.back()); }

private:
    std::vector<zantLis> lists_;
    std::vector<zantLisArg> arguments_;
};

TEST(Arguments, ListsNestAThousandTimes) {
    Nest nest(1000);
    std::string begin;
    std::string end;
    for (int depth = 1; depth < 1000; ++depth) {
        begin += "(1|";
        end += "),";
    }
    expectArguments({nest.argument()}, "(1|" + begin + "(0|)," + end + ")");
}

TEST(Arguments, ListsNestedDeeperFail) {
    Nest nest(1001);
    EXPECT_EQ(resultOf({nest.argument()}), 1u);
    Nest abyss(1000000);
    EXPECT_EQ(resultOf({unsignedOf(8, 1), abyss.argument()}), 1u);
}

TEST(Arguments, AListThatHoldsItselfFails) {
    zantLis list{};
    zantLisArg itself = nestedOf(&list);
    list.argCount = 1;
    list.first = &itself;
    EXPECT_EQ(resultOf({nestedOf(&list)}), 1u);
}

TEST(Arguments, AFailureInANestedListFailsTheRecord) {
    std::vector<zantLisArg> inside{unsignedOf(32, 5), argumentOf(12)};
    zantLis list{};
    chain(&list, inside);
    EXPECT_EQ(resultOf({nestedOf(&list)}), 1u);
}

TEST(Arguments, UnknownKindsFail) {
    for (const int32_t kind : {-1, 12, 13, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(resultOf({unsignedOf(32, 5), argumentOf(kind)}), 1u) << kind;
    }
}

TEST(Arguments, OfADebugRecordAreNotLookedAt) {
    zantLisArg unknown = argumentOf(12);
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.lis.argCount = 1;
    record.lis.first = &unknown;
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,0:,0:,0\n");
}

TEST(Arguments, FollowEveryOtherType) {
    std::vector<zantLisArg> arguments{unsignedOf(32, 5)};
    for (const auto &[type, expected] : {std::pair{1u, "1,1,2,3,4,5,6,7,0:,0:,0:,0,(1|u32:5|)\n"},
                                         std::pair{2u, "2,1,2,3,4,5,6,7,0:,0:,0:,0,(1|u32:5|)\n"},
                                         std::pair{3u, "3,1,2,3,4,5,6,7,0:,0:,0:,(1|u32:5|)\n"},
                                         std::pair{4u, "4,1,2,3,4,5,6,7,0:,0:,0:,0,(1|u32:5|)\n"}}) {
        zantLogMsgRec record = recordOf(type);
        chain(&record.lis, arguments);
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(Arguments, AllKindsInOneRecord) {
    zantLis nested{};
    zantLisArg pointer = argumentOf(ZANTLIS_POINTER);
    pointer.first.word = 255;
    zantLisArg date = argumentOf(ZANTLIS_DATE_TIME);
    date.first.seconds = -1;
    expectArguments({characterOf('x'), signedOf(ZANTLIS_SIGNED, 32, -5), unsignedOf(32, 5), realOf(3.25),
                     pointer, wideOf(L"w"), signedOf(ZANTLIS_OS_ERROR, 32, 2),
                     signedOf(ZANTLIS_OS_ERROR_WIDE, 32, 3), date, nestedOf(&nested),
                     narrowOf(ZANTLIS_UTF8_STRING, "u"), narrowOf(ZANTLIS_NATIVE_STRING, "n")},
                    "(12|11:x|i32:-5|u32:5|83.250000|964:255|A1:w|D32:2|D32:3|C64:-1|(0|),X1:u|S1:n|)");
}

} // namespace
