// Any text is taken for the name of a log file; and names that the library makes are read back as they were.
#include <ctime>
#include <optional>
#include <vector>

#include "logfile/format/file_name.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"

namespace {

using namespace zantlog;

std::vector<std::string> piecesOf(const std::string &name) {
    std::vector<std::string> pieces;
    std::string piece;
    for (const char byte : name + '-') {
        if (byte != '-') {
            piece += byte;
        } else if (!piece.empty()) {
            pieces.push_back(piece);
            piece.clear();
        }
    }
    pieces.resize(3);
    return pieces;
}

bool isBlank(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

// Blanks, a sign, digits; in 32 bits, the largest number when the digits say more.
uint32_t leadingNumber(const std::string &text) {
    size_t at = 0;
    while (at < text.size() && isBlank(text[at])) {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        ++at;
    }
    uint64_t value = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        value = value * 10 + static_cast<uint64_t>(text[at] - '0');
        if (value > UINT32_MAX) {
            return UINT32_MAX;
        }
    }
    return static_cast<uint32_t>(negative ? 0 - value : value);
}

void readAnyName(const std::string &name) {
    const std::vector<std::string> pieces = piecesOf(name);
    uint32_t product = 1;
    uint32_t originator = 1;
    const bool isProduct = parseProductFileIds(name.c_str(), &product, &originator);
    fuzz::expectEqual(product, leadingNumber(pieces[0]), "product");
    fuzz::expectEqual(originator, leadingNumber(pieces[1]), "originator");
    fuzz::expectEqual(isProduct, product != 0 && originator != 0, "both ids are there");

    LogSetFileName logSet;
    const bool isLogSet = parseLogSetFileName(name.c_str(), &logSet);
    fuzz::expectEqual(logSet.productId, leadingNumber(pieces[0]), "product of a log set");
    fuzz::expectEqual(logSet.logSet, pieces[1].substr(0, 1024), "log set");
    fuzz::expectEqual(logSet.date, pieces[2].substr(0, 12), "date text");
    fuzz::expectEqual(isLogSet, product != 0 && !pieces[1].empty(), "id and log set are there");

    ProductFileName whole{};
    if (parseProductFileName(name.c_str(), &whole)) {
        fuzz::expect(whole.year >= -9 && whole.year <= 99 && whole.month >= -9 && whole.month <= 99 &&
                         whole.day >= -9 && whole.day <= 99,
                     "a date of two places each");
    }
    int32_t year = 0;
    int32_t month = 0;
    int32_t day = 0;
    uint32_t sequence = 0;
    if (parseContinuedFileName(name.c_str(), &year, &month, &day, &sequence)) {
        fuzz::expect(year >= -9 && year <= 99 && month >= -9 && month <= 99 && day >= -9 && day <= 99,
                     "a date of two places each");
    }
    fuzz::expect(parseFileNameTime(name.c_str()) >= -1, "a time, or none");
}

void readMadeName(fuzz::FuzzInput &input) {
    const ProductFileName made{.productId = input.number<uint32_t>(),
                               .originatorId = input.number<uint32_t>(),
                               .hostId = input.number<uint32_t>(),
                               .year = static_cast<int32_t>(input.below(100)),
                               .month = 1 + static_cast<int32_t>(input.below(12)),
                               .day = 1 + static_cast<int32_t>(input.below(31)),
                               .daySequence = input.number<uint32_t>()};
    char path[200];
    fuzz::expect(formatProductFilePath(path, sizeof path, "", made), "it has room");
    ProductFileName read{};
    fuzz::expect(parseProductFileName(path, &read), "a made name is one");
    fuzz::expectEqual(read.productId, made.productId, "product");
    fuzz::expectEqual(read.originatorId, made.originatorId, "originator");
    fuzz::expectEqual(read.hostId, made.hostId, "host");
    fuzz::expectEqual(read.year * 10000 + read.month * 100 + read.day,
                      made.year * 10000 + made.month * 100 + made.day, "date");
    fuzz::expectEqual(read.daySequence, made.daySequence, "sequence");
    const size_t capacity = input.byte();
    char cut[256];
    const bool fits = formatProductFilePath(cut, capacity, "", made);
    fuzz::expectEqual(fits, std::string(path).size() < capacity, "cut when it does not fit");
}

// A log set's name without a hyphen, and a time whose zone has no daylight saving.
void readMadeLogSetName(fuzz::FuzzInput &input) {
    std::string logSet = input.text();
    for (char &byte : logSet) {
        byte = byte == '-' ? '_' : byte;
    }
    const uint32_t product = input.number<uint32_t>();
    std::tm time{};
    time.tm_year = 100 + static_cast<int>(input.below(100));
    time.tm_mon = static_cast<int>(input.below(12));
    time.tm_mday = 1 + static_cast<int>(input.below(28));
    time.tm_hour = static_cast<int>(input.below(24));
    time.tm_min = static_cast<int>(input.below(60));
    time.tm_sec = static_cast<int>(input.below(60));
    if (logSet.empty() || product == 0) {
        return;
    }
    char path[400];
    fuzz::expect(formatLogSetFilePath(path, sizeof path, "", product, logSet.c_str(), time), "it has room");
    LogSetFileName read;
    fuzz::expect(parseLogSetFileName(path, &read), "a made name is one");
    fuzz::expectEqual(read.productId, product, "product");
    fuzz::expectEqual(read.logSet, logSet, "log set");
    const auto expected = static_cast<int64_t>(timegm(&time));
    fuzz::expectEqual(parseFileNameTime(read.date), expected, "time");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    if (input.below(4) == 0) {
        readMadeName(input);
        readMadeLogSetName(input);
    } else {
        const std::string rest = input.rest();
        readAnyName(rest.substr(0, rest.find('\0')));
    }
    return 0;
}
