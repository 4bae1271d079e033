// A record of a log file, as the parts of the viewer hand it on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zantlog/discovery_types.h"
#include "zantlog/message.h"

namespace zantlog::view {

// A log file: what its name and its header tell.
struct Source {
    std::string path; // UTF-8, as it is shown
    LogFileHeader header = {};
    std::string logSet;     // of a log set file; empty for a product file
    uint64_t firstTime = 0; // of its first record; 0 when it has none
    uint64_t size = 0;      // in bytes, when it was looked at
};

// Owns the parsed record and knows where it came from. Views and pointers that it gives live as long as it
// does.
class Record {
public:
    Record() = default;
    Record(const Record &) = delete;
    Record &operator=(const Record &) = delete;
    Record(Record &&other) noexcept;
    Record &operator=(Record &&other) noexcept;
    ~Record();

    const Source *source = nullptr; // outlives the record
    uint64_t offset = 0;            // of the line in the file, in bytes
    zantLogMsgRec fields = {};      // zantLogParseRecord() fills it

    uint32_t type() const { return fields.type; }
    std::string_view text() const;
    // Component, or subject of an audit message.
    std::string_view who() const;
    std::string_view contextToken() const;
    // The token that a context record gives a title to; empty for other types.
    std::string_view contextString() const;
    // Debug and diagnostic level, or severity; -1 for types that have neither.
    int32_t level() const;
};

// What consumes records: a printer, a counter, a report.
class RecordSink {
public:
    virtual ~RecordSink() = default;
    // False: no further record is wanted.
    virtual bool take(const Record &record) = 0;
    // After the last record. Output that waits for it is written now.
    virtual void finish() = 0;
};

// "debug", "diagnostic", "application", "context", "audit", "secure-audit"; "type N" for others.
std::string typeName(uint32_t type);
// "information", "warning", "error", "severe", "fatal" for 0 to 4; "severity N" for others.
std::string severityName(int32_t severity);

} // namespace zantlog::view
