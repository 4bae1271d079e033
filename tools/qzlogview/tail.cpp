#include "tools/qzlogview/tail.h"

#include <algorithm>
#include <tuple>

#include "zantlog/results.h"

namespace zantlog::view {

namespace {

constexpr uint64_t kFirstChunk = 65536;

// Sources stand in one array, in the order of the files.
bool earlier(const EntryPointer &a, const EntryPointer &b) {
    return std::tuple(a->key, a->record.source, a->record.offset) <
           std::tuple(b->key, b->record.source, b->record.offset);
}

// The latest records of all that are added; the earliest of them goes when there are more than are wanted.
class Latest {
public:
    explicit Latest(size_t count) : count_(count) {}

    void add(EntryPointer entry) {
        if (count_ == 0 || (full() && earlier(entry, entries_.front()))) {
            return;
        }
        entries_.push_back(std::move(entry));
        std::push_heap(entries_.begin(), entries_.end(), later);
        if (entries_.size() > count_) {
            std::pop_heap(entries_.begin(), entries_.end(), later);
            entries_.pop_back();
        }
    }
    [[nodiscard]] bool full() const { return entries_.size() >= count_; }
    [[nodiscard]] std::vector<EntryPointer> inOrder() {
        std::sort(entries_.begin(), entries_.end(), earlier);
        return std::move(entries_);
    }

private:
    static bool later(const EntryPointer &a, const EntryPointer &b) { return earlier(b, a); }

    size_t count_;
    std::vector<EntryPointer> entries_; // a heap, the earliest in front
};

// Reads the lines from here that begin before the end of a part. Returns how many were wanted.
size_t readPart(LogFile *file, const Source &source, uint64_t end, const RecordFilter &filter,
                const DamageSink &damage, Latest *latest) {
    size_t wanted = 0;
    while (file->offset() < end && file->next() == LineState::line) {
        auto entry = std::make_unique<Entry>();
        if (parseLine(source, file->line(), file->lineOffset(), &entry->record) != ZANTLOG_OK) {
            damage({source.path, file->lineOffset(), "the line is no record"});
        } else if (wants(filter, entry->record)) {
            entry->key = keyOf(entry->record);
            entry->line.assign(file->line());
            latest->add(std::move(entry));
            ++wanted;
        }
    }
    return wanted;
}

// From the end backwards, in parts that grow, until there is enough of this file.
uint64_t readFromEnd(const Source &source, size_t count, const RecordFilter &filter, const DamageSink &damage,
                     Latest *latest) {
    LogFile file;
    LogFileHeader header;
    if (!file.open(source.path) || file.readHeader(&header) != ZANTLOG_OK) {
        damage({source.path, 0, "the file cannot be read", true});
        return 0;
    }
    const uint64_t first = file.offset(); // behind the header
    uint64_t end = std::max(file.size(), first);
    uint64_t wholeEnd = first;
    uint64_t chunk = kFirstChunk;
    size_t found = 0;
    // Some more than are wanted: neighbours may be out of order.
    constexpr size_t kOutOfOrder = 64;
    while (end > first && found < count + kOutOfOrder) {
        const uint64_t begin = end - first > chunk ? end - chunk : first;
        chunk *= 2;
        // A part begins in the middle of a line, as a rule: that line belongs to the part before.
        const bool whole =
            begin == first ? file.seek(first) : file.seek(begin - 1) && file.next() == LineState::line;
        if (!whole) {
            end = begin; // where no line ends any more
            continue;
        }
        const uint64_t partBegin = file.offset();
        found += readPart(&file, source, end, filter, damage, latest);
        wholeEnd = std::max(wholeEnd, file.offset());
        end = std::min(partBegin, end);
    }
    return wholeEnd;
}

} // namespace

std::vector<EntryPointer> lastRecords(const std::vector<Source> &sources, size_t count,
                                      const RecordFilter &filter, const DamageSink &damage,
                                      std::vector<uint64_t> *ends) {
    Latest latest(count);
    for (const Source &source : sources) {
        ends->push_back(readFromEnd(source, count, filter, damage, &latest));
    }
    return latest.inOrder();
}

} // namespace zantlog::view
