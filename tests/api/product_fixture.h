// A registered product whose log files a test opens, writes and reads back.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

// A record line of a product file, taken apart as far as every type has it.
struct RecordLine {
    uint32_t type;
    uint32_t productId;
    uint32_t originatorId;
    uint32_t fileOriginatorId;
    uint32_t sequence;
    int64_t timestamp;
    uint32_t processId;
    uint32_t threadId;
    std::string rest; // context token and all that follows
};

// Product 12, whose configuration is a .conf file: "Default" with a log directory, sections as the test adds
// them.
class ProductTest : public testing::Test {
protected:
    ProductTest();
    ~ProductTest() override;

    void setting(const std::string &section, const std::string &key, const std::string &value);
    void removeSetting(const std::string &section, const std::string &key);
    void unregister();

    [[nodiscard]] const std::string &logFolder() const { return logs_.path(); }
    [[nodiscard]] std::vector<std::string> logNames() const;
    // Lines behind the header, of all log files in the order of their names.
    [[nodiscard]] std::vector<std::string> lines() const;
    [[nodiscard]] std::vector<RecordLine> records() const;

private:
    void save() const;

    ScopedFolder store_;
    ScopedFolder logs_;
    std::map<std::string, std::string> settings_;
    bool registered_ = true;
};

// A handle that is closed at the end of the scope.
struct OpenLog : zantLogHandle {
    explicit OpenLog(uint32_t originator = 3) : OpenLog(originator, originator) {}
    OpenLog(uint32_t originator, uint32_t fileOriginator) : zantLogHandle{} {
        result = zantLogOpen2(12, originator, fileOriginator, this);
    }
    ~OpenLog() { zantLogClose(this); }
    OpenLog(const OpenLog &) = delete;
    OpenLog &operator=(const OpenLog &) = delete;

    uint32_t result;
};

// A message record that is freed at the end of the scope.
struct Message : zantLogMsgRec {
    Message(zantLogHandle *handle, uint32_t messageType, const char *messageText) : zantLogMsgRec{} {
        initialised = zantLogInitMsg(this, handle, messageType, messageText);
    }
    ~Message() { zantLogFreeMsg(this); }
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;

    // Builds the catalog object; message id 0 makes a plain text.
    Message &object(uint32_t msgid, const char *fmt, ...);

    uint32_t initialised;
};

// Logs an application message of severity 0.
uint32_t logText(zantLogHandle *handle, const char *text);

// A configuration record that is freed at the end of the scope.
struct Configuration : zantLogCfg {
    Configuration() : zantLogCfg{} {}
    ~Configuration() { zantLogFreeCfg(this); }
    Configuration(const Configuration &) = delete;
    Configuration &operator=(const Configuration &) = delete;
};

} // namespace zantlog::test
