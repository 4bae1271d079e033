// Numbers of records by what they have in common.
#include "tools/qzlogview/count.h"

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;

namespace {

constexpr uint64_t kTime = 1763249000000; // 2025-11-15 23:23:20

class Counting : public testing::Test {
protected:
    // Of records of product 12; "rest" begins with the context token.
    void add(RecordCounter *counter, int type, uint64_t time, const std::string &rest, int originator = 3) {
        const Entry entry = entryOf(source_, std::to_string(type) + ",12," + std::to_string(originator) +
                                                 ",3,1," + std::to_string(time) + ",1,2," + rest);
        counter->add(entry.record, &look_);
    }

    Source source_ = productSource();
    Look look_{kUtc, nullptr};
};

} // namespace

TEST_F(Counting, AllTogether) {
    RecordCounter counter("");
    EXPECT_EQ(counter.text(0), "0\n");
    add(&counter, 2, kTime, "0:,1:x,0:,0,(0|)");
    add(&counter, 2, kTime, "0:,1:x,0:,0,(0|)");
    EXPECT_EQ(counter.text(40), "2\n");
    EXPECT_EQ(counter.total(), 2u);
}

TEST_F(Counting, TheMostFrequentFirst) {
    RecordCounter counter("who");
    for (int i = 0; i < 12; ++i) {
        add(&counter, 2, kTime, "0:,1:x,2:db,0,(0|)");
    }
    add(&counter, 2, kTime, "0:,1:x,4:scan,0,(0|)");
    add(&counter, 2, kTime, "0:,1:x,4:back,0,(0|)");
    add(&counter, 2, kTime, "0:,1:x,0:,0,(0|)");
    EXPECT_EQ(counter.text(0), "12  db\n 1  -\n 1  back\n 1  scan\n");
}

TEST_F(Counting, BySeverityAndType) {
    RecordCounter severities("severity");
    RecordCounter types("type");
    for (RecordCounter *counter : {&severities, &types}) {
        add(counter, 2, kTime, "0:,1:x,0:,2,(0|)");
        add(counter, 2, kTime, "0:,1:x,0:,2,(0|)");
        add(counter, 2, kTime, "0:,1:x,0:,4,(0|)");
        add(counter, 0, kTime, "0:,1:x,0:,9");
        add(counter, 4, kTime, "0:,1:x,3:amy,0,(0|)");
    }
    EXPECT_EQ(severities.text(0), "2  error\n1  audit\n1  debug\n1  fatal\n");
    EXPECT_EQ(types.text(0), "3  application\n1  audit\n1  debug\n");
}

TEST_F(Counting, ByOriginator) {
    RecordCounter counter("originator");
    add(&counter, 2, kTime, "0:,1:x,0:,2,(0|)", 4);
    add(&counter, 2, kTime, "0:,1:x,0:,2,(0|)", 4);
    add(&counter, 2, kTime, "0:,1:x,0:,2,(0|)", 3);
    EXPECT_EQ(counter.text(0), "2  12/4\n1  12/3\n");
}

TEST_F(Counting, TimesStandInTheirOrder) {
    RecordCounter hours("hour");
    RecordCounter minutes("minute");
    for (RecordCounter *counter : {&hours, &minutes}) {
        add(counter, 2, kTime, "0:,1:x,0:,2,(0|)");
        add(counter, 2, kTime + 3600000, "0:,1:x,0:,2,(0|)");
        add(counter, 2, kTime + 3660000, "0:,1:x,0:,2,(0|)");
    }
    EXPECT_EQ(hours.text(0), "1  2025-11-15 23:00\n2  2025-11-16 00:00\n");
    EXPECT_EQ(minutes.text(0), "1  2025-11-15 23:23\n1  2025-11-16 00:23\n1  2025-11-16 00:24\n");
}

TEST_F(Counting, BarsAreInProportionAndNeverEmpty) {
    RecordCounter counter("who");
    for (int i = 0; i < 20; ++i) {
        add(&counter, 2, kTime, "0:,1:x,1:a,0,(0|)");
    }
    for (int i = 0; i < 10; ++i) {
        add(&counter, 2, kTime, "0:,1:x,1:b,0,(0|)");
    }
    add(&counter, 2, kTime, "0:,1:x,1:c,0,(0|)");
    const std::string block = "\xE2\x96\x88";
    EXPECT_EQ(counter.text(4), "20  a  " + block + block + block + block + "\n10  b  " + block + block +
                                   "\n 1  c  " + block + "\n");
}

TEST_F(Counting, GroupsAreShownSafely) {
    RecordCounter counter("who");
    add(&counter, 2, kTime, "0:,1:x,3:a\n\x1b,0,(0|)");
    EXPECT_EQ(counter.text(0), "1  a\\n\\x1b\n");
}

TEST(CountingBy, KnowsWhatItCanCountBy) {
    for (const char *known : {"", "who", "type", "severity", "originator", "hour", "minute"}) {
        EXPECT_TRUE(RecordCounter::isKnown(known)) << known;
    }
    EXPECT_FALSE(RecordCounter::isKnown("day"));
    EXPECT_FALSE(RecordCounter::isKnown("WHO"));
}
