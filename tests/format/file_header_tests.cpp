// Header lines in files.
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

#include "logfile/format/file_header.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"
#include "tests/support/test_folder.h"
#include "zantlog/log_file.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

LogFileHeader exampleHeader() {
    LogFileHeader header{};
    header.version = 65543;
    header.productId = 12;
    header.originatorId = 3;
    header.startTime = 1763249000;
    header.tzOffset = -3600;
    std::strcpy(header.text, "buildhost");
    return header;
}

constexpr const char *kExampleLine = "$Header 65543,12,3,1763249000,-3600,buildhost\n";

class HeaderFile : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return folder_.file("a.log"); }
    void open() { ASSERT_EQ(zantLogOs_open(file.get(), path().c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0); }
    void close() { EXPECT_EQ(zantLogOs_close(file.get()), 0); }

    std::unique_ptr<zantLogOsFile> file = std::make_unique<zantLogOsFile>();

private:
    ScopedFolder folder_;
};

TEST_F(HeaderFile, ReceivesTheHeaderAsItsFirstLine) {
    open();
    EXPECT_EQ(writeHeader(file.get(), exampleHeader()), 0u);
    close();
    EXPECT_EQ(fileBytes(path()), kExampleLine);
}

TEST_F(HeaderFile, KeepsTheHeaderThatAnotherProcessWrote) {
    writeFileBytes(path(), "$Header 65543,1,1,1,0,other\n");
    open();
    EXPECT_EQ(writeHeader(file.get(), exampleHeader()), 0u);
    close();
    EXPECT_EQ(fileBytes(path()), "$Header 65543,1,1,1,0,other\n");
}

TEST_F(HeaderFile, ReceivesOneHeaderOnly) {
    open();
    EXPECT_EQ(writeHeader(file.get(), exampleHeader()), 0u);
    EXPECT_EQ(writeHeader(file.get(), exampleHeader()), 0u);
    close();
    EXPECT_EQ(fileBytes(path()), kExampleLine);
}

TEST_F(HeaderFile, ReceivesNothingOfAnUnsupportedVersion) {
    open();
    for (const uint32_t version : {65539u, 65545u}) {
        LogFileHeader header = exampleHeader();
        header.version = version;
        EXPECT_EQ(writeHeader(file.get(), header), 1u);
    }
    close();
    EXPECT_EQ(fileBytes(path()), "");
}

TEST_F(HeaderFile, ThatIsNotOpenFails) {
    EXPECT_EQ(writeHeader(file.get(), exampleHeader()), 1u);
}

TEST(FilledHeader, HasIdsTimeZoneAndHost) {
    LogFileHeader header;
    std::memset(&header, 0xFF, sizeof header);
    const int64_t before = secondsNow();
    ASSERT_EQ(fillHeader(&header, 65544, 12, 3), 0u);
    const int64_t after = secondsNow();
    EXPECT_EQ(header.version, 65544u);
    EXPECT_EQ(header.productId, 12u);
    EXPECT_EQ(header.originatorId, 3u);
    EXPECT_GE(header.startTime, before);
    EXPECT_LE(header.startTime, after);
    EXPECT_EQ(header.tzOffset, getLocalTZOffsetFromGMT());
    char host[512];
    ASSERT_EQ(osGetHostName(host, sizeof host), 0);
    EXPECT_STREQ(header.text, host);
}

} // namespace
