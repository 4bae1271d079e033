// New records of a selection, as they are written.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tools/qzlogview/file_reader.h"

namespace zantlog::view {

// Keeps the place in each file. Files are known by their paths, so those that a rollover begins are found
// when they are listed again.
class Follower {
public:
    Follower(RecordFilter filter, DamageSink damage)
        : filter_(std::move(filter)), damage_(std::move(damage)) {}

    // A file that is followed from an offset on.
    void add(const Source &source, uint64_t offset);
    // Paths as they are listed now: new ones are followed from their beginning.
    void update(const std::vector<std::string> &paths);
    // The records that have come since, in order.
    [[nodiscard]] std::vector<EntryPointer> poll();

private:
    struct Followed {
        Source source;
        uint64_t offset = 0;
        bool hasHeader = false;
    };

    void readNew(Followed *followed, std::vector<EntryPointer> *entries);

    RecordFilter filter_;
    DamageSink damage_;
    // In memory of their own: records point to their sources.
    std::map<std::string, std::unique_ptr<Followed>> files_;
};

} // namespace zantlog::view
