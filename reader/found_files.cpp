#include "reader/found_files.h"

#include <algorithm>
#include <cstring>

namespace zantlog {

namespace {

constexpr uint32_t kChains = 300;
constexpr uint32_t kFirstCapacity = 64; // a power of two, as all are
constexpr uint32_t kHighestCapacity = 1u << 30;

} // namespace

FoundFiles::~FoundFiles() {
    for (uint32_t i = 0; i < count_; ++i) {
        zantLogFree(files_.get()[i].entry);
    }
}

bool FoundFiles::begin() {
    return makeRoom(kFirstCapacity);
}

bool FoundFiles::makeRoom(uint32_t capacity) {
    if (capacity > kHighestCapacity) {
        return false;
    }
    OwnedBlock<File> files = allocateBlock<File>(capacity);
    OwnedBlock<uint32_t> slots = allocateBlock<uint32_t>(size_t{capacity} * 2);
    if (files == nullptr || slots == nullptr) {
        return false;
    }
    std::fill_n(slots.get(), size_t{capacity} * 2, 0u);
    std::copy_n(files_.get(), count_, files.get());
    files_ = std::move(files);
    slots_ = std::move(slots);
    capacity_ = capacity;
    for (uint32_t i = 0; i < count_; ++i) {
        enterInIndex(i);
    }
    return true;
}

// Names of one directory differ in their last characters, so their hashes lie close together: the
// multiplication spreads them.
uint32_t FoundFiles::slotOf(uint32_t hash) const {
    constexpr uint32_t kSpread = 2654435769u;
    const uint32_t spread = hash * kSpread;
    return (spread ^ spread >> 16) & (capacity_ * 2 - 1);
}

void FoundFiles::enterInIndex(uint32_t number) {
    uint32_t slot = slotOf(files_.get()[number].hash);
    while (slots_.get()[slot] != 0) {
        slot = (slot + 1) & (capacity_ * 2 - 1);
    }
    slots_.get()[slot] = number + 1;
}

bool FoundFiles::holds(const FileKey &key) const {
    if (count_ == 0) {
        return false;
    }
    for (uint32_t slot = slotOf(key.hash); slots_.get()[slot] != 0; slot = (slot + 1) & (capacity_ * 2 - 1)) {
        const File &file = files_.get()[slots_.get()[slot] - 1];
        if (file.hash == key.hash && std::strcmp(file.entry->name, key.name) == 0 &&
            std::strcmp(file.entry->directory, key.directory) == 0) {
            return true;
        }
    }
    return false;
}

bool FoundFiles::add(OwnedEntry entry, const FileKey &key) {
    if (count_ == capacity_ && !makeRoom(capacity_ * 2)) {
        return false;
    }
    const int64_t creationTime = entry->creationTime;
    files_.get()[count_] = {entry.release(), creationTime, key.hash, count_};
    enterInIndex(count_);
    ++count_;
    return true;
}

bool FoundFiles::precedes(const File &left, const File &right) {
    if (left.creationTime != right.creationTime) {
        return left.creationTime < right.creationTime;
    }
    const uint32_t leftChain = left.hash % kChains;
    const uint32_t rightChain = right.hash % kChains;
    return leftChain != rightChain ? leftChain < rightChain : left.number > right.number;
}

LogFileEntry *FoundFiles::takeList() {
    std::sort(files_.get(), files_.get() + count_, precedes);
    LogFileEntry *head = nullptr;
    for (; count_ != 0; --count_) {
        LogFileEntry *entry = files_.get()[count_ - 1].entry;
        entry->next = head;
        head = entry;
    }
    return head;
}

} // namespace zantlog
