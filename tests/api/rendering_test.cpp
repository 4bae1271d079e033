#include <cfloat>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/catalog_objects.h"
#include "tests/support/log_folder.h"
#include "zantlog/zantlog.h"

using zantlog::test::CatalogObject;

namespace {

[[maybe_unused]] const bool kZoned = zantlog::test::useTimeZone("CET-1CEST");

constexpr size_t kFailed = SIZE_MAX;
constexpr int64_t kSaturdayNight = 1763249000; // 2025-11-15 23:23:20 UTC

size_t measure(CatalogObject &object) {
    size_t size = 12345;
    strncatlis(nullptr, &size, object.lis());
    return size;
}

// Renders into exactly `size` bytes; a guard behind them must stay.
std::string renderInto(CatalogObject &object, size_t size, const std::string &start = "") {
    std::vector<char> buffer(size + 8, '\0');
    std::memset(buffer.data() + size, '#', 8);
    std::memcpy(buffer.data(), start.data(), start.size());
    size_t capacity = size;
    strncatlis(buffer.data(), &capacity, object.lis());
    EXPECT_EQ(std::string(buffer.data() + size, 8), "########");
    EXPECT_EQ(capacity, size);
    return std::string(buffer.data(), strnlen(buffer.data(), size));
}

std::string render(CatalogObject &object) {
    return renderInto(object, measure(object));
}

std::string marker(const std::string &id) {
    return "[Cannot find catalog for message id=" + id + "] ";
}

// A text within so many objects.
class Nest {
public:
    explicit Nest(size_t count) : objects_(count) {
        objects_[0].utf8("deep");
        for (size_t depth = 1; depth < count; ++depth) {
            objects_[depth].nested(objects_[depth - 1]);
        }
    }
    CatalogObject &outermost() { return objects_.back(); }

private:
    std::deque<CatalogObject> objects_;
};

} // namespace

TEST(MeasuringPass, ReservesTheSizeOfEachKind) {
    CatalogObject character, signedNumber, unsignedNumber, real, pointer, wide, error, errorWide, utf8,
        native;
    EXPECT_EQ(measure(character.wideCharacter('x')), 2u);
    EXPECT_EQ(measure(signedNumber.signedNumber(1)), 20u);
    EXPECT_EQ(measure(unsignedNumber.unsignedNumber(1)), 20u);
    EXPECT_EQ(measure(real.real(1)), 15u);
    EXPECT_EQ(measure(pointer.pointer(1)), 20u);
    EXPECT_EQ(measure(wide.wideString(L"wide")), 5u);
    EXPECT_EQ(measure(error.error(1)), 10u);
    EXPECT_EQ(measure(errorWide.error(1, ZANTLIS_OS_ERROR_WIDE)), 10u);
    EXPECT_EQ(measure(utf8.utf8("disk0")), 6u);
    EXPECT_EQ(measure(native.native("")), 1u);
}

TEST(MeasuringPass, ReservesTheLengthOfTheDateText) {
    CatalogObject date;
    EXPECT_EQ(measure(date.dateTime(kSaturdayNight)), 25u);
}

TEST(MeasuringPass, ReservesMarkerAndCommas) {
    CatalogObject marked(7), one(7), three(7), plain;
    EXPECT_EQ(measure(marked), 51u);
    EXPECT_EQ(measure(one.signedNumber(5)), 71u);
    EXPECT_EQ(measure(three.signedNumber(5).utf8("x").wideCharacter('y')), 51u + 20 + 1 + 2 + 1 + 2);
    EXPECT_EQ(measure(plain.signedNumber(5).utf8("x")), 22u);
}

TEST(MeasuringPass, NothingToRenderIsSizeZero) {
    CatalogObject empty;
    EXPECT_EQ(measure(empty), 0u);
}

TEST(MeasuringPass, AddsTheSizeOfANestedObject) {
    CatalogObject inner(3), outer(9), plain;
    inner.utf8("ab");
    EXPECT_EQ(measure(outer.signedNumber(1).nested(inner)), 51u + 20 + 1 + 51 + 3);
    EXPECT_EQ(measure(plain.nested(inner)), 54u);
}

TEST(Rendering, MarkerAloneForAMessageWithoutArguments) {
    CatalogObject object(7);
    EXPECT_EQ(render(object), "[Cannot find catalog for message id=7] ");
}

TEST(Rendering, MarkerShowsTheIdAsSigned32Bit) {
    CatalogObject largest(0xFFFFFFFF), negative(0x80000000), positive(0x7FFFFFFF);
    EXPECT_EQ(render(largest), marker("-1"));
    EXPECT_EQ(render(negative), marker("-2147483648"));
    EXPECT_EQ(render(positive), marker("2147483647"));
}

TEST(Rendering, CatalogMessageSeparatesItsArguments) {
    CatalogObject object(4711), two(7);
    object.signedNumber(42).pointer(0x1f).utf8("disk0");
    EXPECT_EQ(render(object), marker("4711") + "42,0x1f,disk0");
    EXPECT_EQ(render(two.signedNumber(5).utf8("x")), marker("7") + "5,x");
}

TEST(Rendering, PlainTextJoinsItsArgumentsWithoutSeparator) {
    CatalogObject object;
    EXPECT_EQ(render(object.utf8("a").signedNumber(5).native("b")), "a5b");
}

TEST(Rendering, Characters) {
    CatalogObject object, nul;
    EXPECT_EQ(render(object.wideCharacter('x').wideCharacter('%')), "x%");
    EXPECT_EQ(render(nul.utf8("a").wideCharacter(0).utf8("b")), "ab");
}

TEST(Rendering, CharacterThatTheCodePageLacksAddsNothing) {
    CatalogObject object;
    EXPECT_EQ(render(object.utf8("a").wideCharacter(0x4E2D).utf8("b")), "ab");
}

TEST(Rendering, Integers) {
    CatalogObject largest, smallest, zero, unsignedLargest;
    EXPECT_EQ(render(largest.signedNumber(INT64_MAX)), "9223372036854775807");
    EXPECT_EQ(render(smallest.signedNumber(-1)), "-1");
    EXPECT_EQ(render(zero.signedNumber(0).unsignedNumber(0)), "00");
    EXPECT_EQ(render(unsignedLargest.unsignedNumber(UINT64_MAX).utf8("")), "18446744073709551615");
}

TEST(Rendering, LoneSmallestIntegerLosesItsLastDigit) {
    CatalogObject object;
    EXPECT_EQ(render(object.signedNumber(INT64_MIN)), "-922337203685477580");
}

TEST(Rendering, LoneLargestUnsignedLosesItsLastDigit) {
    CatalogObject object;
    EXPECT_EQ(render(object.unsignedNumber(UINT64_MAX)), "1844674407370955161");
}

TEST(Rendering, SlackOfOnePieceIsUsedByTheNext) {
    CatalogObject object;
    EXPECT_EQ(render(object.signedNumber(1).signedNumber(INT64_MIN)), "1-9223372036854775808");
}

TEST(Rendering, Doubles) {
    CatalogObject real, negative, large, cut;
    EXPECT_EQ(render(real.real(3.25)), "3.250000");
    EXPECT_EQ(render(negative.real(-0.5)), "-0.500000");
    EXPECT_EQ(render(large.real(1e6)), "1000000.000000");
    // 15 bytes hold 14 characters: the measured size cuts.
    EXPECT_EQ(render(cut.real(1e8)), "100000000.0000");
}

TEST(Rendering, LargestDoubleIsCutAtTheMeasuredSize) {
    CatalogObject object;
    EXPECT_EQ(render(object.real(DBL_MAX)), "17976931348623");
}

TEST(Rendering, PointersAreLowerCaseHexadecimal) {
    CatalogObject null, some, all;
    EXPECT_EQ(render(null.pointer(0)), "0x0");
    EXPECT_EQ(render(some.pointer(0xABCDEF)), "0xabcdef");
    EXPECT_EQ(render(all.pointer(UINT64_MAX)), "0xffffffffffffffff");
}

TEST(Rendering, WideStrings) {
    CatalogObject object, empty;
    EXPECT_EQ(render(object.wideString(L"wide").utf8("|")), "wide|");
    EXPECT_EQ(render(empty.wideString(L"").utf8("|")), "|");
}

TEST(Rendering, ErrorsAreTheLow32BitsSigned) {
    CatalogObject plain, negative, folded, wide;
    EXPECT_EQ(render(plain.error(5)), "5");
    EXPECT_EQ(render(negative.error(-1)), "-1");
    EXPECT_EQ(render(folded.error(0x180000005)), "-21474836"); // -2147483643 cut at the reserve
    EXPECT_EQ(render(wide.error(0x100000007, ZANTLIS_OS_ERROR_WIDE)), "7");
}

TEST(Rendering, LongErrorUsesSlack) {
    CatalogObject object;
    EXPECT_EQ(render(object.error(0x80000005).signedNumber(1)), "-21474836431");
}

TEST(Rendering, LoneDateLosesItsNewlineAndBlank) {
    CatalogObject object;
    EXPECT_EQ(render(object.dateTime(kSaturdayNight)), "Sun Nov 16 00:23:20 2025");
}

TEST(Rendering, DateBringsANewlineAndABlankWhenThereIsRoom) {
    CatalogObject object(7);
    object.dateTime(kSaturdayNight).signedNumber(1);
    EXPECT_EQ(render(object), marker("7") + "Sun Nov 16 00:23:20 2025\n ,1");
}

TEST(Rendering, DateThatCannotBeBrokenDownAddsNothing) {
    CatalogObject object;
    EXPECT_EQ(render(object.utf8("a").dateTime(INT64_MAX).dateTime(INT64_MIN).utf8("b")), "ab");
}

TEST(Rendering, NestedObjectsAreRenderedInPlace) {
    CatalogObject inner(3), innermost, outer(9);
    innermost.utf8("deep").signedNumber(1);
    inner.utf8("in").nested(innermost);
    outer.signedNumber(1).nested(inner).signedNumber(2);
    EXPECT_EQ(render(outer), marker("9") + "1," + marker("3") + "in,deep1,2");
}

TEST(Rendering, EmptyNestedObjectLeavesItsCommas) {
    CatalogObject inner, outer(9);
    outer.signedNumber(1).nested(inner).signedNumber(2);
    EXPECT_EQ(render(outer), marker("9") + "1,,2");
}

TEST(Rendering, StringsAreUnchangedBytes) {
    CatalogObject object;
    EXPECT_EQ(render(object.utf8("\xC3\xA9%s").native("\xE9\n")), "\xC3\xA9%s\xE9\n");
}

TEST(Rendering, UnknownKindEndsTheObjectBehindItsComma) {
    for (const int32_t kind : {12, 99, INT32_MAX, -1, INT32_MIN}) {
        CatalogObject object(7), plain;
        object.signedNumber(1).ofKind(kind).signedNumber(2);
        EXPECT_EQ(measure(object), 51u + 20 + 1);
        EXPECT_EQ(render(object), marker("7") + "1,");
        EXPECT_EQ(render(plain.utf8("a").ofKind(kind).utf8("b")), "a");
    }
}

TEST(Rendering, UnknownKindFirstLeavesTheMarker) {
    CatalogObject object(7), plain;
    EXPECT_EQ(render(object.ofKind(12)), marker("7"));
    EXPECT_EQ(measure(plain.ofKind(12).utf8("b")), 0u);
}

TEST(Rendering, UnknownKindEndsTheNestedObjectOnly) {
    CatalogObject inner, outer(7);
    inner.utf8("a").ofKind(12).utf8("b");
    EXPECT_EQ(render(outer.nested(inner).utf8("c")), marker("7") + "a,c");
}

TEST(Rendering, AppendsBehindWhatTheBufferHolds) {
    CatalogObject object;
    EXPECT_EQ(renderInto(object.utf8("more"), 10, "pre-"), "pre-more");
}

TEST(Rendering, NeverWritesBeyondTheSize) {
    CatalogObject simple(4711);
    simple.signedNumber(42).utf8("a text of some length").wideString(L"and a wide one").real(2.5);
    const std::string whole = render(simple);
    for (size_t size = 1; size <= whole.size() + 2; ++size) {
        EXPECT_EQ(renderInto(simple, size), whole.substr(0, size - 1));
    }
    renderInto(simple, 0);
}

TEST(Rendering, FailsForATextThatIsNull) {
    CatalogObject utf8, native, wide;
    EXPECT_EQ(measure(utf8.utf8(nullptr)), kFailed);
    EXPECT_EQ(measure(native.native(nullptr)), kFailed);
    EXPECT_EQ(measure(wide.wideString(nullptr)), kFailed);
}

TEST(Rendering, FailsForAWideStringThatTheCodePageLacks) {
    CatalogObject object(7);
    EXPECT_EQ(measure(object.signedNumber(1).wideString(L"\x4E2D").signedNumber(2)), kFailed);
}

TEST(Rendering, FailingNestedObjectFailsTheWhole) {
    CatalogObject inner, outer(7);
    inner.utf8("a").utf8(nullptr);
    EXPECT_EQ(measure(outer.signedNumber(1).nested(inner).signedNumber(2)), kFailed);
    CatalogObject missing;
    EXPECT_EQ(measure(missing.ofKind(ZANTLIS_NESTED)), kFailed);
}

TEST(Rendering, ObjectsNestAThousandTimes) {
    Nest nest(1001);
    EXPECT_EQ(measure(nest.outermost()), 5u);
    EXPECT_EQ(render(nest.outermost()), "deep");
}

TEST(Rendering, ObjectsNestedDeeperFail) {
    Nest nest(1002);
    EXPECT_EQ(measure(nest.outermost()), kFailed);
    char buffer[32] = {};
    size_t size = sizeof buffer;
    strncatlis(buffer, &size, nest.outermost().lis());
    EXPECT_EQ(size, kFailed);
    Nest abyss(100000);
    EXPECT_EQ(measure(abyss.outermost()), kFailed);
}

TEST(Rendering, AnObjectThatHoldsItselfFails) {
    CatalogObject object(7);
    EXPECT_EQ(measure(object.signedNumber(1).nested(object)), kFailed);
}

TEST(Rendering, FailureInTheSecondPassSetsTheSizeToAllOnes) {
    CatalogObject object;
    object.utf8("a").utf8(nullptr);
    char buffer[32] = {};
    size_t size = sizeof buffer;
    strncatlis(buffer, &size, object.lis());
    EXPECT_EQ(size, kFailed);
}

TEST(Rendering, SurvivesNulls) {
    CatalogObject object(7);
    char buffer[32] = {};
    size_t size = 5;
    strncatlis(nullptr, nullptr, object.lis());
    strncatlis(buffer, nullptr, object.lis());
    strncatlis(nullptr, &size, nullptr);
    EXPECT_EQ(size, kFailed);
    size = sizeof buffer;
    strncatlis(buffer, &size, nullptr);
    EXPECT_EQ(size, kFailed);
    EXPECT_STREQ(buffer, "");
}
