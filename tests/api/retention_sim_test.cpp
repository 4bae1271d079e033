// Retention over years, with failing calls, and with several processes at once.
#include "tests/api/product_fixture.h"

#include <algorithm>
#include <set>

#include "tests/sim/sim.h"
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"

namespace zantlog::test {

namespace {

using sim::Call;
using sim::Process;
using sim::ProcessState;

constexpr int64_t kDay = 86400;

class RetentionOnSim : public ProductTest {
protected:
    RetentionOnSim() : begin_(sim::clock().now()) {
        sim::clearFaults();
        sim::clearConsole();
        for (const char *section : {"Default", "LOGSET.Default", "LOGSET.audit"}) {
            setting(section, "LogDirectory", logFolder() + "\\");
            setting(section, "LogRecycle", "true");
        }
    }
    ~RetentionOnSim() override {
        sim::clearFaults();
        sim::memory().firstFailure = 0;
        sim::clock().set(begin_);
    }
    void bySize(uint32_t count) {
        setting("Default", "RolloverMode", "FileSize");
        setting("Default", "MaxLogFileSizeKB", "1");
        setting("Default", "NumberOfLogFiles", std::to_string(count));
    }
    // Every message of this length begins a file of its own.
    static uint32_t logLong(zantLogHandle *handle, const std::string &mark) {
        return logText(handle, (mark + std::string(1100, '.')).c_str());
    }
    [[nodiscard]] std::string fileWith(const std::string &mark) const {
        for (const std::string &name : logNames()) {
            if (fileBytes(logFolder() + "\\" + name).find(":" + mark + ".") != std::string::npos) {
                return name;
            }
        }
        return "";
    }

private:
    int64_t begin_;
};

TEST_F(RetentionOnSim, OverAYearKeepsExactlyTheNumberAndTheYoungest) {
    setting("Default", "RolloverMode", "Periodic");
    setting("Default", "RolloverPeriodInSeconds", std::to_string(kDay));
    setting("Default", "NumberOfLogFiles", "7");
    OpenLog log;
    ASSERT_EQ(log.result, 0u);
    ASSERT_EQ(logText(&log, "day 0"), 0u);
    std::vector<std::string> days = logNames();
    for (int day = 1; day <= 366; ++day) {
        sim::clock().advanceSeconds(kDay);
        const std::vector<std::string> before = logNames();
        ASSERT_EQ(logText(&log, "a day"), 0u);
        const std::vector<std::string> now = logNames();
        ASSERT_EQ(now.size(), std::min<size_t>(7, static_cast<size_t>(day) + 1)) << day;
        for (const std::string &name : now) {
            if (std::find(before.begin(), before.end(), name) == before.end()) {
                days.push_back(name);
            }
        }
        // Names sort by date.
        EXPECT_EQ(now, std::vector<std::string>(days.end() - static_cast<int>(now.size()), days.end()));
    }
    EXPECT_EQ(days.size(), 367u);
    EXPECT_EQ(sim::printedToStdout(), "");
}

TEST_F(RetentionOnSim, OfALogSetOverAYearKeepsExactlyTheNumber) {
    setting("LOGSET.audit", "RolloverMode", "LocalTime");
    setting("LOGSET.audit", "RolloverAtLocalTime", "03:00");
    setting("LOGSET.audit", "NumberOfLogFiles", "5");
    zantLogHandle log{};
    ASSERT_EQ(zantLogOpenLogSet(12, 3, "audit", &log), 0u);
    for (int day = 0; day <= 366; ++day) {
        ASSERT_EQ(logText(&log, "a day"), 0u);
        // The reopen after ten minutes makes a file of a log set as well; retention waits for the rollover.
        ASSERT_LE(logNames().size(), 6u) << day;
        if (day > 10) {
            ASSERT_GE(logNames().size(), 5u) << day;
        }
        sim::clock().advanceSeconds(kDay);
    }
    zantLogClose(&log);
    EXPECT_EQ(sim::printedToStdout(), "");
}

TEST_F(RetentionOnSim, OpenReopenAndCloseDeleteNothing) {
    setting("Default", "NumberOfLogFiles", "1");
    sim::resetCalls();
    for (int i = 0; i < 4; ++i) {
        OpenLog log; // a new file for each new day
        sim::clock().advanceSeconds(kDay);
        ASSERT_EQ(logText(&log, "late"), 0u); // the ten-minute reopen makes it
    }
    EXPECT_EQ(sim::calls(Call::DeleteFile), 0u);
    EXPECT_GE(logNames().size(), 4u);
}

// ---- failing calls

TEST_F(RetentionOnSim, AnyFailingCallOfARolloverIsAnsweredAndCostsNoYoungFile) {
    bySize(3);
    int number = 1;
    for (bool met = true; met; ++number) {
        ASSERT_LT(number, 1000);
        for (const std::string &name : logNames()) {
            removeFile(logFolder() + "\\" + name);
        }
        const sim::Census before = sim::takeCensus();
        {
            auto log = std::make_unique<OpenLog>();
            for (const char *mark : {"one", "two", "three"}) {
                sim::clock().advanceSeconds(1);
                ASSERT_EQ(logLong(log.get(), mark), 0u);
            }
            sim::clock().advanceSeconds(1);
            sim::setFault({.number = static_cast<uint64_t>(number)});
            const uint32_t result = logLong(log.get(), "four");
            met = sim::faultsMet() != 0;
            sim::clearFaults();
            EXPECT_TRUE(result == 0 || result == 5) << number << ": " << result;
            // "one" was too much; the younger ones stay whatever fails.
            EXPECT_NE(fileWith("two"), "") << number;
            EXPECT_NE(fileWith("three"), "") << number;
            if (!met) {
                EXPECT_EQ(fileWith("one"), "");
            }
            // The next rollover makes up for what this one could not do. A handle whose file could not be
            // opened writes no more for ten minutes.
            sim::clock().advanceSeconds(1);
            if (result != 0) {
                log.reset();
                log = std::make_unique<OpenLog>();
            }
            EXPECT_EQ(logLong(log.get(), "five"), 0u) << number;
            EXPECT_EQ(fileWith("one"), "") << number;
        }
        EXPECT_EQ(sim::leftSince(before), "") << number;
    }
    EXPECT_GT(number, 30);
}

TEST_F(RetentionOnSim, AnyFailingAllocationOfARolloverLeavesNothingBehind) {
    bySize(3);
    int number = 1;
    for (bool met = true; met; ++number) {
        ASSERT_LT(number, 1000);
        for (const std::string &name : logNames()) {
            removeFile(logFolder() + "\\" + name);
        }
        const sim::Census before = sim::takeCensus();
        {
            OpenLog log;
            for (const char *mark : {"one", "two", "three"}) {
                sim::clock().advanceSeconds(1);
                ASSERT_EQ(logLong(&log, mark), 0u);
            }
            sim::clock().advanceSeconds(1);
            zantLogMsgRec record{};
            EXPECT_EQ(zantLogInitMsg(&record, &log, ZANTLOG_MSG_APPLICATION,
                                     ("four" + std::string(1100, '.')).c_str()),
                      0u);
            EXPECT_EQ(zantLogSetAppAttrEx(&record, "", 0), 0u);
            sim::memory().allocations = 0;
            sim::memory().failures = 0;
            sim::memory().firstFailure = static_cast<uint64_t>(number);
            (void)zantLogMsg(&log, 0, &record);
            met = sim::memory().failures != 0;
            sim::memory().firstFailure = 0;
            zantLogFreeMsg(&record);
            EXPECT_NE(fileWith("two"), "") << number;
            EXPECT_NE(fileWith("three"), "") << number;
        }
        EXPECT_EQ(sim::leftSince(before), "") << number;
    }
    EXPECT_GT(number, 15);
}

TEST_F(RetentionOnSim, AFileHeldElsewhereIsReportedAtEachRolloverUntilItIsFree) {
    bySize(2);
    OpenLog log;
    sim::clock().advanceSeconds(1);
    ASSERT_EQ(logLong(&log, "held"), 0u);
    const std::string path = logFolder() + "\\" + fileWith("held");
    sim::clock().advanceSeconds(1);
    ASSERT_EQ(logLong(&log, "second"), 0u);
    {
        const sim::Hold hold(path, 1, 3);
        ASSERT_TRUE(hold.held());
        for (int i = 0; i < 5; ++i) {
            sim::clock().advanceSeconds(1);
            sim::clearConsole();
            ASSERT_EQ(logLong(&log, "later" + std::to_string(i)), 0u);
            EXPECT_EQ(sim::printedToStdout(), path + " File Deletion failed\n");
            EXPECT_EQ(logNames().size(), 3u);
        }
    }
    sim::clock().advanceSeconds(1);
    sim::clearConsole();
    ASSERT_EQ(logLong(&log, "last"), 0u);
    EXPECT_EQ(sim::printedToStdout(), "");
    EXPECT_FALSE(fileExists(path));
    EXPECT_EQ(logNames().size(), 2u);
}

// ---- two processes

// Two processes with a handle each, on one log; one of them can be stopped in the midst of a rollover.
class TwoProcesses : public RetentionOnSim {
protected:
    TwoProcesses() {
        bySize(4);
        writeFileBytes(foreign_, "$Header 65543,12,4,1,0,host\n");
        sim::setCreationTime(foreign_, 0);
        for (int i = 0; i < 2; ++i) {
            processes_[i].run([&] { ASSERT_EQ(zantLogOpen(12, 3, &handles_[i]), 0u); });
        }
    }
    ~TwoProcesses() override {
        for (int i = 0; i < 2; ++i) {
            processes_[i].run([&] { EXPECT_EQ(zantLogClose(&handles_[i]), 0u); });
        }
    }

    // The first process rolls over and is stopped before a call, the other one rolls over meanwhile, then the
    // first one goes on. False when the first one makes fewer such calls.
    bool rollOverAtOnce(Call call, uint64_t number, const std::string &mark) {
        sim::clock().advanceSeconds(1);
        sim::setFault({.call = call,
                       .number = number,
                       .action = sim::FaultAction::Pause,
                       .processId = processes_[0].id()});
        const ProcessState state = processes_[0].run([&] { EXPECT_EQ(logLong(&handles_[0], mark), 0u); });
        const bool stopped = state == ProcessState::Paused;
        const ProcessState other =
            processes_[1].run([&] { EXPECT_EQ(logLong(&handles_[1], mark + "x"), 0u); });
        sim::clearFaults();
        if (stopped) {
            EXPECT_EQ(processes_[0].resume(), ProcessState::Idle);
        }
        if (other == ProcessState::Blocked) {
            EXPECT_EQ(processes_[1].resume(), ProcessState::Idle);
        }
        return stopped;
    }

    const std::string foreign_ = logFolder() + "\\12-4-1-251116-0000000000.log";

private:
    Process processes_[2];
    zantLogHandle handles_[2] = {};
};

TEST_F(TwoProcesses, ThatRecycleAtOnceKeepTheNumberAndLoseNoYoungRecordAndNoFileOfOthers) {
    std::set<std::string> gone;
    std::set<std::string> seen;
    int turns = 0;
    for (const Call call : {Call::FindFirst, Call::FindNext, Call::FileStatus, Call::OpenFile,
                            Call::CloseFile, Call::DeleteFile, Call::WriteFile}) {
        // Some calls are of one kind with the others: every third one of them will do.
        for (uint64_t number = 1; number < 40; number += number < 3 ? 1 : 3) {
            const std::string mark = "turn" + std::to_string(turns++);
            const bool stopped = rollOverAtOnce(call, number, mark);
            EXPECT_NE(fileWith(mark), "") << sim::nameOf(call) << number;
            EXPECT_NE(fileWith(mark + "x"), "") << sim::nameOf(call) << number;
            EXPECT_TRUE(fileExists(foreign_));
            // Four of their own, one that each may still hold, and the foreign one.
            const std::vector<std::string> names = logNames();
            EXPECT_LE(names.size(), 7u) << sim::nameOf(call) << number;
            EXPECT_GE(names.size(), turns < 3 ? 3u : 5u) << sim::nameOf(call) << number;
            for (const std::string &name : names) {
                EXPECT_FALSE(gone.contains(name)) << name << " came back";
            }
            for (const std::string &name : seen) {
                if (std::ranges::find(names, name) == names.end()) {
                    gone.insert(name);
                }
            }
            seen.insert(names.begin(), names.end());
            if (!stopped) {
                break;
            }
        }
    }
    EXPECT_GT(turns, 20);
    EXPECT_GT(gone.size(), 20u);
    for (const std::string &line : lines()) {
        EXPECT_TRUE(line.ends_with(",0:,0,(0|)")) << line;
    }
}

} // namespace

} // namespace zantlog::test
