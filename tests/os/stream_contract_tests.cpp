// What every implementation of the seam promises of text streams.
#include "logfile/os/os_stream.h"
#include "tests/os/contract_folder.h"

#include <gtest/gtest.h>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

class StreamContract : public testing::Test {
protected:
    const std::string folder = makeContractFolder();
    const std::string path = folder + "\\store.conf";

    void *open(StreamMode mode) { return openTextStream(path.c_str(), mode); }

    // The next line, or "<end>".
    static std::string line(void *stream, int32_t capacity = 500) {
        char buffer[500] = "untouched";
        return readLine(stream, buffer, capacity) ? buffer : "<end>";
    }
};

TEST_F(StreamContract, MissingFileCannotBeRead) {
    EXPECT_EQ(open(StreamMode::Read), nullptr);
}

TEST_F(StreamContract, MissingFolderCannotBeWritten) {
    EXPECT_EQ(openTextStream((folder + "\\nowhere\\x.conf").c_str(), StreamMode::Write), nullptr);
}

TEST_F(StreamContract, LineEndsAreTwoCharactersOnDisk) {
    void *stream = open(StreamMode::Write);
    ASSERT_NE(stream, nullptr);
    EXPECT_TRUE(writeText(stream, "a=1\nb=2\n"));
    EXPECT_TRUE(writeText(stream, ""));
    EXPECT_TRUE(closeStream(stream));
    EXPECT_EQ(fileContent(path), "a=1\r\nb=2\r\n");
}

TEST_F(StreamContract, WritingStartsAnew) {
    ASSERT_TRUE(putFile(path, "old and longer"));
    void *stream = open(StreamMode::Write);
    ASSERT_NE(stream, nullptr);
    EXPECT_TRUE(writeText(stream, "x"));
    EXPECT_TRUE(closeStream(stream));
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(StreamContract, LinesAreReadWithOneCharacterEnds) {
    ASSERT_TRUE(putFile(path, "a\r\n\r\nb\nlast"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(line(stream), "a\n");
    EXPECT_EQ(line(stream), "\n");
    EXPECT_EQ(line(stream), "b\n");
    EXPECT_EQ(line(stream), "last");
    EXPECT_EQ(line(stream), "<end>");
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, LineLongerThanTheBufferComesInPieces) {
    ASSERT_TRUE(putFile(path, "abcdefg\r\n"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(line(stream, 4), "abc");
    EXPECT_EQ(line(stream, 5), "defg");
    EXPECT_EQ(line(stream, 5), "\n");
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, CtrlZEndsTheReading) {
    ASSERT_TRUE(putFile(path, "a\r\nb\x1a"
                              "c\r\nd\r\n"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(line(stream), "a\n");
    EXPECT_EQ(line(stream), "b");
    EXPECT_EQ(line(stream), "<end>");
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, EndIsKnownOnceAReadHasMetIt) {
    ASSERT_TRUE(putFile(path, "a\r\n"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_FALSE(atEndOfStream(stream));
    EXPECT_EQ(line(stream), "a\n");
    EXPECT_FALSE(atEndOfStream(stream));
    EXPECT_EQ(line(stream), "<end>");
    EXPECT_TRUE(atEndOfStream(stream));
    rewindStream(stream);
    EXPECT_FALSE(atEndOfStream(stream));
    EXPECT_EQ(line(stream), "a\n");
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, LastLineWithoutItsEndMeetsTheEndOfTheFile) {
    ASSERT_TRUE(putFile(path, "a"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(line(stream), "a");
    EXPECT_TRUE(atEndOfStream(stream));
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, EmptyFileIsAtItsEndAfterTheFirstRead) {
    ASSERT_TRUE(putFile(path, ""));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(line(stream), "<end>");
    EXPECT_TRUE(atEndOfStream(stream));
    EXPECT_TRUE(closeStream(stream));
}

TEST_F(StreamContract, WritingToAReadStreamFails) {
    ASSERT_TRUE(putFile(path, "a\r\n"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_FALSE(writeText(stream, "x"));
    static_cast<void>(closeStream(stream));
    EXPECT_EQ(fileContent(path), "a\r\n");
}

TEST_F(StreamContract, OpenStreamKeepsTheFileFromBeingReplaced) {
    const std::string temporary = folder + "\\store.tmp";
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(putFile(temporary, "new"));
    void *stream = open(StreamMode::Read);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(replaceFile(temporary.c_str(), path.c_str()), 5u);
    EXPECT_EQ(deleteFile(path.c_str()), 32u);
    EXPECT_TRUE(closeStream(stream));
    EXPECT_EQ(replaceFile(temporary.c_str(), path.c_str()), 0u);
}

} // namespace

} // namespace zantlog::test
