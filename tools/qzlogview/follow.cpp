#include "tools/qzlogview/follow.h"

#include <algorithm>

#include "zantlog/results.h"

namespace zantlog::view {

void Follower::add(const Source &source, uint64_t offset) {
    auto followed = std::make_unique<Followed>();
    followed->source = source;
    followed->offset = offset;
    followed->hasHeader = true;
    files_[source.path] = std::move(followed);
}

void Follower::update(const std::vector<std::string> &paths) {
    for (const std::string &path : paths) {
        if (files_.count(path) == 0) {
            auto followed = std::make_unique<Followed>();
            followed->source.path = path;
            files_[path] = std::move(followed);
        }
    }
}

// Opened for each look, so that a file that the writer recycles is not held.
void Follower::readNew(Followed *followed, std::vector<EntryPointer> *entries) {
    LogFile file;
    if (!followed->hasHeader) {
        // A new file may have no header yet.
        if (readSource(&file, &followed->source) != ZANTLOG_OK) {
            return;
        }
        LogFileHeader header;
        (void)file.readHeader(&header);
        followed->hasHeader = true;
        followed->offset = file.offset();
    } else if (!file.open(followed->source.path)) {
        return;
    } else if (file.size() < followed->offset) {
        followed->hasHeader = false; // another file of that name, which is read from its beginning
        readNew(followed, entries);
        return;
    } else if (file.size() == followed->offset || !file.seek(followed->offset)) {
        return;
    }
    while (file.next() == LineState::line) {
        followed->offset = file.offset();
        auto entry = std::make_unique<Entry>();
        if (parseLine(followed->source, file.line(), file.lineOffset(), &entry->record) != ZANTLOG_OK) {
            damage_({followed->source.path, file.lineOffset(), "the line is no record"});
        } else if (wants(filter_, entry->record)) {
            entry->key = keyOf(entry->record);
            entry->line.assign(file.line());
            entries->push_back(std::move(entry));
        }
    }
}

std::vector<EntryPointer> Follower::poll() {
    std::vector<EntryPointer> entries;
    for (const auto &[path, followed] : files_) {
        readNew(followed.get(), &entries);
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const EntryPointer &a, const EntryPointer &b) { return a->key < b->key; });
    return entries;
}

} // namespace zantlog::view
