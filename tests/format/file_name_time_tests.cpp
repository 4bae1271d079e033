// Dates and times in names of log set files, and the offset of the local time zone. A zone is chosen before a
// process starts: Windows' runtime does not take up all of a zone's rules later.
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "logfile/format/file_name.h"
#include "tests/support/child_process.h"
#include "tests/support/test_folder.h"
#include "zantlog/log_file.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

constexpr int kAsExpected = 0;
constexpr int kOtherwise = 1;

int compare(int64_t actual, const std::string &expected) {
    if (std::to_string(actual) == expected) {
        return kAsExpected;
    }
    std::fprintf(stderr, "%s, not %s\n", std::to_string(actual).c_str(), expected.c_str());
    return kOtherwise;
}

ZANTLOG_CHILD(parsesFileNameTime) {
    return compare(parseFileNameTime(arguments[0].c_str()), arguments[1]);
}

ZANTLOG_CHILD(hasZoneOffset) {
    return compare(getLocalTZOffsetFromGMT(), arguments[0]);
}

class InZone {
public:
    explicit InZone(const char *zone) { setEnvironment("TZ", zone); }
    ~InZone() { setEnvironment("TZ", before_ ? before_->c_str() : nullptr); }
    InZone(const InZone &) = delete;
    InZone &operator=(const InZone &) = delete;

private:
    const std::optional<std::string> before_ = environmentText("TZ");
};

void expectTime(const char *text, int64_t expected) {
    EXPECT_EQ(runChild("parsesFileNameTime", {text, std::to_string(expected)}), kAsExpected) << text;
}

TEST(FileNameTime, IsLocalTime) {
    {
        const InZone zone("UTC0");
        expectTime("000101000000", 946684800);
        expectTime("251115093015", 1763199015);
    }
    const InZone zone("CET-1CEST");
    expectTime("251115103015", 1763199015);
    expectTime("991231235959", 4102441199);
}

TEST(FileNameTime, OfSummerIsAnHourOff) {
    const InZone zone("CET-1CEST");
    expectTime("250715120000", 1752577200); // 11:00 UTC, where the clocks showed 12:00 at 10:00 UTC
}

TEST(FileNameTime, EndsWithTheSeconds) {
    const InZone zone("UTC0");
    expectTime("251115093015.log", 1763199015);
    expectTime("25111509301599", 1763199015);
}

TEST(FileNameTime, WithoutATextIsNone) {
    EXPECT_EQ(parseFileNameTime(nullptr), -1);
}

TEST(FileNameTime, WithAMissingPartIsNone) {
    for (const char *text :
         {"", "2", "25", "2511", "2511150930", "25xx15093015", "2511150930.log", "ab1115093015"}) {
        EXPECT_EQ(parseFileNameTime(text), -1) << text;
    }
}

TEST(ZoneOffset, IsUtcMinusLocalTimeInSeconds) {
    for (const auto &[name, offset] : {std::pair{"UTC0", "0"}, std::pair{"CET-1", "-3600"},
                                       std::pair{"IST-5:30", "-19800"}, std::pair{"EST5", "18000"}}) {
        const InZone zone(name);
        EXPECT_EQ(runChild("hasZoneOffset", {offset}), kAsExpected) << name;
    }
}

} // namespace
