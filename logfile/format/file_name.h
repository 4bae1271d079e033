// Names of log files: "<product>-<originator>-<host>-<yymmdd>-<sequence>.log" for product files,
// "<product>-<logset>-<yymmddhhmmss>.log" for log set files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>

namespace zantlog {

struct ProductFileName {
    uint32_t productId;
    uint32_t originatorId;
    uint32_t hostId;
    int32_t year;  // since 2000
    int32_t month; // 1 to 12
    int32_t day;
    uint32_t daySequence;
};

// The path: directory, exactly as given, and name. False when it does not fit.
[[nodiscard]] bool formatProductFilePath(char *path, size_t capacity, const char *directory,
                                         const ProductFileName &name);
[[nodiscard]] bool formatLogSetFilePath(char *path, size_t capacity, const char *directory,
                                        uint32_t productId, const char *logSet, const std::tm &localTime);

// "<product>-<originator>-..." (at least these two ids, neither 0). False when the name is not one of a
// product file.
[[nodiscard]] bool parseProductFileIds(const char *name, uint32_t *productId, uint32_t *originatorId);

// The whole name as the lookup of the latest file reads it ("%lu-%lu-%lu-%02d%02d%02d-%010lu."); false when a
// field is missing.
[[nodiscard]] bool parseProductFileName(const char *name, ProductFileName *out);

// Date and sequence of an existing file as the writer takes them back ("%d-%d-%d-%6s-%lu", then "%2d%2d%2d").
[[nodiscard]] bool parseContinuedFileName(const char *name, int32_t *year, int32_t *month, int32_t *day,
                                          uint32_t *daySequence);

struct LogSetFileName {
    uint32_t productId;
    char logSet[1025];
    char date[13]; // yymmddhhmmss; shorter when the name is
};

// "<id>-<logset>-<date>..." (id not 0, log set not empty). False when the name is not one of a log set file.
[[nodiscard]] bool parseLogSetFileName(const char *name, LogSetFileName *out);

// Seconds since 1970 of a "yymmddhhmmss" text, as local time with daylight saving forced off; -1 for null.
int64_t parseFileNameTime(const char *text);

} // namespace zantlog
