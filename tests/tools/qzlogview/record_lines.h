// Lines of log files for the tests of the viewer, and what is read from them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/test_folder.h"
#include "tools/qzlogview/file_reader.h"
#include "tools/qzlogview/log_file.h"
#include "zantlog/results.h"

namespace zantlog::view::test {

inline constexpr char kProductHeader[] = "$Header 65543,12,3,1763249000,-3600,buildhost\n";
inline constexpr char kLogSetHeader[] = "$Header 65544,-3600,buildhost\n";

inline std::string field(const std::string &text) {
    return std::to_string(text.size()) + ":" + text;
}

// An application message of product 12, originator 3, without its line end.
inline std::string recordLine(uint64_t time, uint32_t sequence, const std::string &text,
                              uint32_t process = 4242) {
    return "2,12,3,3," + std::to_string(sequence) + "," + std::to_string(time) + "," +
           std::to_string(process) + ",777,0:," + field(text) + ",0:,0,(0|)";
}

inline Source productSource() {
    Source source;
    source.path = "C:\\logs\\a.log";
    source.header.version = ZANTLOG_FORMAT_PRODUCT;
    source.header.productId = 12;
    source.header.originatorId = 3;
    source.header.tzOffset = -3600;
    std::string("buildhost").copy(source.header.text, sizeof source.header.text - 1);
    return source;
}

// The record of a line, at offset 46. The source outlives it.
inline Entry entryOf(const Source &source, const std::string &line) {
    Entry entry;
    EXPECT_EQ(parseLine(source, line, 46, &entry.record), ZANTLOG_OK) << line;
    entry.key = keyOf(entry.record);
    entry.line = line;
    return entry;
}

inline std::string textOf(const Entry &entry) {
    return std::string(entry.record.text());
}

// Damaged places, as they are reported: "<name> <offset> <what>".
struct DamageList {
    std::vector<std::string> places;
    DamageSink sink = [this](const Damage &damage) {
        const size_t slash = damage.path.find_last_of("\\/");
        places.push_back(damage.path.substr(slash + 1) + " " + std::to_string(damage.offset) + " " +
                         damage.what + (damage.unreadable ? " (unreadable)" : ""));
    };
};

inline const RecordFilter kEveryRecord;

// A file of the bytes in the folder, opened for its source.
inline Source fileOf(const zantlog::test::ScopedFolder &folder, const std::string &name,
                     const std::string &bytes) {
    zantlog::test::writeFileBytes(folder.file(name), bytes);
    Source source;
    source.path = folder.file(name);
    LogFile file;
    EXPECT_EQ(readSource(&file, &source), ZANTLOG_OK) << name;
    return source;
}

} // namespace zantlog::view::test
