// Several processes, or threads, on one log.
#include "tests/system/system_fixture.h"

#include "zantlog/handle.h"
#include "zantlog/logging.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace zantlog::test {

namespace {

using SeveralWriters = SystemTest;

const std::vector<std::string> kNames{"alpha", "beta", "gamma", "delta", "epsilon", "zeta"};

// Until a writer has a record in one of the files.
bool waitForRecords(const std::string &folder, const std::string &writer) {
    for (int i = 0; i < 3000; ++i) {
        for (const std::string &name : fileNames(folder)) {
            if (fileBytes(folder + "\\" + name).find(":" + writer + " ") != std::string::npos) {
                return true;
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST_F(SeveralWriters, OneFileHoldsEveryRecordOnce) {
    configure({});
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (size_t i = 0; i < 4; ++i) {
        writers.push_back(startWriter(kNames[i], 1000));
    }
    letGo();
    for (const auto &writer : writers) {
        EXPECT_EQ(writer->wait(), 0);
    }
    const std::vector<ReadRecord> records = readAll();
    EXPECT_EQ(records.size(), 4000u);
    for (size_t i = 0; i < 4; ++i) {
        expectComplete(records, kNames[i], 1000);
    }
}

TEST_F(SeveralWriters, RolloverBySizeLosesNothing) {
    configure({"RolloverMode=FileSize", "MaxLogFileSizeKB=16"});
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (size_t i = 0; i < 4; ++i) {
        writers.push_back(startWriter(kNames[i], 1000));
    }
    letGo();
    for (const auto &writer : writers) {
        EXPECT_EQ(writer->wait(), 0);
    }
    const std::vector<ReadRecord> records = readAll();
    EXPECT_EQ(records.size(), 4000u);
    for (size_t i = 0; i < 4; ++i) {
        expectComplete(records, kNames[i], 1000);
    }
    const std::vector<std::string> names = fileNames(logs_.path());
    EXPECT_GE(names.size(), 15u); // about 260 KB of records
    for (const std::string &name : names) {
        // Each of the others may have found room for its record where the last one filled the file.
        EXPECT_LT(std::filesystem::file_size(logs_.file(name)), 16u * 1024 + 4 * 100) << name;
    }
}

TEST_F(SeveralWriters, ThatBeginAtOnceLeaveOneHeader) {
    configure({});
    for (int round = 0; round < 5; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> writers;
        for (const std::string &name : kNames) {
            writers.push_back(startWriter(name, 3));
        }
        letGo();
        for (const auto &writer : writers) {
            EXPECT_EQ(writer->wait(), 0);
        }
        const std::vector<ReadRecord> records = readAll();
        EXPECT_EQ(records.size(), 18u);
        for (const std::string &name : kNames) {
            expectComplete(records, name, 3);
        }
        std::filesystem::remove(std::string(std::getenv("ZANTLOG_CFG_LOC")) + ".go");
        for (const std::string &name : fileNames(logs_.path())) {
            std::filesystem::remove(logs_.file(name));
        }
    }
}

TEST_F(SeveralWriters, KilledOneTearsNothingAndStopsNobody) {
    configure({"RolloverMode=FileSize", "MaxLogFileSizeKB=64"});
    letGo();
    const std::unique_ptr<ChildProcess> survivor = startWriter("survivor", 3000);
    for (int round = 0; round < 6; ++round) {
        const std::unique_ptr<ChildProcess> victim = startWriter(kNames[static_cast<size_t>(round)], 1000000);
        ASSERT_TRUE(waitForRecords(logs_.path(), kNames[static_cast<size_t>(round)]));
        std::this_thread::sleep_for(std::chrono::milliseconds(3 * round));
        victim->kill();
        EXPECT_EQ(victim->wait(), kChildKilled);
    }
    EXPECT_EQ(survivor->wait(), 0);
    const std::vector<ReadRecord> records = readAll(); // whole lines only
    expectComplete(records, "survivor", 3000);
    EXPECT_GE(records.size(), 3006u);
}

TEST_F(SeveralWriters, ThreadsShareAHandle) {
    configure({"RolloverMode=FileSize", "MaxLogFileSizeKB=16"});
    zantLogHandle handle;
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < 4; ++i) {
        threads.emplace_back([&handle, i] {
            for (int number = 0; number < 500; ++number) {
                EXPECT_EQ(zantLogDebugMsg(&handle, 0, 1, "writer", "%s %d", kNames[i].c_str(), number), 0u);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(zantLogClose(&handle), 0u);

    const std::vector<ReadRecord> records = readAll();
    ASSERT_EQ(records.size(), 2000u);
    std::vector<int> next(4, 0);
    for (size_t i = 0; i < records.size(); ++i) {
        EXPECT_EQ(records[i].sequence, i + 1); // drawn and written under one lock
        for (size_t writer = 0; writer < 4; ++writer) {
            if (records[i].writer == kNames[writer]) {
                EXPECT_EQ(records[i].number, next[writer]++);
            }
        }
    }
}

} // namespace

} // namespace zantlog::test
