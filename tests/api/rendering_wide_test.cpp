#include <cfloat>
#include <clocale>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/catalog_objects.h"
#include "tests/support/log_folder.h"
#include "tests/support/wide_text.h"
#include "zantlog/zantlog.h"

using zantlog::test::CatalogObject;
using zantlog::test::WideText;

namespace {

[[maybe_unused]] const bool kZoned = zantlog::test::useTimeZone("CET-1CEST");

// The first argument's wide form.
WideText wide(CatalogObject &object, uint32_t expected = 0) {
    zantLisArgIter iter = {};
    EXPECT_EQ(zantLisGetArgsBegin(object.lis(), &iter), 0);
    wchar_t untouched[] = L"untouched";
    wchar_t *out = untouched;
    EXPECT_EQ(zantLogGetArg_asStringW(&iter, &out), expected);
    WideText copy = out;
    if (out != untouched) {
        zantLogFree(out);
    }
    return copy;
}

void expectRefused(CatalogObject &object) {
    EXPECT_EQ(wide(object, 1), L"untouched");
}

} // namespace

TEST(WideArgument, Characters) {
    CatalogObject ascii, chinese, nul;
    EXPECT_EQ(wide(ascii.wideCharacter('x')), L"x");
    EXPECT_EQ(wide(chinese.wideCharacter(0x4E2D)), L"\x4E2D");
    EXPECT_EQ(wide(nul.wideCharacter(0)), L"");
}

TEST(WideArgument, Integers) {
    CatalogObject smallest, largest, zero, unsignedLargest;
    EXPECT_EQ(wide(smallest.signedNumber(INT64_MIN)), L"-9223372036854775808");
    EXPECT_EQ(wide(largest.signedNumber(INT64_MAX)), L"9223372036854775807");
    EXPECT_EQ(wide(zero.signedNumber(0)), L"0");
    EXPECT_EQ(wide(unsignedLargest.unsignedNumber(UINT64_MAX)), L"18446744073709551615");
}

TEST(WideArgument, Doubles) {
    CatalogObject real, largest;
    EXPECT_EQ(wide(real.real(-3.25)), L"-3.250000");
    const WideText digits = wide(largest.real(DBL_MAX));
    EXPECT_EQ(digits.size(), 309u + 7);
    EXPECT_EQ(digits.substr(0, 17), L"17976931348623157");
}

TEST(WideArgument, PointersHaveAPrefixUnlessNull) {
    CatalogObject some, null, all;
    EXPECT_EQ(wide(some.pointer(0x1f)), L"0x1f");
    EXPECT_EQ(wide(null.pointer(0)), L"0");
    EXPECT_EQ(wide(all.pointer(UINT64_MAX)), L"0xffffffffffffffff");
}

TEST(WideArgument, WideStringsAreCopied) {
    const wchar_t source[] = L"wide \x4E2D \xD800 end"; // a lone surrogate is copied too
    CatalogObject object, empty;
    EXPECT_EQ(wide(object.wideString(source)), source);
    EXPECT_EQ(wide(empty.wideString(L"")), L"");
}

TEST(WideArgument, ErrorsKeepAll64Bits) {
    CatalogObject first, second;
    EXPECT_EQ(wide(first.error(0x180000005)), L"6442450949");
    EXPECT_EQ(wide(second.error(-1, ZANTLIS_OS_ERROR_WIDE)), L"-1");
}

TEST(WideArgument, DatesAreLocalTimeAsTheLocalePutsThem) {
    CatalogObject object;
    EXPECT_EQ(wide(object.dateTime(1763249000)), L"11/16/25 00:23:20");
}

TEST(WideArgument, DateThatCannotBeConvertedIsAnEmptyString) {
    CatalogObject late, early;
    EXPECT_EQ(wide(late.dateTime(INT64_MAX)), L"");
    EXPECT_EQ(wide(early.dateTime(INT64_MIN)), L"");
}

TEST(WideArgument, Utf8Strings) {
    CatalogObject mixed, supplementary, empty;
    EXPECT_EQ(wide(mixed.utf8("a\xC3\xA9\xE4\xB8\xAD")), L"a\x00E9\x4E2D");
    EXPECT_EQ(wide(supplementary.utf8("\xF0\x9F\x98\x80")), L"\xD83D\xDE00");
    EXPECT_EQ(wide(empty.utf8("")), L"");
}

TEST(WideArgument, RefusesWhatIsNotUtf8) {
    CatalogObject lone, cut, overlong;
    expectRefused(lone.utf8("a\xE9z"));
    expectRefused(cut.utf8("\xE4\xB8"));
    expectRefused(overlong.utf8("\xC0\xAF"));
}

TEST(WideArgument, NativeStrings) {
    CatalogObject object;
    EXPECT_EQ(wide(object.native("disk0")), L"disk0");
}

TEST(WideArgument, RefusesAnEmptyNativeString) {
    CatalogObject object;
    expectRefused(object.native(""));
}

TEST(WideArgument, RefusesNestedAndUnknownKinds) {
    CatalogObject inner, nested, unknown, negative;
    inner.utf8("x");
    expectRefused(nested.nested(inner));
    expectRefused(unknown.ofKind(12));
    expectRefused(negative.ofKind(-1));
}

TEST(WideArgument, RefusesNullTexts) {
    CatalogObject utf8, native, wideText;
    expectRefused(utf8.utf8(nullptr));
    expectRefused(native.native(nullptr));
    expectRefused(wideText.wideString(nullptr));
}

TEST(WideArgument, RefusesAnIterationWithoutArgument) {
    CatalogObject object;
    zantLisArgIter iter = {};
    EXPECT_NE(zantLisGetArgsBegin(object.lis(), &iter), 0);
    wchar_t *out = nullptr;
    EXPECT_EQ(zantLogGetArg_asStringW(&iter, &out), 1u);
    EXPECT_EQ(out, nullptr);
}

TEST(WideArgument, RefusesNullArguments) {
    CatalogObject object;
    object.signedNumber(1);
    zantLisArgIter iter = {};
    ASSERT_EQ(zantLisGetArgsBegin(object.lis(), &iter), 0);
    wchar_t *out = nullptr;
    EXPECT_EQ(zantLogGetArg_asStringW(nullptr, &out), 3u);
    EXPECT_EQ(zantLogGetArg_asStringW(&iter, nullptr), 3u);
    EXPECT_EQ(out, nullptr);
}

TEST(WideArgument, DoesNotAdvanceTheIteration) {
    CatalogObject object;
    object.signedNumber(1).signedNumber(2);
    zantLisArgIter iter = {};
    ASSERT_EQ(zantLisGetArgsBegin(object.lis(), &iter), 0);
    for (int i = 0; i < 2; ++i) {
        wchar_t *out = nullptr;
        ASSERT_EQ(zantLogGetArg_asStringW(&iter, &out), 0u);
        EXPECT_EQ(WideText(out), L"1");
        zantLogFree(out);
    }
}
