// Which files the library selects with the trees of expressions: each that holds a wanted record is among
// them.
#include "tools/qzlogview/file_query.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <random>

#include "tests/reader/selection_fixture.h"
#include "tests/sim/sim.h"
#include "tools/qzlogview/log_file.h"
#include "tools/qzlogview/where_parser.h"
#include "zantlog/results.h"

namespace zantlog::view {
namespace {

constexpr int64_t kHour = 3600;
constexpr int64_t kDay = 24 * kHour;
constexpr int64_t kFirst = 1761264000; // 2025-10-24: the clocks of central Europe change two days later
constexpr int64_t kNow = kFirst + 20 * kDay;

// What one file has to say.
struct MadeFile {
    std::string name;
    Source source;
    std::vector<Record> records;
};

class FileQuerySelection : public test::SelectionTest {
protected:
    FileQuerySelection() {
        sim::machineZone() = sim::centralEurope();
        sim::clock().setSeconds(kNow);
    }
    ~FileQuerySelection() override { sim::machineZone() = sim::TimeZone{}; }

    // A product's file, begun and last written at these times; as the listing has it, it was created at
    // `created`.
    void makeProduct(uint32_t product, uint32_t originator, int64_t begin, int64_t end, int64_t created,
                     const std::vector<int64_t> &times);
    // A log set's file; its name tells the local time `zone` seconds ahead of UTC.
    void makeLogSet(uint32_t product, const std::string &logSet, int64_t begin, int64_t end, int64_t created,
                    int64_t zone, const std::vector<int64_t> &times);
    void clear();

    std::vector<std::string> selectedFor(const std::string &expression);
    std::vector<std::string> holdersOf(const std::string &expression) const;

    std::vector<zantLogCfg *> configurations_;
    std::deque<MadeFile> files_; // records point into it

private:
    void finish(const std::string &name, const std::string &bytes, int64_t end, int64_t created);
};

const WhereContext kContext = {kNow * 1000, kUtc};

void FileQuerySelection::finish(const std::string &name, const std::string &bytes, int64_t end,
                                int64_t created) {
    make(name, bytes, end);
    sim::setCreationTime(directory() + name, created * sim::kUnitsPerSecond);
    MadeFile &made = files_.emplace_back();
    made.name = name;
    made.source.path = directory() + name;
    LogFile file;
    ASSERT_EQ(readSource(&file, &made.source), static_cast<uint32_t>(ZANTLOG_OK)) << name;
    LogFileHeader header;
    ASSERT_EQ(file.readHeader(&header), static_cast<uint32_t>(ZANTLOG_OK));
    while (file.next() == LineState::line) {
        Record &record = made.records.emplace_back();
        ASSERT_EQ(parseLine(made.source, file.line(), 0, &record), static_cast<uint32_t>(ZANTLOG_OK));
    }
}

void FileQuerySelection::makeProduct(uint32_t product, uint32_t originator, int64_t begin, int64_t end,
                                     int64_t created, const std::vector<int64_t> &times) {
    std::string bytes = test::productHeader(product, originator, "buildhost", begin);
    for (const int64_t time : times) {
        bytes += "2," + std::to_string(product) + ",9," + std::to_string(originator) + ",1," +
                 std::to_string(time * 1000 + 500) + ",1,1,0:,1:t,1:w," + std::to_string(time % 5) +
                 ",(0|)\n";
    }
    finish(test::productFile(product, originator, static_cast<uint32_t>(files_.size())), bytes, end, created);
}

void FileQuerySelection::makeLogSet(uint32_t product, const std::string &logSet, int64_t begin, int64_t end,
                                    int64_t created, int64_t zone, const std::vector<int64_t> &times) {
    std::string bytes = test::logSetHeader();
    for (const int64_t time : times) {
        bytes += "2,9,1," + std::to_string(time * 1000 + 500) + ",1,1,0:,1:t,1:w," +
                 std::to_string(time % 5) + ",(0|)\n";
    }
    std::tm local = {};
    ASSERT_TRUE(sim::breakDownUtc(begin + zone, &local));
    char date[32];
    ASSERT_EQ(std::strftime(date, sizeof date, "%y%m%d%H%M%S", &local), 12U);
    finish(std::to_string(product) + "-" + logSet + "-" + date + ".log", bytes, end, created);
}

void FileQuerySelection::clear() {
    for (const MadeFile &file : files_) {
        sim::removeOne(file.source.path);
    }
    files_.clear();
}

std::vector<std::string> FileQuerySelection::selectedFor(const std::string &expression) {
    const Expression parsed = parseWhere(expression, kContext);
    FileQuery query(&parsed);
    test::Selection selection(query.root());
    (void)select(configurations_, &selection);
    std::vector<std::string> names = selection.fetchNames();
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> FileQuerySelection::holdersOf(const std::string &expression) const {
    const Expression parsed = parseWhere(expression, kContext);
    std::vector<std::string> names;
    for (const MadeFile &file : files_) {
        if (std::any_of(file.records.begin(), file.records.end(),
                        [&](const Record &record) { return parsed.holdsFor(record); })) {
            names.push_back(file.name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

using Names = std::vector<std::string>;

TEST_F(FileQuerySelection, FilesOfOtherProductsAreLeftOut) {
    configurations_ = {product(12, 3), product(13, 3)};
    makeProduct(12, 3, kFirst, kFirst + kDay, kFirst, {kFirst});
    makeProduct(13, 3, kFirst, kFirst + kDay, kFirst, {kFirst});
    EXPECT_EQ(selectedFor("product == 12"), Names{files_[0].name});
    EXPECT_EQ(selectedFor("product != 12 && severity == 4"), Names{files_[1].name});
    EXPECT_EQ(selectedFor("product == 14"), Names{});
    EXPECT_EQ(selectedFor("product == 14 || severity == 4").size(), 2U);
}

TEST_F(FileQuerySelection, FilesOfOtherTimesAreLeftOut) {
    configurations_ = {product(12, 3)};
    makeProduct(12, 3, kFirst, kFirst + kDay, kFirst, {kFirst});
    makeProduct(12, 3, kFirst + 5 * kDay, kFirst + 6 * kDay, kFirst + 5 * kDay, {kFirst + 5 * kDay});
    EXPECT_EQ(selectedFor("time > \"2025-10-26\""), Names{files_[1].name});
    EXPECT_EQ(selectedFor("time < \"2025-10-26\""), Names{files_[0].name});
    EXPECT_EQ(selectedFor("time > \"2025-10-26\" && time < \"2025-10-27\""), Names{});
    EXPECT_EQ(selectedFor("time > \"2025-10-24 12:00\" && time < \"2025-10-24 13:00\""),
              Names{files_[0].name});
}

// Where files have no creation time, the listing tells that of the last write.
TEST_F(FileQuerySelection, AFileWithoutACreationTimeIsThereForItsFirstRecords) {
    configurations_ = {product(12, 3)};
    makeProduct(12, 3, kFirst, kFirst + 5 * kDay, kFirst + 5 * kDay, {kFirst + 60});
    EXPECT_EQ(selectedFor("time < \"2025-10-24 12:00\""), Names{files_[0].name});
}

TEST_F(FileQuerySelection, ACopiedFileIsThereForAllItsRecords) {
    configurations_ = {product(12, 3)};
    makeProduct(12, 3, kFirst, kFirst + kDay, kFirst + 9 * kDay, {kFirst + 60, kFirst + kDay});
    EXPECT_EQ(selectedFor("time < \"2025-10-24 12:00\""), Names{files_[0].name});
    EXPECT_EQ(selectedFor("time > \"2025-10-24 23:59\" && time < \"2025-10-25 00:01\""),
              Names{files_[0].name});
}

TEST_F(FileQuerySelection, ALogSetIsFoundByTheNameOfItsFiles) {
    zantLogCfg *const night = logSet(12, "night");
    configurations_ = {night, product(12, 3), logSet(12, "day")};
    makeLogSet(12, "night", kFirst, kFirst + kDay, kFirst, 2 * kHour, {kFirst + 60});
    makeLogSet(12, "day", kFirst, kFirst + kDay, kFirst, 2 * kHour, {kFirst + 60});
    makeProduct(12, 3, kFirst, kFirst + kDay, kFirst, {kFirst + 60});
    EXPECT_EQ(selectedFor("logset == \"night\""), Names{files_[0].name});
    char later[] = "late"; // its files are called otherwise from now on
    night->logSetFileName = later;
    EXPECT_EQ(selectedFor("logset == \"night\""), Names{files_[0].name});
    EXPECT_EQ(selectedFor("logset == \"late\""), Names{});
    EXPECT_EQ(selectedFor("logset == \"day\" || product == 13"), Names{files_[1].name});
    EXPECT_EQ(selectedFor("not logset == \"night\"").size(), 3U) << "records tell";
}

// 02:30 of that night came twice: the name does not tell which.
TEST_F(FileQuerySelection, ALogSetsFileOfTheHourThatComesTwiceIsThere) {
    configurations_ = {logSet(12, "night")};
    constexpr int64_t kFirstHalfPastTwo = 1761438600; // 00:30 UTC
    makeLogSet(12, "night", kFirstHalfPastTwo, kFirstHalfPastTwo + kDay, kFirst, 2 * kHour,
               {kFirstHalfPastTwo + 10});
    EXPECT_EQ(selectedFor("time < \"2025-10-26 00:31\""), Names{files_[0].name});
}

TEST_F(FileQuerySelection, ALogSetsFileOfAHostInAnotherZoneIsThere) {
    configurations_ = {logSet(12, "night")};
    makeLogSet(12, "night", kFirst, kFirst + kDay, kFirst, 14 * kHour, {kFirst + 60});
    EXPECT_EQ(selectedFor("time < \"2025-10-24 00:05\""), Names{files_[0].name});
}

// Random folders and expressions.
class RandomFiles {
public:
    explicit RandomFiles(uint32_t seed) : random_(seed) {}

    int64_t below(int64_t limit) { return static_cast<int64_t>(random_() % static_cast<uint64_t>(limit)); }

    std::string expression(int depth) {
        const int64_t kind = depth == 0 ? below(5) : below(10);
        switch (kind) {
        case 0:
        case 1:
            return "product " + comparison() + " " + std::to_string(11 + below(4));
        case 2:
        case 3:
            return "time " + comparison() + " " + time();
        case 4:
            return below(3) == 0 ? "severity " + comparison() + " " + std::to_string(below(5))
                                 : "logset " + comparison() + (below(2) == 0 ? " \"night\"" : " \"day\"");
        case 5:
            return "not (" + expression(depth - 1) + ")";
        case 6:
            return "product in (" + std::to_string(11 + below(4)) + "," + std::to_string(11 + below(4)) + ")";
        default:
            return "(" + expression(depth - 1) + (below(2) == 0 ? " && " : " || ") + expression(depth - 1) +
                   ")";
        }
    }

private:
    std::string comparison() {
        static const char *const kComparisons[] = {"==", "!=", "<", "<=", ">", ">="};
        return kComparisons[below(6)];
    }
    std::string time() {
        std::string text = "\"";
        TimeFormatter(kUtc).append((kFirst + below(18 * kDay) / 600 * 600) * 1000 + below(2) * 500, &text);
        return text + "\"";
    }

    std::mt19937_64 random_;
};

class FileQueryProperty : public FileQuerySelection {
protected:
    void makeRandomFile(RandomFiles *random) {
        const int64_t begin = kFirst + random->below(15 * kDay) / 600 * 600;
        const int64_t end = begin + random->below(2 * kDay) / 600 * 600 + 600;
        const int64_t creations[] = {begin, end, end + 3 * kDay};
        const int64_t created = creations[random->below(3)];
        std::vector<int64_t> times;
        for (int64_t left = 1 + random->below(4); left > 0; --left) {
            times.push_back(begin + random->below(end - begin) / 600 * 600);
        }
        times.push_back(begin - random->below(5)); // made a little before its file
        const auto productId = static_cast<uint32_t>(12 + random->below(2));
        if (random->below(2) == 0) {
            makeProduct(productId, static_cast<uint32_t>(3 + random->below(2)), begin, end, created, times);
        } else {
            const int64_t zones[] = {kHour, 2 * kHour, 0, -8 * kHour, 14 * kHour};
            makeLogSet(productId, random->below(2) == 0 ? "night" : "day", begin, end, created,
                       zones[random->below(5)], times);
        }
    }
};

TEST_F(FileQueryProperty, AFileThatHoldsAWantedRecordIsSelected) {
    RandomFiles random(20261121);
    char other[] = "other";
    char night[] = "night";
    configurations_ = {product(12, 3),      product(12, 4),      product(13, 3),    product(13, 4),
                       logSet(12, "night"), logSet(13, "night"), logSet(12, "day"), logSet(13, "day")};
    configurations_[4]->logSetFileName = night;
    configurations_[5]->logSetFileName = other;
    size_t leftOut = 0;
    size_t wanted = 0;
    for (int folder = 0; folder < 30; ++folder) {
        for (int file = 0; file < 12; ++file) {
            makeRandomFile(&random);
        }
        for (int round = 0; round < 60; ++round) {
            const std::string expression = random.expression(3);
            const Names selected = selectedFor(expression);
            const Names holders = holdersOf(expression);
            ASSERT_TRUE(std::includes(selected.begin(), selected.end(), holders.begin(), holders.end()))
                << expression << " selects " << testing::PrintToString(selected) << "\nheld by "
                << testing::PrintToString(holders);
            leftOut += files_.size() - selected.size();
            wanted += holders.size();
        }
        clear();
    }
    EXPECT_GT(leftOut, 3000U) << "it is of some use";
    EXPECT_GT(wanted, 3000U) << "and not for nothing";
}

} // namespace
} // namespace zantlog::view
