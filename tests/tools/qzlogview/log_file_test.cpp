// One file's header and lines, with their places.
#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::appendFileBytes;
using zantlog::test::ScopedFolder;
using zantlog::test::writeFileBytes;

namespace {

constexpr uint64_t kTime = 1763249000000;
const size_t kHeaderSize = sizeof kProductHeader - 1;

class LogFiles : public testing::Test {
protected:
    std::string write(const std::string &bytes, const std::string &name = "a.log") {
        writeFileBytes(folder_.file(name), bytes);
        return folder_.file(name);
    }

    ScopedFolder folder_;
    LogFile file_;
    LogFileHeader header_ = {};
};

} // namespace

TEST_F(LogFiles, GiveTheirLinesWithTheirPlaces) {
    ASSERT_TRUE(file_.open(write(kProductHeader + std::string("first\n\nthird\r!\n"))));
    ASSERT_EQ(file_.readHeader(&header_), ZANTLOG_OK);
    EXPECT_EQ(header_.productId, 12u);
    EXPECT_EQ(file_.offset(), kHeaderSize);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "first");
    EXPECT_EQ(file_.lineOffset(), kHeaderSize);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "");
    EXPECT_EQ(file_.lineOffset(), kHeaderSize + 6);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "third\n!");
    EXPECT_EQ(file_.offset(), kHeaderSize + 15);
    EXPECT_EQ(file_.next(), LineState::end);
    EXPECT_EQ(file_.size(), kHeaderSize + 15);
}

TEST_F(LogFiles, AnUnfinishedLineIsFoundWhenItHasItsEnd) {
    const std::string path = write(kProductHeader + std::string("one\nha"));
    ASSERT_TRUE(file_.open(path));
    ASSERT_EQ(file_.readHeader(&header_), ZANTLOG_OK);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.next(), LineState::end);
    EXPECT_EQ(file_.next(), LineState::end);
    appendFileBytes(path, "lf\n");
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "half");
    EXPECT_EQ(file_.lineOffset(), kHeaderSize + 4);
}

TEST_F(LogFiles, LinesMayBeLongerThanManyBlocks) {
    const std::string longLine(200000, 'x');
    ASSERT_TRUE(file_.open(write(kProductHeader + longLine + "\nshort\n" + longLine + "y\n")));
    ASSERT_EQ(file_.readHeader(&header_), ZANTLOG_OK);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), longLine);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "short");
    EXPECT_EQ(file_.lineOffset(), kHeaderSize + 200001);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), longLine + "y");
    EXPECT_EQ(file_.next(), LineState::end);
}

TEST_F(LogFiles, GoToAnyPlace) {
    ASSERT_TRUE(file_.open(write("one\ntwo\nthree\n")));
    ASSERT_TRUE(file_.seek(8));
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "three");
    EXPECT_EQ(file_.lineOffset(), 8u);
    ASSERT_TRUE(file_.seek(5));
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "wo");
    ASSERT_TRUE(file_.seek(0));
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "one");
}

TEST_F(LogFiles, WithoutAHeaderBeginWithTheirFirstLine) {
    ASSERT_TRUE(file_.open(write("one\ntwo\n")));
    EXPECT_EQ(file_.readHeader(&header_), ZANTLOG_FAILURE);
    EXPECT_EQ(file_.offset(), 0u);
    ASSERT_EQ(file_.next(), LineState::line);
    EXPECT_EQ(file_.line(), "one");
}

TEST_F(LogFiles, MissingOneIsNotOpened) {
    EXPECT_FALSE(file_.open(folder_.file("missing.log")));
    EXPECT_FALSE(file_.isOpen());
    Source source;
    source.path = folder_.file("missing.log");
    EXPECT_EQ(readSource(&file_, &source), ZANTLOG_FILE_NOT_OPENED);
}

TEST_F(LogFiles, SourceTellsHeaderSizeAndFirstTime) {
    const std::string bytes = kProductHeader + std::string("damage\n") + recordLine(kTime, 1, "x") + "\n" +
                              recordLine(kTime - 5, 2, "y") + "\n";
    const Source source = fileOf(folder_, "12-3-1-251115-0000000000.log", bytes);
    EXPECT_EQ(source.header.startTime, 1763249000);
    EXPECT_STREQ(source.header.text, "buildhost");
    EXPECT_EQ(source.size, bytes.size());
    EXPECT_EQ(source.firstTime, kTime);
    EXPECT_EQ(source.logSet, "");
}

TEST_F(LogFiles, SourceOfALogSetTakesProductAndSetFromItsName) {
    const std::string line = "2,5,57,1763249000000,4242,777,0:,1:x,0:,0,(0|)\n";
    const Source source = fileOf(folder_, "12-night-251115101010.log", kLogSetHeader + line);
    EXPECT_EQ(source.header.productId, 12u);
    EXPECT_EQ(source.logSet, "night");
    Record record;
    ASSERT_EQ(parseLine(source, "2,5,57,1763249000000,4242,777,0:,1:x,0:,0,(0|)", 30, &record), ZANTLOG_OK);
    EXPECT_EQ(record.fields.productId, 12u);
    EXPECT_EQ(record.fields.originatorId, 5u);
    EXPECT_EQ(record.offset, 30u);
}

TEST_F(LogFiles, SourceOfARenamedLogSetFileStillReads) {
    const Source source = fileOf(folder_, "copy.log",
                                 kLogSetHeader + std::string("2,5,57,1763249000000,1,2,0:,1:x,0:,0,(0|)\n"));
    EXPECT_EQ(source.logSet, "");
    EXPECT_EQ(source.header.productId, 0u);
    EXPECT_EQ(source.firstTime, 1763249000000u);
}

TEST_F(LogFiles, OldVersionsTakeTheTimeOfTheirFile) {
    const Source source =
        fileOf(folder_, "old.log", "$Header 65542,12,3,1763249000,buildhost\n0:,5:hello,3:who,1,(0|)\n");
    EXPECT_EQ(source.firstTime, 1763249000000u);
    Record record;
    ASSERT_EQ(parseLine(source, "0:,5:hello,3:who,1,(0|)", 40, &record), ZANTLOG_OK);
    EXPECT_EQ(record.fields.timestamp, 1763249000000u);
    EXPECT_EQ(record.text(), "hello");
}

TEST_F(LogFiles, SourceSaysWhatIsWrongWithAHeader) {
    Source source;
    source.path = write("$Header 65599,12,3,1763249000,-3600,buildhost\n");
    EXPECT_EQ(readSource(&file_, &source), ZANTLOG_UNSUPPORTED_HEADER);
    source.path = write("no header\n");
    EXPECT_EQ(readSource(&file_, &source), ZANTLOG_FAILURE);
    EXPECT_EQ(source.size, 10u);
    source.path = write("");
    EXPECT_EQ(readSource(&file_, &source), ZANTLOG_FAILURE);
    EXPECT_EQ(source.size, 0u);
}

TEST_F(LogFiles, ADamagedLineLeavesTheRecordEmpty) {
    const Source source = productSource();
    Record record;
    ASSERT_EQ(parseLine(source, recordLine(kTime, 1, "x"), 0, &record), ZANTLOG_OK);
    EXPECT_EQ(parseLine(source, "2,12,3,garbage", 0, &record), ZANTLOG_FAILURE);
    EXPECT_EQ(record.text(), "");
    EXPECT_EQ(record.fields.timestamp, 0u);
}
