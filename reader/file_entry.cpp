#include "reader/file_entry.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "zantlog/reader.h"

namespace zantlog {

int64_t secondsOf(const zantLogFileTime &time) {
    constexpr uint64_t kEpoch = 116444736000000000; // 1970-01-01 in units of 100 ns since 1601-01-01
    constexpr int64_t kUnitsInSecond = 10000000;
    const uint64_t units = uint64_t{time.high} << 32 | time.low;
    return static_cast<int64_t>(units - kEpoch) / kUnitsInSecond;
}

} // namespace zantlog

LogFileEntry *alloc_file(zantLogListing *listing) {
    if (listing == nullptr) {
        return nullptr;
    }
    const zantLogFindData &data = listing->data;
    const size_t nameBytes = strnlen(data.name, sizeof data.name - 1) + 1;
    // The entry's own type has room for the shortest names only.
    const size_t size = std::max(sizeof(LogFileEntry), offsetof(LogFileEntry, name) + nameBytes);
    auto *entry = static_cast<LogFileEntry *>(zantLogMalloc(size));
    if (entry == nullptr) {
        return nullptr;
    }
    std::memset(entry, 0, size);
    std::memcpy(reinterpret_cast<char *>(entry) + offsetof(LogFileEntry, name), data.name, nameBytes - 1);
    entry->creationTime = zantlog::secondsOf(data.creation);
    return entry;
}
