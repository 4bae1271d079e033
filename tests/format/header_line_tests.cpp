// The text of header lines.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "logfile/format/file_header.h"

namespace {

using namespace zantlog;

LogFileHeader headerOf(uint32_t version) {
    LogFileHeader header{};
    header.version = version;
    header.productId = 12;
    header.originatorId = 3;
    header.startTime = 1763249000;
    header.tzOffset = -3600;
    std::strcpy(header.text, "buildhost");
    return header;
}

std::string lineOf(const LogFileHeader &header) {
    char line[kHeaderLineBytes];
    size_t length = 0;
    return formatHeader(header, line, &length) ? std::string(line, length) : "refused";
}

TEST(HeaderLine, OfAProductFileIsTheDocumentedExample) {
    EXPECT_EQ(lineOf(headerOf(65543)), "$Header 65543,12,3,1763249000,-3600,buildhost\n");
}

TEST(HeaderLine, OfALogSetFileHasTimeZoneAndHostOnly) {
    EXPECT_EQ(lineOf(headerOf(65544)), "$Header 65544,-3600,buildhost\n");
}

TEST(HeaderLine, OfAnOlderVersionHasNoTimeZone) {
    EXPECT_EQ(lineOf(headerOf(65540)), "$Header 65540,12,3,1763249000,buildhost\n");
    EXPECT_EQ(lineOf(headerOf(65541)), "$Header 65541,12,3,1763249000,buildhost\n");
    EXPECT_EQ(lineOf(headerOf(65542)), "$Header 65542,12,3,1763249000,buildhost\n");
}

TEST(HeaderLine, OfOtherVersionsIsRefused) {
    for (const uint32_t version : {0u, 65539u, 65545u, 4294967295u}) {
        EXPECT_EQ(lineOf(headerOf(version)), "refused") << version;
    }
}

TEST(HeaderLine, HoldsTheLargestFields) {
    LogFileHeader header = headerOf(65543);
    header.productId = 4294967295u;
    header.originatorId = 4294967295u;
    header.startTime = INT64_MIN;
    header.tzOffset = INT32_MIN;
    const std::string host(511, 'h');
    std::strcpy(header.text, host.c_str());
    EXPECT_EQ(lineOf(header),
              "$Header 65543,4294967295,4294967295,-9223372036854775808,-2147483648," + host + "\n");
}

} // namespace
