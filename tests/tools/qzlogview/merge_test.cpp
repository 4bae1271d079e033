// Many files as one stream in the order of their times, against a plain sort of all records.
#include "tools/qzlogview/merge.h"

#include <algorithm>
#include <random>
#include <tuple>

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::removeFile;
using zantlog::test::ScopedFolder;

namespace {

constexpr uint64_t kTime = 1763249000000;

struct Made {
    uint64_t time;
    uint32_t process;
    uint32_t sequence;
    size_t file;
    size_t place;
    std::string text;

    [[nodiscard]] auto order() const { return std::tuple(time, process, sequence, file, place); }
};

std::vector<std::string> sortedTexts(std::vector<Made> all) {
    std::sort(all.begin(), all.end(), [](const Made &a, const Made &b) { return a.order() < b.order(); });
    std::vector<std::string> texts;
    for (const Made &made : all) {
        texts.push_back(made.text);
    }
    return texts;
}

class Merging : public testing::Test {
protected:
    // Files whose times overlap, neighbours out of order by at most `disorder` milliseconds.
    std::vector<Made> makeFiles(size_t files, size_t records, uint64_t disorder) {
        std::vector<Made> all;
        for (size_t file = 0; file < files; ++file) {
            std::string bytes = kProductHeader;
            uint64_t now = kTime + random_() % 500;
            for (size_t i = 0; i < records; ++i) {
                now += 1 + random_() % 40;
                const auto process = static_cast<uint32_t>(1 + random_() % 3);
                Made made = {now - random_() % (disorder + 1),
                             process,
                             static_cast<uint32_t>(i),
                             file,
                             i,
                             std::to_string(file) + "." + std::to_string(i)};
                bytes += recordLine(made.time, made.sequence, made.text, made.process) + "\n";
                all.push_back(std::move(made));
            }
            add(std::to_string(100 + file) + ".log", bytes);
        }
        return all;
    }
    void add(const std::string &name, const std::string &bytes) {
        sources_.push_back(fileOf(folder_, name, bytes));
    }
    std::vector<std::string> merged(const MergeOptions &options = {}) {
        std::vector<std::string> texts;
        mergeFiles(sources_, filter_, damage_.sink, options, [&](const Entry &entry) {
            texts.push_back(textOf(entry));
            return texts.size() < most_;
        });
        return texts;
    }

    ScopedFolder folder_;
    std::mt19937 random_{12};
    std::vector<Source> sources_;
    RecordFilter filter_ = kEveryRecord;
    DamageList damage_;
    size_t most_ = SIZE_MAX;
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(Merging, NoFilesGiveNothing) {
    EXPECT_EQ(merged(), Texts{});
}

TEST_F(Merging, EqualsASortOfAllRecords) {
    const std::vector<Made> all = makeFiles(30, 60, 0);
    EXPECT_EQ(merged(), sortedTexts(all));
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Merging, EqualsASortWhereNeighboursAreOutOfOrder) {
    const std::vector<Made> all = makeFiles(30, 60, 100);
    EXPECT_EQ(merged(), sortedTexts(all));
}

TEST_F(Merging, EqualsASortWhenFilesAreParkedAndReopened) {
    const std::vector<Made> all = makeFiles(20, 40, 60);
    MergeOptions options;
    options.mostOpenFiles = 2;
    EXPECT_EQ(merged(options), sortedTexts(all));
    options.mostOpenFiles = 1;
    EXPECT_EQ(merged(options), sortedTexts(all));
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Merging, ASmallLookAheadStillSortsFilesThatAreInOrder) {
    const std::vector<Made> all = makeFiles(20, 40, 0);
    MergeOptions options;
    options.lookAhead = 1;
    options.mostOpenFiles = 3;
    EXPECT_EQ(merged(options), sortedTexts(all));
}

TEST_F(Merging, KeepsNoRecordsTwiceAndLosesNoneBeyondTheLookAhead) {
    std::vector<Made> all = makeFiles(3, 200, 5000);
    MergeOptions options;
    options.lookAhead = 3;
    Texts texts = merged(options);
    Texts expected = sortedTexts(all);
    std::sort(texts.begin(), texts.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(texts, expected);
}

TEST_F(Merging, EqualKeysKeepTheOrderOfFilesAndPlaces) {
    const std::string two = recordLine(kTime, 1, "0") + "\n" + recordLine(kTime, 1, "1") + "\n";
    add("a.log", kProductHeader + two);
    add("b.log", kProductHeader + recordLine(kTime, 1, "2") + "\n");
    add("c.log", kProductHeader + recordLine(kTime, 1, "3") + "\n");
    EXPECT_EQ(merged(), (Texts{"0", "1", "2", "3"}));
}

TEST_F(Merging, TimeThenProcessThenNumberDecide) {
    add("a.log", kProductHeader + recordLine(kTime, 9, "second", 1) + "\n" +
                     recordLine(kTime, 1, "third", 2) + "\n" + recordLine(kTime + 1, 1, "last", 1) + "\n");
    add("b.log", kProductHeader + recordLine(kTime, 8, "first", 1) + "\n");
    EXPECT_EQ(merged(), (Texts{"first", "second", "third", "last"}));
}

TEST_F(Merging, AFileThatBeginsMuchLaterIsOpenedInTime) {
    add("a.log",
        kProductHeader + recordLine(kTime, 1, "a") + "\n" + recordLine(kTime + 100000, 2, "d") + "\n");
    add("b.log",
        kProductHeader + recordLine(kTime + 50000, 1, "c") + "\n" + recordLine(kTime + 49000, 2, "b") + "\n");
    EXPECT_EQ(merged(), (Texts{"a", "b", "c", "d"}));
}

TEST_F(Merging, EndsWhenNoMoreAreWanted) {
    (void)makeFiles(3, 50, 0);
    most_ = 7;
    EXPECT_EQ(merged().size(), 7u);
}

TEST_F(Merging, GivesWantedRecordsOnly) {
    const std::vector<Made> all = makeFiles(10, 50, 20);
    filter_ = [](const Record &record) { return record.fields.processId == 2; };
    std::vector<Made> wanted;
    std::copy_if(all.begin(), all.end(), std::back_inserter(wanted),
                 [](const Made &made) { return made.process == 2; });
    MergeOptions options;
    options.mostOpenFiles = 2;
    EXPECT_EQ(merged(options), sortedTexts(wanted));
}

TEST_F(Merging, ReportsDamageInTheMiddleAndGoesOn) {
    const std::string first = kProductHeader + recordLine(kTime, 1, "a") + "\n";
    add("a.log", first + "2,12,3,gar\xFF" + "bage\n" + recordLine(kTime + 1, 2, "b") + "\nhalf a li");
    EXPECT_EQ(merged(), (Texts{"a", "b"}));
    EXPECT_EQ(damage_.places, Texts{"a.log " + std::to_string(first.size()) + " the line is no record"});
}

TEST_F(Merging, DamageBehindTheNumbersIsReportedAndKeepsTheOrder) {
    const std::string first = kProductHeader + recordLine(kTime, 1, "a") + "\n";
    std::string damaged = recordLine(kTime + 1, 2, "x");
    damaged.back() = '!';
    add("a.log", first + damaged + "\n" + recordLine(kTime + 9, 3, "c") + "\n");
    add("b.log", kProductHeader + recordLine(kTime + 5, 1, "b") + "\n");
    EXPECT_EQ(merged(), (Texts{"a", "b", "c"}));
    const Texts place = {"a.log " + std::to_string(first.size()) + " the line is no record"};
    EXPECT_EQ(damage_.places, place);
    damage_.places.clear();
    filter_ = [](const Record &) { return true; };
    EXPECT_EQ(merged(), (Texts{"a", "b", "c"}));
    EXPECT_EQ(damage_.places, place);
}

TEST_F(Merging, LinesOfLogSetsAndOldVersionsAreOrderedToo) {
    add("12-night-251115101010.log", kLogSetHeader +
                                         std::string("2,3,7,1763249000005,42,7,0:,1:b,0:,0,(0|)\n") +
                                         "2,3,8,1763249000001,42,7,0:,1:a,0:,0,(0|)\n");
    add("old.log", "$Header 65542,12,3,1763249001,buildhost\n0:,1:c,3:who,1,(0|)\n");
    EXPECT_EQ(merged(), (Texts{"a", "b", "c"}));
}

TEST(KeyOfLine, IsThatOfTheRecord) {
    Source source = productSource();
    const auto key = keyOfLine(source, recordLine(kTime, 57, "x", 4242));
    ASSERT_TRUE(key.has_value());
    EXPECT_EQ(*key, (SortKey{kTime, 4242, 57}));
    for (const char *line :
         {"", "2,12,3,3", "2,12,3,3,", "2,12,3,3,57,1763249000000,4242", "2,12,3,3,-1,1763249000000,4242,7",
          "2,12,3,3,57,x,4242,7", "2,12,3,3,57,1763249000000,4294967296,7"}) {
        EXPECT_EQ(keyOfLine(source, line), std::nullopt) << line;
    }
    source.header.version = ZANTLOG_FORMAT_LOGSET;
    EXPECT_EQ(keyOfLine(source, "2,3,57,1763249000000,4242,7,0:"), (SortKey{kTime, 4242, 57}));
    source.header.version = 65542;
    EXPECT_EQ(keyOfLine(source, "0:,1:x,0:,0,(0|)"), std::nullopt);
}

TEST_F(Merging, ReportsAFileThatHasGone) {
    add("a.log", kProductHeader + recordLine(kTime, 1, "a") + "\n");
    add("b.log", kProductHeader + recordLine(kTime, 1, "b") + "\n");
    ASSERT_TRUE(removeFile(folder_.file("a.log")));
    EXPECT_EQ(merged(), Texts{"b"});
    EXPECT_EQ(damage_.places, Texts{"a.log 0 the file cannot be opened (unreadable)"});
}

TEST_F(Merging, LinesOverSeveralBlocksComeWhole) {
    const std::string text(150000, 'x');
    add("a.log", kProductHeader + recordLine(kTime, 1, text + "1") + "\n" +
                     recordLine(kTime + 2, 2, text + "3") + "\n");
    add("b.log", kProductHeader + recordLine(kTime + 1, 1, text + "2") + "\n");
    MergeOptions options;
    options.mostOpenFiles = 1;
    EXPECT_EQ(merged(options), (Texts{text + "1", text + "2", text + "3"}));
}

TEST_F(Merging, LinesAreThoseOfTheFiles) {
    const std::string line = recordLine(kTime, 1, "x");
    add("a.log", kProductHeader + line + "\n");
    mergeFiles(sources_, filter_, damage_.sink, {}, [&](const Entry &entry) {
        EXPECT_EQ(entry.line, line);
        EXPECT_EQ(entry.record.offset, sizeof kProductHeader - 1);
        EXPECT_EQ(entry.record.source, &sources_[0]);
        return true;
    });
}

TEST_F(Merging, TellsHowFarItIs) {
    (void)makeFiles(3, 20, 0);
    uint64_t total = 0;
    for (const Source &source : sources_) {
        total += source.size;
    }
    uint64_t last = 0;
    MergeOptions options;
    options.progress = [&](uint64_t bytes) {
        EXPECT_GE(bytes, last);
        last = bytes;
    };
    (void)merged(options);
    EXPECT_EQ(last, total);
}
