// Fetching selected files one after the other.
#include "tests/reader/selection_fixture.h"

#include <cstring>

namespace zantlog::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int64_t kMonday = 1763300000;

class FileFetch : public SelectionTest {
protected:
    // Selects the files of product 12, originator 3 and of the log set "audit", then sets the query.
    void selectAll(Selection *selection, QueryNode *query = nullptr) {
        ASSERT_EQ(select({product(12, 3), logSet(12, "audit")}, selection), 0u);
        selection->query = query;
    }
    std::string makeNumber(uint32_t number, const std::string &bytes) {
        return make(productFile(12, 3, number), bytes, kMonday + number);
    }
    std::string makeGood(uint32_t number) { return makeNumber(number, productHeader(12, 3)); }

    Query query_;
};

TEST_F(FileFetch, HandsOutEveryFileInOrderAndThenNine) {
    const std::vector<std::string> names{makeGood(0), makeGood(1), makeGood(2)};
    Selection selection;
    selectAll(&selection);
    LogFileEntry *entry = nullptr;
    for (const std::string &name : names) {
        ASSERT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
        EXPECT_EQ(&entry->name[0], name);
        EXPECT_EQ(entry->directory, directory());
        EXPECT_EQ(selection.current, entry->next);
        EXPECT_EQ(entry->file.file, nullptr); // closed again
    }
    EXPECT_EQ(selection.current, nullptr);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), kNoMoreFiles);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), kNoMoreFiles);
    EXPECT_EQ(selection.names(), names); // the list stays whole
}

TEST_F(FileFetch, FillsVersionAndOffsetOfTheEntry) {
    makeGood(0);
    makeNumber(1, "$Header 65542,12,3,1763249000,buildhost\n");
    make("12-audit-251116100000.log", logSetHeader(), kMonday + 2);
    Selection selection;
    selectAll(&selection);
    LogFileEntry *entry = nullptr;
    ASSERT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
    EXPECT_EQ(entry->version, 65543u);
    EXPECT_EQ(entry->tzOffset, -3600);
    ASSERT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
    EXPECT_EQ(entry->version, 65542u);
    EXPECT_EQ(entry->tzOffset, -1);
    ASSERT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
    EXPECT_EQ(entry->version, 65544u);
    EXPECT_EQ(entry->tzOffset, -3600);
}

TEST_F(FileFetch, WithoutArgumentsIsAnswered) {
    Selection selection;
    LogFileEntry *entry = nullptr;
    char *path = nullptr;
    EXPECT_EQ(zantLogFetchNextFileEx(nullptr, &entry), 3u);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, nullptr), 3u);
    EXPECT_EQ(zantLogFetchNextFile(nullptr, &path), 3u);
    EXPECT_EQ(zantLogFetchNextFile(&selection, nullptr), 3u);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), kNoMoreFiles);
    EXPECT_EQ(zantLogFetchNextFile(&selection, &path), kNoMoreFiles);
    EXPECT_EQ(entry, nullptr);
    EXPECT_EQ(path, nullptr);
}

TEST_F(FileFetch, ANullOutputFetchesNothing) {
    const std::string name = makeGood(0);
    Selection selection;
    selectAll(&selection);
    EXPECT_EQ(zantLogFetchNextFile(&selection, nullptr), 3u);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, nullptr), 3u);
    EXPECT_THAT(selection.fetchNames(), ElementsAre(name));
}

TEST_F(FileFetch, GivesThePathInABufferOfItsOwn) {
    makeGood(0);
    Selection selection;
    selectAll(&selection);
    char *path = nullptr;
    ASSERT_EQ(zantLogFetchNextFile(&selection, &path), 0u);
    const std::string expected = directory() + productFile(12, 3, 0);
    EXPECT_EQ(path, expected);
    // Zeroed to its end, and the caller's to write into.
    EXPECT_EQ(std::string(path + expected.size(), 8192 - expected.size()),
              std::string(8192 - expected.size(), '\0'));
    std::memset(path, 'x', 8192);
    EXPECT_EQ(zantLogFreeBuffer(&path), 0u);
    EXPECT_EQ(path, nullptr);
}

TEST_F(FileFetch, FreeingABufferTwiceOrNoneDoesNoHarm) {
    char *none = nullptr;
    EXPECT_EQ(zantLogFreeBuffer(&none), 0u);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(zantLogFreeBuffer(nullptr), 3u);
    auto *buffer = static_cast<char *>(zantLogMalloc(8192));
    EXPECT_EQ(zantLogFreeBuffer(&buffer), 0u);
    EXPECT_EQ(buffer, nullptr);
    EXPECT_EQ(zantLogFreeBuffer(&buffer), 0u);
}

TEST_F(FileFetch, UnsupportedHeadersAreRememberedAndSkipped) {
    makeNumber(0, kHeaderFromTheFuture);
    const std::string good = makeGood(1);
    makeNumber(2, "$Header 65539,12,3,1763249000,buildhost\n");
    Selection selection;
    selectAll(&selection);
    LogFileEntry *entry = nullptr;
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), 0u);
    EXPECT_EQ(&entry->name[0], good);
    EXPECT_EQ(selection.badHeaderSeen, 1u);
    EXPECT_EQ(zantLogFetchNextFileEx(&selection, &entry), kNoMoreFiles);
    EXPECT_EQ(selection.badHeaderSeen, 1u);
}

TEST_F(FileFetch, OnlyUnsupportedHeadersAreNineAndRemembered) {
    makeNumber(0, kHeaderFromTheFuture);
    makeNumber(1, kHeaderFromTheFuture);
    Selection selection;
    selectAll(&selection);
    EXPECT_EQ(selection.badHeaderSeen, 0u);
    EXPECT_THAT(selection.fetchNames(), IsEmpty());
    EXPECT_EQ(selection.badHeaderSeen, 1u);
}

TEST_F(FileFetch, OtherHeaderFailuresAreSkippedInSilence) {
    makeNumber(0, "");
    makeNumber(1, "$Hdr 65543,12,3,1763249000,-3600,buildhost\n");
    makeNumber(2, "$Header 65543,12,3,1763249000,-3600,buildhost"); // no line end yet
    const std::string good = makeGood(3);
    makeNumber(4, "0,12,3,3,1,1,1,1,0:,1:a,1:b,1\n");
    Selection selection;
    selectAll(&selection);
    EXPECT_THAT(selection.fetchNames(), ElementsAre(good));
    EXPECT_EQ(selection.badHeaderSeen, 0u);
}

TEST_F(FileFetch, AFileThatHasGoneIsSkipped) {
    makeGood(0);
    const std::string second = makeGood(1);
    makeGood(2);
    Selection selection;
    selectAll(&selection);
    removeFile(directory() + productFile(12, 3, 0));
    removeFile(directory() + productFile(12, 3, 2));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(second));
}

TEST_F(FileFetch, AfterMismatchesTheLastEntryIsTriedAgain) {
    const std::string first = makeGood(0);
    const std::string last = makeNumber(1, "");
    Selection selection;
    selectAll(&selection);
    EXPECT_THAT(selection.fetchNames(), ElementsAre(first));
    ASSERT_NE(selection.current, nullptr);
    EXPECT_EQ(&selection.current->name[0], last);
    appendFileBytes(directory() + last, productHeader(12, 3));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(last));
    EXPECT_EQ(selection.current, nullptr);
}

// ---- queries at header level

TEST_F(FileFetch, AQueryIsAskedOfTheHeader) {
    makeNumber(0, productHeader(12, 3));
    const std::string foreign = makeNumber(1, productHeader(99, 7)); // whatever its name says
    Selection byProduct;
    selectAll(&byProduct, query_.is(263, 99));
    EXPECT_THAT(byProduct.fetchNames(), ElementsAre(foreign));
    Selection byOriginator;
    selectAll(&byOriginator, query_.is(264, 7));
    EXPECT_THAT(byOriginator.fetchNames(), ElementsAre(foreign));
}

TEST_F(FileFetch, TimesAreTheHeadersAndTheLastWrite) {
    const std::string old = makeNumber(0, productHeader(12, 3, "h", 1000));
    const std::string young = makeNumber(1, productHeader(12, 3, "h", 2000));
    Selection byStart;
    selectAll(&byStart, query_.is(269, 1000));
    EXPECT_THAT(byStart.fetchNames(), ElementsAre(old));
    Selection byEither;
    selectAll(&byEither, query_.is(268, 1000));
    EXPECT_THAT(byEither.fetchNames(), ElementsAre(old));
    Selection byWrite;
    selectAll(&byWrite, query_.is(268, kMonday + 1));
    EXPECT_THAT(byWrite.fetchNames(), ElementsAre(young));
    Selection startOnly;
    selectAll(&startOnly, query_.is(269, kMonday + 1));
    EXPECT_THAT(startOnly.fetchNames(), IsEmpty());
}

TEST_F(FileFetch, ALogSetFilesProductAndTimeComeFromItsName) {
    constexpr uint32_t kFirstOfJune2020 = 1590969600;
    const std::string may = make("12-audit-200515100000.log", logSetHeader(), kMonday);
    const std::string june = make("12-audit-200615100000.log", logSetHeader(), kMonday + 1);
    Selection byProduct;
    selectAll(&byProduct, query_.is(263, 12));
    EXPECT_THAT(byProduct.fetchNames(), ElementsAre(may, june));
    Selection other;
    selectAll(&other, query_.is(263, 13));
    EXPECT_THAT(other.fetchNames(), IsEmpty());
    Selection early;
    selectAll(&early, query_.op(283, query_.field(269), query_.number(kFirstOfJune2020)));
    EXPECT_THAT(early.fetchNames(), ElementsAre(may));
    Selection noOriginator;
    selectAll(&noOriginator, query_.is(264, 0));
    EXPECT_THAT(noOriginator.fetchNames(), ElementsAre(may, june));
}

TEST_F(FileFetch, AProductHeaderInALogSetFileKeepsItsOwnValues) {
    const std::string name = make("12-audit-200515100000.log", productHeader(99, 3, "h", 1000), kMonday);
    Selection selection;
    selectAll(&selection, query_.both(query_.is(263, 99), query_.is(269, 1000)));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(name));
    // It is no log set's file for the field of the name either.
    Selection named;
    selectAll(&named, query_.isText(279, "audit"));
    EXPECT_THAT(named.fetchNames(), IsEmpty());
}

TEST_F(FileFetch, FieldOfTheLogSetFileNameIsTheNames) {
    const std::string audit = make("12-audit-251116100000.log", logSetHeader(), kMonday);
    makeGood(1);
    Selection selection;
    selectAll(&selection, query_.isText(279, "audit"));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(audit));
    Selection other;
    selectAll(&other, query_.op(288, query_.field(279), query_.text("audit")));
    EXPECT_THAT(other.fetchNames(), IsEmpty()); // product files have none
}

TEST_F(FileFetch, AProductsFileHasNoLogSetWhateverStandsBeforeIt) {
    makeGood(0);
    make("12-audit-251116100000.log", logSetHeader(), kMonday + 1);
    makeGood(2);
    Selection unequal;
    selectAll(&unequal, query_.op(288, query_.field(279), query_.text("audit")));
    EXPECT_THAT(unequal.fetchNames(), IsEmpty());
    // The log set's file, whose originator is 0, is passed over in the same fetch as those of products.
    Selection equal;
    selectAll(&equal, query_.both(query_.isText(279, "audit"), query_.is(264, 3)));
    EXPECT_THAT(equal.fetchNames(), IsEmpty());
}

TEST_F(FileFetch, ALogSetHeaderUnderAProductsNameTakesItApartAsALogSets) {
    const std::string name = makeNumber(0, logSetHeader());
    Selection selection;
    selectAll(&selection, query_.both(query_.is(263, 12), query_.isText(279, "3")));
    EXPECT_THAT(selection.fetchNames(), ElementsAre(name));
}

TEST_F(FileFetch, FieldsThatTheHeaderLacksMatchNothing) {
    makeGood(0);
    for (const uint32_t field : {265u, 266u, 267u, 270u, 275u, 276u, 277u, 278u}) {
        Selection selection;
        selectAll(&selection, query_.is(field, 0));
        EXPECT_THAT(selection.fetchNames(), IsEmpty()) << field;
    }
}

TEST_F(FileFetch, MayBeginAnywhereInTheList) {
    makeGood(0);
    const std::string second = makeGood(1);
    Selection selection;
    selectAll(&selection);
    selection.current = selection.head->next;
    EXPECT_THAT(selection.fetchPaths(), ElementsAre(directory() + second));
    selection.current = selection.head;
    EXPECT_EQ(selection.fetchNames().size(), 2u);
}

} // namespace

} // namespace zantlog::test
