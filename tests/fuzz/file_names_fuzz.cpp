// Names of log files: any bytes through every parser, against a model; names that the library makes out of
// the same bytes, there and back; and entries of listings.
#include <cstring>

#include "logfile/format/file_name.h"
#include "tests/fuzz/operations.h"
#include "tests/fuzz/scan_model.h"
#include "zantlog/discovery.h"
#include "zantlog/message.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog;
using namespace zantlog::fuzz;

// The pieces between hyphens, none of them empty.
std::string piece(const std::string &name, size_t index) {
    for (const std::string &part : cut(name, '-')) {
        if (!part.empty() && index-- == 0) {
            return part;
        }
    }
    return "";
}

void checkIds(const std::string &name) {
    const uint32_t product = leadingNumber(piece(name, 0));
    const uint32_t originator = leadingNumber(piece(name, 1));
    uint32_t gotProduct = 0;
    uint32_t gotOriginator = 0;
    const bool parsed = parseProductFileIds(name.c_str(), &gotProduct, &gotOriginator);
    require(parsed == (product != 0 && originator != 0), "ids of " + shown(name) + " are there or not");
    if (parsed) {
        requireNumber(product, gotProduct, "product id");
        requireNumber(originator, gotOriginator, "originator id");
    }
}

void checkLogSet(const std::string &name) {
    const uint32_t product = leadingNumber(piece(name, 0));
    const std::string logSet = piece(name, 1).substr(0, 1024);
    LogSetFileName got;
    const bool parsed = parseLogSetFileName(name.c_str(), &got);
    require(parsed == (product != 0 && !logSet.empty()), "name of a log set or not: " + shown(name));
    if (parsed) {
        requireNumber(product, got.productId, "product id");
        requireText(logSet, got.logSet, "log set");
        requireText(piece(name, 2).substr(0, 12), got.date, "date text");
    }
}

void checkWholeName(const std::string &name) {
    Rest rest{name};
    ProductFileName expected{};
    expected.productId = rest.unsigned32();
    rest.literal('-');
    expected.originatorId = rest.unsigned32();
    rest.literal('-');
    expected.hostId = rest.unsigned32();
    rest.literal('-');
    expected.year = rest.signed32(2);
    expected.month = rest.signed32(2);
    expected.day = rest.signed32(2);
    rest.literal('-');
    expected.daySequence = rest.unsigned32(10);
    ProductFileName got{};
    require(parseProductFileName(name.c_str(), &got) == !rest.failed, "whole name or not: " + shown(name));
    if (!rest.failed) {
        require(std::memcmp(&expected, &got, sizeof got) == 0, "fields of " + shown(name));
    }
}

void checkContinued(const std::string &name) {
    Rest rest{name};
    for (int id = 0; id < 3; ++id) {
        rest.signed32();
        rest.literal('-');
    }
    Rest date{rest.word(6)};
    rest.literal('-');
    const uint32_t sequence = rest.unsigned32();
    int32_t expected[3];
    for (int32_t &part : expected) {
        part = date.signed32(2);
    }
    const bool valid = !rest.failed && !date.failed;
    int32_t got[3] = {-7, -7, -7};
    uint32_t gotSequence = 7;
    require(parseContinuedFileName(name.c_str(), &got[0], &got[1], &got[2], &gotSequence) == valid,
            "name to go on from or not: " + shown(name));
    for (int i = 0; i < 3; ++i) {
        requireNumber(valid ? expected[i] : -7, got[i], "part of the date");
    }
    requireNumber(valid ? sequence : 7, gotSequence, "sequence");
}

// Days since 1970-01-01, counted year by year and month by month.
int64_t daysSince1970(int64_t year, int64_t month) {
    const auto isLeap = [](int64_t of) { return (of % 4 == 0 && of % 100 != 0) || of % 400 == 0; };
    int64_t days = 0;
    for (int64_t at = 1970; at < year; ++at) {
        days += isLeap(at) ? 366 : 365;
    }
    constexpr int64_t kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int64_t at = 0; at < month; ++at) {
        days += kLengths[at] + (at == 1 && isLeap(year) ? 1 : 0);
    }
    return days;
}

// Seconds of the text, an hour east of Greenwich, summer time or not.
int64_t timeOf(const std::string &text) {
    Rest rest{text};
    const std::string twoDigits = rest.word(2);
    Rest yearRest{"20" + twoDigits};
    int64_t year = yearRest.signed32(4);
    int64_t parts[5]; // month, day, hour, minute, second
    for (int64_t &part : parts) {
        part = rest.signed32(2);
    }
    if (rest.failed) {
        return -1;
    }
    int64_t month = parts[0] - 1;
    for (; month < 0; month += 12) {
        --year;
    }
    for (; month > 11; month -= 12) {
        ++year;
    }
    if (year < 1970) {
        return -1;
    }
    const int64_t days = daysSince1970(year, month) + parts[1] - 1;
    return ((days * 24 + parts[2]) * 60 + parts[3]) * 60 + parts[4] - 3600;
}

void checkTime(const std::string &text) {
    requireNumber(timeOf(text), parseFileNameTime(text.c_str()), "time of " + shown(text));
}

// The first bytes as numbers, the others as directory and log set.
void checkThereAndBack(const uint8_t *data, size_t size) {
    uint32_t numbers[4] = {};
    std::memcpy(numbers, data, std::min(size, sizeof numbers));
    const ProductFileName name = {numbers[0],
                                  numbers[1],
                                  numbers[2],
                                  int32_t(size % 100),
                                  int32_t(size % 12) + 1,
                                  int32_t(size % 28) + 1,
                                  numbers[3]};
    char path[128];
    require(formatProductFilePath(path, sizeof path, "", name), "a name fits");
    ProductFileName back{};
    require(parseProductFileName(path, &back), "a name of ours is read");
    require(std::memcmp(&name, &back, sizeof back) == 0, "a name is read as it was made");
    uint32_t product = 0;
    uint32_t originator = 0;
    const bool hasIds = name.productId != 0 && name.originatorId != 0;
    require(parseProductFileIds(path, &product, &originator) == hasIds, "ids of a name of ours");

    const std::string logSet = piece(std::string(data, data + size).c_str(), 0).substr(0, 1000);
    std::tm time{};
    time.tm_year = 100 + static_cast<int>(numbers[1] % 100);
    time.tm_mon = static_cast<int>(numbers[2] % 12);
    time.tm_mday = 1 + static_cast<int>(numbers[3] % 28);
    time.tm_hour = static_cast<int>(numbers[3] % 24);
    char setPath[1100];
    require(formatLogSetFilePath(setPath, sizeof setPath, "", 12, logSet.c_str(), time), "a name fits");
    LogSetFileName set;
    require(parseLogSetFileName(setPath, &set), "a log set's name of ours is read");
    if (!logSet.empty()) {
        requireText(logSet, set.logSet, "log set");
        const int64_t days = daysSince1970(1900 + time.tm_year, time.tm_mon) + time.tm_mday - 1;
        requireNumber((days * 24 + time.tm_hour - 1) * 3600, parseFileNameTime(set.date),
                      "time there and back");
    }
}

// A listing's record comes from the system: its name may lack a terminator, its times may be anything.
void checkEntry(const uint8_t *data, size_t size) {
    zantLogListing listing = {};
    std::memset(listing.data.name, 'x', sizeof listing.data.name);
    std::memcpy(listing.data.name, data, std::min(size, sizeof listing.data.name));
    std::memcpy(&listing.data.creation, data, std::min(size, sizeof listing.data.creation));
    const std::string name(listing.data.name, strnlen(listing.data.name, sizeof listing.data.name - 1));
    LogFileEntry *entry = alloc_file(&listing);
    require(entry != nullptr, "an entry is made");
    requireText(name, reinterpret_cast<const char *>(entry) + offsetof(LogFileEntry, name),
                "name of the entry");
    const auto units = static_cast<__int128>(listing.data.creation.high) << 32 | listing.data.creation.low;
    if (units <= INT64_MAX) {
        requireNumber(static_cast<int64_t>((units - INT64_C(116444736000000000)) / 10000000),
                      entry->creationTime, "creation time");
    }
    zantLogFree(entry);
}

// A file of this name, if it can be one, is found in its folder.
void checkListing(const std::string &name) {
    if (name.empty() || name.size() > 200 || name.find_first_of("<>:\"/\\|?*") != std::string::npos) {
        return;
    }
    for (const char character : name) {
        if (static_cast<unsigned char>(character) < 0x20) {
            return;
        }
    }
    const std::string file = name + ".log";
    const std::string folder = "C:\\Fuzz\\";
    sim::makeFolders("C:\\Fuzz");
    sim::putFile(folder + "other.txt", "");
    require(sim::putFile(folder + file, "x"), "a file named " + shown(file));
    zantLogListing listing = {};
    requireNumber(0, zantLogOsListLogFilesBegin(&listing, folder.c_str()), "listing");
    requireText(file, zantLogOsListLogFilesName(&listing), "listed name");
    zantLogListCopy copy = {};
    CopyLogOsListLogFiles(&listing, &copy);
    requireNumber(1, static_cast<int64_t>(copy.size), "listed size");
    requireNumber(1, zantLogOsListLogFilesNext(&listing), "end of the listing");
    zantLogOsListLogFilesEnd(&listing);
    sim::removeAll("C:\\Fuzz");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const bool zoneIsSet = (sim::setEnvironmentValue("TZ", "CET-1CEST"), true);
    const sim::Census before = sim::takeCensus();
    const std::string name = std::string(data, data + size).c_str();
    checkIds(name);
    checkLogSet(name);
    checkWholeName(name);
    checkContinued(name);
    checkTime(name);
    checkTime(piece(name, 2));
    checkThereAndBack(data, size);
    checkEntry(data, size);
    checkListing(name);
    requireText("", sim::leftSince(before), "what was left behind");
    return zoneIsSet ? 0 : -1;
}
