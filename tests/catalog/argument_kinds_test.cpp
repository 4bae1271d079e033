// Which kind, width and value each conversion gives: the record's slots, as a reader of the chain sees them.
#include <gtest/gtest.h>

#include "tests/catalog/built_object.h"

namespace zantlog::test {
namespace {

void expectSized(const BuiltObject &object, int32_t kind, uint16_t width, int64_t value) {
    ASSERT_EQ(object.result, 0);
    ASSERT_EQ(object.chainLength(), 1U);
    EXPECT_EQ(object.argument(0).kind, kind);
    EXPECT_EQ(object.argument(0).first.word, width);
    EXPECT_EQ(object.argument(0).second.number, value);
}

TEST(ArgumentKinds, SignedConversionsKeepTheirWidth) {
    expectSized(message("%hhd", -5), 1, 8, -5);
    expectSized(message("%hd", -5), 1, 16, -5);
    expectSized(message("%d", -5), 1, 32, -5);
    expectSized(message("%i", -5), 1, 32, -5);
    expectSized(message("%ld", int32_t{-5}), 1, 32, -5);
    expectSized(message("%I32d", int32_t{-5}), 1, 32, -5);
    expectSized(message("%lld", int64_t{-5}), 1, 64, -5);
    expectSized(message("%I64d", int64_t{-5}), 1, 64, -5);
    expectSized(message("%Id", int64_t{-5}), 1, 64, -5);
    expectSized(message("%jd", int64_t{-5}), 1, 64, -5);
    expectSized(message("%zd", int64_t{-5}), 1, 64, -5);
    expectSized(message("%td", int64_t{-5}), 1, 64, -5);
}

TEST(ArgumentKinds, UnsignedConversionsKeepTheirWidth) {
    expectSized(message("%hhu", 200), 2, 8, 200);
    expectSized(message("%hu", 40000), 2, 16, 40000);
    expectSized(message("%u", 4000000000U), 2, 32, 4000000000);
    expectSized(message("%lu", 4000000000U), 2, 32, 4000000000);
    expectSized(message("%I32u", 4000000000U), 2, 32, 4000000000);
    expectSized(message("%llu", UINT64_MAX), 2, 64, -1);
    expectSized(message("%I64u", UINT64_MAX), 2, 64, -1);
    expectSized(message("%Iu", UINT64_MAX), 2, 64, -1);
    expectSized(message("%ju", UINT64_MAX), 2, 64, -1);
    expectSized(message("%zu", UINT64_MAX), 2, 64, -1);
    expectSized(message("%tu", UINT64_MAX), 2, 64, -1);
}

TEST(ArgumentKinds, NarrowIntegersAreCutToTheirWidth) {
    expectSized(message("%hhd", 0x1FF), 1, 8, -1);
    expectSized(message("%hd", 0x18000), 1, 16, -32768);
    expectSized(message("%hhu", -1), 2, 8, 255);
    expectSized(message("%hu", -1), 2, 16, 65535);
    expectSized(message("%u", -1), 2, 32, 4294967295);
}

TEST(ArgumentKinds, ExtremesSurvive) {
    expectSized(message("%d", INT32_MIN), 1, 32, INT32_MIN);
    expectSized(message("%lld", INT64_MIN), 1, 64, INT64_MIN);
    expectSized(message("%lld", INT64_MAX), 1, 64, INT64_MAX);
}

TEST(ArgumentKinds, AMessageKeepsHexadecimalAndOctalAsNumbers) {
    expectSized(message("%x", 255), 2, 32, 255);
    expectSized(message("%X", 255), 2, 32, 255);
    expectSized(message("%o", 255), 2, 32, 255);
    expectSized(message("%llx", UINT64_MAX), 2, 64, -1);
}

TEST(ArgumentKinds, AMessageKeepsEveryDoubleAsADouble) {
    for (const char *format : {"%f", "%F", "%e", "%E", "%g", "%G", "%a", "%A", "%lf"}) {
        const BuiltObject object = message(format, 3.25);
        ASSERT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.argument(0).kind, 3) << format;
        EXPECT_EQ(object.argument(0).first.real, 3.25) << format;
    }
}

TEST(ArgumentKinds, PointersAreKindFour) {
    const BuiltObject object = message("%p", reinterpret_cast<void *>(uintptr_t{0x1F}));
    EXPECT_EQ(object.argument(0).kind, 4);
    EXPECT_EQ(object.argument(0).first.word, 0x1FU);
    EXPECT_EQ(message("%p", static_cast<void *>(nullptr)).argument(0).first.word, 0U);
}

TEST(ArgumentKinds, NarrowStringsAreNative) {
    for (const char *format : {"%s", "%hs", "%hS"}) {
        const BuiltObject object = message(format, "disk");
        ASSERT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.argument(0).kind, 11) << format;
        EXPECT_STREQ(object.argument(0).first.narrow, "disk") << format;
    }
}

TEST(ArgumentKinds, WideStringsAreKindFive) {
    for (const char *format : {"%ls", "%ws", "%S", "%lS"}) {
        const BuiltObject object = message(format, L"d\x20AC");
        ASSERT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.argument(0).kind, 5) << format;
        EXPECT_EQ(units(object.argument(0).first.wide), (Units{'d', 0x20AC})) << format;
    }
}

TEST(ArgumentKinds, Utf8StringsAreKindTen) {
    const BuiltObject object = message("%U", "\xE2\x82\xAC");
    EXPECT_EQ(object.argument(0).kind, 10);
    EXPECT_STREQ(object.argument(0).first.narrow, "\xE2\x82\xAC");
}

TEST(ArgumentKinds, WideCharactersAreKindZero) {
    for (const char *format : {"%lc", "%wc", "%C", "%lC"}) {
        const BuiltObject object = message(format, 0x20AC);
        ASSERT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.argument(0).kind, 0) << format;
        EXPECT_EQ(object.argument(0).first.word, 0x20ACU) << format;
    }
}

TEST(ArgumentKinds, NarrowCharactersAreTextsOfOneCharacter) {
    for (const char *format : {"%c", "%hc", "%hC"}) {
        const BuiltObject object = message(format, 'x');
        ASSERT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.argument(0).kind, 11) << format;
        EXPECT_STREQ(object.argument(0).first.narrow, "x") << format;
    }
    EXPECT_STREQ(message("%c", 0).argument(0).first.narrow, "");
}

TEST(ArgumentKinds, ErrorsOfTheSystemAreKindsSixAndSeven) {
    expectSized(message("%r", 5), 6, 32, 5);
    expectSized(message("%r", 0x80070005U), 6, 32, -2147024891);
    expectSized(message("%R", int64_t{-3}), 7, 64, -3);
}

TEST(ArgumentKinds, DatesAreKindEight) {
    const BuiltObject object = message("%T", int64_t{1763249000});
    EXPECT_EQ(object.argument(0).kind, 8);
    EXPECT_EQ(object.argument(0).first.seconds, 1763249000);
}

TEST(ArgumentKinds, ObjectsAreKindNine) {
    const BuiltObject inner = message("%d", 7);
    const BuiltObject outer = message("%N", &inner.lis);
    ASSERT_EQ(outer.result, 0);
    EXPECT_EQ(outer.argument(0).kind, 9);
    const auto *nested = static_cast<const zantLis *>(outer.argument(0).first.pointer);
    ASSERT_NE(nested, nullptr);
    EXPECT_EQ(nested->textId, 4711U);
    EXPECT_EQ(nested->argCount, 1U);
    EXPECT_EQ(nested->first->second.number, 7);
}

TEST(ArgumentKinds, NullTextsReadNull) {
    EXPECT_STREQ(message("%s", static_cast<char *>(nullptr)).argument(0).first.narrow, "(null)");
    EXPECT_STREQ(message("%U", static_cast<char *>(nullptr)).argument(0).first.narrow, "(null)");
    EXPECT_EQ(units(message("%ls", static_cast<wchar_t *>(nullptr)).argument(0).first.wide),
              (Units{'(', 'n', 'u', 'l', 'l', ')'}));
    const BuiltObject nested = message("%N", static_cast<zantLis *>(nullptr));
    EXPECT_EQ(nested.argument(0).kind, 11);
    EXPECT_STREQ(nested.argument(0).first.narrow, "(null)");
}

TEST(ArgumentKinds, EmptyTextsStayEmpty) {
    EXPECT_STREQ(message("%s", "").argument(0).first.narrow, "");
    EXPECT_STREQ(message("%U", "").argument(0).first.narrow, "");
    EXPECT_EQ(units(message("%ls", L"").argument(0).first.wide), Units{});
}

TEST(ArgumentKinds, EveryClassOfArgumentIsReadInTurn) {
    const BuiltObject object = message("%d %lld %f %s %hhd %lc %p %T", 1, int64_t{2}, 3.0, "4", 5, 0x36,
                                       reinterpret_cast<void *>(uintptr_t{7}), int64_t{8});
    ASSERT_EQ(object.result, 0);
    ASSERT_EQ(object.lis.argCount, 8U);
    EXPECT_EQ(object.argument(0).second.number, 1);
    EXPECT_EQ(object.argument(1).second.number, 2);
    EXPECT_EQ(object.argument(2).first.real, 3.0);
    EXPECT_STREQ(object.argument(3).first.narrow, "4");
    EXPECT_EQ(object.argument(4).second.number, 5);
    EXPECT_EQ(object.argument(5).first.word, 0x36U);
    EXPECT_EQ(object.argument(6).first.word, 7U);
    EXPECT_EQ(object.argument(7).first.seconds, 8);
}

TEST(ArgumentKinds, MoreArgumentsThanAnyTableHolds) {
    // 200 conversions over few arguments, by position.
    std::string positional;
    for (int i = 0; i < 200; ++i) {
        positional += i % 2 == 0 ? "%1$d" : "%2$s";
    }
    const BuiltObject many = message(positional.c_str(), 42, "x");
    ASSERT_EQ(many.result, 0);
    EXPECT_EQ(many.lis.argCount, 200U);
    EXPECT_EQ(many.chainLength(), 200U);
    EXPECT_EQ(many.argument(198).second.number, 42);
    EXPECT_STREQ(many.argument(199).first.narrow, "x");
}

TEST(ArgumentKinds, AMessageHasItsIdAndNoLiteralPieces) {
    const BuiltObject object = message("disk %s is %d %% full", "C:", 93);
    EXPECT_EQ(object.lis.textId, 4711U);
    EXPECT_EQ(object.lis.argCount, 2U);
    EXPECT_EQ(object.chainLength(), 2U);
    EXPECT_STREQ(object.argument(0).first.narrow, "C:");
    EXPECT_EQ(object.argument(1).second.number, 93);
}

TEST(ArgumentKinds, AMessageWithoutConversionsHasNoArguments) {
    for (const char *format : {"", "100 %%", "no arguments"}) {
        const BuiltObject object = message(format);
        EXPECT_EQ(object.result, 0) << format;
        EXPECT_EQ(object.lis.textId, 4711U) << format;
        EXPECT_EQ(object.lis.argCount, 0U) << format;
        EXPECT_EQ(object.lis.first, nullptr) << format;
    }
}

} // namespace
} // namespace zantlog::test
