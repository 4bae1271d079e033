// What taking a record apart costs, next to finding the same record's fields with a hand-written scan that
// keeps nothing. Runs natively and under Wine.
#include <cstdlib>
#include <string>
#include <string_view>

#include "bench/timing.h"
#include "zantlog/reader.h"

namespace {

const std::string kPlain = "2,12,3,3,57,1763249000123,4242,777,0:,43:2025-06-24 14:36:25 startup archives "
                           "unpack,0:,1,(0|)";
const std::string kWithWho = "1,12,3,3,57,1763249000123,4242,777,0:,12:disk failure,7:scanner,2,(0|)";
const std::string kWithArguments =
    "1,12,3,3,57,1763249000123,4242,777,0:,12:disk failure,7:scanner,2,(2|u32:5|S2:C:|)";

uint64_t parse(const std::string &line) {
    LogFileHeader header = {};
    header.version = ZANTLOG_FORMAT_PRODUCT;
    zantLogMsgRec rec;
    if (zantLogParseRecord(&header, line.data(), line.size(), &rec) != 0) {
        std::fprintf(stderr, "not a record: %s\n", line.c_str());
        std::exit(1);
    }
    const uint64_t kept = rec.timestamp;
    zantLogFreeMsg(&rec);
    return kept;
}

// The floor: the eight numbers and three texts of the line, checked and left where they are.
uint64_t scan(std::string_view line) {
    uint64_t sum = 0;
    const char *at = line.data();
    const char *const end = at + line.size();
    const auto number = [&](char closing) {
        uint64_t value = 0;
        for (; at < end && *at >= '0' && *at <= '9'; ++at)
            value = value * 10 + static_cast<uint64_t>(*at - '0');
        if (at >= end || *at != closing)
            std::exit(1);
        ++at;
        return value;
    };
    for (int field = 0; field < 8; ++field)
        sum += number(',');
    for (int text = 0; text < 3; ++text)
        at += number(':') + 1;
    return sum + number(',');
}

template <typename Work> bench::Contender repeat(const char *name, const std::string &line, Work work) {
    return bench::Contender(name, [&line, work](uint32_t calls) {
        for (uint32_t call = 0; call < calls; ++call) {
            volatile uint64_t kept = work(line);
            static_cast<void>(kept);
        }
    });
}

} // namespace

int main() {
    std::vector<bench::Contender> contenders;
    contenders.push_back(repeat("fields found, nothing kept", kPlain, scan));
    contenders.push_back(repeat("zantLogParseRecord, one text", kPlain, parse));
    contenders.push_back(repeat("zantLogParseRecord, two texts", kWithWho, parse));
    contenders.push_back(repeat("zantLogParseRecord, two texts, two arguments", kWithArguments, parse));
    bench::race(contenders, 41, 20000);
    bench::print("taking a record apart and freeing it", contenders);
    return 0;
}
