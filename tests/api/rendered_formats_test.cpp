// The other rendering helpers: formats, appended texts and the catalog library's results.
#include <cstdarg>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "zantlog/zantlog.h"

namespace {

uint32_t renderFormat(char **out, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = listxt_svnprintf(out, fmt, args);
    va_end(args);
    return result;
}

std::string formatted(char *text) {
    std::string copy = text != nullptr ? text : "(none)";
    zantLogFree(text);
    return copy;
}

} // namespace

TEST(AppendFormatted, AppendsWhatFits) {
    char buffer[12] = "ab";
    fstrncat(buffer, sizeof buffer, "%d-%s", 12, "xyz");
    EXPECT_STREQ(buffer, "ab12-xyz");
    fstrncat(buffer, sizeof buffer, "%s", "12345");
    EXPECT_STREQ(buffer, "ab12-xyz123");
    fstrncat(buffer, sizeof buffer, "%s", "more");
    EXPECT_STREQ(buffer, "ab12-xyz123");
}

TEST(AppendFormatted, NoRoomChangesNothing) {
    char buffer[4] = {'x', 'y', 'z', '!'};
    fstrncat(buffer, 0, "%d", 1);
    fstrncat(buffer, 3, "%d", 1); // no terminator within the capacity
    EXPECT_EQ(std::string(buffer, 4), "xyz!");
    char full[4] = "abc";
    fstrncat(full, sizeof full, "%d", 1);
    EXPECT_STREQ(full, "abc");
    char one[1] = "";
    fstrncat(one, 1, "%d", 1);
    EXPECT_STREQ(one, "");
}

TEST(AppendFormatted, TemporaryThatCannotBeAllocatedChangesNothing) {
    char buffer[8] = "ab";
    fstrncat(buffer, SIZE_MAX / 2, "%s", "c");
    EXPECT_STREQ(buffer, "ab");
}

TEST(AppendFormatted, EmptyResultChangesNothing) {
    char buffer[8] = "ab";
    fstrncat(buffer, sizeof buffer, "%s", "");
    EXPECT_STREQ(buffer, "ab");
}

TEST(AppendFormatted, SurvivesNulls) {
    char buffer[8] = "ab";
    fstrncat(nullptr, 8, "%s", "x");
    const char *none = nullptr;
    fstrncat(buffer, sizeof buffer, none);
    EXPECT_STREQ(buffer, "ab");
}

TEST(RenderFormat, GivesTheTextInNewMemory) {
    char *out = nullptr;
    EXPECT_EQ(renderFormat(&out, "%s has %d files", "disk0", 3), 0u);
    EXPECT_EQ(formatted(out), "disk0 has 3 files");
}

TEST(RenderFormat, TextWithoutArguments) {
    char *out = nullptr;
    EXPECT_EQ(renderFormat(&out, "nothing to see"), 0u);
    EXPECT_EQ(formatted(out), "nothing to see");
}

TEST(RenderFormat, LongText) {
    const std::string piece(10000, 'p');
    char *out = nullptr;
    EXPECT_EQ(renderFormat(&out, "%s|%s", piece.c_str(), piece.c_str()), 0u);
    EXPECT_EQ(formatted(out), piece + "|" + piece);
}

TEST(RenderFormat, EmptyFormatGivesNull) {
    char unchanged[] = "untouched";
    char *out = unchanged;
    EXPECT_EQ(renderFormat(&out, ""), 0u);
    EXPECT_EQ(out, nullptr);
}

TEST(RenderFormat, LeavesTheOutTextWhenTheFormatIsRefused) {
    char unchanged[] = "untouched";
    char *out = unchanged;
    EXPECT_EQ(renderFormat(&out, "%n"), 0u);
    EXPECT_EQ(out, unchanged);
    const char *none = nullptr;
    EXPECT_EQ(renderFormat(&out, none), 0u);
    EXPECT_EQ(out, unchanged);
}

TEST(RenderFormat, GivesNullWhenAnArgumentCannotBeRendered) {
    char unchanged[] = "untouched";
    char *out = unchanged;
    EXPECT_EQ(renderFormat(&out, "%ls", L"\x4E2D"), 0u);
    EXPECT_EQ(out, nullptr);
}

TEST(RenderFormat, SurvivesANullOutPointer) {
    EXPECT_EQ(renderFormat(nullptr, "x"), 0u);
}

TEST(CatalogResults, AreMapped) {
    EXPECT_EQ(zantLogMapLisResToLoggingRes(0), 0u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(-1), 10u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(-2), 3u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(-3), 4u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(-4), 2u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(-5), 10u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(1), 10u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(INT32_MIN), 10u);
    EXPECT_EQ(zantLogMapLisResToLoggingRes(INT32_MAX), 10u);
}
