// Selection with queries, by names, listing and header texts.
#include "tests/reader/selection_fixture.h"

namespace zantlog::test {

namespace {

using QuerySelection = SelectionTest;
using testing::ElementsAre;

constexpr int64_t kMonday = 1763300000; // some moment

TEST_F(QuerySelection, AQueryTakesFilesByTheIdsInTheirNames) {
    const std::string three = makeProductFile(12, 3, 0, kMonday);
    const std::string four = makeProductFile(12, 4, 0, kMonday + 1);
    const std::string other = makeProductFile(13, 4, 0, kMonday + 2);
    const std::vector<zantLogCfg *> all{product(12, 3), product(12, 4), product(13, 4)};
    Query query;
    Selection byProduct(query.is(263, 12));
    EXPECT_EQ(select(all, &byProduct), 0u);
    EXPECT_THAT(byProduct.names(), ElementsAre(three, four));
    Selection byOriginator(query.is(265, 4));
    EXPECT_EQ(select(all, &byOriginator), 0u);
    EXPECT_THAT(byOriginator.names(), ElementsAre(four, other));
    Selection byBoth(query.both(query.is(265, 4), query.is(263, 12)));
    EXPECT_EQ(select(all, &byBoth), 0u);
    EXPECT_THAT(byBoth.names(), ElementsAre(four));
    Selection none(query.both(query.is(265, 3), query.is(263, 13)));
    EXPECT_EQ(select(all, &none), kNoLogFile);
}

TEST_F(QuerySelection, LogSetFilesHaveOriginatorZero) {
    const std::string set = make("12-audit-251116100000.log", logSetHeader());
    Query query;
    Selection zero(query.is(265, 0));
    EXPECT_EQ(select({logSet(12, "audit")}, &zero), 0u);
    EXPECT_THAT(zero.names(), ElementsAre(set));
    zantLogCfg *cfg = logSet(12, "audit");
    cfg->originatorId = 3;
    Selection records(query.is(265, 3));
    EXPECT_EQ(select({cfg}, &records), kNoLogFile) << "whatever the record says";
    Selection product(query.is(263, 12));
    EXPECT_EQ(select({logSet(12, "audit")}, &product), 0u);
    Selection other(query.is(263, 13));
    EXPECT_EQ(select({logSet(12, "audit")}, &other), kNoLogFile);
}

TEST_F(QuerySelection, AQueryByTimeLooksAtTheListing) {
    makeProductFile(12, 3, 0, kMonday - 1);
    const std::string later = makeProductFile(12, 3, 1, kMonday);
    Query query;
    for (const uint32_t field : {268u, 269u}) {
        Selection selection(query.op(286, query.field(field), query.number(kMonday)));
        EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
        EXPECT_THAT(selection.names(), ElementsAre(later)) << field;
    }
}

TEST_F(QuerySelection, ALogSetFileIsAsOldAsItsNameSays) {
    // Whatever the time zone is.
    constexpr uint32_t kFirstOfJune2020 = 1590969600;
    const std::string may = make("12-audit-200515100000.log", logSetHeader(), kMonday);
    const std::string june = make("12-audit-200615100000.log", logSetHeader(), kMonday + 1);
    Query query;
    Selection before(query.op(283, query.field(269), query.number(kFirstOfJune2020)));
    EXPECT_EQ(select({logSet(12, "audit")}, &before), 0u);
    EXPECT_THAT(before.names(), ElementsAre(may));
    Selection after(query.op(284, query.field(269), query.number(kFirstOfJune2020)));
    EXPECT_EQ(select({logSet(12, "audit")}, &after), 0u);
    EXPECT_THAT(after.names(), ElementsAre(june));
    // The last write is the listing's.
    Selection written(query.op(286, query.field(268), query.number(kMonday + 1)));
    EXPECT_EQ(select({logSet(12, "audit")}, &written), 0u);
    EXPECT_THAT(written.names(), ElementsAre(june));
}

TEST_F(QuerySelection, LogSetFilesAreOrderedByTheListingAllTheSame) {
    const std::string second = make("12-audit-200515100000.log", logSetHeader(), kMonday + 5);
    const std::string first = make("12-audit-200615100000.log", logSetHeader(), kMonday);
    Selection selection;
    EXPECT_EQ(select({logSet(12, "audit")}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(first, second));
    EXPECT_EQ(selection.head->creationTime, kMonday);
}

TEST_F(QuerySelection, ALogSetFileWithoutADateIsAsOldAsNoTime) {
    const std::string name = make("12-audit-x.log", logSetHeader(), kMonday);
    Query query;
    Selection selection(query.is(269, 4294967295u));
    EXPECT_EQ(select({logSet(12, "audit")}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(name));
}

TEST_F(QuerySelection, FieldOfTheLogSetFileNameIsTheRecords) {
    const std::string set = make("12-audit-251116100000.log", logSetHeader());
    makeProductFile(12, 3, 0);
    zantLogCfg *cfg = logSet(12, "audit");
    char fileName[] = "auditfile";
    Query query;
    Selection selection(query.isText(279, "auditfile"));
    EXPECT_EQ(select({cfg}, &selection), kNoLogFile); // the record has none
    cfg->logSetFileName = fileName;
    EXPECT_EQ(select({cfg}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(set));
    Selection byName(query.isText(279, "audit"));
    EXPECT_EQ(select({cfg}, &byName), kNoLogFile);
    // Product files have no such name, whatever the record says.
    zantLogCfg *productCfg = product(12, 3);
    productCfg->logSetFileName = fileName;
    EXPECT_EQ((selection.clear(), select({productCfg}, &selection)), kNoLogFile);
}

TEST_F(QuerySelection, RecordFieldsLetEveryFilePass) {
    makeProductFile(12, 3, 0);
    Query query;
    for (const uint32_t field : {264u, 266u, 267u, 270u, 271u, 272u, 273u, 274u, 275u, 277u}) {
        Selection selection(query.is(field, 99));
        EXPECT_EQ(select({product(12, 3)}, &selection), 0u) << field;
    }
    for (const uint32_t field : {276u, 262u, 280u}) {
        Selection selection(query.is(field, 99));
        EXPECT_EQ(select({product(12, 3)}, &selection), kNoLogFile) << field;
    }
}

TEST_F(QuerySelection, ATreeThatIsNoneSelectsNothing) {
    makeProductFile(12, 3, 0);
    Query query;
    Selection lonely(query.number(1));
    EXPECT_EQ(select({product(12, 3)}, &lonely), kNoLogFile);
    Selection half(query.op(281, query.is(263, 12), nullptr));
    EXPECT_EQ(select({product(12, 3)}, &half), kNoLogFile);
}

// ---- header texts

TEST_F(QuerySelection, HeaderTextsAreReadWhereTheQueryAsks) {
    const std::string here = make(productFile(12, 3, 0), productHeader(12, 3, "here"), kMonday);
    const std::string there = make(productFile(12, 3, 1), productHeader(12, 3, "there"), kMonday + 1);
    const std::string set = make("12-audit-251116100000.log", logSetHeader("here"), kMonday + 2);
    const std::vector<zantLogCfg *> all{product(12, 3), logSet(12, "audit")};
    Query query;
    Selection selection(query.isText(278, "here"));
    EXPECT_EQ(select(all, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(here, set));
    Selection others(query.op(288, query.field(278), query.text("here")));
    EXPECT_EQ(select(all, &others), 0u);
    EXPECT_THAT(others.names(), ElementsAre(there));
    // However deep the field stands.
    Selection deep(query.both(query.is(263, 12), query.both(query.isText(278, "there"), query.is(265, 3))));
    EXPECT_EQ(select(all, &deep), 0u);
    EXPECT_THAT(deep.names(), ElementsAre(there));
}

TEST_F(QuerySelection, AHeaderFromANewerVersionIsRememberedAndTheOthersCome) {
    const std::string good = make(productFile(12, 3, 0), productHeader(12, 3, "here"), kMonday);
    make(productFile(12, 3, 1), kHeaderFromTheFuture, kMonday);
    make(productFile(12, 3, 2), "$Header\n", kMonday);
    Query query;
    Selection selection(query.either(query.is(263, 12), query.isText(278, "here")));
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(good));
    EXPECT_EQ(selection.badHeaderSeen, 1u);
}

TEST_F(QuerySelection, HeadersAreNotLookedAtWithoutNeed) {
    const std::string bad = make(productFile(12, 3, 1), kHeaderFromTheFuture);
    Query query;
    Selection selection(query.is(263, 12));
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(bad));
    EXPECT_EQ(selection.badHeaderSeen, 0u);
}

TEST_F(QuerySelection, AFileWithoutAHeaderHasAnEmptyText) {
    make(productFile(12, 3, 0), productHeader(12, 3, "here"), kMonday);
    const std::string empty = make(productFile(12, 3, 1), "", kMonday + 1);
    const std::string other = make(productFile(12, 3, 2), "no header\n", kMonday + 2);
    Query query;
    Selection selection(query.isText(278, ""));
    EXPECT_EQ(select({product(12, 3)}, &selection), 0u);
    EXPECT_THAT(selection.names(), ElementsAre(empty, other));
    EXPECT_EQ(selection.badHeaderSeen, 0u);
}

TEST_F(QuerySelection, AFileThatCannotBeOpenedIsSkippedWhereTheHeaderIsNeeded) {
    makeFolder(directory() + productFile(12, 3, 0)); // a folder of a log file's name
    const std::string file = makeProductFile(12, 3, 1);
    Query query;
    Selection needing(query.op(288, query.field(278), query.text("x")));
    EXPECT_EQ(select({product(12, 3)}, &needing), 0u);
    EXPECT_THAT(needing.names(), ElementsAre(file));
    Selection listing;
    EXPECT_EQ(select({product(12, 3)}, &listing), 0u);
    EXPECT_EQ(listing.names().size(), 2u);
    EXPECT_THAT(listing.fetchNames(), ElementsAre(file));
}

} // namespace

} // namespace zantlog::test
