// The hash of the library's tables.
#include <gtest/gtest.h>
#include <string>

#include "zantlog/query.h"

namespace {

TEST(HashString, OfTheEmptyTextIsZero) {
    for (const uint32_t modulus : {1u, 200u, 300u, 0xFFFFFFFFu}) {
        EXPECT_EQ(HashString("", modulus), 0u) << modulus;
    }
}

TEST(HashString, MultipliesBy31AndAddsEachByte) {
    EXPECT_EQ(HashString("a", 300), 97u);
    EXPECT_EQ(HashString("ab", 0xFFFFFFFF), 3105u);
    EXPECT_EQ(HashString("abc", 0xFFFFFFFF), 96354u);
    EXPECT_EQ(HashString("abc", 300), 54u);
    EXPECT_EQ(HashString("abc", 200), 154u);
    EXPECT_EQ(HashString("cba", 0xFFFFFFFF), 98274u);
}

TEST(HashString, TakesBytesAsSigned) {
    EXPECT_EQ(HashString("\xFF", 300), 195u); // 4294967295
    EXPECT_EQ(HashString("\xFF", 200), 95u);
    EXPECT_EQ(HashString("\xE9"
                         "a",
                         300),
              180u);                         // -23 * 31 + 97: 4294966680
    EXPECT_EQ(HashString("\x80", 300), 68u); // 4294967168
    EXPECT_EQ(HashString("\x7F", 300), 127u);
}

TEST(HashString, WrapsAt32Bits) {
    EXPECT_EQ(HashString("polygenelubricants", 0xFFFFFFFF), 2147483648u);
    EXPECT_EQ(HashString("polygenelubricants", 300), 248u);
    EXPECT_EQ(HashString("zzzzzz", 0xFFFFFFFF), 3609181632u);
    EXPECT_EQ(HashString("zzzzzzz", 0xFFFFFFFF), 215481018u); // 111884630714
}

TEST(HashString, IsBelowTheModulus) {
    std::string text;
    for (int length = 0; length < 100; ++length) {
        for (const uint32_t modulus : {1u, 2u, 200u, 300u}) {
            EXPECT_LT(HashString(text.c_str(), modulus), modulus) << text;
        }
        text += static_cast<char>(length * 37 + 1);
    }
    EXPECT_EQ(HashString("anything", 1), 0u);
}

TEST(HashString, OfNothingIsZero) {
    EXPECT_EQ(HashString(nullptr, 300), 0u);
    EXPECT_EQ(HashString("abc", 0), 0u);
}

} // namespace
