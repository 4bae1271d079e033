// Old log files go at rollovers.
#include "tests/api/product_fixture.h"

#include <cstdio>

#include "tests/support/file_times.h"
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"

namespace zantlog::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
using testing::SizeIs;

// A handle on the log set "audit".
struct OpenLogSet : zantLogHandle {
    OpenLogSet() : zantLogHandle{} { result = zantLogOpenLogSet(12, 3, "audit", this); }
    ~OpenLogSet() { zantLogClose(this); }
    OpenLogSet(const OpenLogSet &) = delete;
    OpenLogSet &operator=(const OpenLogSet &) = delete;

    uint32_t result;
};

class Retention : public ProductTest {
protected:
    Retention() {
        for (const char *section : {"Default", "LOGSET.Default", "LOGSET.audit"}) {
            setting(section, "LogDirectory", logFolder() + "\\");
            setting(section, "RolloverMode", "FileSize");
            setting(section, "MaxLogFileSizeKB", "1");
        }
        recycle("Default", 3);
        recycle("LOGSET.audit", 3);
    }

    void recycle(const std::string &section, uint32_t count) {
        setting(section, "LogRecycle", "true");
        setting(section, "NumberOfLogFiles", std::to_string(count));
    }

    // A file that was begun so long ago; full ones leave no room for a record.
    std::string put(const std::string &name, const std::string &header, int64_t secondsAgo) const {
        const std::string path = logFolder() + "\\" + name;
        writeFileBytes(path, header + std::string(1100, 'x') + "\n");
        setFileTimes(path, secondsNow() - secondsAgo);
        return name;
    }
    std::string putOld(uint32_t number, int64_t secondsAgo, uint32_t originator = 3) const {
        char sequence[20];
        std::snprintf(sequence, sizeof sequence, "%010u", number);
        return put("12-" + std::to_string(originator) + "-" + std::to_string(zantLogHostId()) + "-" +
                       dateInNames(-1) + "-" + sequence + ".log",
                   "$Header 65543,12," + std::to_string(originator) + "," +
                       std::to_string(secondsNow() - secondsAgo) + ",0,host\n",
                   secondsAgo);
    }
    std::string putLogSet(const std::string &date, int64_t secondsAgo) const {
        return put("12-audit-" + date + ".log", "$Header 65544,0,host\n", secondsAgo);
    }

    // What a message that rolls over prints.
    static std::string rollOver(zantLogHandle *handle) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(logText(handle, std::string(1100, 'm').c_str()), 0u);
        std::fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }
};

TEST_F(Retention, TheRolloverThatMakesOneTooManyDeletesTheOldest) {
    const std::string oldest = putOld(0, 3000);
    const std::string second = putOld(1, 2000);
    const std::string third = putOld(2, 1000);
    OpenLog log;
    ASSERT_EQ(log.result, 0u);
    EXPECT_THAT(logNames(), ElementsAre(oldest, second, third)); // the open deletes nothing
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(3));
    EXPECT_THAT(logNames(), IsSupersetOf({second, third}));
}

TEST_F(Retention, UpToTheNumberNothingGoes) {
    const std::string first = putOld(0, 2000);
    const std::string second = putOld(1, 1000);
    OpenLog log;
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(3));
    EXPECT_THAT(logNames(), IsSupersetOf({first, second}));
}

TEST_F(Retention, AllThatIsTooMuchGoesAtOnceByAge) {
    const std::string young = putOld(0, 1000);
    const std::string old = putOld(1, 5000);
    const std::string older = putOld(2, 6000);
    const std::string younger = putOld(3, 900);
    const std::string oldest = putOld(4, 7000);
    OpenLog log;
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(3));
    EXPECT_THAT(logNames(), IsSupersetOf({young, younger}));
}

TEST_F(Retention, WithoutRecyclingNothingIsEverDeleted) {
    setting("Default", "LogRecycle", "false");
    setting("Default", "NumberOfLogFiles", "1");
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    OpenLog log;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rollOver(&log), "");
    }
    EXPECT_THAT(logNames(), SizeIs(8));
}

TEST_F(Retention, RunsAtRolloversOnly) {
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    setting("Default", "RolloverMode", "None");
    {
        OpenLog log;
        EXPECT_EQ(rollOver(&log), ""); // is no rollover: the reopen begins today's file
    }
    EXPECT_THAT(logNames(), SizeIs(6));
}

TEST_F(Retention, TheNumberIsReadAtEachRolloverAndTheSwitchAtTheOpen) {
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    OpenLog log;
    setting("Default", "LogRecycle", "false");
    setting("Default", "NumberOfLogFiles", "4");
    rollOver(&log);
    EXPECT_THAT(logNames(), SizeIs(4));
    setting("Default", "NumberOfLogFiles", "2");
    setFileTimes(logFolder() + "\\" + logNames().back(), secondsNow() - 100);
    rollOver(&log);
    EXPECT_THAT(logNames(), SizeIs(2));
}

TEST_F(Retention, AFileHeldOpenElsewhereIsReportedAndTriedAgain) {
    const std::string oldest = putOld(0, 3000);
    const std::string second = putOld(1, 2000);
    putOld(2, 1000);
    const std::string path = logFolder() + "\\" + oldest;
    OpenLog log;
    auto reader = std::make_unique<zantLogOsFile>();
    ASSERT_EQ(zantLogOs_open(reader.get(), path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0);
    EXPECT_EQ(rollOver(&log), path + " File Deletion failed\n");
    EXPECT_THAT(logNames(), SizeIs(4));
    setFileTimes(logFolder() + "\\" + logNames().back(), secondsNow() - 100);
    // The one that was surplus before stays, what is surplus by now goes.
    EXPECT_EQ(rollOver(&log), path + " File Deletion failed\n");
    EXPECT_THAT(logNames(), SizeIs(4));
    EXPECT_THAT(logNames(), Not(Contains(second)));
    EXPECT_EQ(zantLogOs_close(reader.get()), 0);
    const std::vector<std::string> before = logNames();
    setFileTimes(logFolder() + "\\" + before.back(), secondsNow() - 50);
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(3));
    EXPECT_THAT(logNames(), Not(Contains(oldest)));
}

TEST_F(Retention, FilesWithoutAReadableHeaderAreNeverDeleted) {
    recycle("Default", 2);
    const std::string empty = putOld(0, 9000);
    writeFileBytes(logFolder() + "\\" + empty, "");
    setFileTimes(logFolder() + "\\" + empty, secondsNow() - 9000);
    const std::string newer = putOld(1, 8000);
    writeFileBytes(logFolder() + "\\" + newer, "$Header 65545,12,3,1,0,host\n");
    setFileTimes(logFolder() + "\\" + newer, secondsNow() - 8000);
    const std::string foreign = putOld(2, 7000);
    writeFileBytes(logFolder() + "\\" + foreign, "not ours\n");
    setFileTimes(logFolder() + "\\" + foreign, secondsNow() - 7000);
    const std::string ours = putOld(3, 6000);
    const std::string young = putOld(4, 100);
    OpenLog log;
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), Not(Contains(ours)));
    EXPECT_THAT(logNames(), IsSupersetOf({empty, newer, foreign, young})); // they count all the same
    EXPECT_THAT(logNames(), SizeIs(5));
}

TEST_F(Retention, FilesOfOthersStay) {
    recycle("Default", 1);
    const std::vector<std::string> others{
        putOld(0, 5000, 4),
        put("13-3-1-251116-0000000000.log", "$Header 65543,13,3,1,0,host\n", 5000),
        putLogSet("251116100000", 5000),
        put("12-3-1-251116-0000000000.txt", "$Header 65543,12,3,1,0,host\n", 5000),
        put("notes.log", "$Header 65543,12,3,1,0,host\n", 5000),
        put("12-30-1-251116-0000000000.log", "$Header 65543,12,30,1,0,host\n", 5000)};
    const std::string own = putOld(0, 4000);
    const std::string otherHosts = put("12-3-7-251116-0000000000.log", "$Header 65543,12,3,1,0,host\n", 6000);
    OpenLog log;
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), IsSupersetOf(others));
    EXPECT_THAT(logNames(), Not(Contains(own)));
    EXPECT_THAT(logNames(), Not(Contains(otherHosts))); // of the same product and originator
    EXPECT_THAT(logNames(), SizeIs(others.size() + 1));
}

TEST_F(Retention, IsTheFileOriginatorsAffair) {
    recycle("Default", 1);
    const std::string third = putOld(0, 4000, 3);
    const std::string fourth = putOld(0, 4000, 4);
    OpenLog log(3, 4); // of originator 3, into originator 4's file
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), Contains(third));
    EXPECT_THAT(logNames(), Not(Contains(fourth)));
}

TEST_F(Retention, AnOriginatorsOwnNumberCounts) {
    recycle("3", 4);
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    OpenLog log;
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(4));
}

TEST_F(Retention, OfALogSetTakesItsFiles) {
    const std::string product = putOld(0, 9000);
    const std::string other = put("12-other-200101100000.log", "$Header 65544,0,host\n", 9000);
    const std::string oldest = putLogSet("200101100001", 3000);
    const std::string second = putLogSet("200101100000", 2000);
    const std::string third = putLogSet("200101100002", 1000);
    OpenLogSet log;
    ASSERT_EQ(log.result, 0u);
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), IsSupersetOf({product, other, second, third}));
    EXPECT_THAT(logNames(), SizeIs(5));
}

TEST_F(Retention, WithoutItsConfigurationDeletesNothing) {
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    OpenLog log;
    unregister();
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(6));
}

TEST_F(Retention, LooksWhereTheConfigurationSaysByNow) {
    for (uint32_t i = 0; i < 5; ++i) {
        putOld(i, 5000 - i);
    }
    OpenLog log;
    const ScopedFolder elsewhere;
    setting("Default", "LogDirectory", elsewhere.path() + "\\");
    EXPECT_EQ(rollOver(&log), "");
    EXPECT_THAT(logNames(), SizeIs(6));
}

} // namespace

} // namespace zantlog::test
