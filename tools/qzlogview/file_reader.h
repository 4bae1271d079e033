// The records of one file in the order of their times.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

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
// Whether a record is wanted.
using RecordFilter = std::function<bool(const Record &)>;

// Takes records out of a file, the earliest first as far as a window of records reaches: processes that
// append to one file stamp their records before they wait for their turn, so neighbours may be out of order.
class FileReader {
public:
    FileReader(const Source &source, size_t window, const RecordFilter &filter, const DamageSink &damage)
        : source_(&source), windowSize_(window), filter_(&filter), damage_(&damage) {}

    // False when the file cannot be opened (any more), which has been reported.
    [[nodiscard]] bool open();
    // Closes the file and remembers the place; the records in the window stay.
    void park();
    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    // The next record, or null when there is none left.
    [[nodiscard]] const Entry *front();
    [[nodiscard]] EntryPointer take();
    // An entry that is done with: its memory serves another record.
    void reuse(EntryPointer entry) { spare_ = std::move(entry); }

    [[nodiscard]] const Source &source() const { return *source_; }
    // Bytes that have been read.
    [[nodiscard]] uint64_t offset() const { return offset_; }

private:
    void fill();
    void insert(EntryPointer entry);
    bool readOne();
    EntryPointer spare();

    const Source *source_;
    size_t windowSize_;
    const RecordFilter *filter_;
    const DamageSink *damage_;
    LogFile file_;
    uint64_t offset_ = 0;
    bool begun_ = false;
    bool atEnd_ = false;
    std::deque<EntryPointer> window_; // in order
    EntryPointer spare_;
};

} // namespace zantlog::view
