// Whether files are whole.
#include "tools/qzlogview/verify.h"

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::ScopedFolder;
using zantlog::test::writeFileBytes;

namespace {

constexpr uint64_t kTime = 1763249000000;
using Texts = std::vector<std::string>;

class Verifying : public testing::Test {
protected:
    void write(const std::string &name, const std::string &bytes) {
        writeFileBytes(folder_.file(name), bytes);
        paths_.push_back(folder_.file(name));
    }
    static std::string records(uint32_t first, uint32_t last) {
        std::string bytes;
        for (uint32_t number = first; number <= last; ++number) {
            bytes += recordLine(kTime + number, number, "x") + "\n";
        }
        return bytes;
    }
    static std::string header(int64_t startTime) {
        return "$Header 65543,12,3," + std::to_string(startTime) + ",-3600,buildhost\n";
    }

    ScopedFolder folder_;
    Texts paths_;
    DamageList damage_;
};

} // namespace

TEST_F(Verifying, WholeFilesHaveNothingWrong) {
    write("b.log", header(1763249002) + records(4, 9));
    write("a.log", header(1763249000) + records(1, 3));
    write("c.log", header(1763249009));
    write("d.log", "");
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 9u);
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Verifying, NothingIsNothing) {
    EXPECT_EQ(verifyFiles({}, damage_.sink), 0u);
}

TEST_F(Verifying, NamesEachDamagedPlace) {
    const std::string begin = header(1763249000) + records(1, 2);
    write("a.log", begin + "garbage\n\n" + records(3, 3) + "2,12");
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 3u);
    const size_t end = begin.size() + 9 + records(3, 3).size();
    EXPECT_EQ(damage_.places, (Texts{"a.log " + std::to_string(begin.size()) + " the line is no record",
                                     "a.log " + std::to_string(begin.size() + 8) + " the line is no record",
                                     "a.log " + std::to_string(end) + " the last line has no end"}));
}

TEST_F(Verifying, NamesFilesWithoutAUsableHeader) {
    write("a.log", records(1, 2));
    write("b.log", "$Header 65599,12\n");
    write("c.log", std::string("$Header 65543,12,3"));
    paths_.push_back(folder_.file("missing.log"));
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 0u);
    EXPECT_EQ(damage_.places, (Texts{"a.log 0 the file has no header (unreadable)",
                                     "b.log 0 the header is of a version that is not supported (unreadable)",
                                     "c.log 0 the file has no header (unreadable)",
                                     "missing.log 0 the file cannot be opened (unreadable)"}));
}

TEST_F(Verifying, FindsAMissingFileByItsNumbers) {
    write("a.log", header(1763249000) + records(1, 3));
    write("c.log", header(1763249009) + records(7, 12));
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 9u);
    ASSERT_EQ(damage_.places.size(), 1u);
    EXPECT_NE(damage_.places[0].find("before number 7 numbers 4 to 6 are not there"), std::string::npos)
        << damage_.places[0];
}

TEST_F(Verifying, ContextsWrittenAgainDoNotMixUpTheOrderOfTheFiles) {
    // Each file begins with contexts that are older than its other records, the second with a younger one.
    const auto context = [](const std::string &token, uint64_t time) {
        return "3,12,3,3,1," + std::to_string(time) + ",4242,777,0:,1:t," + field(token) + ",(0|)\n";
    };
    write("a.log", header(1763249000) + records(1, 2) + context("old", kTime + 2) +
                       context("new", kTime + 3) + records(3, 4));
    write("b.log",
          header(1763249001) + context("new", kTime + 3) + context("old", kTime + 2) + records(5, 8));
    write("c.log", header(1763249002) + context("old", kTime + 2) + records(9, 12));
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 17u);
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Verifying, LogSetsAreInTheOrderOfTheirFirstRecords) {
    const auto lines = [](uint32_t first, uint32_t last) {
        std::string bytes = kLogSetHeader;
        for (uint32_t number = first; number <= last; ++number) {
            bytes += "2,3," + std::to_string(number) + "," + std::to_string(kTime + number) +
                     ",4242,777,0:,1:x,0:,0,(0|)\n";
        }
        return bytes;
    };
    write("12-night-251115101011.log", lines(4, 9));
    write("12-night-251115101010.log", lines(1, 3));
    EXPECT_EQ(verifyFiles(paths_, damage_.sink), 9u);
    EXPECT_EQ(damage_.places, Texts{});
}
