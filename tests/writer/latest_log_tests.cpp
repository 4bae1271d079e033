// The file that was begun last.
#include "tests/writer/writer_fixture.h"

#include "base/owned_text.h"
#include "tests/support/files.h"

namespace zantlog::test {

namespace {

class LatestLog : public WriterTest {
protected:
    LatestLog() { cfg_.logDirectory[folder_.path().copy(cfg_.logDirectory, 1000)] = '\\'; }

    // The name that is found for product 12 and originator 3, or "none".
    std::string product(uint32_t productId = 12, uint32_t originatorId = 3) {
        LogFileEntry *entry = nullptr;
        const int32_t found = zantLogFindLatestLog(searched(), productId, originatorId, 0, 0, &entry);
        return nameOf(found, entry);
    }

    std::string logSet(const char *name = "night", int64_t *time = nullptr) {
        LogFileEntry *entry = nullptr;
        const int32_t found = zantLogFindLatestLogSL(searched(), 12, name, 0, 0, &entry);
        if (entry != nullptr && time != nullptr) {
            *time = entry->creationTime;
        }
        return nameOf(found, entry);
    }

    zantLogFile *searched() {
        cfg_.logDirectory[sizeof cfg_.logDirectory - 1] = '\0';
        std::copy(std::begin(cfg_.logDirectory), std::end(cfg_.logDirectory), state_->directory);
        return state_.get();
    }

    // "12-3-<this host>-" and the rest.
    static std::string ours(const std::string &rest) {
        return "12-3-" + std::to_string(zantLogHostId()) + "-" + rest;
    }

private:
    static std::string nameOf(int32_t found, LogFileEntry *entry) {
        const OwnedBlock<LogFileEntry> owner(entry);
        EXPECT_EQ(found, entry != nullptr ? 1 : 0);
        return entry != nullptr ? entry->name : "none";
    }

    struct StateDeleter {
        void operator()(zantLogFile *state) const { freeWriterState(state); }
    };
    std::unique_ptr<zantLogFile, StateDeleter> state_{allocateWriterState()};
};

TEST_F(LatestLog, NullArgumentFindsNothing) {
    LogFileEntry *entry = nullptr;
    EXPECT_EQ(zantLogFindLatestLog(nullptr, 12, 3, 0, 0, &entry), 0);
    EXPECT_EQ(zantLogFindLatestLog(searched(), 12, 3, 0, 0, nullptr), 0);
    EXPECT_EQ(zantLogFindLatestLogSL(nullptr, 12, "night", 0, 0, &entry), 0);
    EXPECT_EQ(zantLogFindLatestLogSL(searched(), 12, nullptr, 0, 0, &entry), 0);
    EXPECT_EQ(zantLogFindLatestLogSL(searched(), 12, "night", 0, 0, nullptr), 0);
}

TEST_F(LatestLog, EmptyAndMissingDirectoriesHoldNone) {
    EXPECT_EQ(product(), "none");
    EXPECT_EQ(logSet(), "none");
    cfg_ = configurationFor(folder_.file("missing"));
    EXPECT_EQ(product(), "none");
    EXPECT_EQ(logSet(), "none");
}

TEST_F(LatestLog, LaterDayWins) {
    put(ours("251231-0000000009.log"), "");
    put(ours("260101-0000000000.log"), "");
    put(ours("251130-0000000012.log"), "");
    EXPECT_EQ(product(), ours("260101-0000000000.log"));
}

TEST_F(LatestLog, HigherNumberOfTheSameDayWins) {
    put(ours("251231-0000000009.log"), "");
    put(ours("251231-0000000010.log"), "");
    put(ours("251231-0000000002.log"), "");
    EXPECT_EQ(product(), ours("251231-0000000010.log"));
}

TEST_F(LatestLog, NumbersAreComparedAsUnsigned) {
    put(ours("251231-2147483647.log"), "");
    put(ours("251231-4294967295.log"), "");
    EXPECT_EQ(product(), ours("251231-4294967295.log"));
}

TEST_F(LatestLog, NumberZeroAloneIsFound) {
    put(ours("251231-0000000000.log"), "");
    EXPECT_EQ(product(), ours("251231-0000000000.log"));
}

TEST_F(LatestLog, OtherHostsProductsAndOriginatorsAreNotChosen) {
    put("12-3-1-261231-0000000009.log", "");
    put("12-4-" + std::to_string(zantLogHostId()) + "-261231-0000000009.log", "");
    put("13-3-" + std::to_string(zantLogHostId()) + "-261231-0000000009.log", "");
    put("112-3-" + std::to_string(zantLogHostId()) + "-261231-0000000009.log", "");
    EXPECT_EQ(product(), "none");
    put(ours("251231-0000000000.log"), "");
    EXPECT_EQ(product(), ours("251231-0000000000.log"));
}

TEST_F(LatestLog, IncompleteNamesAreNotChosen) {
    put(ours("log.log"), "");
    put(ours("261231.log"), "");
    put(ours("261231-.log"), "");
    EXPECT_EQ(product(), "none");
}

TEST_F(LatestLog, FilesThatAreNotLogsAreNotListed) {
    put(ours("261231-0000000000.txt"), "");
    EXPECT_EQ(product(), "none");
}

TEST_F(LatestLog, TimeOfTheFilesDoesNotMatter) {
    put(ours("260101-0000000000.log"), "");
    put(ours("251231-0000000000.log"), "written later");
    EXPECT_EQ(product(), ours("260101-0000000000.log"));
}

TEST_F(LatestLog, LatestDateOfALogSetWins) {
    put("12-night-251115101010.log", "");
    put("12-night-251115101011.log", "");
    put("12-night-251114235959.log", "");
    int64_t time = 0;
    EXPECT_EQ(logSet("night", &time), "12-night-251115101011.log");
    EXPECT_EQ(time, 1763197811);
}

TEST_F(LatestLog, DatesOfALogSetIgnoreDaylightSaving) {
    put("12-night-250701120000.log", "");
    int64_t time = 0;
    EXPECT_EQ(logSet("night", &time), "12-night-250701120000.log");
    EXPECT_EQ(time, 1751367600); // 12:00 in winter time
}

TEST_F(LatestLog, OtherLogSetsAreNotChosen) {
    put("12-nightly-251115101010.log", "");
    put("13-night-251115101010.log", "");
    put("112-night-251115101010.log", "");
    EXPECT_EQ(logSet(), "none");
}

TEST_F(LatestLog, OneLogSetNameWithoutADateEndsTheSearch) {
    put("12-night-251115101010.log", "");
    for (const char *malformed :
         {"12-night-zzz.log", "12-night-.log", "12-night-2511151010.log", "12-night--251115101010.log"}) {
        put(malformed, "");
        EXPECT_EQ(logSet(), "none") << malformed;
        removeFile(folder_.file(malformed));
    }
    EXPECT_EQ(logSet(), "12-night-251115101010.log");
}

TEST_F(LatestLog, LogSetNamesWithADashAreNeverFound) {
    put("12-late-night-251115101010.log", "");
    EXPECT_EQ(logSet("late-night"), "none");
}

TEST_F(LatestLog, LongestLogSetNameIsSurvived) {
    const std::string name(3000, 'n');
    EXPECT_EQ(logSet(name.c_str()), "none");
}

} // namespace

} // namespace zantlog::test
