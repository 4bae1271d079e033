// Taking records out of log files.
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/reader/reading_file.h"

namespace {

using namespace zantlog::test;

constexpr size_t kBlock = 32768;

const ReadRecord kEndOfFile{0, {}};

TEST(RecordReader, AnEmptyFileHasNoRecord) {
    ReadingFile log("");
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, GivesRecordsWithoutTheirLineFeedsInOrder) {
    ReadingFile log("first\nsecond, longer than sixteen bytes\nx\n");
    EXPECT_EQ(readOne(log.file()), recordOf("first"));
    EXPECT_EQ(readOne(log.file()), recordOf("second, longer than sixteen bytes"));
    EXPECT_EQ(readOne(log.file()), recordOf("x"));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, EmptyLinesAreEmptyRecords) {
    ReadingFile log("\n\na\n\n");
    EXPECT_EQ(readOne(log.file()), recordOf(""));
    EXPECT_EQ(readOne(log.file()), recordOf(""));
    EXPECT_EQ(readOne(log.file()), recordOf("a"));
    EXPECT_EQ(readOne(log.file()), recordOf(""));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, TruncatedTrailingRecordIsIgnored) {
    ReadingFile log("whole\ntrunca");
    EXPECT_EQ(readOne(log.file()), recordOf("whole"));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, CarriageReturnsComeBackAsLineFeeds) {
    ReadingFile log("one\rtwo\r\r\nthree\r\n\rfour, with more bytes than one block\r of sixteen\r\n");
    EXPECT_EQ(readOne(log.file()), recordOf("one\ntwo\n\n"));
    EXPECT_EQ(readOne(log.file()), recordOf("three\n"));
    EXPECT_EQ(readOne(log.file()), recordOf("\nfour, with more bytes than one block\n of sixteen\n"));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, OtherBytesComeBackUnchanged) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\n' && byte != '\r') {
            bytes += static_cast<char>(byte);
        }
    }
    ReadingFile log(bytes + "\n");
    EXPECT_EQ(readOne(log.file()), recordOf(bytes));
}

TEST(RecordReader, EveryLengthAndPlaceOfACarriageReturnIsRight) {
    std::string stored;
    std::vector<std::string> expected;
    for (size_t length = 1; length < 100; ++length) {
        for (const size_t place : {size_t{0}, length / 2, length - 1}) {
            std::string line(length, static_cast<char>('a' + length % 26));
            line[place] = '\r';
            stored += line + "\n";
            line[place] = '\n';
            expected.push_back(line);
        }
    }
    ReadingFile log(stored);
    for (const std::string &line : expected) {
        ASSERT_EQ(readOne(log.file()), recordOf(line));
    }
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

// ---- blocks

TEST(RecordReader, ARecordThatSpansTwoBlocksIsWhole) {
    for (size_t first = kBlock - 40; first < kBlock + 40; ++first) {
        const std::string begin(first, 'b');
        const std::string second = "a record of fifty bytes that lies about the border.";
        ReadingFile log(begin + "\n" + second + "\nlast\n");
        ASSERT_EQ(readOne(log.file()), recordOf(begin)) << first;
        ASSERT_EQ(readOne(log.file()), recordOf(second)) << first;
        ASSERT_EQ(readOne(log.file()), recordOf("last")) << first;
        ASSERT_EQ(readOne(log.file()), kEndOfFile) << first;
    }
}

TEST(RecordReader, CarriageReturnsBesideABlocksEndAreTranslated) {
    for (size_t place = kBlock - 20; place < kBlock + 20; ++place) {
        std::string line(kBlock + 100, 'b');
        line[place] = '\r';
        ReadingFile log(line + "\n");
        line[place] = '\n';
        ASSERT_EQ(readOne(log.file()), recordOf(line)) << place;
    }
}

TEST(RecordReader, ABlockMayEndWithItsLineFeed) {
    const std::string line(kBlock - 1, 'b');
    ReadingFile log(line + "\n" + line + "\n");
    EXPECT_EQ(readOne(log.file()), recordOf(line));
    EXPECT_EQ(log.file()->position, log.file()->length);
    EXPECT_EQ(readOne(log.file()), recordOf(line));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, ALineFeedMayBeginABlock) {
    const std::string line(kBlock, 'b');
    ReadingFile log(line + "\nnext\n");
    EXPECT_EQ(readOne(log.file()), recordOf(line));
    EXPECT_EQ(readOne(log.file()), recordOf("next"));
}

TEST(RecordReader, RecordsMayBeLongerThanBlocks) {
    std::string line(3 * kBlock + 5000, 'b');
    line[100] = '\r';
    line[2 * kBlock] = '\r';
    std::string expected = line;
    expected[100] = '\n';
    expected[2 * kBlock] = '\n';
    ReadingFile log("first\n" + line + "\nlast\n");
    EXPECT_EQ(readOne(log.file()), recordOf("first"));
    EXPECT_EQ(readOne(log.file()), recordOf(expected));
    EXPECT_EQ(readOne(log.file()), recordOf("last"));
}

TEST(RecordReader, ARecordOfHundredsOfBlocksIsWhole) {
    const std::string line(300 * kBlock + 1, 'b');
    ReadingFile log(line + "\nlast\n");
    const ReadRecord record = readOne(log.file());
    EXPECT_EQ(record.result, 1);
    EXPECT_TRUE(record.bytes == line + '\0');
    EXPECT_EQ(readOne(log.file()), recordOf("last"));
}

TEST(RecordReader, ATruncatedRecordOfManyBlocksIsIgnored) {
    ReadingFile log(std::string(2 * kBlock, 'b'));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, AFileOfManyBlocksIsReadWhole) {
    std::string bytes;
    for (int number = 0; number < 20000; ++number) {
        bytes += std::to_string(number) + std::string(static_cast<size_t>(number % 97), '.') + "\n";
    }
    ReadingFile log(bytes);
    for (int number = 0; number < 20000; ++number) {
        ASSERT_EQ(readOne(log.file()),
                  recordOf(std::to_string(number) + std::string(static_cast<size_t>(number % 97), '.')));
    }
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, SeesWhatIsAppendedAfterTheEndWasReached) {
    ReadingFile log("first\n");
    EXPECT_EQ(readOne(log.file()), recordOf("first"));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
    writeFileBytes(log.path(), "first\nsecond\n");
    EXPECT_EQ(readOne(log.file()), recordOf("second"));
}

// ---- the text buffer

TEST(RecordReader, ARecordOf4094BytesStaysInTheInlineArea) {
    // With its terminator it takes 4095 bytes; one more needs a heap block.
    for (const auto &[length, capacity] :
         {std::pair{4094u, 4096u}, std::pair{4095u, 8192u}, std::pair{4096u, 8192u}}) {
        ReadingFile log(std::string(length, 'b') + "\nnext\n");
        text_msg buffer;
        init_text_msg(&buffer);
        ASSERT_EQ(readrecord(log.file(), &buffer), 1);
        EXPECT_EQ(buffer.capacity, capacity) << length;
        EXPECT_EQ(buffer.capacity - buffer.free, length + 1);
        EXPECT_EQ(std::string(buffer.data), std::string(length, 'b'));
        free_text_msg(&buffer);
        EXPECT_EQ(readOne(log.file()), recordOf("next"));
    }
}

TEST(RecordReader, AppendsAtTheEndOfTheBuffer) {
    ReadingFile log("one\ntwo\n" + std::string(5000, 'b') + "\n");
    text_msg buffer;
    init_text_msg(&buffer);
    EXPECT_EQ(readrecord(log.file(), &buffer), 1);
    EXPECT_EQ(readrecord(log.file(), &buffer), 1);
    EXPECT_EQ(readrecord(log.file(), &buffer), 1);
    const std::string content(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free));
    EXPECT_EQ(content, std::string("one\0two\0", 8) + std::string(5000, 'b') + '\0');
    free_text_msg(&buffer);
}

TEST(RecordReader, FillsABufferThatIsFull) {
    ReadingFile log("record\n");
    text_msg buffer;
    init_text_msg(&buffer);
    char *before = append_text_msg(&buffer, 8192);
    ASSERT_NE(before, nullptr);
    std::memset(before, 'x', 8192);
    ASSERT_EQ(buffer.free, 0u);
    EXPECT_EQ(readrecord(log.file(), &buffer), 1);
    const std::string content(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free));
    EXPECT_EQ(content, std::string(8192, 'x') + std::string("record\0", 7));
    free_text_msg(&buffer);
}

TEST(RecordReader, ABufferThatCannotGrowFails) {
    ReadingFile log("record\n");
    text_msg buffer;
    init_text_msg(&buffer);
    buffer.capacity = UINT64_MAX;
    buffer.free = 1;
    EXPECT_EQ(readrecord(log.file(), &buffer), -1);
    init_text_msg(&buffer);
}

// ---- the read context

TEST(RecordReader, BuffersOneBlockAtATime) {
    ReadingFile log("one\ntwo\n");
    EXPECT_EQ(log.file()->position, -1);
    EXPECT_EQ(readOne(log.file()), recordOf("one"));
    EXPECT_EQ(log.file()->position, 4);
    EXPECT_EQ(log.file()->length, 8);
    EXPECT_EQ(readOne(log.file()), recordOf("two"));
    EXPECT_EQ(log.file()->position, 8);
}

TEST(RecordReader, GoesOnWhereThePositionStands) {
    ReadingFile log("one\ntwo\nthree\n");
    EXPECT_EQ(readOne(log.file()), recordOf("one"));
    log.file()->position = 8;
    EXPECT_EQ(readOne(log.file()), recordOf("three"));
    log.file()->position = 5;
    EXPECT_EQ(readOne(log.file()), recordOf("wo"));
}

TEST(RecordReader, PositionMinusOneDropsWhatIsBuffered) {
    ReadingFile log("one\ntwo\n");
    EXPECT_EQ(readOne(log.file()), recordOf("one"));
    log.file()->position = -1;
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

TEST(RecordReader, WhatWasReadIntoAnotherBufferIsNotBuffered) {
    const std::string others(40000, 'o');
    ReadingFile log(others + "record\n");
    std::string elsewhere(others.size(), '\0');
    ASSERT_EQ(zantLogOs_read(log.file(), elsewhere.data(), 40000), 40000);
    EXPECT_EQ(readOne(log.file()), recordOf("record"));
}

TEST(RecordReader, AFailedReadIsPassedOn) {
    auto closed = std::make_unique<zantLogOsFile>();
    closed->position = -1;
    EXPECT_EQ(readOne(closed.get()).result, -1);
}

TEST(RecordReader, NullArgumentsAreAnswered) {
    ReadingFile log("one\n");
    text_msg buffer;
    init_text_msg(&buffer);
    EXPECT_EQ(readrecord(nullptr, &buffer), -3);
    EXPECT_EQ(readrecord(log.file(), nullptr), -3);
    EXPECT_EQ(readrecord(nullptr, nullptr), -3);
    EXPECT_EQ(readOne(log.file()), recordOf("one"));
}

// ---- with the writer's side

TEST(RecordReader, GivesBackTheLineThatASerializedRecordBecame) {
    zantLogMsgRec record{};
    record.formatVersion = ZANTLOG_FORMAT_PRODUCT;
    record.type = ZANTLOG_MSG_DEBUG;
    char text[] = "two\nlines";
    record.text = text;
    text_msg line;
    ASSERT_EQ(zantLogMsgSerialize(&record, &line), 0u);
    const std::string stored(line.data, static_cast<size_t>(line.capacity - line.free));
    free_text_msg(&line);
    ReadingFile log(stored + stored);
    EXPECT_EQ(readOne(log.file()), recordOf("0,0,0,0,0,0,0,0,0:,9:two\nlines,0:,0"));
    EXPECT_EQ(readOne(log.file()), recordOf("0,0,0,0,0,0,0,0,0:,9:two\nlines,0:,0"));
    EXPECT_EQ(readOne(log.file()), kEndOfFile);
}

} // namespace
