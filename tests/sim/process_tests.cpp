// Logical processes: what each has of its own, what they share, and how they end.
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "logfile/os/os_clock.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_mutex.h"
#include "logfile/os/os_stream.h"
#include "logfile/os/os_thread.h"
#include "logfile/writer/writer_state.h"
#include "tests/sim/sim.h"
#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

using sim::Process;
using sim::ProcessState;

int variable = 7; // of the program: each process has its own

class Processes : public testing::Test {
protected:
    ~Processes() override { sim::clearFaults(); }

    static os::SystemError take(const char *name, void **mutex) {
        EXPECT_EQ(os::createNamedMutex(name, mutex), 0u);
        return os::acquireMutex(*mutex);
    }

    const ScopedFolder folder;
};

TEST_F(Processes, StartWithFreshVariablesAndKeepThem) {
    variable = 8;
    Process one;
    Process two;
    int seen[3] = {};
    one.run([&] { seen[0] = variable++; });
    two.run([&] { seen[1] = variable; });
    one.run([&] { seen[2] = variable; });
    EXPECT_EQ(seen[0], 7);
    EXPECT_EQ(seen[1], 7);
    EXPECT_EQ(seen[2], 8);
    EXPECT_EQ(variable, 8);
    variable = 7;
}

TEST_F(Processes, HaveTheLibrarysStateOfTheirOwn) {
    const std::string here = GetZantLogCfgLoc();
    Process other;
    std::string there;
    other.run([&] {
        sim::setEnvironmentValue("ZANTLOG_CFG_LOC", "other.conf");
        there = GetZantLogCfgLoc();
    });
    EXPECT_EQ(there, "other.conf");
    EXPECT_EQ(GetZantLogCfgLoc(), here);
}

TEST_F(Processes, HaveACommonLockOfTheirOwn) {
    zantLockCommon("here");
    Process other;
    EXPECT_EQ(other.run([] {
        zantLockCommon("there");
        zantUnlockCommon("there");
    }),
              ProcessState::Idle);
    zantUnlockCommon("here");
}

TEST_F(Processes, HaveIdsAndThreadsOfTheirOwn) {
    Process other;
    uint32_t process = 0;
    uint32_t thread = 0;
    other.run([&] {
        process = os::processId();
        thread = os::threadId();
    });
    EXPECT_EQ(process, other.id());
    EXPECT_NE(process, os::processId());
    EXPECT_NE(thread, os::threadId());
    uint32_t again = 0;
    other.run([&] { again = os::threadId(); });
    EXPECT_EQ(again, thread);
}

TEST_F(Processes, InheritEnvironmentAndCurrentFolder) {
    sim::setEnvironmentValue("ZANTLOG_TEST_VARIABLE", "inherited");
    const std::string before = sim::currentFolder();
    sim::setCurrentFolder(folder.path());
    Process other;
    other.run([&] {
        EXPECT_EQ(sim::environmentValue("zantlog_test_variable"), "inherited");
        EXPECT_EQ(sim::currentFolder(), folder.path());
        sim::setEnvironmentValue("ZANTLOG_TEST_VARIABLE", "changed");
        sim::setCurrentFolder("C:\\");
    });
    EXPECT_EQ(sim::environmentValue("ZANTLOG_TEST_VARIABLE"), "inherited");
    EXPECT_EQ(sim::currentFolder(), folder.path());
    sim::setCurrentFolder(before);
    sim::setEnvironmentValue("ZANTLOG_TEST_VARIABLE", {});
}

TEST_F(Processes, HandlesAreNothingToOthers) {
    void *file = nullptr;
    ASSERT_EQ(os::openFile(folder.file("a").c_str(), os::FileMode::Append, nullptr, &file), 0u);
    const sim::Census before = sim::takeCensus();
    Process other;
    other.run([&] {
        uint64_t size = 0;
        EXPECT_EQ(os::fileSize(file, &size), 6u);
    });
    EXPECT_EQ(sim::leftSince(before), "1 misuses of handles");
    os::closeFile(file);
}

TEST_F(Processes, WaitForAMutexOfAnotherUntilItIsGivenBack) {
    void *mutex = nullptr;
    ASSERT_EQ(take("shared", &mutex), 0u);
    Process other;
    bool taken = false;
    void *there = nullptr;
    EXPECT_EQ(other.run([&] {
        EXPECT_EQ(take("shared", &there), 0u);
        taken = true;
    }),
              ProcessState::Blocked);
    EXPECT_FALSE(taken);
    os::releaseMutex(mutex);
    EXPECT_EQ(other.resume(), ProcessState::Idle);
    EXPECT_TRUE(taken);
    os::closeMutex(mutex);
}

TEST_F(Processes, MutexOfADeadOneIsTakenAsAbandoned) {
    const uint64_t before = sim::abandonedMutexesTaken();
    Process other;
    void *there = nullptr;
    other.run([&] { EXPECT_EQ(take("abandoned", &there), 0u); });
    void *mutex = nullptr;
    ASSERT_EQ(os::createNamedMutex("abandoned", &mutex), 0u);
    other.kill();
    EXPECT_EQ(os::acquireMutex(mutex), 0u);
    EXPECT_EQ(sim::abandonedMutexesTaken(), before + 1);
    os::releaseMutex(mutex);
    os::closeMutex(mutex);
}

TEST_F(Processes, DyingClosesHandlesAndLosesWhatStreamsHoldBack) {
    const sim::Census before = sim::takeCensus();
    {
        Process other;
        other.run([&] {
            void *file = nullptr;
            uint32_t written = 0;
            EXPECT_EQ(os::openFile(folder.file("file").c_str(), os::FileMode::Append, nullptr, &file), 0u);
            EXPECT_EQ(os::writeFile(file, "stays", 5, &written), 0u);
            void *stream = os::openTextStream(folder.file("stream").c_str(), os::StreamMode::Write);
            EXPECT_TRUE(os::writeText(stream, "lost\n"));
        });
        EXPECT_EQ(os::deleteFile(folder.file("file").c_str()), 32u);
        other.kill(5);
        EXPECT_EQ(other.state(), ProcessState::Ended);
        EXPECT_EQ(other.exitCode(), 5);
    }
    EXPECT_EQ(sim::leftSince(before), "");
    EXPECT_EQ(sim::bytesOf(folder.file("file")), "stays");
    EXPECT_EQ(sim::bytesOf(folder.file("stream")), "");
}

TEST_F(Processes, DieBetweenTwoCalls) {
    Process other;
    sim::setFault({.call = sim::Call::WriteFile,
                   .number = 2,
                   .action = sim::FaultAction::EndProcess,
                   .processId = other.id()});
    bool returned = false;
    EXPECT_EQ(other.run([&] {
        void *file = nullptr;
        uint32_t written = 0;
        static_cast<void>(os::openFile(folder.file("a").c_str(), os::FileMode::Append, nullptr, &file));
        static_cast<void>(os::writeFile(file, "first", 5, &written));
        static_cast<void>(os::writeFile(file, "second", 6, &written));
        returned = true;
    }),
              ProcessState::Ended);
    EXPECT_FALSE(returned);
    EXPECT_EQ(other.exitCode(), sim::kKilledExitCode);
    EXPECT_EQ(sim::bytesOf(folder.file("a")), "first");
    EXPECT_EQ(os::deleteFile(folder.file("a").c_str()), 0u);
}

TEST_F(Processes, PauseBetweenTwoCalls) {
    Process writer;
    Process second;
    void *first = nullptr;
    void *other = nullptr;
    sim::setFault(
        {.call = sim::Call::ReleaseMutex, .action = sim::FaultAction::Pause, .processId = writer.id()});
    EXPECT_EQ(writer.run([&] {
        EXPECT_EQ(take("paused", &first), 0u);
        os::releaseMutex(first);
    }),
              ProcessState::Paused);
    EXPECT_EQ(second.run([&] { EXPECT_EQ(take("paused", &other), 0u); }), ProcessState::Blocked);
    EXPECT_EQ(writer.resume(), ProcessState::Idle);
    EXPECT_EQ(second.resume(), ProcessState::Idle);
}

TEST_F(Processes, AbortEndsTheProcessAlone) {
    Process other;
    EXPECT_EQ(other.run([] { os::abortProcess(); }), ProcessState::Ended);
    EXPECT_EQ(other.exitCode(), 3);
}

TEST_F(Processes, AbortInAnotherThreadEndsTheProcessToo) {
    Process other;
    EXPECT_EQ(other.run([] { std::thread([] { os::abortProcess(); }).join(); }), ProcessState::Ended);
    EXPECT_EQ(other.exitCode(), 3);
}

TEST_F(Processes, RunWhileOthersSleepInTheOrderOfTime) {
    std::vector<int> order;
    Process slow;
    Process quick;
    const auto sleeper = [&order](int number, uint32_t milliseconds) {
        return [&order, number, milliseconds] {
            os::sleepMilliseconds(milliseconds);
            order.push_back(number);
            return number;
        };
    };
    slow.start(sleeper(1, 60000));
    quick.start(sleeper(2, 100));
    const int64_t before = os::nowSeconds();
    os::sleepMilliseconds(1000);
    EXPECT_EQ(order, std::vector<int>{2});
    EXPECT_EQ(os::nowSeconds() - before, 1);
    EXPECT_EQ(slow.wait(), ProcessState::Ended);
    EXPECT_EQ(order, (std::vector<int>{2, 1}));
    EXPECT_EQ(os::nowSeconds() - before, 60);
    EXPECT_EQ(slow.exitCode(), 1);
    EXPECT_EQ(quick.exitCode(), 2);
}

TEST_F(Processes, KilledWhileItWaitsGoesAtOnce) {
    void *mutex = nullptr;
    ASSERT_EQ(take("waited", &mutex), 0u);
    Process other;
    void *there = nullptr;
    EXPECT_EQ(other.run([&] { static_cast<void>(take("waited", &there)); }), ProcessState::Blocked);
    other.kill();
    EXPECT_EQ(other.state(), ProcessState::Ended);
    os::releaseMutex(mutex);
    EXPECT_EQ(os::acquireMutex(mutex), 0u);
    os::releaseMutex(mutex);
    os::closeMutex(mutex);
}

TEST_F(Processes, ThreadsOfTheFirstOneWaitForMutexesOfOthers) {
    Process holder;
    void *there = nullptr;
    holder.run([&] { EXPECT_EQ(take("threads", &there), 0u); });
    bool taken = false;
    std::thread waiting([&] {
        void *mutex = nullptr;
        taken = take("threads", &mutex) == 0;
        os::releaseMutex(mutex);
        os::closeMutex(mutex);
    });
    os::sleepMilliseconds(100);
    EXPECT_FALSE(taken);
    holder.run([&] { os::releaseMutex(there); });
    waiting.join();
    EXPECT_TRUE(taken);
}

TEST_F(Processes, BlocksOfTheirHeapAreCountedAndGoWithThem) {
    Process other;
    other.run([] { static_cast<void>(zantLogMalloc(10)); });
    EXPECT_EQ(other.heapBlocks(), 1u);
}

TEST_F(Processes, LeaveNothingInUse) {
    const sim::Census before = sim::takeCensus();
    {
        Process other;
        other.run([] {
            static_cast<void>(zantLogMalloc(10));
            EXPECT_EQ(osSocketStartup(), 0);
            zantLockCommon("held");
            void *mutex = nullptr;
            EXPECT_EQ(take("left", &mutex), 0u);
        });
        EXPECT_NE(sim::leftSince(before), "");
    }
    EXPECT_EQ(sim::leftSince(before), "");
}

// Two processes that write one log file; one of them dies while it holds the mutex of the file.
TEST_F(Processes, LogGoesOnWhenAWriterDiesInTheMiddle) {
    const std::string conf = folder.file("product.conf");
    sim::putFile(conf, "Default.LogDirectory=" + folder.path() + "\\logs\r\n");
    sim::putFile(GetZantLogCfgLoc(), "12.Configuration=" + conf + "\r\n");
    Process dying;
    sim::setFault({.call = sim::Call::StampLastWrite,
                   .number = 3,
                   .action = sim::FaultAction::EndProcess,
                   .processId = dying.id()});
    const auto write = [](const char *text) {
        static zantLogHandle handle;
        if (handle.file == nullptr) {
            EXPECT_EQ(zantLogOpen(12, 3, &handle), 0u);
        }
        zantLogMsgRec record{};
        EXPECT_EQ(zantLogInitMsg(&record, &handle, ZANTLOG_MSG_DEBUG, text), 0u);
        EXPECT_EQ(zantLogMsg(&handle, 0, &record), 0u);
        zantLogFreeMsg(&record);
        return &handle;
    };
    EXPECT_EQ(dying.run([&] { write("one"); }), ProcessState::Idle);
    zantLogHandle *handle = write("two");
    EXPECT_EQ(dying.run([&] { write("three"); }), ProcessState::Ended);
    write("four");
    EXPECT_EQ(zantLogClose(handle), 0u);
    handle->file = nullptr;
    sim::putFile(GetZantLogCfgLoc(), "");

    const std::vector<std::string> names = sim::namesIn(folder.file("logs"));
    ASSERT_EQ(names.size(), 1u);
    const std::string content = sim::bytesOf(folder.file("logs\\") + names[0]);
    size_t at = 0;
    for (const char *text : {"$Header ", ":one,", ":two,", ":three,", ":four,"}) {
        const size_t found = content.find(text, at);
        ASSERT_NE(found, std::string::npos) << text << content;
        at = found;
    }
    EXPECT_EQ(content.back(), '\n');
}

} // namespace

} // namespace zantlog::test
