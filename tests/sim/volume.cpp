#include "tests/sim/volume.h"

#include <algorithm>

#include "tests/sim/clock.h"
#include "tests/sim/drives.h"

namespace zantlog::sim {

namespace {

using os::SystemError;
using Guard = std::lock_guard<std::mutex>;

constexpr SystemError kErrorNotSameDevice = 17;
constexpr SystemError kErrorDirectoryNotEmpty = 145;
constexpr SystemError kErrorDirectory = 267;
constexpr uint32_t kNotToOverwrite = kReadOnlyAttribute | kHiddenAttribute | kSystemAttribute;

// ---- with the lock held

SystemError find(const std::string &path, Path *place, std::shared_ptr<Node> *node) {
    SystemError error = os::kErrorNone;
    *place = parsed(path, &error);
    return error != os::kErrorNone ? error : findNode(*place, node);
}

SystemError checkOpening(const Node &node, uint32_t access, uint32_t share, Disposition disposition) {
    const bool anew = disposition == Disposition::CreateAlways;
    if (node.isFolder() || (anew && (node.attributes & kNotToOverwrite) != 0) ||
        ((access & kWriteAccess) != 0 && (node.attributes & kReadOnlyAttribute) != 0)) {
        return os::kErrorAccessDenied;
    }
    return conflicts(node, access, share) ? os::kErrorSharingViolation : os::kErrorNone;
}

std::shared_ptr<Opening> opened(const std::shared_ptr<Node> &node, const Path &place, uint32_t access,
                                uint32_t share) {
    auto opening = std::make_shared<Opening>(node, access, share);
    opening->drive = place.drive;
    return opening;
}

void setSize(Node &node, const std::string &drive, uint64_t size) {
    if (size < node.content.size()) {
        giveRoomBack(drive, node.content.size() - size);
    }
    node.content.resize(size);
}

SystemError createIn(const Path &place, const char *sddl, std::shared_ptr<Node> *node) {
    if (place.endsInSeparator) {
        return kErrorInvalidName;
    }
    std::shared_ptr<Node> parent;
    if (const SystemError error = findParent(place, &parent); error != os::kErrorNone) {
        return error;
    }
    *node = newNode(place.names.back(), kArchiveAttribute, sddl);
    parent->children[upperCase(place.names.back())] = *node;
    return os::kErrorNone;
}

SystemError openAt(const Path &place, uint32_t access, uint32_t share, Disposition disposition,
                   const char *sddl, std::shared_ptr<Opening> *opening) {
    std::shared_ptr<Node> node;
    SystemError error = findNode(place, &node);
    if (error == os::kErrorFileNotFound && disposition != Disposition::OpenExisting) {
        error = createIn(place, sddl, &node);
    } else if (error == os::kErrorNone) {
        error = checkOpening(*node, access, share, disposition);
        if (error == os::kErrorNone && disposition == Disposition::CreateAlways) {
            setSize(*node, place.drive, 0);
            node->lastWrite = clock().now();
        }
    }
    if (error == os::kErrorNone) {
        *opening = opened(node, place, access, share);
    }
    return error;
}

SystemError take(const Path &place, const Node &node) {
    std::shared_ptr<Node> parent;
    if (const SystemError error = findParent(place, &parent); error != os::kErrorNone) {
        return error;
    }
    parent->children.erase(upperCase(node.name));
    return os::kErrorNone;
}

bool holdsAnOpenFile(const Node &node) {
    return !node.openings.empty() ||
           std::any_of(node.children.begin(), node.children.end(),
                       [](const auto &child) { return holdsAnOpenFile(*child.second); });
}

// Whether a node can give way to one that is moved in its place.
SystemError checkReplacing(const Node &source, const Node &destination) {
    const bool same = &source == &destination;
    if (!same && (destination.isFolder() || source.isFolder() || !destination.openings.empty() ||
                  (destination.attributes & kReadOnlyAttribute) != 0)) {
        return os::kErrorAccessDenied;
    }
    return os::kErrorNone;
}

} // namespace

Opening::Opening(std::shared_ptr<Node> opened, uint32_t ownAccess, uint32_t othersAccess)
    : node(std::move(opened)), access(ownAccess), share(othersAccess) {
    node->openings.push_back(this);
}

Opening::~Opening() {
    const Guard guard(drives().lock);
    std::erase(node->openings, this);
}

SystemError openNode(const std::string &path, uint32_t access, uint32_t share, Disposition disposition,
                     const char *sddl, std::shared_ptr<Opening> *opening) {
    const Guard guard(drives().lock);
    SystemError error = os::kErrorNone;
    const Path place = parsed(path, &error);
    return error != os::kErrorNone ? error : openAt(place, access, share, disposition, sddl, opening);
}

SystemError removeFile(const std::string &path) {
    const Guard guard(drives().lock);
    Path place;
    std::shared_ptr<Node> node;
    if (const SystemError error = find(path, &place, &node); error != os::kErrorNone) {
        return error;
    }
    if (node->isFolder() || (node->attributes & kReadOnlyAttribute) != 0) {
        return os::kErrorAccessDenied;
    }
    if (conflicts(*node, kDeleteAccess, kReadAccess | kWriteAccess | kDeleteAccess)) {
        return os::kErrorSharingViolation;
    }
    giveRoomBack(place.drive, node->content.size());
    return take(place, *node);
}

SystemError copyNode(const std::string &source, const std::string &destination) {
    std::shared_ptr<Opening> from;
    std::shared_ptr<Opening> to;
    constexpr uint32_t kReadOrWrite = kReadAccess | kWriteAccess;
    if (const SystemError error =
            openNode(source, kReadAccess, kReadOrWrite, Disposition::OpenExisting, nullptr, &from);
        error != os::kErrorNone) {
        return error;
    }
    if (const SystemError error =
            openNode(destination, kWriteAccess, kNoAccess, Disposition::CreateAlways, nullptr, &to);
        error != os::kErrorNone) {
        return error;
    }
    char block[65536];
    uint32_t count = 0;
    SystemError error = os::kErrorNone;
    while ((error = readFrom(*from, block, sizeof(block), &count)) == os::kErrorNone && count != 0) {
        uint32_t written = 0;
        error = writeTo(*to, block, count, &written);
        if (error != os::kErrorNone || written < count) {
            to.reset();
            static_cast<void>(removeFile(destination));
            return error != os::kErrorNone ? error : os::kErrorDiskFull;
        }
    }
    const Guard guard(drives().lock);
    to->node->lastWrite = from->node->lastWrite;
    to->node->attributes = from->node->attributes;
    return error;
}

SystemError moveNode(const std::string &source, const std::string &destination) {
    const Guard guard(drives().lock);
    Path from;
    Path to;
    std::shared_ptr<Node> moved;
    if (const SystemError error = find(source, &from, &moved); error != os::kErrorNone) {
        return error;
    }
    if (moved->isFolder() ? holdsAnOpenFile(*moved)
                          : conflicts(*moved, kDeleteAccess, kReadAccess | kWriteAccess | kDeleteAccess)) {
        return moved->isFolder() ? os::kErrorAccessDenied : os::kErrorSharingViolation;
    }
    std::shared_ptr<Node> replaced;
    const SystemError found = find(destination, &to, &replaced);
    if (found != os::kErrorNone && found != os::kErrorFileNotFound) {
        return found;
    }
    if (from.drive != to.drive) {
        return kErrorNotSameDevice;
    }
    if (found == os::kErrorNone) {
        if (const SystemError error = checkReplacing(*moved, *replaced); error != os::kErrorNone) {
            return error;
        }
    }
    std::shared_ptr<Node> parent;
    if (const SystemError error = findParent(to, &parent); error != os::kErrorNone) {
        return error;
    }
    if (replaced != nullptr && replaced != moved) {
        giveRoomBack(to.drive, replaced->content.size());
    }
    if (const SystemError error = take(from, *moved); error != os::kErrorNone) {
        return error;
    }
    moved->name = to.names.back();
    parent->children[upperCase(moved->name)] = moved;
    return os::kErrorNone;
}

SystemError makeFolder(const std::string &path, const char *sddl) {
    const Guard guard(drives().lock);
    Path place;
    std::shared_ptr<Node> node;
    const SystemError error = find(path, &place, &node);
    if (error == os::kErrorNone) {
        return os::kErrorAlreadyExists;
    }
    if (error != os::kErrorFileNotFound) {
        return error;
    }
    std::shared_ptr<Node> parent;
    if (const SystemError missing = findParent(place, &parent); missing != os::kErrorNone) {
        return missing;
    }
    parent->children[upperCase(place.names.back())] = newNode(place.names.back(), kFolderAttribute, sddl);
    return os::kErrorNone;
}

SystemError removeFolder(const std::string &path) {
    const Guard guard(drives().lock);
    Path place;
    std::shared_ptr<Node> node;
    if (const SystemError error = find(path, &place, &node); error != os::kErrorNone) {
        return error;
    }
    if (!node->isFolder()) {
        return kErrorDirectory;
    }
    return node->children.empty() ? take(place, *node) : kErrorDirectoryNotEmpty;
}

SystemError writeTo(Opening &opening, const void *bytes, uint32_t count, uint32_t *written) {
    *written = 0;
    if ((opening.access & kWriteAccess) == 0) {
        return os::kErrorAccessDenied;
    }
    const Guard guard(drives().lock);
    SparseBytes &content = opening.node->content;
    const uint64_t end = opening.position + count;
    const uint64_t wanted = end > content.size() ? end - content.size() : 0;
    const uint64_t given = takeRoom(opening.drive, wanted);
    const uint64_t missing = wanted - given;
    if (missing != 0 && (!drives().writesInPart || missing >= count)) {
        giveRoomBack(opening.drive, given);
        return os::kErrorDiskFull;
    }
    *written = static_cast<uint32_t>(count - missing);
    content.write(opening.position, bytes, *written);
    opening.position += *written;
    opening.node->lastWrite = clock().now();
    return os::kErrorNone;
}

SystemError readFrom(Opening &opening, void *buffer, uint32_t count, uint32_t *read) {
    *read = 0;
    if ((opening.access & kReadAccess) == 0) {
        return os::kErrorAccessDenied;
    }
    const Guard guard(drives().lock);
    *read = static_cast<uint32_t>(opening.node->content.read(opening.position, buffer, count));
    opening.position += *read;
    return os::kErrorNone;
}

SystemError cutAt(Opening &opening, uint64_t size) {
    const Guard guard(drives().lock);
    // The position is moved first, which needs no right to write.
    opening.position = size;
    if ((opening.access & kWriteAccess) == 0) {
        return os::kErrorAccessDenied;
    }
    const uint64_t before = opening.node->content.size();
    if (size > before) {
        const uint64_t given = takeRoom(opening.drive, size - before);
        if (given < size - before) {
            giveRoomBack(opening.drive, given);
            return os::kErrorDiskFull;
        }
    }
    setSize(*opening.node, opening.drive, size);
    opening.node->lastWrite = clock().now();
    return os::kErrorNone;
}

uint64_t sizeOf(const Opening &opening) {
    const Guard guard(drives().lock);
    return opening.node->content.size();
}

uint64_t moveToEnd(Opening &opening) {
    const Guard guard(drives().lock);
    opening.position = opening.node->content.size();
    return opening.position;
}

void moveTo(Opening &opening, uint64_t position) {
    const Guard guard(drives().lock);
    opening.position = position;
}

void stamp(Opening &opening) {
    if ((opening.access & kWriteAccess) != 0) {
        const Guard guard(drives().lock);
        opening.node->lastWrite = clock().now();
    }
}

SystemError statusOf(const std::string &path, Found *found) {
    const Guard guard(drives().lock);
    Path place;
    std::shared_ptr<Node> node;
    const SystemError error = find(path, &place, &node);
    if (error == os::kErrorNone) {
        *found = foundOf(*node, node->name, "");
    }
    return error;
}

} // namespace zantlog::sim
