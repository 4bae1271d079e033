// The files in excess of the configured number, by all combinations of ids, and of log sets.
#include "tests/reader/selection_fixture.h"

namespace zantlog::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int64_t kMonday = 1763300000;

class ManageableFiles : public SelectionTest {
protected:
    ManageableFiles() { save(); }
    ~ManageableFiles() override { removeFile(location()); }

    static std::string location() { return *environmentText("ZANTLOG_CFG_LOC"); }

    // A line of the product's store, "Default.NumberOfLogFiles=3".
    void setting(uint32_t productId, const std::string &line) {
        settings_[productId] += line + "\r\n";
        save();
    }
    void keep(uint32_t productId, const std::string &section, uint32_t count) {
        setting(productId, section + ".NumberOfLogFiles=" + std::to_string(count));
    }
    // Files number..number + count - 1 of a second each.
    void makeFiles(uint32_t productId, uint32_t originatorId, uint32_t count, int64_t begin = kMonday) {
        for (uint32_t i = 0; i < count; ++i) {
            makeProductFile(productId, originatorId, i, begin + i);
        }
    }

    // Products 1 to count, each with one record, which keeps one file.
    void registerMany(uint32_t count) {
        const std::string path = store_.file("many.conf");
        writeFileBytes(path, "Default.LogDirectory=" + directory() + "\r\nDefault.NumberOfLogFiles=1\r\n");
        std::string registered;
        for (uint32_t id = 1; id <= count; ++id) {
            registered += std::to_string(id) + ".Configuration=" + path + "\r\n";
        }
        writeFileBytes(location(), registered);
    }

private:
    void save() {
        std::string registered;
        for (const auto &[id, lines] : settings_) {
            const std::string path = store_.file(std::to_string(id) + ".conf");
            registered += std::to_string(id) + ".Configuration=" + path + "\r\n";
            writeFileBytes(path, "Default.LogDirectory=" + directory() + "\r\n" +
                                     "LOGSET.Default.LogDirectory=" + directory() + "\r\n" + lines);
        }
        writeFileBytes(location(), registered);
    }

    ScopedFolder store_;
    std::map<uint32_t, std::string> settings_;
};

TEST_F(ManageableFiles, AreTheOldestInExcessTheYoungestOfThemFirst) {
    keep(12, "Default", 3);
    makeFiles(12, 3, 5);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 3, 1), productFile(12, 3, 0)));
    EXPECT_EQ(selection.current, selection.head);
    EXPECT_EQ(selection.query, nullptr);
}

TEST_F(ManageableFiles, AreNoneUpToTheNumber) {
    keep(12, "Default", 3);
    makeFiles(12, 3, 3);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_EQ(selection.head, nullptr);
    EXPECT_EQ(selection.current, nullptr);
    LogFileEntry *entry = nullptr;
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), kNoMoreFiles);
}

TEST_F(ManageableFiles, WithoutALimitAreNone) {
    setting(12, "Default.DebugLevel=1");
    makeFiles(12, 3, 5);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), IsEmpty());
}

TEST_F(ManageableFiles, GoByCreationTimeAndNotByName) {
    keep(12, "Default", 1);
    const std::string second = makeProductFile(12, 3, 0, kMonday + 5);
    makeProductFile(12, 3, 1, kMonday + 9);
    const std::string first = makeProductFile(12, 3, 2, kMonday);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(second, first));
}

TEST_F(ManageableFiles, ClearTheContextFirst) {
    keep(12, "Default", 1);
    makeFiles(12, 3, 2);
    Query query;
    Selection selection(query.is(263, 99));
    selection.badHeaderSeen = 7;
    selection.head = reinterpret_cast<LogFileEntry *>(&query);
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_EQ(selection.query, nullptr);
    EXPECT_EQ(selection.badHeaderSeen, 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 3, 0)));
}

TEST_F(ManageableFiles, OfBothIdsAreThoseOfOneOriginator) {
    keep(12, "Default", 1);
    makeFiles(12, 3, 2);
    makeFiles(12, 4, 2);
    makeFiles(13, 3, 2);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 3, 0)));
}

TEST_F(ManageableFiles, OfBothIdsObeyTheOriginatorsOwnNumber) {
    keep(12, "Default", 1);
    keep(12, "3", 4);
    makeFiles(12, 3, 5);
    makeFiles(12, 112, 3);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 3, 0)));
    selection.clear();
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 112, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 112, 1), productFile(12, 112, 0)));
}

TEST_F(ManageableFiles, OfAProductAreThoseOfItsSections) {
    keep(12, "Default", 2);
    keep(12, "3", 1);
    keep(12, "4", 3);
    keep(13, "Default", 1);
    keep(13, "3", 1);
    makeFiles(12, 3, 2);
    makeFiles(12, 4, 5, kMonday + 100);
    makeFiles(12, 112, 3, kMonday + 200);
    makeFiles(12, 5, 9); // no section: no record scans for it
    makeFiles(13, 3, 2);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 0, &selection), 0u);
    // Group by group in the order of their oldest files, each file to the front.
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 112, 0), productFile(12, 4, 1),
                                               productFile(12, 4, 0), productFile(12, 3, 0)));
}

TEST_F(ManageableFiles, OfAnOriginatorAreThoseOfAllProducts) {
    keep(12, "Default", 1);
    keep(12, "3", 1);
    keep(13, "3", 2);
    makeFiles(12, 3, 2, kMonday + 50);
    makeFiles(13, 3, 3);
    makeFiles(12, 112, 4);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(12, 3, 0), productFile(13, 3, 0)));
}

TEST_F(ManageableFiles, GroupsMayLieInterleavedInTime) {
    keep(12, "3", 1);
    keep(13, "3", 1);
    makeProductFile(12, 3, 0, kMonday);
    makeProductFile(13, 3, 0, kMonday + 1);
    makeProductFile(12, 3, 1, kMonday + 2);
    makeProductFile(13, 3, 1, kMonday + 3);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(13, 3, 0), productFile(12, 3, 0)));
}

TEST_F(ManageableFiles, OfNoIdAreThoseOfEveryGroup) {
    keep(12, "Default", 1);
    keep(12, "3", 1);
    keep(13, "3", 1);
    setting(12, "LOGSET.audit.NumberOfLogFiles=1");
    makeFiles(12, 112, 2, kMonday + 300);
    makeFiles(12, 3, 2, kMonday + 200);
    makeFiles(13, 3, 2, kMonday + 100);
    make("12-audit-251116100000.log", logSetHeader(), kMonday);
    make("12-audit-251116100001.log", logSetHeader(), kMonday + 1);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 0, &selection), 0u);
    EXPECT_THAT(selection.names(),
                ElementsAre(productFile(12, 112, 0), productFile(12, 3, 0), productFile(13, 3, 0)));
}

TEST_F(ManageableFiles, OfNoIdAreThoseOfTheFirst1024Configurations) {
    registerMany(1025);
    makeFiles(1024, 112, 2);
    makeFiles(1025, 112, 2);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 0, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(productFile(1024, 112, 0)));
}

TEST_F(ManageableFiles, FilesOfOtherHostsCount) {
    keep(12, "Default", 2);
    make("12-3-1-251116-0000000000.log", productHeader(12, 3), kMonday);
    make("12-3-2-251116-0000000000.log", productHeader(12, 3), kMonday + 1);
    make("12-3-3-251116-0000000000.log", productHeader(12, 3), kMonday + 2);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre("12-3-1-251116-0000000000.log"));
}

TEST_F(ManageableFiles, PassOnWhatReadingTheConfigurationSays) {
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), 6u);
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 3, &selection), 39u);
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 0, &selection), 39u);
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 0, &selection), 39u);
    EXPECT_EQ(selection.head, nullptr);
}

TEST_F(ManageableFiles, PassOnThatThereIsNoFile) {
    keep(12, "Default", 1);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, &selection), kNoLogFile);
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 0, &selection), kNoLogFile);
    EXPECT_EQ(selection.head, nullptr);
}

TEST_F(ManageableFiles, OfAProductThatHasNoneAreNone) {
    keep(12, "Default", 1);
    keep(12, "3", 1);
    keep(13, "3", 1);
    makeFiles(12, 3, 3);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(13, 0, &selection), 0u);
    EXPECT_THAT(selection.names(), IsEmpty());
    EXPECT_EQ(zantLogGetManageableLogFiles(0, 77, &selection), 0u);
    EXPECT_THAT(selection.names(), IsEmpty());
}

TEST_F(ManageableFiles, WithoutAContextIsAnswered) {
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 3, nullptr), 3u);
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", nullptr), 3u);
}

// ---- log sets

TEST_F(ManageableFiles, OfALogSetObeyItsNumber) {
    setting(12, "LOGSET.Default.NumberOfLogFiles=9");
    setting(12, "LOGSET.audit.NumberOfLogFiles=1");
    const std::string first = make("12-audit-251116100002.log", logSetHeader(), kMonday);
    const std::string second = make("12-audit-251116100001.log", logSetHeader(), kMonday + 1);
    make("12-audit-251116100000.log", logSetHeader(), kMonday + 2);
    make("12-other-251116100000.log", logSetHeader(), kMonday);
    make("13-audit-251116100000.log", logSetHeader(), kMonday);
    makeFiles(12, 3, 4);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(second, first));
    EXPECT_EQ(selection.current, selection.head);
}

TEST_F(ManageableFiles, OfALogSetInheritTheDefaultNumber) {
    setting(12, "LOGSET.Default.NumberOfLogFiles=1");
    setting(12, "LOGSET.audit.DebugLevel=1");
    const std::string old = make("12-audit-251116100000.log", logSetHeader(), kMonday);
    make("12-audit-251116100001.log", logSetHeader(), kMonday + 1);
    const std::string oldDefault = make("12-Default-251116100000.log", logSetHeader(), kMonday);
    make("12-Default-251116100001.log", logSetHeader(), kMonday + 1);
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(old));
    selection.clear();
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "Default", &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(oldDefault));
}

TEST_F(ManageableFiles, OfALogSetPassOnWhatReadingItsConfigurationSays) {
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", &selection), 6u); // no such product
    setting(12, "Default.DebugLevel=1");
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", &selection), 6u); // no such log set
    EXPECT_EQ(zantLogGetManageableLogFilesSL(0, "audit", &selection), 3u);
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, nullptr, &selection), 3u);
    setting(12, "LOGSET.audit.DebugLevel=1");
    EXPECT_EQ(zantLogGetManageableLogFilesSL(12, "audit", &selection), kNoLogFile);
    EXPECT_EQ(selection.head, nullptr);
}

TEST_F(ManageableFiles, HundredsOfFilesInManyGroupsAreReducedGroupByGroup) {
    // Twenty originators with ten files each, in turn; each keeps as many as its number says.
    constexpr uint32_t kOriginators = 20;
    constexpr uint32_t kFiles = 10;
    std::vector<std::string> expected;
    for (uint32_t i = 0; i < kOriginators; ++i) {
        keep(12, std::to_string(200 + i), i % kFiles + 1);
        for (uint32_t number = 0; number < kFiles; ++number) {
            makeProductFile(12, 200 + i, number, kMonday + number * kOriginators + i);
        }
        for (uint32_t number = 0; number < kFiles - (i % kFiles + 1); ++number) {
            expected.insert(expected.begin(), productFile(12, 200 + i, number));
        }
    }
    Selection selection;
    EXPECT_EQ(zantLogGetManageableLogFiles(12, 0, &selection), 0u);
    EXPECT_EQ(selection.names(), expected);
}

} // namespace

} // namespace zantlog::test
