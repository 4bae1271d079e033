// Conversions between UTF-8, UTF-16 and the process's code page, which is 1252 here.
#include "base/utf8.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace zantlog {

namespace {

using Units = std::vector<uint16_t>;

std::vector<wchar_t> wide(const Units &units) {
    std::vector<wchar_t> text(units.begin(), units.end());
    text.push_back(0);
    return text;
}

std::string encoded(const Units &units) {
    char buffer[64];
    size_t length = 0;
    const std::vector<wchar_t> text = wide(units);
    if (!encodeUtf8(text.data(), units.size(), buffer, sizeof(buffer), &length)) {
        return "<none>";
    }
    EXPECT_EQ(buffer[length], '\0');
    return {buffer, length};
}

Units decoded(const char *text, uint32_t *result) {
    OwnedWideText out;
    *result = wideFromUtf8(text, &out);
    Units units;
    for (const wchar_t *at = out.get(); at != nullptr && *at != 0; ++at) {
        units.push_back(static_cast<uint16_t>(*at));
    }
    return units;
}

std::string toCodePage(const char *text) {
    OwnedText out;
    const uint32_t result = codePageFromUtf8(text, &out);
    return result == 0 ? std::string(out.get()) : "<" + std::to_string(result) + ">";
}

std::string fromCodePage(const char *text) {
    OwnedText out;
    const uint32_t result = utf8FromCodePage(text, &out);
    return result == 0 ? std::string(out.get()) : "<" + std::to_string(result) + ">";
}

TEST(Utf8, EncodesEveryLengthOfSequence) {
    EXPECT_EQ(encoded({}), "");
    EXPECT_EQ(encoded({'a', 'b'}), "ab");
    EXPECT_EQ(encoded({0x7f}), "\x7f");
    EXPECT_EQ(encoded({0x80}), "\xc2\x80");
    EXPECT_EQ(encoded({0x7ff}), "\xdf\xbf");
    EXPECT_EQ(encoded({0x800}), "\xe0\xa0\x80");
    EXPECT_EQ(encoded({0xffff}), "\xef\xbf\xbf");
    EXPECT_EQ(encoded({0xd800, 0xdc00}), "\xf0\x90\x80\x80");
    EXPECT_EQ(encoded({0xdbff, 0xdfff}), "\xf4\x8f\xbf\xbf");
}

TEST(Utf8, LoneSurrogatesAreNotEncoded) {
    EXPECT_EQ(encoded({0xd800}), "<none>");
    EXPECT_EQ(encoded({0xdc00}), "<none>");
    EXPECT_EQ(encoded({'a', 0xd800, 'b'}), "<none>");
    EXPECT_EQ(encoded({0xdc00, 0xd800}), "<none>");
}

TEST(Utf8, EncodingStopsAtTheGivenLength) {
    char buffer[8];
    size_t length = 0;
    EXPECT_TRUE(encodeUtf8(L"abc", 2, buffer, sizeof(buffer), &length));
    EXPECT_EQ(length, 2u);
    EXPECT_STREQ(buffer, "ab");
}

TEST(Utf8, EncodingMeasuresWithoutABuffer) {
    size_t length = 0;
    const std::vector<wchar_t> text = wide({'a', 0xe9, 0x20ac});
    EXPECT_TRUE(encodeUtf8(text.data(), 3, nullptr, 0, &length));
    EXPECT_EQ(length, 6u);
    EXPECT_TRUE(encodeUtf8(text.data(), 0, nullptr, 0, &length));
    EXPECT_EQ(length, 0u);
    const std::vector<wchar_t> broken = wide({'a', 0xd800});
    EXPECT_FALSE(encodeUtf8(broken.data(), 2, nullptr, 0, &length));
}

TEST(Utf8, EncodingIntoABufferThatIsTooSmallNamesTheLength) {
    char buffer[4] = {'z', 'z', 'z', 'z'};
    size_t length = 0;
    EXPECT_TRUE(encodeUtf8(L"abcdef", 6, buffer, 3, &length));
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(buffer[3], 'z');
}

TEST(Utf8, EncodingThatFillsTheBufferIsNotTerminated) {
    char buffer[4] = {'z', 'z', 'z', 'z'};
    size_t length = 0;
    EXPECT_TRUE(encodeUtf8(L"abc", 3, buffer, 3, &length));
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(std::memcmp(buffer, "abcz", 4), 0);
}

TEST(Utf8, DecodesEveryLengthOfSequence) {
    uint32_t result = 99;
    EXPECT_EQ(decoded("", &result), Units{});
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(decoded("a\xc2\x80\xe0\xa0\x80\xef\xbf\xbf\xf0\x90\x80\x80", &result),
              (Units{'a', 0x80, 0x800, 0xffff, 0xd800, 0xdc00}));
    EXPECT_EQ(result, 0u);
}

TEST(Utf8, WhatIsNotUtf8IsNotDecoded) {
    for (const char *text : {"\x80", "\xff", "a\xc3", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80",
                             "\xf4\x90\x80\x80", "\xf0\x90\x80", "\xe9t\xe9"}) {
        uint32_t result = 99;
        EXPECT_EQ(decoded(text, &result), Units{});
        EXPECT_EQ(result, 1u) << text;
    }
}

TEST(CodePage, TextOfTheCodePageConvertsBothWays) {
    EXPECT_EQ(toCodePage(""), "");
    EXPECT_EQ(toCodePage("plain"), "plain");
    EXPECT_EQ(toCodePage("\xc3\xa9\xe2\x82\xac\xc3\xbf"), "\xe9\x80\xff");
    EXPECT_EQ(fromCodePage(""), "");
    EXPECT_EQ(fromCodePage("plain"), "plain");
    EXPECT_EQ(fromCodePage("\xe9\x80\xff"), "\xc3\xa9\xe2\x82\xac\xc3\xbf");
}

TEST(CodePage, EveryByteComesBackAsItWas) {
    for (int byte = 1; byte < 256; ++byte) {
        const char text[] = {'a', static_cast<char>(byte), 'z', '\0'};
        OwnedText utf8;
        ASSERT_EQ(utf8FromCodePage(text, &utf8), 0u) << byte;
        EXPECT_EQ(toCodePage(utf8.get()), text) << byte;
    }
}

TEST(CodePage, BytesWithoutACharacterAreTheControlsOfTheSameNumber) {
    EXPECT_EQ(fromCodePage("\x81\x8d\x8f\x90\x9d"), "\xc2\x81\xc2\x8d\xc2\x8f\xc2\x90\xc2\x9d");
    EXPECT_EQ(toCodePage("\xc2\x81\xc2\x9d"), "\x81\x9d");
}

TEST(CodePage, CharactersOutsideItAreRefusedAndNotReplaced) {
    EXPECT_EQ(toCodePage("a\xe4\xb8\x80z"), "<1>");   // U+4E00
    EXPECT_EQ(toCodePage("\xf0\x9f\x98\x80"), "<1>"); // U+1F600
    EXPECT_EQ(toCodePage("\xc2\x80"), "<1>");         // U+0080, whose byte is the euro sign's
}

TEST(CodePage, WhatIsNotUtf8IsRefused) {
    EXPECT_EQ(toCodePage("\xe9"), "<1>");
    EXPECT_EQ(toCodePage("ok\xc3"), "<1>");
}

TEST(CodePage, LongTextIsConvertedWhole) {
    const std::string bytes(50000, '\x80');
    std::string utf8;
    for (int i = 0; i < 50000; ++i) {
        utf8 += "\xe2\x82\xac";
    }
    EXPECT_EQ(fromCodePage(bytes.c_str()), utf8);
    EXPECT_EQ(toCodePage(utf8.c_str()), bytes);
}

TEST(CodePage, ThreadsConvertAtOnce) {
    std::vector<std::thread> threads;
    std::vector<int> wrong(4);
    for (size_t t = 0; t < wrong.size(); ++t) {
        threads.emplace_back([&wrong, t] {
            const std::string own(20 + t, static_cast<char>(0xe0 + t));
            for (int i = 0; i < 300; ++i) {
                wrong[t] += toCodePage(fromCodePage(own.c_str()).c_str()) != own;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4));
}

} // namespace

} // namespace zantlog
