// Passes over bytes.
#include <gtest/gtest.h>
#include <string>

#include "base/byte_scan.h"

namespace {

using namespace zantlog;

TEST(ByteScan, MeasuresATextFromEveryPlaceOfABlock) {
    for (size_t offset = 0; offset < 16; ++offset) {
        for (size_t length = 0; length < 50; ++length) {
            alignas(16) char area[96];
            std::memset(area, '\xFF', sizeof area);
            std::memset(area + offset, 'a', length);
            area[offset + length] = '\0';
            const MeasuredText measured = measureText(area + offset);
            EXPECT_EQ(measured.length, length);
            EXPECT_TRUE(measured.ascii);
        }
    }
}

TEST(ByteScan, FindsTheOneByteThatIsNotAscii) {
    for (size_t offset = 0; offset < 16; ++offset) {
        for (size_t place = 0; place < 50; ++place) {
            alignas(16) char area[96];
            std::memset(area, '\0', sizeof area);
            std::memset(area + offset, '\x7F', 50);
            area[offset + place] = '\x80';
            const MeasuredText measured = measureText(area + offset);
            EXPECT_EQ(measured.length, 50u);
            EXPECT_FALSE(measured.ascii);
        }
    }
}

TEST(ByteScan, ReplacesAByteAtEveryPlace) {
    for (size_t length = 0; length < 50; ++length) {
        for (size_t place = 0; place < length; ++place) {
            std::string text(length, 'a');
            std::string expected = text;
            text[place] = '\n';
            expected[place] = '\r';
            replaceByte(text.data(), text.size(), '\n', '\r');
            EXPECT_EQ(text, expected);
        }
    }
}

TEST(ByteScan, CountsThroughTheFirstHit) {
    for (size_t length = 0; length < 50; ++length) {
        for (size_t place = 0; place < length; ++place) {
            std::string text(length, 'a');
            text[place] = '\n';
            text.back() = '\n';
            EXPECT_EQ(countThrough(text.data(), text.size(), '\n'), place + 1);
        }
        EXPECT_EQ(countThrough(std::string(length, 'a').data(), length, '\n'), length);
    }
}

} // namespace
