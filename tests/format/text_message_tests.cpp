// The growable text buffer.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "zantlog/results.h"
#include "zantlog/serialization.h"

namespace {

class TextBuffer {
public:
    TextBuffer() { init_text_msg(&buffer); }
    ~TextBuffer() { free_text_msg(&buffer); }
    TextBuffer(const TextBuffer &) = delete;
    TextBuffer &operator=(const TextBuffer &) = delete;

    void fill(const std::string &piece) {
        char *at = append_text_msg(&buffer, piece.size());
        ASSERT_NE(at, nullptr);
        std::memcpy(at, piece.data(), piece.size());
    }

    [[nodiscard]] std::string content() const {
        return {buffer.data, static_cast<size_t>(buffer.capacity - buffer.free)};
    }

    text_msg buffer;
};

TEST(TextBuffer, StartsEmptyInItsInlineArea) {
    const TextBuffer text;
    EXPECT_EQ(text.buffer.data, text.buffer.inlineArea);
    EXPECT_EQ(text.buffer.free, 4096u);
    EXPECT_EQ(text.buffer.capacity, 4096u);
}

TEST(TextBuffer, AppendsPiecesOneBehindTheOther) {
    TextBuffer text;
    char *first = append_text_msg(&text.buffer, 3);
    char *second = append_text_msg(&text.buffer, 5);
    EXPECT_EQ(first, text.buffer.inlineArea);
    EXPECT_EQ(second, text.buffer.inlineArea + 3);
    EXPECT_EQ(text.buffer.free, 4088u);
    EXPECT_EQ(text.buffer.capacity, 4096u);
}

TEST(TextBuffer, AnEmptyPieceTakesNothing) {
    TextBuffer text;
    EXPECT_EQ(append_text_msg(&text.buffer, 0), text.buffer.inlineArea);
    EXPECT_EQ(text.buffer.free, 4096u);
}

TEST(TextBuffer, HoldsOneByteLessThanItsInlineArea) {
    TextBuffer text;
    EXPECT_EQ(append_text_msg(&text.buffer, 4095), text.buffer.inlineArea);
    EXPECT_EQ(text.buffer.free, 1u);
    EXPECT_EQ(text.buffer.capacity, 4096u);
}

TEST(TextBuffer, APieceAsLongAsTheFreeRoomGrowsTheBuffer) {
    TextBuffer text;
    ASSERT_NE(append_text_msg(&text.buffer, 4096), nullptr);
    EXPECT_NE(text.buffer.data, text.buffer.inlineArea);
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.buffer.free, 4096u);
}

TEST(TextBuffer, GrowsWhenItsLastByteIsAskedFor) {
    TextBuffer text;
    text.fill(std::string(4095, 'a'));
    text.fill("b");
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.buffer.free, 4096u);
    EXPECT_EQ(text.content(), std::string(4095, 'a') + "b");
}

TEST(TextBuffer, GrowsByFourKilobytesWhenThatIsEnough) {
    TextBuffer text;
    text.fill("12345");
    ASSERT_NE(append_text_msg(&text.buffer, 8187), nullptr);
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.buffer.free, 0u);
}

TEST(TextBuffer, GrowsByFourKilobytesAndThePieceWhenFourAreNotEnough) {
    TextBuffer text;
    text.fill("12345");
    ASSERT_NE(append_text_msg(&text.buffer, 8188), nullptr);
    EXPECT_EQ(text.buffer.capacity, 16380u); // 4096 + 4096 + 8188
    EXPECT_EQ(text.buffer.free, 8187u);
}

TEST(TextBuffer, AFullBufferGrowsForAnEmptyPiece) {
    TextBuffer text;
    ASSERT_NE(append_text_msg(&text.buffer, 8192), nullptr);
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.buffer.free, 0u);
    ASSERT_NE(append_text_msg(&text.buffer, 0), nullptr);
    EXPECT_EQ(text.buffer.capacity, 12288u);
    EXPECT_EQ(text.buffer.free, 4096u);
}

TEST(TextBuffer, KeepsItsContentThroughEveryGrowth) {
    TextBuffer text;
    std::string expected;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const std::string piece(1999, letter);
        text.fill(piece);
        expected += piece;
    }
    EXPECT_EQ(text.content(), expected);
}

TEST(TextBuffer, GrowingAddsFreeRoomOnly) {
    TextBuffer text;
    text.fill("abc");
    EXPECT_EQ(grow_text_msg(&text.buffer, 0), 0);
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.buffer.free, 8189u);
    EXPECT_EQ(grow_text_msg(&text.buffer, 12286), 0);
    EXPECT_EQ(text.buffer.capacity, 24574u); // 8192 + 4096 + 12286
    EXPECT_EQ(text.content(), "abc");
}

TEST(TextBuffer, RefusesCountsThatCannotBeAdded) {
    TextBuffer text;
    text.fill("abc");
    EXPECT_EQ(append_text_msg(&text.buffer, UINT64_MAX), nullptr);
    EXPECT_EQ(append_text_msg(&text.buffer, UINT64_MAX - 8192), nullptr);
    EXPECT_EQ(grow_text_msg(&text.buffer, UINT64_MAX), -1);
    EXPECT_EQ(text.buffer.data, text.buffer.inlineArea);
    EXPECT_EQ(text.content(), "abc");
}

TEST(TextBuffer, RefusesCountsThatCannotBeAddedToAHeapBlock) {
    TextBuffer text;
    const std::string content(5000, 'x');
    text.fill(content);
    EXPECT_EQ(append_text_msg(&text.buffer, UINT64_MAX), nullptr);
    EXPECT_EQ(append_text_msg(&text.buffer, UINT64_MAX - 5000), nullptr);
    EXPECT_EQ(text.content(), content);
    text.fill("more");
    EXPECT_EQ(text.content(), content + "more");
}

TEST(TextBuffer, KeepsItsInlineContentWhenMemoryIsShort) {
    TextBuffer text;
    text.fill("abc");
    EXPECT_EQ(append_text_msg(&text.buffer, uint64_t{1} << 60), nullptr);
    EXPECT_EQ(text.content(), "abc");
    text.fill("def");
    EXPECT_EQ(text.content(), "abcdef");
}

TEST(TextBuffer, IsEmptyAfterAHeapBlockCouldNotGrow) {
    TextBuffer text;
    text.fill(std::string(5000, 'x'));
    EXPECT_EQ(append_text_msg(&text.buffer, uint64_t{1} << 60), nullptr);
    EXPECT_EQ(text.buffer.data, text.buffer.inlineArea);
    EXPECT_EQ(text.buffer.capacity, 4096u);
    EXPECT_EQ(text.buffer.free, 4096u);
    free_text_msg(&text.buffer);
}

TEST(TextBuffer, ReleasingTwiceIsHarmless) {
    TextBuffer text;
    text.fill(std::string(5000, 'x'));
    free_text_msg(&text.buffer);
    free_text_msg(&text.buffer);
    EXPECT_EQ(text.buffer.data, text.buffer.inlineArea);
}

TEST(TextBuffer, TerminatingPutsALineFeedAtTheEnd) {
    TextBuffer text;
    text.fill("abc");
    EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
    EXPECT_EQ(text.content(), "abc\n");
}

TEST(TextBuffer, TerminatingAnEmptyBufferGivesAnEmptyLine) {
    TextBuffer text;
    EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
    EXPECT_EQ(text.content(), "\n");
}

TEST(TextBuffer, TerminatingTurnsLineFeedsIntoCarriageReturns) {
    TextBuffer text;
    // At the beginning, beside each other, behind the sixteenth byte, at the end; carriage returns stay.
    text.fill("\na\n\nb\rc0123456789\nd\n");
    EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
    EXPECT_EQ(text.content(), "\ra\r\rb\rc0123456789\rd\r\n");
}

TEST(TextBuffer, TerminatingReachesEveryByteOfALongContent) {
    for (size_t length = 1; length < 70; ++length) {
        TextBuffer text;
        text.fill(std::string(length, '\n'));
        EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
        EXPECT_EQ(text.content(), std::string(length, '\r') + "\n");
    }
}

TEST(TextBuffer, TerminatingAloneKeepsATrailingComma) {
    TextBuffer text;
    text.fill("a,");
    EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
    EXPECT_EQ(text.content(), "a,\n");
}

TEST(TextBuffer, TerminatingGrowsABufferWithOneFreeByte) {
    TextBuffer text;
    text.fill(std::string(4095, 'a'));
    EXPECT_EQ(terminate_text_msg(&text.buffer), 0u);
    EXPECT_EQ(text.buffer.capacity, 8192u);
    EXPECT_EQ(text.content(), std::string(4095, 'a') + "\n");
}

TEST(TextBuffer, ANullBufferIsAnsweredNotTouched) {
    init_text_msg(nullptr);
    free_text_msg(nullptr);
    EXPECT_EQ(append_text_msg(nullptr, 1), nullptr);
    EXPECT_EQ(grow_text_msg(nullptr, 1), -1);
    EXPECT_EQ(terminate_text_msg(nullptr), 3u);
}

} // namespace
