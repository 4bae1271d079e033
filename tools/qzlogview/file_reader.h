// The records of one file in the order of their times.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/qzlogview/log_file.h"

namespace zantlog::view {

// What records are ordered by; then by file, and by place in the file.
struct SortKey {
    uint64_t time;
    uint32_t process;
    uint32_t sequence;

    auto operator<=>(const SortKey &) const = default;
};

SortKey keyOf(const Record &record);

// A record with its line.
struct Entry {
    SortKey key{};
    Record record;
    std::string line;
};

using EntryPointer = std::unique_ptr<Entry>;

// A place of a file where something is wrong.
struct Damage {
    std::string path;
    uint64_t offset;
    std::string what;
    bool unreadable = false; // the file, or the rest of it
};

using DamageSink = std::function<void(const Damage &)>;
// Whether a record is wanted; an empty one wants every record.
using RecordFilter = std::function<bool(const Record &)>;

inline bool wants(const RecordFilter &filter, const Record &record) {
    return !filter || filter(record);
}

// What a line that is a record is ordered by, without all of the parsing; nothing where that takes it.
std::optional<SortKey> keyOfLine(const Source &source, std::string_view line);

// Takes records out of a file, the earliest first as far as a window of records reaches: processes that
// append to one file stamp their records before they wait for their turn, so neighbours may be out of order.
// What waits in the window is the line alone: a parsed record is large, and there are windows of many files.
class FileReader {
public:
    // Lines are parsed into the scratch entry, which many readers may share.
    FileReader(const Source &source, size_t window, const RecordFilter &filter, const DamageSink &damage,
               Entry *scratch)
        : source_(&source), windowSize_(window), filter_(&filter), damage_(&damage), scratch_(scratch) {}

    // False when the file cannot be opened (any more), which has been reported.
    [[nodiscard]] bool open();
    // Closes the file and remembers the place; the records in the window stay.
    void park();
    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    // What the next record is ordered by; null when there is none left.
    [[nodiscard]] const SortKey *front();
    // Takes the next record, which there is, into the scratch entry. False when its line is damaged behind
    // what it is ordered by, which has been reported.
    [[nodiscard]] bool take();

    [[nodiscard]] const Source &source() const { return *source_; }
    // Bytes that have been read.
    [[nodiscard]] uint64_t offset() const { return offset_; }

private:
    struct Waiting {
        SortKey key{};
        uint64_t offset = 0;
        std::string line;
    };
    using WaitingPointer = std::unique_ptr<Waiting>;

    void fill();
    void insert(const SortKey &key);
    bool readOne();
    std::optional<SortKey> wantedKey();

    const Source *source_;
    size_t windowSize_;
    const RecordFilter *filter_;
    const DamageSink *damage_;
    LogFile file_;
    uint64_t offset_ = 0;
    bool begun_ = false;
    bool atEnd_ = false;
    Entry *scratch_;
    std::deque<WaitingPointer> window_; // in order
    WaitingPointer spare_;              // its memory serves another line
};

} // namespace zantlog::view
