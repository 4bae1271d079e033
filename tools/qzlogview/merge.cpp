#include "tools/qzlogview/merge.h"

#include <algorithm>
#include <list>
#include <queue>
#include <unordered_map>

namespace zantlog::view {

namespace {

// Readers that have a file open, the least recently used first.
class OpenFiles {
public:
    explicit OpenFiles(size_t most) : most_(most) {}

    void use(FileReader *reader) {
        if (const auto found = places_.find(reader); found != places_.end()) {
            order_.splice(order_.end(), order_, found->second);
            return;
        }
        if (order_.size() >= most_) {
            order_.front()->park();
            places_.erase(order_.front());
            order_.pop_front();
        }
        places_[reader] = order_.insert(order_.end(), reader);
    }
    void drop(FileReader *reader) {
        if (const auto found = places_.find(reader); found != places_.end()) {
            order_.erase(found->second);
            places_.erase(found);
        }
    }

private:
    size_t most_;
    std::list<FileReader *> order_;
    std::unordered_map<FileReader *, std::list<FileReader *>::iterator> places_;
};

// A file is opened when the stream comes near its first record: records may be some time out of order.
constexpr uint64_t kEarly = 2000; // milliseconds

struct Head {
    SortKey key;
    size_t index; // of the reader

    // For a queue with the earliest record on top; files in their order where keys are equal.
    bool operator<(const Head &other) const {
        return key != other.key ? other.key < key : other.index < index;
    }
};

class Merge {
public:
    Merge(const std::vector<Source> &sources, const RecordFilter &filter, const DamageSink &damage,
          const MergeOptions &options)
        : options_(options), openFiles_(options.mostOpenFiles) {
        constexpr size_t kLeast = 2;
        constexpr size_t kMost = 64; // more than processes that append to one file at a time
        const size_t window =
            std::clamp(options.lookAhead / std::max<size_t>(sources.size(), 1), kLeast, kMost);
        for (const Source &source : sources) {
            const uint64_t opening = source.firstTime > kEarly ? source.firstTime - kEarly : 0;
            heads_.push({{opening, 0, 0}, readers_.size()});
            readers_.push_back(std::make_unique<FileReader>(source, window, filter, damage, &scratch_));
        }
        begun_.resize(sources.size());
    }

    void run(const std::function<bool(const Entry &)> &take) {
        while (!heads_.empty()) {
            const size_t index = heads_.top().index;
            heads_.pop();
            if (!begun_[index]) {
                begun_[index] = true;
                push(index);
            } else if (!takeRun(index, take)) {
                return;
            }
        }
    }

private:
    // Records of one file, as long as they are the earliest of all. False when no more are wanted.
    bool takeRun(size_t index, const std::function<bool(const Entry &)> &take) {
        FileReader &reader = *readers_[index];
        for (;;) {
            if (reader.take() && !take(scratch_)) {
                return false;
            }
            const SortKey *next = peek(index);
            if (next == nullptr) {
                return true;
            }
            if (!heads_.empty() && Head{*next, index} < heads_.top()) {
                heads_.push({*next, index});
                return true;
            }
        }
    }

    // The next record of a reader; null at its end, where the reader goes.
    const SortKey *peek(size_t index) {
        FileReader *reader = readers_[index].get();
        openFiles_.use(reader);
        const uint64_t before = reader->offset();
        const SortKey *key = reader->front();
        if (reader->offset() != before && options_.progress) {
            read_ += reader->offset() - before;
            options_.progress(read_);
        }
        if (!reader->isOpen()) {
            openFiles_.drop(reader);
        }
        if (key == nullptr) {
            readers_[index].reset();
        }
        return key;
    }

    void push(size_t index) {
        if (const SortKey *key = peek(index)) {
            heads_.push({*key, index});
        }
    }

    const MergeOptions &options_;
    Entry scratch_; // of all readers: it stays in the processor's cache
    std::vector<std::unique_ptr<FileReader>> readers_;
    std::vector<bool> begun_;
    OpenFiles openFiles_;
    std::priority_queue<Head> heads_;
    uint64_t read_ = 0;
};

} // namespace

void mergeFiles(const std::vector<Source> &sources, const RecordFilter &filter, const DamageSink &damage,
                const MergeOptions &options, const std::function<bool(const Entry &)> &take) {
    Merge(sources, filter, damage, options).run(take);
}

} // namespace zantlog::view
