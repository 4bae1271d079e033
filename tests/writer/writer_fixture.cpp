#include "tests/writer/writer_fixture.h"
#include "tests/support/machine.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <regex>

namespace zantlog::test {

TestLog::TestLog(zantLogCfg *cfg) {
    handle.file = allocateWriterState();
    if (cfg != nullptr) {
        opened = zantLogOpenFile(&handle, cfg, cfg);
    }
}

TestLog::~TestLog() {
    if (handle.file != nullptr && zantLogCloseFile(&handle) != ZANTLOG_OK) {
        freeWriterState(handle.file); // never attached
    }
}

uint32_t TestLog::open(zantLogCfg *handleCfg, zantLogCfg *fileCfg) {
    return zantLogOpenFile(&handle, handleCfg, fileCfg);
}

uint32_t TestLog::write(zantLogMsgRec record) {
    return zantLogWriteMsgWithRolloverToFile(handle.file, &record);
}

WriterTest::WriterTest() : cfg_(configurationFor(folder_.path())) {}

std::string WriterTest::onlyFile() const {
    const std::vector<std::string> all = names();
    EXPECT_EQ(all.size(), 1u);
    return all.size() == 1 ? bytes(all[0]) : std::string();
}

zantLogCfg configurationFor(const std::string &folder) {
    zantLogCfg cfg;
    std::memset(&cfg, 0, sizeof cfg);
    cfg.productId = 12;
    cfg.originatorId = 3;
    std::snprintf(cfg.logDirectory, sizeof cfg.logDirectory, "%s\\", folder.c_str());
    return cfg;
}

zantLogMsgRec debugRecord(uint32_t sequence, const char *text, uint64_t timestamp) {
    static char component[] = "main";
    zantLogMsgRec record;
    std::memset(&record, 0, sizeof record);
    record.type = ZANTLOG_MSG_DEBUG;
    record.productId = 12;
    record.originatorId = 3;
    record.sequence = sequence;
    record.timestamp = timestamp;
    record.processId = 4242;
    record.threadId = 777;
    record.text = const_cast<char *>(text);
    record.who = component;
    record.slot.level = 2;
    return record;
}

std::string debugLine(uint32_t sequence, const std::string &text, uint64_t timestamp) {
    return "0,12,3,3," + std::to_string(sequence) + "," + std::to_string(timestamp) + ",4242,777,0:," +
           std::to_string(text.size()) + ":" + text + ",4:main,2\n";
}

std::string productName(int daysFromToday, uint32_t daySequence, uint32_t originatorId) {
    char sequence[16];
    std::snprintf(sequence, sizeof sequence, "%010u", daySequence);
    return "12-" + std::to_string(originatorId) + "-" + std::to_string(zantLogHostId()) + "-" +
           dateInNames(daysFromToday) + "-" + sequence + ".log";
}

std::string headerBegun(int64_t secondsAgo) {
    return "$Header 65543,12,3," + std::to_string(secondsNow() - secondsAgo) + ",-3600,buildhost\n";
}

std::string withoutHeader(const std::string &content) {
    static const std::regex kHeader("\\$Header 65543,12,3,[0-9]+,-?[0-9]+,[^,\n]+");
    const size_t end = std::min(content.find('\n'), content.size());
    EXPECT_TRUE(std::regex_match(content.substr(0, end), kHeader)) << content;
    EXPECT_LT(end, content.size()) << content;
    return end < content.size() ? content.substr(end + 1) : std::string();
}

zantLogMsgRec contextRecord(uint32_t sequence, char *token) {
    static char title[] = "nightly run";
    zantLogMsgRec record = debugRecord(sequence, title);
    record.type = ZANTLOG_MSG_CONTEXT;
    record.who = nullptr;
    record.slot.contextString = token;
    return record;
}

} // namespace zantlog::test
