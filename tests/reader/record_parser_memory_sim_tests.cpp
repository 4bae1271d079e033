// Taking records apart when memory is short, at each call for memory.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/sim/memory.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog;

bool isZero(const zantLogMsgRec &rec) {
    static const zantLogMsgRec kZero = {};
    return std::memcmp(&rec, &kZero, sizeof kZero) == 0;
}

class RecordParserMemory : public testing::TestWithParam<const char *> {
protected:
    RecordParserMemory() { sim::memory() = {}; }
    ~RecordParserMemory() override {
        EXPECT_EQ(sim::memory().blocks, 0);
        sim::memory() = {};
    }
};

TEST_P(RecordParserMemory, IsOutOfMemoryAndKeepsNothing) {
    const std::string line = std::string(GetParam());
    LogFileHeader header = {};
    header.version = 65543;
    uint64_t failures = 0;
    for (uint64_t call = 1;; ++call) {
        sim::memory().firstFailure = sim::memory().allocations + call;
        const uint64_t before = sim::memory().failures;
        zantLogMsgRec rec;
        const uint32_t result = zantLogParseRecord(&header, line.data(), line.size(), &rec);
        if (sim::memory().failures == before) {
            EXPECT_EQ(result, 0U);
            zantLogFreeMsg(&rec);
            break;
        }
        ++failures;
        EXPECT_EQ(result, 4U) << call;
        EXPECT_TRUE(isZero(rec));
        EXPECT_EQ(sim::memory().blocks, 0);
    }
    EXPECT_GE(failures, 2U);
}

INSTANTIATE_TEST_SUITE_P(Records, RecordParserMemory,
                         testing::Values("0,12,3,4,57,1,2,3,3:tok,4:text,3:who,1",
                                         "1,12,3,4,57,1,2,3,3:tok,4:text,3:who,1,(2|A1:x|S1:y|)",
                                         "3,12,3,4,57,1,2,3,3:tok,4:text,3:ctx,(2|(1|(1|u32:1|),),X1:y|)"));

TEST(RecordParserMemoryUse, ARecordWithoutTextsTakesNone) {
    sim::memory() = {};
    const std::string line = "2,12,3,4,57,1,2,3,0:,0:,0:,1,(0|)";
    LogFileHeader header = {};
    header.version = 65543;
    zantLogMsgRec rec;
    EXPECT_EQ(zantLogParseRecord(&header, line.data(), line.size(), &rec), 0U);
    EXPECT_EQ(sim::memory().allocations, 0U);
    zantLogFreeMsg(&rec);
}

} // namespace
