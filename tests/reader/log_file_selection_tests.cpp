// Which files of which configurations are selected, and in which order.
#include "tests/reader/selection_fixture.h"

#include <cstring>
#include <map>

namespace zantlog::test {

namespace {

using LogFileSelection = SelectionTest;
using testing::ElementsAre;

using testing::UnorderedElementsAre;

constexpr int64_t kMonday = 1763300000; // some moment

TEST_F(LogFileSelection, TakesTheFilesOfTheRecordsIdsAndNoOthers) {
    const std::string own = makeProductFile(12, 3, 0);
    makeProductFile(12, 4, 0);
    makeProductFile(13, 3, 0);
    make("12-3-1-251116-0000000001.txt", productHeader(12, 3));
    make("notes.log", "");
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(own));
    EXPECT_EQ(selection.current, selection.head);
    EXPECT_EQ(selection.badHeaderSeen, 0u);
    EXPECT_EQ(selection.head->directory, directory());
}

TEST_F(LogFileSelection, NeedsNoMoreOfANameThanTheTwoIds) {
    make("12-3.log", "");
    make("12-3-.log", "");
    make("12-3-whatever.log", "");
    make("-12--3-x.log", "");
    make("12-3x-1.log", "");
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), UnorderedElementsAre("12-3.log", "12-3-.log", "12-3-whatever.log",
                                                        "-12--3-x.log", "12-3x-1.log"));
}

TEST_F(LogFileSelection, SkipsNamesThatAreNone) {
    make("12-0-1-251116-0000000000.log", productHeader(12, 0));
    make("0-3-1-251116-0000000000.log", productHeader(0, 3));
    make("12.log", "");
    make("a-3-1.log", "");
    make("12-b-1.log", "");
    make(".log", "");
    make("-.log", "");
    Selection selection;
    EXPECT_EQ(select({product(12, 3), product(12, 0), product(0, 3), product(0, 0)}, &selection), kNoLogFile);
    EXPECT_EQ(selection.head, nullptr);
    EXPECT_EQ(selection.current, nullptr);
}

TEST_F(LogFileSelection, IdsAreWholeThirtyTwoBits) {
    const std::string name = makeProductFile(4294967295u, 2147483648u, 0);
    Selection selection;
    EXPECT_EQ(select({product(4294967295u, 2147483648u)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name));
}

TEST_F(LogFileSelection, LogSetFilesGoByIdAndExactName) {
    const std::string own = make("12-audit-251116100000.log", logSetHeader());
    make("13-audit-251116100000.log", logSetHeader());
    make("12-Audit-251116100000.log.log", logSetHeader());
    make("12-audits-251116100000.log", logSetHeader());
    make("12-audi-251116100000.log", logSetHeader());
    make("audit-12-251116100000.log", logSetHeader());
    Selection selection;
    EXPECT_EQ(select({logSet(12, "audit")}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(own));
}

TEST_F(LogFileSelection, ALogSetRecordTakesNoProductFilesAndAProductNoLogSets) {
    const std::string set = make("12-audit-251116100000.log", logSetHeader());
    const std::string file = makeProductFile(12, 3, 0);
    Selection sets;
    EXPECT_EQ(select({logSet(12, "audit")}, &sets), 0u);
    EXPECT_THAT(sets.names(), ElementsAre(set));
    Selection files;
    EXPECT_EQ(select({product(12, 3)}, &files), 0u);
    EXPECT_THAT(files.names(), ElementsAre(file));
    Selection all;
    EXPECT_EQ(select({product(12, 3), logSet(12, "audit")}, &all), 0u);
    EXPECT_THAT(all.names(), UnorderedElementsAre(file, set));
}

TEST_F(LogFileSelection, ALogSetNameWithAHyphenIsNeverFound) {
    make("12-night-run-251116100000.log", logSetHeader());
    Selection selection;
    EXPECT_EQ(select({logSet(12, "night-run")}, &selection), kNoLogFile);
    EXPECT_EQ(select({logSet(12, "night")}, &selection), 0u);
}

TEST_F(LogFileSelection, ALogSetRecordWithoutANameSelectsNothing) {
    make("12-audit-251116100000.log", logSetHeader());
    zantLogCfg *nameless = logSet(12, "");
    Selection selection;
    EXPECT_EQ(select({nameless}, &selection), kNoLogFile);
    nameless->logSetName = nullptr;
    EXPECT_EQ(select({nameless}, &selection), kNoLogFile);
}

TEST_F(LogFileSelection, IsInAscendingCreationTime) {
    const std::string third = makeProductFile(12, 3, 0, kMonday + 200);
    const std::string first = makeProductFile(12, 3, 1, kMonday);
    const std::string fourth = makeProductFile(12, 3, 2, kMonday + 201);
    const std::string second = makeProductFile(12, 3, 3, kMonday + 1);
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(first, second, third, fourth));
    EXPECT_EQ(selection.head->creationTime, kMonday);
    EXPECT_EQ(selection.head->next->creationTime, kMonday + 1);
}

uint32_t chainOf(const std::string &path) {
    uint32_t hash = 0;
    for (const char byte : path) {
        hash = hash * 31 + static_cast<uint32_t>(static_cast<int8_t>(byte));
    }
    return hash % 300;
}

TEST_F(LogFileSelection, EqualTimesAreInTheOrderOfTheChainsOfTheirPaths) {
    std::map<uint32_t, std::string> byChain; // one file of each chain
    for (uint32_t number = 0; number < 300; ++number) {
        const std::string name = productFile(12, 3, number);
        if (byChain.emplace(chainOf(directory() + name), name).second) {
            makeProductFile(12, 3, number, kMonday);
        }
    }
    ASSERT_GT(byChain.size(), 100u);
    std::vector<std::string> expected;
    for (const auto &[chain, name] : byChain) {
        expected.push_back(name);
    }
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_EQ(selection.names(), expected);
}

TEST_F(LogFileSelection, SeveralDirectoriesAreOneList) {
    const std::string b = makeProductFile(12, 3, 0, kMonday + 10, "one");
    const std::string a = makeProductFile(12, 4, 0, kMonday, "two");
    const std::string c = makeProductFile(12, 3, 7, kMonday + 20, "two");
    Selection selection;
    EXPECT_EQ(select({product(12, 3, "one"), product(12, 4, "two"), product(12, 3, "two")}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(a, b, c));
    EXPECT_EQ(selection.head->directory, directory("two"));
    EXPECT_EQ(selection.head->next->directory, directory("one"));
}

TEST_F(LogFileSelection, TheSameNameInTwoDirectoriesIsTwoFiles) {
    makeProductFile(12, 3, 0, kMonday, "one");
    makeProductFile(12, 3, 0, kMonday + 1, "two");
    Selection selection;
    EXPECT_EQ(select({product(12, 3, "two"), product(12, 3, "one")}, &selection), 0u);
    EXPECT_THAT(selection.fetchPaths(), ElementsAre(directory("one") + productFile(12, 3, 0),
                                                    directory("two") + productFile(12, 3, 0)));
}

TEST_F(LogFileSelection, AFileThatTwoRecordsNameIsSelectedOnce) {
    const std::string name = makeProductFile(12, 3, 0);
    const std::string set = make("12-audit-251116100000.log", logSetHeader());
    Selection selection;
    EXPECT_EQ(select({product(12, 3), product(12, 3), logSet(12, "audit"), logSet(12, "audit")}, &selection),
              0u);
    EXPECT_THAT(selection.names(), UnorderedElementsAre(name, set));
}

TEST_F(LogFileSelection, DirectoriesAreTheSameWhenTheirTextsAre) {
    const std::string name = makeProductFile(12, 3, 0);
    zantLogCfg *otherSpelling = product(12, 3);
    std::strcat(otherSpelling->logDirectory, ".\\");
    Selection selection;
    EXPECT_EQ(select({product(12, 3), otherSpelling}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name, name));
}

TEST_F(LogFileSelection, ADirectoryThatIsMissingContributesNothing) {
    const std::string name = makeProductFile(12, 3, 0);
    Selection selection;
    EXPECT_EQ(select({product(12, 3, "missing"), product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name));
    Selection none;
    EXPECT_EQ(select({product(12, 3, "missing")}, &none), kNoLogFile);
}

TEST_F(LogFileSelection, WithoutLogFilesThereIsNone) {
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), kNoLogFile);
    makeProductFile(13, 3, 0);
    EXPECT_EQ(select({product(12, 3)}, &selection), kNoLogFile);
    EXPECT_EQ(select({}, &selection), kNoLogFile);
}

TEST_F(LogFileSelection, WithoutArgumentsIsAnswered) {
    Selection selection;
    zantLogCfg *array[1] = {product(12, 3)};
    EXPECT_EQ(GetLogFiles(nullptr, 1, &selection), 3u);
    EXPECT_EQ(GetLogFiles(nullptr, 0, &selection), 3u);
    EXPECT_EQ(GetLogFiles(array, 1, nullptr), 3u);
}

TEST_F(LogFileSelection, MissingRecordsAreSkipped) {
    const std::string name = makeProductFile(12, 3, 0);
    Selection selection;
    EXPECT_EQ(select({nullptr, product(12, 3), nullptr}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name));
}

TEST_F(LogFileSelection, ClearsWhatTheContextHeldButTheQuery) {
    makeProductFile(12, 3, 0);
    Query query;
    QueryNode *root = query.is(263, 99);
    Selection selection(root);
    LogFileEntry *const garbage = reinterpret_cast<LogFileEntry *>(&query);
    selection.badHeaderSeen = 0xAAAAAAAA;
    selection.head = garbage;
    selection.current = garbage;
    EXPECT_EQ(select({product(12, 3)}, &selection), kNoLogFile);
    EXPECT_EQ(selection.badHeaderSeen, 0u);
    EXPECT_EQ(selection.head, nullptr);
    EXPECT_EQ(selection.current, nullptr);
    EXPECT_EQ(selection.query, root);
}

TEST_F(LogFileSelection, EntriesAreClearButForWhatTheListingSays) {
    makeProductFile(12, 3, 0, kMonday);
    Selection selection;
    ASSERT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_EQ(selection.head->next, nullptr);
    EXPECT_EQ(selection.head->version, 0u);
    EXPECT_EQ(selection.head->file.file, nullptr);
    EXPECT_EQ(selection.head->creationTime, kMonday);
}

// ---- a day in the future

TEST_F(LogFileSelection, FilesWrittenMoreThanADayAheadAreSkipped) {
    // The clock may go on by some seconds until the file is looked at.
    const int64_t now = secondsNow();
    const std::string near = makeProductFile(12, 3, 0, now + 86400);
    makeProductFile(12, 3, 1, now + 86400 + 60);
    Selection selection;
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(near));
    const std::string set = make("12-audit-251116100000.log", logSetHeader(), now + 86400);
    make("12-audit-251116100001.log", logSetHeader(), now + 86400 + 60);
    EXPECT_EQ((selection.clear(), select({logSet(12, "audit")}, &selection)), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(set));
}

// ---- limits

TEST_F(LogFileSelection, AnUnterminatedDirectoryContributesNothing) {
    zantLogCfg *cfg = product(12, 3);
    std::memset(cfg->logDirectory, 'd', sizeof cfg->logDirectory);
    const std::string name = makeProductFile(12, 3, 0);
    Selection selection;
    EXPECT_EQ(select({cfg, product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name));
}

TEST_F(LogFileSelection, AnEmptyDirectoryIsTheCurrentOne) {
    const std::string name = makeProductFile(12, 3, 0);
    zantLogCfg *cfg = product(12, 3);
    cfg->logDirectory[0] = '\0';
    const std::string before = currentFolder();
    setCurrentFolder(directory());
    Selection selection;
    EXPECT_EQ(select({cfg}, &selection), 0u);
    EXPECT_THAT(selection.fetchPaths(), ElementsAre(name));
    setCurrentFolder(before);
}

TEST_F(LogFileSelection, HundredsOfFilesComeOnceEachInOrder) {
    constexpr uint32_t kFiles = 700; // the index grows four times
    for (uint32_t i = 0; i < kFiles; ++i) {
        makeProductFile(12, 3, i, kMonday + (i * 367) % kFiles);
    }
    Selection selection;
    EXPECT_EQ(select({product(12, 3), product(12, 3)}, &selection), 0u);
    uint32_t number = 0;
    for (const LogFileEntry *entry = selection.head; entry != nullptr; entry = entry->next) {
        EXPECT_EQ(entry->creationTime, kMonday + number++);
    }
    EXPECT_EQ(number, kFiles);
}

} // namespace

} // namespace zantlog::test
