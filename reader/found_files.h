// The log files that a scan has selected so far, in the order that readers rely on.
#pragma once

#include "base/owned_text.h"
#include "zantlog/discovery_types.h"

namespace zantlog {

using OwnedEntry = OwnedBlock<LogFileEntry>;

// What tells one selected file from another.
struct FileKey {
    const char *directory;
    const char *name;
    uint32_t hash; // of the directory followed by the name, see text_hash.h
};

// The order of equal creation times is that of a table of 300 chains that takes each new file at the front
// of its chain and is read from the first chain to the last. Nothing is looked up in those chains: an index
// of all files finds one in constant time however many there are, and the order is made at the end.
class FoundFiles {
public:
    FoundFiles() = default;
    ~FoundFiles();
    FoundFiles(const FoundFiles &) = delete;
    FoundFiles &operator=(const FoundFiles &) = delete;

    // Room for the first files; false when memory is short.
    [[nodiscard]] bool begin();

    [[nodiscard]] bool holds(const FileKey &key) const;

    // Takes over an entry whose directory and name are those of the key, and which is not held yet. False
    // when memory is short: the entry has gone then.
    [[nodiscard]] bool add(OwnedEntry entry, const FileKey &key);

    // The entries as one list in ascending creation time, which the caller owns; null when there are none.
    // Nothing is held any more.
    [[nodiscard]] LogFileEntry *takeList();

private:
    struct File {
        LogFileEntry *entry; // owned
        int64_t creationTime;
        uint32_t hash;
        uint32_t number; // in the order of finding
    };

    [[nodiscard]] bool makeRoom(uint32_t capacity);
    [[nodiscard]] uint32_t slotOf(uint32_t hash) const;
    void enterInIndex(uint32_t number);
    [[nodiscard]] static bool precedes(const File &left, const File &right);

    OwnedBlock<File> files_;
    OwnedBlock<uint32_t> slots_; // number of a file plus one, 0 for none; twice the capacity, a power of two
    uint32_t capacity_ = 0;
    uint32_t count_ = 0;
};

} // namespace zantlog
