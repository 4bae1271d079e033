// Parsing header lines.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "tests/reader/reading_file.h"

namespace {

using namespace zantlog::test;

struct ParsedHeader {
    uint32_t result;
    LogFileHeader header;
};

ParsedHeader parse(const std::string &bytes) {
    ReadingFile log(bytes);
    ParsedHeader parsed{};
    std::memset(&parsed.header, 0xAA, sizeof parsed.header);
    parsed.result = ReadHeaderEx(log.file(), &parsed.header);
    return parsed;
}

void expectFields(const ParsedHeader &parsed, uint32_t version, uint32_t product, uint32_t originator,
                  int64_t start, int32_t offset, const std::string &text) {
    EXPECT_EQ(parsed.result, 0u);
    EXPECT_EQ(parsed.header.version, version);
    EXPECT_EQ(parsed.header.productId, product);
    EXPECT_EQ(parsed.header.originatorId, originator);
    EXPECT_EQ(parsed.header.startTime, start);
    EXPECT_EQ(parsed.header.tzOffset, offset);
    EXPECT_EQ(parsed.header.text, text);
}

// ---- the versions

TEST(HeaderReader, ReadsAProductFilesHeader) {
    expectFields(parse("$Header 65543,7,3,1262304000,5,hostA\n"), 65543, 7, 3, 1262304000, 5, "hostA");
    expectFields(parse("$Header 65543,12,3,1763249000,-3600,buildhost\n"), 65543, 12, 3, 1763249000, -3600,
                 "buildhost");
}

TEST(HeaderReader, ReadsALogSetFilesHeader) {
    expectFields(parse("$Header 65544,5,hostA\n"), 65544, 0, 0, 0, 5, "hostA");
    expectFields(parse("$Header 65544,-3600,hostA\n"), 65544, 0, 0, 0, -3600, "hostA");
    expectFields(parse("$Header 65544,4294963696,hostA\n"), 65544, 0, 0, 0, -3600, "hostA");
}

TEST(HeaderReader, ReadsOlderHeadersWithoutATimeZone) {
    expectFields(parse("$Header 65540,7,3,1262304000,hostA\n"), 65540, 7, 3, 1262304000, -1, "hostA");
    expectFields(parse("$Header 65541,7,3,1262304000,hostA\n"), 65541, 7, 3, 1262304000, -1, "hostA");
    expectFields(parse("$Header 65542,7,3,1262304000,5,hostA\n"), 65542, 7, 3, 1262304000, -1, "5,hostA");
}

TEST(HeaderReader, OtherVersionsAreUnsupported) {
    for (const char *version : {"0", "1", "65539", "65545", "4294967295", "-1", "99999999999"}) {
        EXPECT_EQ(parse(std::string("$Header ") + version + ",7,3,1262304000,5,hostA\n").result, 48u)
            << version;
    }
}

TEST(HeaderReader, WithoutAVersionIsUnsupported) {
    EXPECT_EQ(parse("$Header\n").result, 48u);
    EXPECT_EQ(parse("$Header abc\n").result, 48u);
    EXPECT_EQ(parse("$Header ,7,3\n").result, 48u);
}

// ---- the tag

TEST(HeaderReader, AnotherTagIsNoHeader) {
    for (const char *tag : {"$Hdr", "$header", "Header", "$Header,", "$HeaderX", "x$Header", "$Heade"}) {
        EXPECT_EQ(parse(std::string(tag) + " 65543,7,3,1262304000,5,hostA\n").result, 1u) << tag;
    }
    EXPECT_EQ(parse("$Header65543,7,3,1262304000,5,hostA\n").result, 1u);
}

TEST(HeaderReader, BlanksAroundTheTagDoNotMatter) {
    expectFields(parse("  \t$Header   65543,7,3,1262304000,5,hostA\n"), 65543, 7, 3, 1262304000, 5, "hostA");
    expectFields(parse("$Header\t65544,5,hostA\n"), 65544, 0, 0, 0, 5, "hostA");
}

TEST(HeaderReader, CarriageReturnsCountAsBlanks) {
    expectFields(parse("\r$Header\r65543,7,3,1262304000,5,hostA\r\n"), 65543, 7, 3, 1262304000, 5, "hostA");
}

TEST(HeaderReader, AFileWithoutALineHasNoHeader) {
    EXPECT_EQ(parse("").result, 1u);
    EXPECT_EQ(parse("$Header 65543,7,3,1262304000,5,hostA").result, 1u);
    EXPECT_EQ(parse("\n").result, 1u);
    EXPECT_EQ(parse("   \n$Header 65543,7,3,1262304000,5,hostA\n").result, 1u);
}

TEST(HeaderReader, AFailureLeavesTheHeaderCleared) {
    for (const char *bytes : {"", "$Hdr 65543,7,3,1262304000,5,hostA\n"}) {
        const ParsedHeader parsed = parse(bytes);
        EXPECT_EQ(parsed.result, 1u);
        EXPECT_EQ(parsed.header.version, 0u);
        EXPECT_EQ(parsed.header.productId, 0u);
        EXPECT_EQ(parsed.header.originatorId, 0u);
        EXPECT_EQ(parsed.header.startTime, 0);
        EXPECT_STREQ(parsed.header.text, "");
        EXPECT_EQ(parsed.header.tzOffset, -1);
    }
    const ParsedHeader unsupported = parse("$Header 65545,7,3,1262304000,5,hostA\n");
    EXPECT_EQ(unsupported.header.productId, 0u);
    EXPECT_EQ(unsupported.header.tzOffset, -1);
    EXPECT_STREQ(unsupported.header.text, "");
}

// ---- missing and odd fields

TEST(HeaderReader, MissingFieldsKeepTheirClearedValues) {
    expectFields(parse("$Header 65543\n"), 65543, 0, 0, 0, -1, "");
    expectFields(parse("$Header 65543,7\n"), 65543, 7, 0, 0, -1, "");
    expectFields(parse("$Header 65543,7,3\n"), 65543, 7, 3, 0, -1, "");
    expectFields(parse("$Header 65543,7,3,1262304000\n"), 65543, 7, 3, 1262304000, -1, "");
    expectFields(parse("$Header 65543,7,3,1262304000,5\n"), 65543, 7, 3, 1262304000, 5, "");
    expectFields(parse("$Header 65543,7,3,1262304000,5,\n"), 65543, 7, 3, 1262304000, 5, "");
    expectFields(parse("$Header 65542,7,3\n"), 65542, 7, 3, 0, -1, "");
    expectFields(parse("$Header 65544\n"), 65544, 0, 0, 0, -1, "");
    expectFields(parse("$Header 65544,\n"), 65544, 0, 0, 0, -1, "");
    expectFields(parse("$Header 65544,5\n"), 65544, 0, 0, 0, 5, "");
}

TEST(HeaderReader, StopsAtAFieldThatIsNoNumber) {
    expectFields(parse("$Header 65543,x,3,1262304000,5,hostA\n"), 65543, 0, 0, 0, -1, "");
    expectFields(parse("$Header 65543,7x,3,1262304000,5,hostA\n"), 65543, 7, 0, 0, -1, "");
    expectFields(parse("$Header 65543,7,,1262304000,5,hostA\n"), 65543, 7, 0, 0, -1, "");
    expectFields(parse("$Header 65543,7,3,1262304000,hostA\n"), 65543, 7, 3, 1262304000, -1, "");
    expectFields(parse("$Header 65544,hostA\n"), 65544, 0, 0, 0, -1, "");
    expectFields(parse("$Header 65543 ,7,3,1262304000,5,hostA\n"), 65543, 0, 0, 0, -1, "");
}

TEST(HeaderReader, BlanksBeforeNumbersAreSkipped) {
    expectFields(parse("$Header 65543, 7, 3, 1262304000, 5, hostA\n"), 65543, 7, 3, 1262304000, 5, "hostA");
}

TEST(HeaderReader, TheTextEndsAtABlank) {
    expectFields(parse("$Header 65543,7,3,1262304000,5,host A\n"), 65543, 7, 3, 1262304000, 5, "host");
    expectFields(parse("$Header 65544,5,host,with,commas rest\n"), 65544, 0, 0, 0, 5, "host,with,commas");
}

TEST(HeaderReader, TheTextKeeps511Bytes) {
    for (const size_t length : {510u, 511u, 512u, 5000u}) {
        const std::string host(length, 'h');
        const std::string kept(length < 511 ? length : 511, 'h');
        expectFields(parse("$Header 65543,7,3,1262304000,5," + host + "\n"), 65543, 7, 3, 1262304000, 5,
                     kept);
        expectFields(parse("$Header 65542,7,3,1262304000," + host + "\n"), 65542, 7, 3, 1262304000, -1, kept);
        expectFields(parse("$Header 65544,5," + host + "\n"), 65544, 0, 0, 0, 5, kept);
    }
}

TEST(HeaderReader, NumbersMayBeAsLargeAsTheirFields) {
    expectFields(parse("$Header 65543,4294967295,4294967294,9223372036854775807,2147483647,h\n"), 65543,
                 4294967295, 4294967294, INT64_MAX, INT32_MAX, "h");
    expectFields(parse("$Header 65543,1,1,-9223372036854775808,-2147483648,h\n"), 65543, 1, 1, INT64_MIN,
                 INT32_MIN, "h");
}

TEST(HeaderReader, ALineLongerThanABlockIsReadWhole) {
    expectFields(parse("$Header 65543,7,3,1262304000,5,hostA" + std::string(70000, ' ') + "\n"), 65543, 7, 3,
                 1262304000, 5, "hostA");
}

// ---- the read context

TEST(HeaderReader, RecordsFollowTheHeader) {
    ReadingFile log("$Header 65543,7,3,1262304000,5,hostA\nrecord\n");
    LogFileHeader header;
    ASSERT_EQ(ReadHeaderEx(log.file(), &header), 0u);
    EXPECT_EQ(readOne(log.file()), recordOf("record"));
}

TEST(HeaderReader, StartsWithAFreshBlock) {
    ReadingFile log("$Header 65543,7,3,1262304000,5,hostA\n");
    // What the buffer holds of another file does not count.
    std::memcpy(log.file()->buffer, "$Header 65544,1,old\n", 20);
    log.file()->position = 0;
    log.file()->length = 20;
    LogFileHeader header;
    ASSERT_EQ(ReadHeaderEx(log.file(), &header), 0u);
    EXPECT_EQ(header.version, 65543u);
}

TEST(HeaderReader, AFileThatIsNotOpenHasNoHeader) {
    auto closed = std::make_unique<zantLogOsFile>();
    LogFileHeader header;
    EXPECT_EQ(ReadHeaderEx(closed.get(), &header), 1u);
}

TEST(HeaderReader, NullArgumentsAreInvalid) {
    ReadingFile log("$Header 65543,7,3,1262304000,5,hostA\n");
    LogFileHeader header;
    std::memset(&header, 0xAA, sizeof header);
    EXPECT_EQ(ReadHeaderEx(nullptr, &header), 3u);
    EXPECT_EQ(ReadHeaderEx(log.file(), nullptr), 3u);
    EXPECT_EQ(ReadHeaderEx(nullptr, nullptr), 3u);
    EXPECT_EQ(header.version, 0xAAAAAAAAu);
}

// ---- file entries

class EntryHeader : public testing::Test {
protected:
    uint32_t read(const std::string &bytes, LogFileHeader *header) {
        writeFileBytes(folder_.file("a.log"), bytes);
        EXPECT_EQ(zantLogOs_open(&entry->file, folder_.file("a.log").c_str(), ZANTLOG_OPEN_READ, nullptr), 0);
        const uint32_t result = ReadHeader(entry.get(), header);
        EXPECT_EQ(zantLogOs_close(&entry->file), 0);
        return result;
    }

    std::unique_ptr<LogFileEntry> entry = std::make_unique<LogFileEntry>();

private:
    ScopedFolder folder_;
};

TEST_F(EntryHeader, RecordsVersionAndTimeZone) {
    LogFileHeader header;
    EXPECT_EQ(read("$Header 65543,7,3,1262304000,5,hostA\n", &header), 0u);
    EXPECT_EQ(header.productId, 7u);
    EXPECT_EQ(entry->version, 65543u);
    EXPECT_EQ(entry->tzOffset, 5);
    EXPECT_EQ(read("$Header 65544,-3600,hostA\n", &header), 0u);
    EXPECT_EQ(entry->version, 65544u);
    EXPECT_EQ(entry->tzOffset, -3600);
}

TEST_F(EntryHeader, OfAnOlderVersionHasNoTimeZone) {
    LogFileHeader header;
    entry->tzOffset = 77;
    EXPECT_EQ(read("$Header 65542,7,3,1262304000,hostA\n", &header), 0u);
    EXPECT_EQ(entry->version, 65542u);
    EXPECT_EQ(entry->tzOffset, -1);
}

TEST_F(EntryHeader, FailuresLeaveTheEntryAsItWas) {
    LogFileHeader header;
    entry->version = 9;
    entry->tzOffset = 77;
    EXPECT_EQ(read("$Header 65539,7,3,1262304000,5,hostA\n", &header), 48u);
    EXPECT_EQ(read("$Hdr 65543,7,3,1262304000,5,hostA\n", &header), 1u);
    EXPECT_EQ(read("", &header), 1u);
    EXPECT_EQ(entry->version, 9u);
    EXPECT_EQ(entry->tzOffset, 77);
}

TEST_F(EntryHeader, WithoutAHeaderFillsTheEntryAlone) {
    EXPECT_EQ(read("$Header 65543,7,3,1262304000,5,hostA\n", nullptr), 0u);
    EXPECT_EQ(entry->version, 65543u);
    EXPECT_EQ(entry->tzOffset, 5);
}

TEST_F(EntryHeader, WithoutAnEntryIsAFileWithoutAHeader) {
    LogFileHeader header;
    std::memset(&header, 0xAA, sizeof header);
    EXPECT_EQ(ReadHeader(nullptr, &header), 1u);
    EXPECT_EQ(header.version, 0u);
    EXPECT_EQ(header.tzOffset, -1);
}

TEST_F(EntryHeader, WithNeitherIsInvalid) {
    EXPECT_EQ(ReadHeader(nullptr, nullptr), 3u);
}

} // namespace
