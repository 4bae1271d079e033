// The last records of many files: exactly those of a full sort.
#include "tools/qzlogview/tail.h"

#include <algorithm>
#include <random>
#include <tuple>

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::appendFileBytes;
using zantlog::test::ScopedFolder;

namespace {

constexpr uint64_t kTime = 1763249000000;
using Texts = std::vector<std::string>;

class Tail : public testing::Test {
protected:
    Texts last(size_t count) {
        ends_.clear();
        Texts texts;
        for (const EntryPointer &entry : lastRecords(sources_, count, filter_, damage_.sink, &ends_)) {
            texts.push_back(textOf(*entry));
        }
        return texts;
    }
    void add(const std::string &name, const std::string &bytes) {
        sources_.push_back(fileOf(folder_, name, bytes));
        sizes_.push_back(bytes.size());
    }
    // Records of every length, slightly out of order; their texts in order.
    Texts makeFiles(size_t files, size_t records, size_t longest) {
        std::vector<std::tuple<uint64_t, uint32_t, uint32_t, size_t, std::string>> all;
        for (size_t file = 0; file < files; ++file) {
            std::string bytes = kProductHeader;
            uint64_t now = kTime + random_() % 1000;
            for (uint32_t i = 0; i < records; ++i) {
                now += 1 + random_() % 30;
                const uint64_t time = now - random_() % 50;
                const std::string text =
                    std::to_string(file) + "." + std::to_string(i) + std::string(random_() % longest, '-');
                bytes += recordLine(time, i, text, 7) + "\n";
                all.emplace_back(time, 7u, i, file, text);
            }
            add(std::to_string(100 + file) + ".log", bytes);
        }
        std::sort(all.begin(), all.end());
        Texts texts;
        for (const auto &made : all) {
            texts.push_back(std::get<4>(made));
        }
        return texts;
    }
    static Texts lastOf(const Texts &all, size_t count) {
        return {all.end() - static_cast<std::ptrdiff_t>(std::min(count, all.size())), all.end()};
    }

    ScopedFolder folder_;
    std::mt19937 random_{3};
    std::vector<Source> sources_;
    std::vector<uint64_t> sizes_;
    std::vector<uint64_t> ends_;
    RecordFilter filter_ = kEveryRecord;
    DamageList damage_;
};

} // namespace

TEST_F(Tail, GivesExactlyThoseOfAFullSort) {
    const Texts all = makeFiles(5, 900, 200); // more than a first part each
    for (const size_t count : {0, 1, 2, 10, 100, 1000, 4499, 4500, 4501, 100000}) {
        EXPECT_EQ(last(count), lastOf(all, count)) << count;
        EXPECT_EQ(ends_, sizes_) << count;
    }
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Tail, PartsMayBeginInLongLines) {
    const Texts all = makeFiles(3, 30, 60000);
    for (const size_t count : {1, 5, 20, 89, 90}) {
        EXPECT_EQ(last(count), lastOf(all, count)) << count;
    }
}

TEST_F(Tail, EveryWayThatAPartCanBeginGivesTheSame) {
    // The second line's end moves over the place where the last part of 65536 bytes begins.
    for (size_t length = 65536 - 60; length < 65536 + 10; ++length) {
        sources_.clear();
        const std::string text(length, 'x');
        add("a.log", kProductHeader + recordLine(kTime, 1, "a") + "\n" + recordLine(kTime + 1, 2, "b") +
                         "\n" + recordLine(kTime + 2, 3, text) + "\n");
        ASSERT_EQ(last(3), (Texts{"a", "b", text})) << length;
        ASSERT_EQ(ends_, (std::vector<uint64_t>{sources_[0].size})) << length;
    }
}

TEST_F(Tail, NoFilesAndFilesWithoutRecordsGiveNothing) {
    EXPECT_EQ(last(10), Texts{});
    add("a.log", kProductHeader);
    EXPECT_EQ(last(10), Texts{});
    EXPECT_EQ(ends_, (std::vector<uint64_t>{sizeof kProductHeader - 1}));
}

TEST_F(Tail, AnUnfinishedLastLineIsNoRecordAndStaysUnread) {
    const std::string whole = kProductHeader + recordLine(kTime, 1, "a") + "\n";
    add("a.log", whole + "2,12,3,3,2,1763");
    add("b.log", whole + std::string(200000, 'x'));
    EXPECT_EQ(last(10), (Texts{"a", "a"}));
    EXPECT_EQ(ends_, (std::vector<uint64_t>{whole.size(), whole.size()}));
    EXPECT_EQ(damage_.places, Texts{});
}

TEST_F(Tail, EqualKeysAtTheEdgeAreThoseOfTheLaterFilesAndPlaces) {
    for (const char *name : {"a", "b", "c"}) {
        std::string bytes = kProductHeader;
        for (const char *place : {"0", "1", "2"}) {
            bytes += recordLine(kTime, 1, std::string(name) + place) + "\n";
        }
        add(std::string(name) + ".log", bytes);
    }
    EXPECT_EQ(last(1), Texts{"c2"});
    EXPECT_EQ(last(4), (Texts{"b2", "c0", "c1", "c2"}));
    EXPECT_EQ(last(9), (Texts{"a0", "a1", "a2", "b0", "b1", "b2", "c0", "c1", "c2"}));
}

TEST_F(Tail, CountsWantedRecordsOnly) {
    const Texts all = makeFiles(2, 2000, 100);
    filter_ = [](const Record &record) { return record.fields.sequence < 20; };
    Texts wanted;
    for (const std::string &text : all) {
        const size_t dot = text.find('.');
        if (std::stoi(text.substr(dot + 1)) < 20) {
            wanted.push_back(text);
        }
    }
    EXPECT_EQ(last(15), lastOf(wanted, 15));
    EXPECT_EQ(last(100), wanted);
}

TEST_F(Tail, ReportsDamageThatItMeets) {
    const std::string first = kProductHeader + recordLine(kTime, 1, "a") + "\n";
    add("a.log", first + "garbage\n" + recordLine(kTime + 1, 2, "b") + "\n");
    EXPECT_EQ(last(2), (Texts{"a", "b"}));
    EXPECT_EQ(damage_.places, Texts{"a.log " + std::to_string(first.size()) + " the line is no record"});
}

TEST_F(Tail, AFileThatHasGoneIsReportedAndTheOthersAreRead) {
    add("a.log", kProductHeader + recordLine(kTime, 1, "a") + "\n");
    add("b.log", kProductHeader + recordLine(kTime, 1, "b") + "\n");
    ASSERT_TRUE(zantlog::test::removeFile(folder_.file("a.log")));
    EXPECT_EQ(last(2), Texts{"b"});
    EXPECT_EQ(damage_.places, Texts{"a.log 0 the file cannot be read (unreadable)"});
    ASSERT_EQ(ends_.size(), 2u); // one for each source
    EXPECT_EQ(ends_[1], sizes_[1]);
}

TEST_F(Tail, TakesWhatHasBeenWrittenSinceTheFileWasLookedAt) {
    add("a.log", kProductHeader + recordLine(kTime, 1, "a") + "\n");
    appendFileBytes(folder_.file("a.log"), recordLine(kTime + 1, 2, "b") + "\n");
    EXPECT_EQ(last(1), Texts{"b"});
}
