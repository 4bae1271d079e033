// Reading, copying and freeing objects.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/catalog/built_object.h"

namespace zantlog::test {
namespace {

int32_t buildText(zantLis *lis, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int32_t result = zantLisTextV(lis, format, args);
    va_end(args);
    return result;
}

int32_t buildMessage(zantLis *lis, uint32_t selector, uint32_t id, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int32_t result = zantLisVEx(lis, selector, id, format, args);
    va_end(args);
    return result;
}

TEST(ObjectLife, NullsAreInvalidArguments) {
    zantLis lis{};
    EXPECT_EQ(buildText(nullptr, "x"), -2);
    EXPECT_EQ(buildText(&lis, nullptr), -2);
    EXPECT_EQ(buildMessage(nullptr, 0, 1, "x"), -2);
    EXPECT_EQ(buildMessage(&lis, 0, 1, nullptr), -2);
    EXPECT_EQ(zantLisFree(nullptr), -2);
    uint32_t number = 0;
    EXPECT_EQ(zantLisGetTextId(nullptr, &number), -2);
    EXPECT_EQ(zantLisGetTextId(&lis, nullptr), -2);
    EXPECT_EQ(zantLisGetArgCount(nullptr, &number), -2);
    EXPECT_EQ(zantLisGetArgCount(&lis, nullptr), -2);
    zantLisArgIter iter{};
    EXPECT_EQ(zantLisGetArgsBegin(nullptr, &iter), -2);
    EXPECT_EQ(zantLisGetArgsBegin(&lis, nullptr), -2);
    EXPECT_EQ(zantLisGetNextArg(nullptr), -2);
    int32_t kind = 0;
    EXPECT_EQ(zantLisGetArgTypeId(nullptr, &kind), -2);
}

TEST(ObjectLife, FreeingClearsAndCanBeRepeated) {
    zantLis lis{};
    ASSERT_EQ(buildMessage(&lis, 0, 7, "%s", "x"), 0);
    EXPECT_EQ(zantLisFree(&lis), 0);
    EXPECT_EQ(lis.textId, 0U);
    EXPECT_EQ(lis.argCount, 0U);
    EXPECT_EQ(lis.first, nullptr);
    EXPECT_EQ(zantLisFree(&lis), 0);
    zantLis zeroed{};
    EXPECT_EQ(zantLisFree(&zeroed), 0);
}

TEST(ObjectLife, AFailedBuildLeavesAnEmptyObject) {
    zantLis lis;
    std::memset(&lis, 0xCC, sizeof lis);
    EXPECT_EQ(buildText(&lis, "%q"), -2);
    EXPECT_EQ(lis.first, nullptr);
    EXPECT_EQ(zantLisFree(&lis), 0);
}

TEST(ObjectLife, TheSelectorChangesNothing) {
    zantLis lis{};
    ASSERT_EQ(buildMessage(&lis, 99, 7, "%d", 1), 0);
    EXPECT_EQ(lis.textId, 7U);
    EXPECT_EQ(lis.argCount, 1U);
    zantLisFree(&lis);
}

TEST(ObjectLife, TheHighestMessageIdIsKept) {
    zantLis lis{};
    ASSERT_EQ(buildMessage(&lis, 0, UINT32_MAX, "%d", 1), 0);
    uint32_t id = 0;
    EXPECT_EQ(zantLisGetTextId(&lis, &id), 0);
    EXPECT_EQ(id, UINT32_MAX);
    zantLisFree(&lis);
}

TEST(ObjectLife, TextsAreCopies) {
    char narrow[] = "abc";
    wchar_t wide[] = {'x', 'y', 0};
    char format[] = "lit%s%ls";
    const BuiltObject object = plainText(format, narrow, wide);
    std::memset(narrow, '#', 3);
    std::memset(format, '#', 3);
    wide[0] = '#';
    EXPECT_STREQ(object.argument(0).first.narrow, "lit");
    EXPECT_STREQ(object.argument(1).first.narrow, "abc");
    EXPECT_EQ(units(object.argument(2).first.wide), (Units{'x', 'y'}));
}

TEST(ObjectLife, NestedObjectsAreCopiesToo) {
    zantLis inner{};
    char text[] = "deep";
    wchar_t wide[] = {'w', 0};
    ASSERT_EQ(buildMessage(&inner, 0, 5, "%s %U %ls %d %T", text, "u", wide, 3, int64_t{4}), 0);
    zantLis middle{};
    ASSERT_EQ(buildMessage(&middle, 0, 6, "%N %d", &inner, 8), 0);
    const BuiltObject outer = message("%N %N", &middle, &inner);
    zantLisFree(&inner);
    zantLisFree(&middle);
    ASSERT_EQ(outer.result, 0);

    const auto *copiedMiddle = static_cast<const zantLis *>(outer.argument(0).first.pointer);
    EXPECT_EQ(copiedMiddle->textId, 6U);
    ASSERT_EQ(copiedMiddle->argCount, 2U);
    EXPECT_EQ(copiedMiddle->first->next->second.number, 8);
    EXPECT_EQ(copiedMiddle->first->next->next, nullptr);
    const auto *copiedInner = static_cast<const zantLis *>(copiedMiddle->first->first.pointer);
    for (const zantLis *copy : {copiedInner, static_cast<const zantLis *>(outer.argument(1).first.pointer)}) {
        EXPECT_EQ(copy->textId, 5U);
        ASSERT_EQ(copy->argCount, 5U);
        const zantLisArg *at = copy->first;
        EXPECT_STREQ(at->first.narrow, "deep");
        at = at->next;
        EXPECT_EQ(at->kind, 10);
        EXPECT_STREQ(at->first.narrow, "u");
        at = at->next;
        EXPECT_EQ(units(at->first.wide), Units{'w'});
        at = at->next;
        EXPECT_EQ(at->second.number, 3);
        at = at->next;
        EXPECT_EQ(at->first.seconds, 4);
        EXPECT_EQ(at->next, nullptr);
    }
}

TEST(ObjectLife, ACopiedObjectSharesNothingWithItsOriginal) {
    const BuiltObject innermost = message("%d", 1);
    const BuiltObject inner = message("%s %U %ls %N", "s", "u", L"w", &innermost.lis);
    const BuiltObject outer = message("%N", &inner.lis);
    const auto *copy = static_cast<const zantLis *>(outer.argument(0).first.pointer);
    ASSERT_EQ(copy->argCount, 4U);
    const zantLisArg *copied = copy->first;
    for (size_t index = 0; index < 4; ++index, copied = copied->next) {
        EXPECT_NE(copied, &inner.argument(index));
        EXPECT_NE(copied->first.pointer, inner.argument(index).first.pointer) << index;
    }
}

TEST(ObjectLife, ANestedObjectWithoutArgumentsIsCopied) {
    const BuiltObject inner = message("none");
    const BuiltObject outer = message("%N", &inner.lis);
    const auto *copy = static_cast<const zantLis *>(outer.argument(0).first.pointer);
    EXPECT_EQ(copy->textId, 4711U);
    EXPECT_EQ(copy->argCount, 0U);
    EXPECT_EQ(copy->first, nullptr);
}

TEST(ObjectLife, ObjectsNestThirtyTwoTimes) {
    zantLis object{};
    ASSERT_EQ(buildText(&object, "x"), 0);
    for (int depth = 1; depth <= 32; ++depth) {
        zantLis next{};
        ASSERT_EQ(buildText(&next, "%N", &object), 0) << depth;
        zantLisFree(&object);
        object = next;
    }
    zantLis tooDeep{};
    EXPECT_EQ(buildText(&tooDeep, "%N", &object), -2);
    EXPECT_EQ(tooDeep.first, nullptr);
    zantLisFree(&object);
}

TEST(ObjectLife, ANestedObjectOfUnknownKindIsRefused) {
    zantLisArg strange = {12, {}, {}, nullptr};
    const zantLis foreign = {1, 1, &strange};
    EXPECT_EQ(message("%N", &foreign).result, -2);
}

TEST(ObjectLife, IterationEndsBehindTheLastArgument) {
    const BuiltObject object = message("%d%s", 1, "x");
    uint32_t count = 0;
    EXPECT_EQ(zantLisGetArgCount(&object.lis, &count), 0);
    EXPECT_EQ(count, 2U);
    zantLisArgIter iter;
    std::memset(&iter, 0xCC, sizeof iter);
    ASSERT_EQ(zantLisGetArgsBegin(&object.lis, &iter), 0);
    int32_t kind = -1;
    EXPECT_EQ(zantLisGetArgTypeId(&iter, &kind), 0);
    EXPECT_EQ(kind, 1);
    EXPECT_EQ(zantLisGetNextArg(&iter), 0);
    EXPECT_EQ(zantLisGetArgTypeId(&iter, &kind), 0);
    EXPECT_EQ(kind, 11);
    EXPECT_EQ(zantLisGetNextArg(&iter), -1);
    EXPECT_EQ(zantLisGetNextArg(&iter), -1);
    EXPECT_EQ(zantLisGetArgTypeId(&iter, &kind), -2);
    int64_t number = 0;
    EXPECT_EQ(zantLisGetArg_longlong(&iter, &number), -2);
}

TEST(ObjectLife, AnObjectWithoutArgumentsCannotBeIterated) {
    const BuiltObject object = message("none");
    zantLisArgIter iter;
    std::memset(&iter, 0xCC, sizeof iter);
    EXPECT_EQ(zantLisGetArgsBegin(&object.lis, &iter), -1);
    EXPECT_EQ(zantLisGetNextArg(&iter), -1);
}

struct Fetched {
    wchar_t character = 0;
    int64_t number = 0;
    uint64_t unsignedNumber = 0;
    double real = 0;
    void *pointer = nullptr;
    const char *native = nullptr;
    const char *utf8 = nullptr;
    const wchar_t *wide = nullptr;
    int64_t error = 0;
    int64_t date = 0;
    zantLis nested{};
};

// Which fetchers take the argument: the kinds that they are made for, 7 counted as 6.
std::vector<int32_t> acceptingFetchers(const zantLisArgIter &iter, Fetched *out) {
    std::vector<int32_t> kinds;
    const auto note = [&](int32_t kind, int32_t result) {
        EXPECT_TRUE(result == 0 || result == -2) << kind;
        if (result == 0) {
            kinds.push_back(kind);
        }
    };
    note(0, zantLisGetArg_wchar(&iter, &out->character));
    note(1, zantLisGetArg_longlong(&iter, &out->number));
    note(2, zantLisGetArg_ulonglong(&iter, &out->unsignedNumber));
    note(3, zantLisGetArg_double(&iter, &out->real));
    note(4, zantLisGetArg_pointer(&iter, &out->pointer));
    note(5, zantLisGetArg_wstring(&iter, &out->wide));
    note(6, zantLisGetArg_os_error(&iter, &out->error));
    note(8, zantLisGetArg_datetime(&iter, &out->date));
    note(9, zantLisGetArg_lis(&iter, &out->nested));
    note(10, zantLisGetArg_utf8string(&iter, &out->utf8));
    note(11, zantLisGetArg_nativeString(&iter, &out->native));
    return kinds;
}

TEST(ObjectLife, EachFetcherTakesItsOwnKindAndNoOther) {
    const BuiltObject inner = message("%d", 9);
    const BuiltObject object = message("%lc%lld%llu%f%p%ls%r%R%T%N%U%s", 0x41, int64_t{-1}, UINT64_MAX, 2.5,
                                       reinterpret_cast<void *>(uintptr_t{4}), L"5", 6, int64_t{7},
                                       int64_t{8}, &inner.lis, "10", "11");
    ASSERT_EQ(object.result, 0);
    zantLisArgIter iter{};
    ASSERT_EQ(zantLisGetArgsBegin(&object.lis, &iter), 0);
    Fetched out;
    for (int32_t kind = 0; kind <= 11; ++kind) {
        int32_t found = -1;
        ASSERT_EQ(zantLisGetArgTypeId(&iter, &found), 0);
        ASSERT_EQ(found, kind);
        EXPECT_EQ(acceptingFetchers(iter, &out), std::vector<int32_t>{kind == 7 ? 6 : kind});
        if (kind == 6) {
            EXPECT_EQ(out.error, 6);
        }
        EXPECT_EQ(zantLisGetNextArg(&iter), kind < 11 ? 0 : -1);
    }
    EXPECT_EQ(out.character, L'A');
    EXPECT_EQ(out.number, -1);
    EXPECT_EQ(out.unsignedNumber, UINT64_MAX);
    EXPECT_EQ(out.real, 2.5);
    EXPECT_EQ(out.pointer, reinterpret_cast<void *>(uintptr_t{4}));
    EXPECT_EQ(units(out.wide), Units{'5'});
    EXPECT_EQ(out.error, 7);
    EXPECT_EQ(out.date, 8);
    EXPECT_EQ(out.nested.textId, 4711U);
    EXPECT_EQ(out.nested.first->second.number, 9);
    EXPECT_STREQ(out.utf8, "10");
    EXPECT_STREQ(out.native, "11");
}

TEST(ObjectLife, FetchedTextsAreTheObjectsOwn) {
    const BuiltObject object = message("%s", "x");
    zantLisArgIter iter{};
    ASSERT_EQ(zantLisGetArgsBegin(&object.lis, &iter), 0);
    const char *text = nullptr;
    ASSERT_EQ(zantLisGetArg_nativeString(&iter, &text), 0);
    EXPECT_EQ(text, object.argument(0).first.narrow);
}

TEST(ObjectLife, FetchersRefuseNulls) {
    const BuiltObject object = message("%lc%lld%llu%f%p%ls%r%T%U%s", 0x41, int64_t{-1}, UINT64_MAX, 2.5,
                                       static_cast<void *>(nullptr), L"5", 6, int64_t{8}, "10", "11");
    zantLisArgIter iter{};
    ASSERT_EQ(zantLisGetArgsBegin(&object.lis, &iter), 0);
    Fetched out;
    do {
        EXPECT_EQ(zantLisGetArgTypeId(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_wchar(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_longlong(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_ulonglong(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_double(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_pointer(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_wstring(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_os_error(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_datetime(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_lis(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_utf8string(&iter, nullptr), -2);
        EXPECT_EQ(zantLisGetArg_nativeString(&iter, nullptr), -2);
    } while (zantLisGetNextArg(&iter) == 0);
    EXPECT_EQ(zantLisGetArg_wchar(nullptr, &out.character), -2);
    EXPECT_EQ(zantLisGetArg_longlong(nullptr, &out.number), -2);
    EXPECT_EQ(zantLisGetArg_ulonglong(nullptr, &out.unsignedNumber), -2);
    EXPECT_EQ(zantLisGetArg_double(nullptr, &out.real), -2);
    EXPECT_EQ(zantLisGetArg_pointer(nullptr, &out.pointer), -2);
    EXPECT_EQ(zantLisGetArg_wstring(nullptr, &out.wide), -2);
    EXPECT_EQ(zantLisGetArg_os_error(nullptr, &out.error), -2);
    EXPECT_EQ(zantLisGetArg_datetime(nullptr, &out.date), -2);
    EXPECT_EQ(zantLisGetArg_lis(nullptr, &out.nested), -2);
    EXPECT_EQ(zantLisGetArg_utf8string(nullptr, &out.utf8), -2);
    EXPECT_EQ(zantLisGetArg_nativeString(nullptr, &out.native), -2);
}

TEST(ObjectLife, ARefusedFetchStoresNothing) {
    const BuiltObject object = message("%d", 1);
    zantLisArgIter iter{};
    ASSERT_EQ(zantLisGetArgsBegin(&object.lis, &iter), 0);
    const char *text = "before";
    EXPECT_EQ(zantLisGetArg_utf8string(&iter, &text), -2);
    EXPECT_STREQ(text, "before");
}

// The caller's list is not used up: the same arguments can be given to a second function.
int32_t buildTwice(zantLis *first, zantLis *second, const char *format, ...) {
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    int32_t result = zantLisVEx(first, 0, 1, format, args);
    if (result == 0) {
        result = zantLisVEx(second, 0, 1, format, again);
    }
    va_end(again);
    va_end(args);
    return result;
}

TEST(ObjectLife, OneListServesTwoObjects) {
    zantLis first{};
    zantLis second{};
    ASSERT_EQ(buildTwice(&first, &second, "%d %s", 1, "x"), 0);
    EXPECT_EQ(second.first->second.number, 1);
    EXPECT_STREQ(second.first->next->first.narrow, "x");
    zantLisFree(&first);
    zantLisFree(&second);
}

} // namespace
} // namespace zantlog::test
