// The log file of a product or log set that was begun last.
#include <cstring>

#include "base/bounded_text.h"
#include "logfile/format/file_name.h"
#include "logfile/os/os_clock.h"
#include "logfile/writer/writer_state.h"
#include "zantlog/discovery.h"
#include "zantlog/reader.h"

namespace zantlog {

namespace {

constexpr int32_t kFound = 1;
constexpr int32_t kNotFound = 0;
constexpr size_t kDateDigits = 12;

// The best name of a listing so far.
struct Best {
    bool found = false;
    zantLogListing listing{}; // as it stood at that name
    int64_t time = 0;
    uint32_t daySequence = 0;
};

// What a name means for the search.
enum class Verdict { Better, NoBetter, EndOfSearch };

// A directory's names, until the listing or the search ends. False when the search ended it.
template <typename Judge> bool searchDirectory(const char *directory, Best *best, Judge judge) {
    zantLogListing listing{};
    if (zantLogOsListLogFilesBegin(&listing, directory) != 0) {
        return true;
    }
    bool ended = false;
    do {
        const Verdict verdict = judge(zantLogOsListLogFilesName(&listing), best);
        if (verdict == Verdict::Better) {
            best->found = true;
            best->listing = listing;
        }
        ended = verdict == Verdict::EndOfSearch;
    } while (!ended && zantLogOsListLogFilesNext(&listing) == 0);
    (void)zantLogOsListLogFilesEnd(&listing);
    return !ended;
}

bool beginsWith(const char *name, const char *prefix) {
    return std::strncmp(name, prefix, std::strlen(prefix)) == 0;
}

int64_t midnightOf(const ProductFileName &name) {
    std::tm day{};
    day.tm_year = name.year + 100;
    day.tm_mon = name.month - 1;
    day.tm_mday = name.day;
    day.tm_isdst = -1;
    return os::fromLocalTime(&day);
}

Verdict judgeProductFile(const char *name, const char *prefix, Best *best) {
    ProductFileName fields{};
    if (!beginsWith(name, prefix) || !parseProductFileName(name, &fields)) {
        return Verdict::NoBetter;
    }
    const int64_t day = midnightOf(fields);
    if (best->found && (day < best->time || (day == best->time && fields.daySequence <= best->daySequence))) {
        return Verdict::NoBetter;
    }
    best->time = day;
    best->daySequence = fields.daySequence;
    return Verdict::Better;
}

bool isLogSetDate(const char *text) {
    for (size_t i = 0; i < kDateDigits; ++i) {
        if (text[i] < '0' || text[i] > '9') {
            return false;
        }
    }
    return true;
}

// Kept: one name of the log set without a date ends the search with nothing found.
Verdict judgeLogSetFile(const char *name, const char *prefix, Best *best) {
    if (!beginsWith(name, prefix)) {
        return Verdict::NoBetter;
    }
    LogSetFileName fields{};
    // The date stands right behind the prefix: a further hyphen would shift it for the writer.
    if (!parseLogSetFileName(name, &fields) || !isLogSetDate(fields.date) ||
        !beginsWith(name + std::strlen(prefix), fields.date)) {
        return Verdict::EndOfSearch;
    }
    const int64_t time = parseFileNameTime(fields.date);
    if (best->found && time <= best->time) {
        return Verdict::NoBetter;
    }
    best->time = time;
    return Verdict::Better;
}

} // namespace

} // namespace zantlog

extern "C" int32_t zantLogFindLatestLog(zantLogFile *file, uint32_t productId, uint32_t originatorId,
                                        uint64_t /*reserved*/, int64_t /*now*/, LogFileEntry **out) {
    using namespace zantlog;
    if (file == nullptr || out == nullptr) {
        return kNotFound;
    }
    *out = nullptr;
    char prefix[64];
    BoundedText(prefix)
        .number(productId)
        .text("-")
        .number(originatorId)
        .text("-")
        .number(zantLogHostId())
        .text("-");

    Best best;
    (void)searchDirectory(file->directory, &best, [&prefix](const char *name, Best *soFar) {
        return judgeProductFile(name, prefix, soFar);
    });
    if (best.found) {
        *out = alloc_file(&best.listing);
    }
    return *out != nullptr ? kFound : kNotFound;
}

extern "C" int32_t zantLogFindLatestLogSL(zantLogFile *file, uint32_t productId, const char *logSet,
                                          uint64_t /*reserved*/, int64_t /*now*/, LogFileEntry **out) {
    using namespace zantlog;
    if (file == nullptr || logSet == nullptr || out == nullptr) {
        return kNotFound;
    }
    *out = nullptr;
    char prefix[ZANTLOG_TEXT_FIELD];
    BoundedText text(prefix);
    text.number(productId).text("-").text(logSet).text("-");
    if (text.cut()) {
        return kNotFound;
    }
    Best best;
    const bool complete = searchDirectory(file->directory, &best, [&prefix](const char *name, Best *soFar) {
        return judgeLogSetFile(name, prefix, soFar);
    });
    if (complete && best.found) {
        *out = alloc_file(&best.listing);
    }
    if (*out == nullptr) {
        return kNotFound;
    }
    (*out)->creationTime = best.time;
    return kFound;
}
