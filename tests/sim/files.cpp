#include "tests/sim/files.h"

#include <algorithm>

#include "tests/sim/drives.h"
#include "tests/sim/scheduler.h"

namespace zantlog::sim {

namespace {

using Guard = std::lock_guard<std::mutex>;

constexpr uint32_t kShareAll = kReadAccess | kWriteAccess | kDeleteAccess;

// The lock is held.
std::shared_ptr<Node> nodeAt(const std::string &path) {
    os::SystemError error = os::kErrorNone;
    const Path place = parsed(path, &error);
    std::shared_ptr<Node> node;
    if (error == os::kErrorNone) {
        error = findNode(place, &node);
    }
    return error == os::kErrorNone ? node : nullptr;
}

template <class T> T ask(const std::string &path, T none, T (*answer)(const Node &)) {
    const Guard guard(drives().lock);
    const std::shared_ptr<Node> node = nodeAt(path);
    return node != nullptr ? answer(*node) : none;
}

template <class Change> bool change(const std::string &path, const Change &make) {
    const Guard guard(drives().lock);
    const std::shared_ptr<Node> node = nodeAt(path);
    if (node == nullptr) {
        return false;
    }
    make(*node);
    return true;
}

uint64_t sizeBelow(const Node &node) {
    uint64_t size = node.content.size();
    for (const auto &[key, child] : node.children) {
        size += sizeBelow(*child);
    }
    return size;
}

bool put(const std::string &path, const std::string &bytes, Disposition disposition) {
    std::shared_ptr<Opening> opening;
    uint32_t written = 0;
    if (openNode(path, kWriteAccess, kShareAll, disposition, nullptr, &opening) != os::kErrorNone) {
        return false;
    }
    moveToEnd(*opening);
    const auto count = static_cast<uint32_t>(bytes.size());
    return writeTo(*opening, bytes.data(), count, &written) == os::kErrorNone && written == count;
}

} // namespace

void setRoom(uint64_t bytes, char drive) {
    const Guard guard(drives().lock);
    drives().byLetter[upperCase(std::string(1, drive))].room = bytes;
}

uint64_t roomLeft(char drive) {
    const Guard guard(drives().lock);
    return drives().byLetter[upperCase(std::string(1, drive))].room;
}

void writeInPartOnAFullDisk(bool inPart) {
    const Guard guard(drives().lock);
    drives().writesInPart = inPart;
}

void setListingOrder(ListingOrder order, uint32_t seed) {
    const Guard guard(drives().lock);
    drives().order = order;
    drives().seed = seed;
}

Hold::Hold(const std::string &path, uint32_t access, uint32_t share) {
    static_cast<void>(openNode(path, access, share, Disposition::OpenExisting, nullptr, &opening_));
}

Hold::~Hold() = default;

bool exists(const std::string &path) {
    return ask<bool>(path, false, [](const Node &) { return true; });
}

bool isFolder(const std::string &path) {
    return ask<bool>(path, false, [](const Node &node) { return node.isFolder(); });
}

bool putFile(const std::string &path, const std::string &bytes) {
    return put(path, bytes, Disposition::CreateAlways);
}

bool appendToFile(const std::string &path, const std::string &bytes) {
    return put(path, bytes, Disposition::OpenAlways);
}

std::string bytesOf(const std::string &path) {
    return ask<std::string>(path, "<none>", [](const Node &node) {
        std::string bytes(node.content.size(), '\0');
        node.content.read(0, bytes.data(), bytes.size());
        return bytes;
    });
}

uint64_t sizeOfFile(const std::string &path) {
    return ask<uint64_t>(path, 0, [](const Node &node) { return node.content.size(); });
}

bool resizeFile(const std::string &path, uint64_t size) {
    return change(path, [size](Node &node) { node.content.resize(size); });
}

bool makeFolders(const std::string &path) {
    os::SystemError error = os::kErrorNone;
    Path place = parsed(path, &error);
    std::vector<std::string> names;
    names.swap(place.names);
    for (const std::string &name : names) {
        place.names.push_back(name);
        error = makeFolder(textOf(place), nullptr);
        if (error != os::kErrorNone && error != os::kErrorAlreadyExists) {
            return false;
        }
    }
    return isFolder(path);
}

bool removeAll(const std::string &path) {
    const Guard guard(drives().lock);
    os::SystemError error = os::kErrorNone;
    const Path place = parsed(path, &error);
    std::shared_ptr<Node> parent;
    if (error != os::kErrorNone || place.names.empty() || findParent(place, &parent) != os::kErrorNone) {
        return false;
    }
    const auto child = parent->children.find(upperCase(place.names.back()));
    if (child == parent->children.end()) {
        return false;
    }
    giveRoomBack(place.drive, sizeBelow(*child->second));
    parent->children.erase(child);
    return true;
}

bool removeOne(const std::string &path) {
    return (isFolder(path) ? removeFolder(path) : removeFile(path)) == os::kErrorNone;
}

std::vector<std::string> namesIn(const std::string &folder) {
    const Guard guard(drives().lock);
    std::vector<std::string> names;
    if (const std::shared_ptr<Node> node = nodeAt(folder); node != nullptr) {
        for (const auto &[key, child] : node->children) {
            names.push_back(child->name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

int64_t creationTimeOf(const std::string &path) {
    return ask<int64_t>(path, 0, [](const Node &node) { return node.created; });
}

int64_t lastWriteTimeOf(const std::string &path) {
    return ask<int64_t>(path, 0, [](const Node &node) { return node.lastWrite; });
}

void setCreationTime(const std::string &path, int64_t units) {
    change(path, [units](Node &node) { node.created = units; });
}

void setLastWriteTime(const std::string &path, int64_t units) {
    change(path, [units](Node &node) { node.lastWrite = units; });
}

uint32_t attributesOf(const std::string &path) {
    return ask<uint32_t>(path, 0, [](const Node &node) { return node.attributes; });
}

void setAttributes(const std::string &path, uint32_t attributes) {
    change(path, [attributes](Node &node) { node.attributes = attributes; });
}

std::string securityOf(const std::string &path) {
    return ask<std::string>(path, "", [](const Node &node) { return node.security; });
}

std::string currentFolder() {
    return currentProcess().currentFolder;
}

bool setCurrentFolder(const std::string &path) {
    if (!isFolder(path)) {
        return false;
    }
    os::SystemError error = os::kErrorNone;
    currentProcess().currentFolder = textOf(parsed(path, &error));
    return true;
}

} // namespace zantlog::sim
