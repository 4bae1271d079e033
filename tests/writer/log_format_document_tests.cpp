// docs/log-format.md says what the library does: its examples are made again, or read.
#include "logfile/format/file_header.h"
#include "logfile/format/file_name.h"
#include "tests/support/document.h"
#include "tests/writer/writer_fixture.h"
#include "zantlog/serialization.h"

#include <cstring>
#include <sstream>

namespace zantlog::test {

namespace {

// Contents of the document's fenced blocks of one kind, without their last line feeds.
std::vector<std::string> blocks(const std::string &kind) {
    const std::string document = documentText("docs/log-format.md");
    const std::string opening = "\n```" + kind + "\n";
    std::vector<std::string> found;
    for (size_t at = document.find(opening); at != std::string::npos; at = document.find(opening, at)) {
        at += opening.size();
        found.push_back(document.substr(at, document.find("\n```", at) - at));
    }
    return found;
}

bool documentSays(const std::string &text) {
    return documentText("docs/log-format.md").find(text) != std::string::npos;
}

std::string serialized(zantLogMsgRec record) {
    text_msg buffer;
    EXPECT_EQ(zantLogMsgSerialize(&record, &buffer), 0u);
    std::string line(buffer.data, buffer.capacity - buffer.free);
    free_text_msg(&buffer);
    return line;
}

std::string headerLine(const LogFileHeader &header) {
    char line[kHeaderLineBytes];
    size_t length = 0;
    EXPECT_TRUE(formatHeader(header, line, &length));
    return {line, length};
}

TEST(LogFormatDocument, RecordExampleIsWhatIsWritten) {
    zantLisArg path{};
    path.kind = ZANTLIS_NATIVE_STRING;
    path.first.narrow = "C:";
    zantLisArg number{};
    number.kind = ZANTLIS_UNSIGNED;
    number.first.width = 32;
    number.second.word = 5;
    number.next = &path;

    char component[] = "scanner";
    zantLogMsgRec record = debugRecord(57, "disk failure", 1763249000123);
    record.type = ZANTLOG_MSG_DIAGNOSTIC;
    record.formatVersion = ZANTLOG_FORMAT_PRODUCT;
    record.fid = 3;
    record.who = component;
    record.lis = {0, 2, &number};

    ASSERT_EQ(blocks("record").size(), 1u);
    EXPECT_EQ(serialized(record), blocks("record")[0] + "\n");
}

TEST(LogFormatDocument, ByteTableIsTheRecord) {
    ASSERT_EQ(blocks("bytes").size(), 1u);
    std::string content;
    for (const std::string &row : linesOf(blocks("bytes")[0])) {
        EXPECT_EQ(std::stoul(row.substr(0, 4), nullptr, 16), content.size()) << row;
        std::istringstream bytes(row.substr(6, 23));
        for (std::string byte; bytes >> byte;) {
            content += static_cast<char>(std::stoul(byte, nullptr, 16));
        }
    }
    ASSERT_EQ(blocks("record").size(), 1u);
    EXPECT_EQ(content, blocks("record")[0] + "\n");
}

TEST(LogFormatDocument, HeaderExamplesAreWhatIsWritten) {
    LogFileHeader header{};
    header.version = 65543;
    header.productId = 12;
    header.originatorId = 3;
    header.startTime = 1763249000;
    header.tzOffset = -3600;
    std::strcpy(header.text, "buildhost");
    ASSERT_EQ(blocks("header").size(), 2u);
    EXPECT_EQ(headerLine(header), blocks("header")[0] + "\n");
    header.version = 65544;
    EXPECT_EQ(headerLine(header), blocks("header")[1] + "\n");
}

TEST(LogFormatDocument, NameExamplesAreWhatIsWritten) {
    char path[200];
    ASSERT_TRUE(formatProductFilePath(path, sizeof path, "", {12, 3, 16777343, 25, 11, 15, 0}));
    EXPECT_TRUE(documentSays(std::string("`") + path + "`")) << path;

    std::tm time{};
    time.tm_year = 125;
    time.tm_mon = 10;
    time.tm_mday = 15;
    time.tm_hour = time.tm_min = time.tm_sec = 10;
    ASSERT_TRUE(formatLogSetFilePath(path, sizeof path, "", 12, "night", time));
    EXPECT_TRUE(documentSays(std::string("`") + path + "`")) << path;
}

// Each kind of argument alone, as the document's table shows it.
TEST(LogFormatDocument, ArgumentExamplesAreWhatIsWritten) {
    zantLisArg five{};
    five.kind = ZANTLIS_UNSIGNED;
    five.first.width = 32;
    five.second.word = 5;
    zantLis nested{0, 1, &five};

    std::vector<zantLisArg> arguments(11);
    for (size_t kind = 0; kind < arguments.size(); ++kind) {
        arguments[kind].kind = static_cast<int32_t>(kind < 7 ? kind : kind + 1); // 6 and 7 are written alike
        arguments[kind].first.width = 32;
        arguments[kind].second.number = 5;
    }
    static const wchar_t kWide[] = {'C', ':', 0};
    arguments[0].first.word = 'x';
    arguments[1].second.number = -5;
    arguments[3].first.real = 3.25;
    arguments[4].first.word = 4096;
    arguments[5].first.wide = kWide;
    arguments[7].first.seconds = 1763249000;
    arguments[8].first.pointer = &nested;
    arguments[9].first.narrow = arguments[10].first.narrow = "C:";

    for (zantLisArg &argument : arguments) {
        zantLogMsgRec record = debugRecord(1, nullptr);
        record.type = ZANTLOG_MSG_DIAGNOSTIC;
        record.formatVersion = ZANTLOG_FORMAT_PRODUCT;
        record.lis = {0, 1, &argument};
        const std::string line = serialized(record);
        const size_t start = line.find("(1|") + 3;
        std::string written = line.substr(start, line.size() - start - 2);
        for (size_t at = written.find('|'); at != std::string::npos; at = written.find('|', at + 2)) {
            written.insert(at, 1, '\\'); // as a table cell has it
        }
        EXPECT_TRUE(documentSays(" `" + written + "`")) << argument.kind << ": " << written;
    }
}

TEST(LogFormatDocument, ReplacementTextIsWhatIsWritten) {
    EXPECT_EQ(std::strlen("**UNABLE TO PROCESS LOG MESSAGE**"), 33u);
    EXPECT_TRUE(documentSays("`33:**UNABLE TO PROCESS LOG MESSAGE**`"));
}

} // namespace

} // namespace zantlog::test
