// The exported conversions to UTF-8, in the "C" locale.
#include "zantlog/serialization.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

std::string fromWide(const std::vector<uint16_t> &units) {
    std::vector<wchar_t> text(units.begin(), units.end());
    text.push_back(0);
    char *out = nullptr;
    const uint32_t result = wcs2utf8(&out, text.data());
    if (result != 0) {
        EXPECT_EQ(out, nullptr);
        return "<" + std::to_string(result) + ">";
    }
    std::string converted = out;
    zantLogFree(out);
    return converted;
}

std::string fromMultiByte(const char *text) {
    char *out = nullptr;
    const uint32_t result = mbs2utf8(&out, text);
    if (result != 0) {
        EXPECT_EQ(out, nullptr);
        return "<" + std::to_string(result) + ">";
    }
    std::string converted = out;
    zantLogFree(out);
    return converted;
}

TEST(Utf8Conversion, WideTextIsConverted) {
    EXPECT_EQ(fromWide({'a', 0xe9, 0x20ac, 0xd83d, 0xde00}), "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
    EXPECT_EQ(fromWide({}), "");
}

TEST(Utf8Conversion, NoncharactersPassAndLoneSurrogatesFail) {
    EXPECT_EQ(fromWide({0xffff}), "\xef\xbf\xbf");
    EXPECT_EQ(fromWide({0xfffe}), "\xef\xbf\xbe");
    EXPECT_EQ(fromWide({'a', 0xd800}), "<1>");
    EXPECT_EQ(fromWide({0xdfff, 'a'}), "<1>");
    EXPECT_EQ(fromWide({0xd800, 0xd800}), "<1>");
}

TEST(Utf8Conversion, FailureClearsTheOutput) {
    const wchar_t broken[] = {static_cast<wchar_t>(0xd800), 0};
    char sentinel = 'x';
    char *out = &sentinel;
    EXPECT_EQ(wcs2utf8(&out, broken), 1u);
    EXPECT_EQ(out, nullptr);
    out = &sentinel;
    EXPECT_EQ(wcs2utf8(&out, nullptr), 3u);
    EXPECT_EQ(out, nullptr);
    out = &sentinel;
    EXPECT_EQ(mbs2utf8(&out, nullptr), 3u);
    EXPECT_EQ(out, nullptr);
}

TEST(Utf8Conversion, LongWideTextIsConvertedWhole) {
    EXPECT_EQ(fromWide(std::vector<uint16_t>(20000, 0xe9)).size(), 40000u);
}

TEST(Utf8Conversion, MultiByteTextIsConverted) {
    EXPECT_EQ(fromMultiByte("disk failure"), "disk failure");
    EXPECT_EQ(fromMultiByte(""), "");
    // The "C" locale takes each byte for the character of its number.
    EXPECT_EQ(fromMultiByte("\xe9\x80"), "\xc3\xa9\xc2\x80");
}

TEST(Utf8Conversion, LongMultiByteTextIsConvertedWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(fromMultiByte(text.c_str()), text);
}

TEST(Utf8Conversion, NullArgumentsAre3) {
    char *out = nullptr;
    EXPECT_EQ(wcs2utf8(nullptr, L"a"), 3u);
    EXPECT_EQ(wcs2utf8(&out, nullptr), 3u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(mbs2utf8(nullptr, "a"), 3u);
    EXPECT_EQ(mbs2utf8(&out, nullptr), 3u);
    EXPECT_EQ(out, nullptr);
}

} // namespace
