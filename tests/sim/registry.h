// The registry below the local machine's root, as tests look at it and lock it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "logfile/os/os_registry.h"

namespace zantlog::sim {

// Whether the user of the simulation may not write below a key (an ordinary user may not below SOFTWARE).
// Opening for everything and creating then fail with 5.
void denyWriting(const std::string &path, bool denied);

bool keyExists(const std::string &path);
std::vector<std::string> subKeysOf(const std::string &path);

struct RegistryValue {
    std::string name;
    uint32_t type = 0;
    std::string bytes;
};
std::vector<RegistryValue> valuesOf(const std::string &path);

// ---- for the implementation of the seam

inline constexpr os::SystemError kErrorKeyDeleted = 1018;

struct RegistryKey;
using KeyPointer = std::shared_ptr<RegistryKey>;

os::SystemError findKey(const std::string &path, bool toWrite, KeyPointer *key);
os::SystemError makeKey(const std::string &path, KeyPointer *key);
os::SystemError readValue(RegistryKey &key, const std::string &name, RegistryValue *value);
os::SystemError writeValue(RegistryKey &key, const RegistryValue &value);
os::SystemError removeValue(RegistryKey &key, const std::string &name);
os::SystemError subKeyAt(RegistryKey &key, uint32_t index, std::string *name);
os::SystemError removeTree(RegistryKey &key, const std::string &subKey);

} // namespace zantlog::sim
