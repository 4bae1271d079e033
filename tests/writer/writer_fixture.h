// A folder for log files, configurations that write there, handles and records made by hand.
#pragma once

#include "logfile/writer/writer_state.h"
#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace zantlog::test {

// A handle with a state of its own, opened with one configuration for handle and file; closed at the end of
// the scope.
struct TestLog {
    TestLog() : TestLog(nullptr) {}
    explicit TestLog(zantLogCfg *cfg);
    ~TestLog();
    TestLog(const TestLog &) = delete;
    TestLog &operator=(const TestLog &) = delete;

    uint32_t open(zantLogCfg *handleCfg, zantLogCfg *fileCfg);
    uint32_t write(zantLogMsgRec record);
    [[nodiscard]] zantLogFile &state() const { return *handle.file; }

    zantLogHandle handle{};
    uint32_t opened = ZANTLOG_OK;
};

class WriterTest : public testing::Test {
protected:
    WriterTest();

    // Names of the log files, in ascending order.
    [[nodiscard]] std::vector<std::string> names() const { return fileNames(folder_.path()); }
    // The one log file's bytes.
    [[nodiscard]] std::string onlyFile() const;
    [[nodiscard]] std::string bytes(const std::string &name) const { return fileBytes(folder_.file(name)); }
    void put(const std::string &name, const std::string &content) const {
        writeFileBytes(folder_.file(name), content);
    }

    ScopedFolder folder_;
    zantLogCfg cfg_; // product 12, originator 3, no rollover
};

zantLogCfg configurationFor(const std::string &folder);

// A debug record of product 12, originator 3, process 4242, thread 777, component "main", level 2.
zantLogMsgRec debugRecord(uint32_t sequence, const char *text, uint64_t timestamp = 1);

// Its line in a product file.
std::string debugLine(uint32_t sequence, const std::string &text, uint64_t timestamp = 1);

// Name of a file of product 12 and originator 3 on this host.
std::string productName(int daysFromToday, uint32_t daySequence, uint32_t originatorId = 3);

// A header of such a file that was begun so many seconds ago.
std::string headerBegun(int64_t secondsAgo = 0);

// The lines after the header; the header must be one of product 12, originator 3, and end in a line feed.
std::string withoutHeader(const std::string &content);

// A context record: token "job7", title "nightly run".
zantLogMsgRec contextRecord(uint32_t sequence, char *token);

} // namespace zantlog::test
