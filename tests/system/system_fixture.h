// A store in the process's folder that registers product 12, a folder for its logs, and processes that log.
#pragma once

#include "tests/support/child_process.h"
#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace zantlog::test {

// A record as logging processes write it: the text is the writer's name and the number of the message.
struct ReadRecord {
    uint32_t sequence;
    uint32_t processId;
    std::string writer;
    int number;
};

class SystemTest : public testing::Test {
protected:
    // Registers product 12 with these settings besides its directory and a debug level of 6.
    void configure(const std::vector<std::string> &settings) const;
    void configure(const std::vector<std::string> &settings, const std::string &logDirectory) const;

    // A process that logs so many messages through originator 3 under a name. It begins when the file "go" is
    // there.
    static std::unique_ptr<ChildProcess> startWriter(const std::string &name, int messages);
    static void letGo();

    // All records of all files in the order of their names, with every file and line checked: one header,
    // first; nothing but whole lines.
    [[nodiscard]] std::vector<ReadRecord> readAll() const;

    ScopedFolder logs_;
    ~SystemTest() override;
};

// Fails the test unless the records of a writer are 0, 1, 2, ... in this order, with sequence numbers from 1
// on.
void expectComplete(const std::vector<ReadRecord> &records, const std::string &writer, int messages);

} // namespace zantlog::test
