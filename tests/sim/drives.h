// The drives behind volume.h and files.h.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "tests/sim/files.h"
#include "tests/sim/volume.h"

namespace zantlog::sim {

struct Drive {
    std::shared_ptr<Node> root;
    uint64_t room = kNoLimit;
};

struct Drives {
    std::mutex lock; // of all that follows, of every node and of every opening
    std::map<std::string, Drive> byLetter;
    uint64_t nextNumber = 1;
    bool writesInPart = false;
    ListingOrder order = ListingOrder::ByName;
    uint32_t seed = 1;
};

Drives &drives();

// ---- with the lock held

std::shared_ptr<Node> newNode(const std::string &name, uint32_t attributes, const char *sddl);

// The folder that holds a path's last name: 3 when there is none.
os::SystemError findParent(const Path &path, std::shared_ptr<Node> *parent);

// The node of a path: 2 when only the last name is missing.
os::SystemError findNode(const Path &path, std::shared_ptr<Node> *node);

Path parsed(const std::string &path, os::SystemError *error, bool wildcardsAllowed = false);

Found foundOf(const Node &node, const std::string &name, const std::string &shortName);

// Whether somebody who wants that access, and shares that one, comes in the way of those who have the file
// open.
bool conflicts(const Node &node, uint32_t access, uint32_t share);

void giveRoomBack(const std::string &drive, uint64_t bytes);

// Takes as much of the room as there is, up to `bytes`.
uint64_t takeRoom(const std::string &drive, uint64_t bytes);

} // namespace zantlog::sim
