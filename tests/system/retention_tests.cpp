// Several processes that roll over and recycle at once.
#include "tests/system/system_fixture.h"

#include <algorithm>
#include <functional>
#include <map>

#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

using RetentionSystem = SystemTest;

const std::vector<std::string> kWriters{"alpha", "beta", "gamma", "delta", "epsilon", "zeta", "eta", "theta"};

// Eight processes that begin at once.
void runWriters(const std::function<std::unique_ptr<ChildProcess>(const std::string &)> &start,
                const std::function<void()> &letGo) {
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (const std::string &name : kWriters) {
        writers.push_back(start(name));
    }
    letGo();
    for (const auto &writer : writers) {
        EXPECT_EQ(writer->wait(), 0);
    }
}

TEST_F(RetentionSystem, EightProcessesLoseNothingThatIsToBeKept) {
    configure({"RolloverMode=FileSize", "MaxLogFileSizeKB=1024", "LogRecycle=true", "NumberOfLogFiles=100"});
    runWriters([](const std::string &name) { return startWriter(name, 10000); }, letGo);
    const std::vector<ReadRecord> records = readAll(); // whole lines only
    EXPECT_EQ(records.size(), 80000u);
    for (const std::string &name : kWriters) {
        expectComplete(records, name, 10000);
    }
    EXPECT_GE(fileNames(logs_.path()).size(), 5u); // about 6 MB
}

TEST_F(RetentionSystem, EightProcessesKeepTheYoungestFilesAndTheirOrder) {
    configure({"RolloverMode=FileSize", "MaxLogFileSizeKB=64", "LogRecycle=true", "NumberOfLogFiles=12"});
    runWriters([](const std::string &name) { return startWriter(name, 2000); }, letGo);

    // What each still has open besides the twelve cannot have been deleted.
    EXPECT_LE(fileNames(logs_.path()).size(), 12u + kWriters.size());
    EXPECT_GE(fileNames(logs_.path()).size(), 12u);
    std::map<std::string, int> last;
    for (const ReadRecord &record : readAll()) {
        const auto found = last.find(record.writer);
        if (found != last.end()) {
            EXPECT_GT(record.number, found->second) << record.writer; // in order, none twice
        }
        last[record.writer] = record.number;
    }
    // The very last record of all was written into the youngest file.
    EXPECT_TRUE(std::any_of(last.begin(), last.end(), [](const auto &of) { return of.second == 1999; }));
}

} // namespace

} // namespace zantlog::test
