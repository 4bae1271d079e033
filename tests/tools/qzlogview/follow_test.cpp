// New records, as they are written.
#include "tools/qzlogview/follow.h"

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::appendFileBytes;
using zantlog::test::removeFile;
using zantlog::test::ScopedFolder;
using zantlog::test::writeFileBytes;

namespace {

constexpr uint64_t kTime = 1763249000000;
using Texts = std::vector<std::string>;

class Following : public testing::Test {
protected:
    Texts poll() {
        Texts texts;
        for (const EntryPointer &entry : follower_.poll()) {
            texts.push_back(textOf(*entry));
        }
        return texts;
    }
    std::string path(const std::string &name) { return folder_.file(name); }
    static std::string line(uint64_t time, const std::string &text) {
        return recordLine(kTime + time, 1, text) + "\n";
    }

    ScopedFolder folder_;
    DamageList damage_;
    Follower follower_{kEveryRecord, damage_.sink};
};

} // namespace

TEST_F(Following, FilesFromTheirEndGiveWhatIsNew) {
    const Source source = fileOf(folder_, "a.log", kProductHeader + line(0, "old"));
    follower_.add(source, source.size);
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), line(1, "b") + line(2, "c"));
    EXPECT_EQ(poll(), (Texts{"b", "c"}));
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), line(3, "d"));
    EXPECT_EQ(poll(), Texts{"d"});
}

TEST_F(Following, ALineWrittenInTwoHalvesComesOnceItIsWhole) {
    const Source source = fileOf(folder_, "a.log", kProductHeader);
    follower_.add(source, source.size);
    const std::string whole = line(0, "whole");
    appendFileBytes(path("a.log"), whole.substr(0, 20));
    EXPECT_EQ(poll(), Texts{});
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), whole.substr(20));
    EXPECT_EQ(poll(), Texts{"whole"});
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Following, NewFilesAreReadFromTheirBeginning) {
    writeFileBytes(path("a.log"), kProductHeader + line(0, "a"));
    follower_.update({path("a.log")});
    EXPECT_EQ(poll(), Texts{"a"});
    writeFileBytes(path("b.log"), kProductHeader + line(1, "b"));
    follower_.update({path("a.log"), path("b.log")});
    appendFileBytes(path("a.log"), line(2, "c"));
    EXPECT_EQ(poll(), (Texts{"b", "c"})); // in the order of their times
    follower_.update({path("a.log"), path("b.log")});
    EXPECT_EQ(poll(), Texts{});
}

TEST_F(Following, ANewFileMayHaveNoHeaderYet) {
    writeFileBytes(path("a.log"), "");
    follower_.update({path("a.log")});
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), "$Header 65543,12");
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), std::string(kProductHeader).substr(16));
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("a.log"), line(0, "a"));
    EXPECT_EQ(poll(), Texts{"a"});
}

TEST_F(Following, DeletedFilesDoNoHarm) {
    const Source source = fileOf(folder_, "a.log", kProductHeader + line(0, "a"));
    follower_.add(source, source.size);
    writeFileBytes(path("b.log"), kProductHeader);
    follower_.update({path("b.log")});
    ASSERT_TRUE(removeFile(path("a.log"))); // which is not held open
    EXPECT_EQ(poll(), Texts{});
    appendFileBytes(path("b.log"), line(1, "b"));
    EXPECT_EQ(poll(), Texts{"b"});
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Following, AFileThatBeginsAnewIsReadFromItsBeginning) {
    const Source source = fileOf(folder_, "a.log", kProductHeader + line(0, "a") + line(1, "b"));
    follower_.add(source, source.size);
    writeFileBytes(path("a.log"), kProductHeader + line(2, "c"));
    EXPECT_EQ(poll(), Texts{"c"});
    EXPECT_EQ(poll(), Texts{});
}

TEST_F(Following, DamageIsReportedOnceAndPassed) {
    const Source source = fileOf(folder_, "a.log", kProductHeader);
    follower_.add(source, source.size);
    appendFileBytes(path("a.log"), "garbage\n" + line(0, "a"));
    EXPECT_EQ(poll(), Texts{"a"});
    EXPECT_EQ(poll(), Texts{});
    EXPECT_EQ(damage_.places,
              Texts{"a.log " + std::to_string(sizeof kProductHeader - 1) + " the line is no record"});
}

TEST_F(Following, GivesWantedRecordsOnly) {
    Follower picky([](const Record &record) { return record.text() == "yes"; }, damage_.sink);
    writeFileBytes(path("a.log"), kProductHeader + line(0, "no") + line(1, "yes") + line(2, "no"));
    picky.update({path("a.log")});
    EXPECT_EQ(picky.poll().size(), 1u);
}

TEST_F(Following, LongLinesComeWhole) {
    const Source source = fileOf(folder_, "a.log", kProductHeader);
    follower_.add(source, source.size);
    const std::string text(100000, 'x');
    appendFileBytes(path("a.log"), line(0, text) + line(1, "b"));
    EXPECT_EQ(poll(), (Texts{text, "b"}));
}
