// Drives of the simulated machine: folders and files, who has them open, and how much room there is.
//
// Where Wine is known to differ, Windows is followed: a drive that is missing is path not found (Wine: file
// not found), nothing is copied onto a file that is open (Wine does it), and a move onto the same name
// changes its case (Wine does not). A file that is deleted and made again within seconds does not get its old
// creation time back, as it would on NTFS.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "logfile/os/os_error.h"
#include "tests/sim/handles.h"
#include "tests/sim/paths.h"
#include "tests/sim/sparse_bytes.h"

namespace zantlog::sim {

enum Access : uint32_t { kNoAccess = 0, kReadAccess = 1, kWriteAccess = 2, kDeleteAccess = 4 };

enum Attributes : uint32_t {
    kReadOnlyAttribute = 0x01,
    kHiddenAttribute = 0x02,
    kSystemAttribute = 0x04,
    kFolderAttribute = 0x10,
    kArchiveAttribute = 0x20,
};

struct Opening;

// A file or a folder.
struct Node {
    std::string name;
    uint32_t attributes = kArchiveAttribute;
    int64_t created = 0; // units of 100 ns since 1970
    int64_t lastAccess = 0;
    int64_t lastWrite = 0;
    std::string security; // the descriptor text that it was made with; empty: the default
    uint64_t number = 0;  // in the order of their making

    SparseBytes content;
    std::vector<Opening *> openings;

    std::map<std::string, std::shared_ptr<Node>> children; // by their names in upper case

    [[nodiscard]] bool isFolder() const { return (attributes & kFolderAttribute) != 0; }
};

// A file that is open; closed when it goes.
struct Opening {
    Opening(std::shared_ptr<Node> node, uint32_t access, uint32_t share);
    ~Opening();
    Opening(const Opening &) = delete;
    Opening &operator=(const Opening &) = delete;

    std::shared_ptr<Node> node;
    std::string drive;
    uint32_t access;
    uint32_t share; // access that others may have meanwhile
    uint64_t position = 0;
};

enum class Disposition { OpenExisting, OpenAlways, CreateAlways };

// All of these hold the lock of all drives while they run.
os::SystemError openNode(const std::string &path, uint32_t access, uint32_t share, Disposition disposition,
                         const char *sddl, std::shared_ptr<Opening> *opening);
os::SystemError removeFile(const std::string &path);
os::SystemError copyNode(const std::string &source, const std::string &destination);
os::SystemError moveNode(const std::string &source, const std::string &destination);
os::SystemError makeFolder(const std::string &path, const char *sddl);
os::SystemError removeFolder(const std::string &path); // an empty one

os::SystemError writeTo(Opening &opening, const void *bytes, uint32_t count, uint32_t *written);
os::SystemError readFrom(Opening &opening, void *buffer, uint32_t count, uint32_t *read);
os::SystemError cutAt(Opening &opening, uint64_t size);
uint64_t sizeOf(const Opening &opening);
uint64_t moveToEnd(Opening &opening); // the position there
void moveTo(Opening &opening, uint64_t position);
void stamp(Opening &opening);

// What a listing says of a file.
struct Found {
    std::string name;
    std::string shortName; // of the form 8.3; empty for a name that is of that form itself
    uint32_t attributes = 0;
    int64_t created = 0;
    int64_t lastAccess = 0;
    int64_t lastWrite = 0;
    uint64_t size = 0;
};

os::SystemError statusOf(const std::string &path, Found *found);
os::SystemError listingOf(const std::string &pattern, std::vector<Found> *found);

} // namespace zantlog::sim
