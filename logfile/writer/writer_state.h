// The state of one open log file, shared by all handles that write it.
#pragma once

#include "logfile/writer/writer.h"
#include "zantlog/results.h"
#include "zantlog/serialization.h"

namespace zantlog {

// Year since 2000, month 1 to 12; all zero before the first name.
struct FileDay {
    int32_t year;
    int32_t month;
    int32_t day;

    bool operator==(const FileDay &) const = default;
};

} // namespace zantlog

struct zantLogFile {
    char directory[ZANTLOG_TEXT_FIELD]; // prefix of every name
    char *fileSecurity;                 // security descriptor text of new files, owned; may be null
    uint32_t maximumSizeKB;             // 0: no limit
    uint32_t rolloverMode;
    uint32_t recycle;
    int64_t period;    // seconds
    int64_t timeOfDay; // seconds after local midnight
    uint32_t productId;
    uint32_t originatorId;
    uint32_t version;         // of the current file's header; 0 when it has none
    zantlog::FileDay fileDay; // day in the current product file's name
    uint32_t daySequence;     // number in the current product file's name
    int64_t nextRollover;     // seconds since 1970
    int64_t startTime;        // of the current file, seconds since 1970; 0 until a first file has been opened
    int64_t lastReopen;       // milliseconds since 1970; 0 until a first file has been opened
    zantLogOsFile file;
    zantLogHandle *handles; // most recent first, linked by `next`
    uint32_t isLogSet;
    char *logSetName; // owned; null for product files
};

namespace zantlog {

// Closes the file and frees all that the state owns, and the state. Null is allowed.
void freeWriterState(zantLogFile *state);

// A state whose first file has not been opened yet.
inline bool isFresh(const zantLogFile &state) {
    return state.startTime == 0;
}

inline bool isLogSetFile(const zantLogFile &state) {
    return state.isLogSet == 1;
}

// The version of header and records that the state writes.
inline uint32_t writtenVersion(const zantLogFile &state) {
    return isLogSetFile(state) ? ZANTLOG_FORMAT_LOGSET : ZANTLOG_FORMAT_PRODUCT;
}

// Whether readers find the header that they expect before the state's records.
inline bool isHeaderCurrent(const zantLogFile &state) {
    return state.version == writtenVersion(state);
}

} // namespace zantlog
