#include "tests/sim/drives.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "tests/sim/clock.h"
#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

std::shared_ptr<Node> newRoot() {
    auto root = std::make_shared<Node>();
    root->attributes = kFolderAttribute;
    return root;
}

// Enough of the grammar to tell a descriptor from another text: parts that begin with an owner, a group or a
// list.
bool isDescriptor(const char *sddl) {
    if (sddl == nullptr || std::strlen(sddl) < 2 || std::strchr("OGDS", sddl[0]) == nullptr ||
        sddl[1] != ':') {
        return false;
    }
    const std::string_view text = sddl;
    return std::count(text.begin(), text.end(), '(') == std::count(text.begin(), text.end(), ')');
}

} // namespace

Drives &drives() {
    static auto &instance = *[] {
        auto *made = new Drives;
        made->byLetter["C"].root = newRoot();
        return made;
    }();
    return instance;
}

void addDrive(char letter) {
    const std::lock_guard guard(drives().lock);
    drives().byLetter[upperCase(std::string(1, letter))].root = newRoot();
}

void removeDrive(char letter) {
    const std::lock_guard guard(drives().lock);
    drives().byLetter.erase(upperCase(std::string(1, letter)));
}

std::shared_ptr<Node> newNode(const std::string &name, uint32_t attributes, const char *sddl) {
    auto node = std::make_shared<Node>();
    node->name = name;
    node->attributes = attributes;
    node->created = node->lastAccess = node->lastWrite = clock().now();
    node->security = isDescriptor(sddl) ? sddl : "";
    node->number = drives().nextNumber++;
    return node;
}

os::SystemError findParent(const Path &path, std::shared_ptr<Node> *parent) {
    const auto drive = drives().byLetter.find(path.drive);
    if (drive == drives().byLetter.end()) {
        return os::kErrorPathNotFound;
    }
    std::shared_ptr<Node> node = drive->second.root;
    for (size_t i = 0; i + 1 < path.names.size(); ++i) {
        const auto child = node->children.find(upperCase(path.names[i]));
        if (child == node->children.end() || !child->second->isFolder()) {
            return os::kErrorPathNotFound;
        }
        node = child->second;
    }
    *parent = node;
    return os::kErrorNone;
}

os::SystemError findNode(const Path &path, std::shared_ptr<Node> *node) {
    std::shared_ptr<Node> parent;
    if (const os::SystemError error = findParent(path, &parent); error != os::kErrorNone) {
        return error;
    }
    if (path.names.empty()) {
        *node = parent;
        return os::kErrorNone;
    }
    const auto child = parent->children.find(upperCase(path.names.back()));
    if (child == parent->children.end()) {
        return os::kErrorFileNotFound;
    }
    *node = child->second;
    return os::kErrorNone;
}

Path parsed(const std::string &path, os::SystemError *error, bool wildcardsAllowed) {
    Path out;
    *error = parsePath(path, currentProcess().currentFolder, wildcardsAllowed, &out);
    return out;
}

Found foundOf(const Node &node, const std::string &name, const std::string &shortName) {
    return {name,           shortName,          node.attributes, node.created, node.lastAccess,
            node.lastWrite, node.content.size()};
}

bool conflicts(const Node &node, uint32_t access, uint32_t share) {
    return std::any_of(node.openings.begin(), node.openings.end(), [&](const Opening *other) {
        return (access & ~other->share) != 0 || (other->access & ~share) != 0;
    });
}

void giveRoomBack(const std::string &drive, uint64_t bytes) {
    Drive &on = drives().byLetter[drive];
    if (on.room != kNoLimit) {
        on.room += bytes;
    }
}

uint64_t takeRoom(const std::string &drive, uint64_t bytes) {
    Drive &on = drives().byLetter[drive];
    if (on.room == kNoLimit) {
        return bytes;
    }
    const uint64_t taken = std::min(on.room, bytes);
    on.room -= taken;
    return taken;
}

} // namespace zantlog::sim
