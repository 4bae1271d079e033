#include "tools/qzlogview/verify.h"

#include <algorithm>
#include <tuple>

#include "tools/qzlogview/file_set.h"
#include "tools/qzlogview/sequence_check.h"
#include "zantlog/results.h"

namespace zantlog::view {

namespace {

// Returns the number of records.
uint64_t verifyLines(LogFile *file, const Source &source, SequenceCheck *numbers, const DamageSink &damage) {
    uint64_t records = 0;
    Record record;
    for (;;) {
        const LineState state = file->next();
        if (state == LineState::line) {
            if (parseLine(source, file->line(), file->lineOffset(), &record) != ZANTLOG_OK) {
                damage({source.path, file->lineOffset(), "the line is no record"});
                continue;
            }
            ++records;
            if (const auto problem = numbers->add(record)) {
                damage({source.path, file->lineOffset(), *problem});
            }
            continue;
        }
        if (state == LineState::failed) {
            damage({source.path, file->offset(), "the file cannot be read any further"});
        } else if (file->size() > file->offset()) {
            damage({source.path, file->offset(), "the last line has no end"});
        }
        return records;
    }
}

// In milliseconds. The first record does not tell it of every file: contexts that are written again after a
// rollover keep their times.
uint64_t beginOf(const Source &source) {
    constexpr uint64_t kMilliseconds = 1000;
    return source.header.startTime > 0 ? static_cast<uint64_t>(source.header.startTime) * kMilliseconds
                                       : source.firstTime;
}

} // namespace

uint64_t verifyFiles(const std::vector<std::string> &paths, const DamageSink &damage) {
    std::vector<Source> sources = readSources(paths, damage);
    std::stable_sort(sources.begin(), sources.end(), [](const Source &a, const Source &b) {
        return std::tuple(beginOf(a), a.path) < std::tuple(beginOf(b), b.path);
    });
    SequenceCheck numbers;
    uint64_t records = 0;
    for (const Source &source : sources) {
        LogFile file;
        LogFileHeader header;
        if (!file.open(source.path) || file.readHeader(&header) != ZANTLOG_OK) {
            damage({source.path, 0, "the file cannot be read"});
            continue;
        }
        records += verifyLines(&file, source, &numbers, damage);
    }
    return records;
}

} // namespace zantlog::view
