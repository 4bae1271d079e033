#include "tests/system/system_fixture.h"

#include "zantlog/handle.h"
#include "zantlog/logging.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <regex>
#include <thread>

namespace zantlog::test {

namespace {

// Beside the store: children do not know the test's folder.
std::string goFile() {
    return std::string(std::getenv("ZANTLOG_CFG_LOC")) + ".go";
}

bool waitForGo() {
    for (int i = 0; i < 6000; ++i) {
        if (std::filesystem::exists(goFile())) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

// Exit codes: 0; 1 never let go; 2 the log could not be opened; 3 a message failed.
ZANTLOG_CHILD(writeMessages) {
    const int messages = std::stoi(arguments.at(1));
    if (!waitForGo()) {
        return 1;
    }
    zantLogHandle handle;
    if (zantLogOpen(12, 3, &handle) != 0) {
        return 2;
    }
    for (int i = 0; i < messages; ++i) {
        const uint32_t result = zantLogDebugMsg(&handle, 0, 1, "writer", "%s %d", arguments[0].c_str(), i);
        if (result != 0) {
            std::fprintf(stderr, "%s: message %d: result %u\n", arguments[0].c_str(), i, result);
            return 3;
        }
    }
    return zantLogClose(&handle) == 0 ? 0 : 4;
}

void readLine(const std::string &line, const std::string &file, std::vector<ReadRecord> *records) {
    static const std::regex kRecord("0,12,3,3,([0-9]+),[0-9]{13},([0-9]+),[0-9]+,0:,([0-9]+):"
                                    "([a-z]+) ([0-9]+),6:writer,1");
    std::smatch field;
    ASSERT_TRUE(std::regex_match(line, field, kRecord)) << file << ": " << line;
    EXPECT_EQ(std::stoul(field[3]), field[4].str().size() + 1 + field[5].str().size()) << line;
    records->push_back({static_cast<uint32_t>(std::stoul(field[1])),
                        static_cast<uint32_t>(std::stoul(field[2])), field[4], std::stoi(field[5])});
}

} // namespace

SystemTest::~SystemTest() {
    std::error_code ignored;
    std::filesystem::remove(goFile(), ignored);
}

void SystemTest::configure(const std::vector<std::string> &settings) const {
    configure(settings, logs_.path());
}

void SystemTest::configure(const std::vector<std::string> &settings, const std::string &logDirectory) const {
    const std::string product = inProcessFolder("product.conf");
    writeFileBytes(std::getenv("ZANTLOG_CFG_LOC"), "12.Configuration=" + product + "\r\n");
    std::string content = "Default.LogDirectory=" + logDirectory + "\r\n" +
                          "Default.DebugLevel=6\r\nDefault.LogToStdout=false\r\n";
    for (const std::string &setting : settings) {
        content += "Default." + setting + "\r\n";
    }
    writeFileBytes(product, content);
}

std::unique_ptr<ChildProcess> SystemTest::startWriter(const std::string &name, int messages) {
    return std::make_unique<ChildProcess>("writeMessages", ChildArguments{name, std::to_string(messages)});
}

void SystemTest::letGo() {
    writeFileBytes(goFile(), "");
}

std::vector<ReadRecord> SystemTest::readAll() const {
    static const std::regex kHeader("\\$Header 65543,12,3,[0-9]+,-?[0-9]+,[^,]+");
    std::vector<ReadRecord> records;
    for (const std::string &name : fileNames(logs_.path())) {
        const std::string content = fileBytes(logs_.file(name));
        EXPECT_TRUE(content.ends_with('\n')) << name;
        const std::vector<std::string> lines = linesOf(content);
        EXPECT_TRUE(!lines.empty() && std::regex_match(lines[0], kHeader)) << name;
        for (size_t i = 1; i < lines.size(); ++i) {
            readLine(lines[i], name, &records);
        }
    }
    return records;
}

void expectComplete(const std::vector<ReadRecord> &records, const std::string &writer, int messages) {
    int next = 0;
    for (const ReadRecord &record : records) {
        if (record.writer == writer) {
            ASSERT_EQ(record.number, next) << writer;
            EXPECT_EQ(record.sequence, static_cast<uint32_t>(next) + 1) << writer;
            ++next;
        }
    }
    EXPECT_EQ(next, messages) << writer;
}

} // namespace zantlog::test
