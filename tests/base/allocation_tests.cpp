// The allocator of what the library hands out, and the checks of ids and names.
#include "zantlog/message.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Allocation, BlockCanBeFilled) {
    auto *block = static_cast<char *>(zantLogMalloc(1000));
    ASSERT_NE(block, nullptr);
    std::memset(block, 'x', 1000);
    zantLogFree(block);
}

TEST(Allocation, SizeZeroGivesNothing) {
    EXPECT_EQ(zantLogMalloc(0), nullptr);
}

TEST(Allocation, WhatIsTooLargeGivesNothing) {
    EXPECT_EQ(zantLogMalloc(SIZE_MAX / 2), nullptr);
}

TEST(Allocation, FreeingNothingIsIgnored) {
    zantLogFree(nullptr);
}

TEST(Allocation, CopyIsATextOfItsOwn) {
    char text[] = "token";
    char *copy = zantLogSafeStrdup(text);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, text);
    text[0] = 'T';
    EXPECT_STREQ(copy, "token");
    zantLogFree(copy);
}

TEST(Allocation, EmptyTextHasAnEmptyCopy) {
    char *copy = zantLogSafeStrdup("");
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy, "");
    zantLogFree(copy);
}

TEST(Allocation, LongTextIsCopiedWhole) {
    const std::string text(100000, 'x');
    char *copy = zantLogSafeStrdup(text.c_str());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy, text);
    zantLogFree(copy);
}

TEST(Allocation, NullTextHasNoCopy) {
    EXPECT_EQ(zantLogSafeStrdup(nullptr), nullptr);
}

TEST(Allocation, ErrorMessageIsFreedOrRefused) {
    EXPECT_EQ(zantLogResFreeErrorMessage(nullptr), 3u);
    EXPECT_EQ(zantLogResFreeErrorMessage(zantLogSafeStrdup("message")), 0u);
}

TEST(Validity, IdsAreValidUnlessZero) {
    EXPECT_EQ(isOrigIdValid(0), 0);
    EXPECT_EQ(isOrigIdValid(1), 1);
    EXPECT_EQ(isOrigIdValid(0x80000000u), 1);
    EXPECT_EQ(isOrigIdValid(0xffffffffu), 1);
    EXPECT_EQ(isProdIdValid(0), 0);
    EXPECT_EQ(isProdIdValid(1), 1);
    EXPECT_EQ(isProdIdValid(0xffffffffu), 1);
}

TEST(Validity, NamesOfLogSetsAreValidUnlessNull) {
    EXPECT_EQ(isLogSetValid(nullptr), 0);
    EXPECT_EQ(isLogSetValid(""), 1);
    EXPECT_EQ(isLogSetValid("Default"), 1);
}

} // namespace
