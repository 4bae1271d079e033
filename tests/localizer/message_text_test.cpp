#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"
#include "tests/support/wide_text.h"

using namespace zantlog::test;

namespace {

// Before anything asks for a local time.
[[maybe_unused]] const bool kZone = useTimeZone("CET-1CEST");

constexpr int64_t kNoon = 1774778405; // 2026-03-29 10:00:05 UTC, the first day of summer time: 12:00:05

class MessageTextTest : public LocalizerTest {};

} // namespace

TEST_F(MessageTextTest, TextOfTheMessageId) {
    catalog("default", "4711 = disk {1} is {2} % full\n");
    CatalogObject object(4711);
    object.utf8("C:").unsignedNumber(93);
    EXPECT_EQ(format(object), "disk C: is 93 % full");
}

TEST_F(MessageTextTest, ArgumentsInAnyOrderAndMoreThanOnce) {
    CatalogObject object;
    object.utf8("a").utf8("b").utf8("c");
    EXPECT_EQ(shown("{3}{2}{1}{3}", object), "cbac");
    EXPECT_EQ(shown("none", object), "none");
}

TEST_F(MessageTextTest, PlaceOfAnArgumentThatIsNotThereStays) {
    CatalogObject object;
    object.utf8("a");
    EXPECT_EQ(shown("{1} {2} {99:x}", object), "a {2} {99:x}");
    CatalogObject none;
    EXPECT_EQ(shown("{1}", none), "{1}");
}

TEST_F(MessageTextTest, ArgumentsAreNotLookedIntoForPlaces) {
    CatalogObject object;
    object.utf8("{2}").utf8("{1}").native("%s \\n");
    EXPECT_EQ(shown("{1}{2}{3}{{}}", object), "{2}{1}%s \\n{}");
}

TEST_F(MessageTextTest, EveryKindOfArgument) {
    CatalogObject inner;
    inner.utf8("in").signedNumber(5);
    CatalogObject object;
    object.wideCharacter(0xE4)
        .signedNumber(std::numeric_limits<int64_t>::min())
        .unsignedNumber(std::numeric_limits<uint64_t>::max())
        .real(0.1)
        .pointer(0x1F)
        .wideString(L"w\x00FC")
        .error(-5)
        .error(0x100000000, ZANTLIS_OS_ERROR_WIDE)
        .dateTime(kNoon)
        .nested(inner)
        .utf8("u\xC3\xBC")
        .native("n\xFC");
    EXPECT_EQ(shown("{1}|{2}|{3}|{4}|{5}|{6}|{7}|{8}|{9}|{10}|{11}|{12}", object),
              "\xE4|-9223372036854775808|18446744073709551615|0.1|0x1f|w\xFC|-5|4294967296|2026-03-29 "
              "12:00:05|in5|u\xFC|n\xFC");
}

TEST_F(MessageTextTest, FormatsOfIntegers) {
    CatalogObject object;
    object.signedNumber(-255).unsignedNumber(1234567).signedNumber(0).signedNumber(-4294967296);
    EXPECT_EQ(shown("{1:d}|{1:x}|{1:X}|{1:o}|{1:6}|{1:06}|{1:2}", object),
              "-255|ffffff01|FFFFFF01|37777777401|  -255|-00255|-255");
    EXPECT_EQ(shown("{2:n}|{2:12n}|{2:012n}|{2:x}|{2:010x}|{2:010o}", object),
              "1,234,567|   1,234,567|0001,234,567|12d687|000012d687|0004553207");
    EXPECT_EQ(shown("{3:n}|{3:x}|{3:03}|{4:x}", object), "0|0|000|ffffffff00000000");
    EXPECT_EQ(shown("{2:t}|{2:.3f}|{2:i}", object), "1234567|1234567|1234567");
}

TEST_F(MessageTextTest, FormatsOfReals) {
    CatalogObject object;
    object.real(1234567.891).real(-0.5).real(1e300);
    EXPECT_EQ(shown("{1}|{1:.2}|{1:f}|{1:e}|{1:.3g}|{1:n}|{1:.1n}|{1:15.2f}|{1:015.2f}", object),
              "1234567.891|1234567.89|1234567.891000|1.234568e+06|1.23e+06|1,234,567.89|1,234,567.9|     "
              "1234567.89|000001234567.89");
    EXPECT_EQ(shown("{2}|{2:.0f}|{2:08.2f}|{3}|{2:x}", object), "-0.5|-0|-0000.50|1e+300|-0.5");
    CatalogObject odd;
    odd.real(NAN).real(INFINITY).real(-INFINITY).real(1.7976931348623157e308);
    EXPECT_EQ(shown("{1}|{2}|{3:6}|{3:n}", odd), "nan|inf|  -inf|-inf");
    EXPECT_EQ(shown("{4:.99f}", odd).size(), 309u + 1 + 99);
}

TEST_F(MessageTextTest, FormatsOfPointersErrorsAndDates) {
    CatalogObject object;
    object.pointer(0xABC).error(-2147467259).dateTime(kNoon).pointer(0);
    EXPECT_EQ(shown("{1:x}|{1:X}|{1:08}|{1:8}|{4}", object), "abc|ABC|0x00000abc|0xabc|0x0");
    EXPECT_EQ(shown("{2}|{2:x}", object), "-2147467259|80004005");
    EXPECT_EQ(shown("{3:d}|{3:t}|{3:i}", object), "2026-03-29|12:00:05|2026-03-29T12:00:05");
}

TEST_F(MessageTextTest, DateThatCannotBeBrokenDownIsItsNumber) {
    CatalogObject object;
    object.dateTime(std::numeric_limits<int64_t>::max());
    EXPECT_EQ(shown("{1}", object), "9223372036854775807");
}

TEST_F(MessageTextTest, LocaleFormatsTheArguments) {
    CatalogObject object;
    object.real(1234.5).signedNumber(1234567).dateTime(kNoon);
    const std::string text = "{1}|{2:n}|{3}";
    EXPECT_EQ(shown(text, object, "C"), "1234.5|1,234,567|2026-03-29 12:00:05");
    EXPECT_EQ(shown(text, object, "German_Germany.1252"), "1234,5|1.234.567|29.03.2026 12:00:05");
    EXPECT_EQ(shown(text, object, "de_CH.UTF-8"), "1234.5|1'234'567|29.03.2026 12:00:05");
    EXPECT_EQ(shown(text, object, "English_United States.1252"), "1234.5|1,234,567|03/29/2026 12:00:05 PM");
    EXPECT_EQ(shown(text, object, "fr_FR"), "1234,5|1\xA0"
                                            "234\xA0"
                                            "567|29/03/2026 12:00:05");
    EXPECT_EQ(shown(text, object, "Xx_XX"), "1234.5|1,234,567|2026-03-29 12:00:05");
}

TEST_F(MessageTextTest, FileMayHaveItsOwnWays) {
    catalog("de", "decimal = :\ngroup = _\ndate = %y-%d\ntime = %I %p %M%%\n1 = {1}|{2:n}|{3}\n");
    CatalogObject object(1);
    object.real(1.5).signedNumber(-1000).dateTime(kNoon);
    EXPECT_EQ(format(object, "de_DE"), "1:5|-1_000|26-29 12 PM 00%");
}

TEST_F(MessageTextTest, NearestLocaleThatHasTheTextGivesIt) {
    catalog("de_DE", "1 = de_DE\n");
    catalog("de", "1 = de\n2 = de\n");
    catalog("default", "1 = default\n2 = default\n3 = default\n");
    const auto text = [&](uint32_t id, const char *locale) {
        CatalogObject object(id);
        return format(object, locale);
    };
    EXPECT_EQ(text(1, "German_Germany.1252"), "de_DE");
    EXPECT_EQ(text(2, "de_DE"), "de");
    EXPECT_EQ(text(3, "de_DE"), "default");
    EXPECT_EQ(text(1, "de_AT"), "de");
    EXPECT_EQ(text(1, "fr_FR"), "default");
    EXPECT_EQ(text(1, "C"), "default");
    EXPECT_EQ(text(4, "de_DE"), "[Cannot find catalog for message id=4] ");
}

TEST_F(MessageTextTest, WithoutLocaleItIsTheProcesss) {
    catalog("default", "1 = {1:n}\n");
    CatalogObject object(1);
    object.signedNumber(1000);
    EXPECT_EQ(format(object, nullptr), "1,000"); // a process that has set none has "C"
}

TEST_F(MessageTextTest, WithoutCatalogTheTextIsTheLibrarys) {
    CatalogObject object(4711);
    object.signedNumber(42).pointer(0x1F).utf8("disk0");
    EXPECT_EQ(format(object), "[Cannot find catalog for message id=4711] 42,0x1f,disk0");
    CatalogObject wide(4711);
    wide.wideString(L"\x20AC").signedNumber(1); // the runtime's "C" has no such character, the code page has
    EXPECT_EQ(format(wide), "[Cannot find catalog for message id=4711] \x80,1");
}

TEST_F(MessageTextTest, TextOfTheRecordStandsInForTheCatalog) {
    catalog("default", "1 = of the catalog\n");
    rec_.text = const_cast<char *>("own {1} %s");
    EXPECT_EQ(format(), "own {1} %s");
    CatalogObject known(1);
    EXPECT_EQ(format(known), "of the catalog");
    CatalogObject unknown(2);
    EXPECT_EQ(format(unknown), "own {1} %s");
}

TEST_F(MessageTextTest, PlainTextObjectsAreTheirArguments) {
    CatalogObject object;
    object.native("disk ").signedNumber(3).native(" failed");
    EXPECT_EQ(format(object), "disk 3 failed");
    CatalogObject none;
    EXPECT_EQ(format(none), "");
}

TEST_F(MessageTextTest, NestedMessagesHaveTextsOfTheirOwn) {
    catalog("default", "1 = outer({1})\n2 = inner({1})\n");
    CatalogObject inner(2);
    inner.signedNumber(5);
    CatalogObject outer(1);
    outer.nested(inner);
    EXPECT_EQ(format(outer), "outer(inner(5))");
    inner.lis()->textId = 3;
    EXPECT_EQ(format(outer), "outer([Cannot find catalog for message id=3] 5)");
}

TEST_F(MessageTextTest, ObjectThatHoldsItselfEnds) {
    catalog("default", "1 = x{1}{1}\n");
    CatalogObject object(1);
    object.nested(object);
    const std::string text = format(object);
    EXPECT_GT(text.size(), 32u);
    EXPECT_LT(text.size(), 100000u);
}

TEST_F(MessageTextTest, WhatTheCodePageLacksIsAQuestionMark) {
    catalog("default", "1 = \xE2\x82\xAC \xE4\xBD\xA0\xE5\xA5\xBD {1} {2}\n");
    CatalogObject object(1);
    object.wideString(L"\x4F60 \xD800 ok")
        .utf8("\xFF"
              "a\xE4\xBD\xA0");
    EXPECT_EQ(format(object), "\x80 ?? ? ? ok ?a?");
}

TEST_F(MessageTextTest, Utf8RecordsAreConverted) {
    rec_.text = const_cast<char *>("\xC3\xBC");
    EXPECT_EQ(format(), "\xC3\xBC");
    rec_.catalogSelector = 1;
    EXPECT_EQ(format(), "\xFC");
    rec_.catalogSelector = 0;
    rec_.origin = 1;
    EXPECT_EQ(format(), "\xFC");
}

TEST_F(MessageTextTest, LongTextsAreCut) {
    const std::string text(2000000, 'x');
    rec_.text = const_cast<char *>(text.c_str());
    EXPECT_EQ(format(), std::string(1048576, 'x'));
    rec_.catalogSelector = 1;
    std::string umlauts;
    for (int i = 0; i < 600000; ++i) {
        umlauts += "\xC3\xBC";
    }
    rec_.text = umlauts.data();
    EXPECT_EQ(format(), std::string(600000, '\xFC'));
}

TEST_F(MessageTextTest, ManyArgumentsEnd) {
    std::string text;
    for (int i = 0; i < 20000; ++i) {
        text += "{1}";
    }
    CatalogObject object;
    object.utf8("y");
    const std::string formatted = shown(text, object);
    EXPECT_EQ(formatted.substr(0, 10000), std::string(10000, 'y'));
    EXPECT_EQ(formatted.substr(10000, 6), "{1}{1}");
}

TEST_F(MessageTextTest, NullArgumentsAreRefused) {
    char *text = nullptr;
    EXPECT_EQ(LogFormatMessage(&list_, 0, "C", 0, kShort, 0, nullptr, nullptr, &text), 3u);
    EXPECT_EQ(LogFormatMessage(&list_, 0, "C", 0, kShort, 0, &rec_, nullptr, nullptr), 3u);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(LogFormatMessage(nullptr, 0, "C", 0, kShort, 0, &rec_, nullptr, &text), 0u);
    EXPECT_STREQ(text, "");
    zantLogFree(text);
}
