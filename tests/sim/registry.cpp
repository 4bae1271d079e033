#include "tests/sim/registry.h"

#include <algorithm>
#include <iterator>
#include <mutex>

#include "tests/sim/paths.h"

namespace zantlog::sim {

// Keys are listed by their names in upper case, in ascending order, as Windows keeps them.
struct RegistryKey {
    std::string name;
    bool deleted = false;
    bool writingDenied = false; // here and below
    std::map<std::string, KeyPointer> subKeys;
    std::map<std::string, RegistryValue> values;
};

namespace {

using os::SystemError;

constexpr size_t kLongestName = 255;

struct Registry {
    std::mutex lock;
    KeyPointer root = std::make_shared<RegistryKey>();

    Registry() {
        root->subKeys["SOFTWARE"] = std::make_shared<RegistryKey>();
        root->subKeys["SOFTWARE"]->name = "SOFTWARE";
    }
};

Registry &registry() {
    static auto &instance = *new Registry;
    return instance;
}

using Guard = std::lock_guard<std::mutex>;

std::vector<std::string> namesOf(const std::string &path) {
    std::vector<std::string> names;
    size_t begin = 0;
    while (begin < path.size()) {
        const size_t end = std::min(path.find('\\', begin), path.size());
        if (end != begin) {
            names.push_back(path.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return names;
}

// The lock is held. What is missing is made, if that is wanted and nobody denies it.
SystemError walk(KeyPointer key, const std::string &path, bool toWrite, bool make, KeyPointer *out) {
    bool denied = key->writingDenied;
    for (const std::string &name : namesOf(path)) {
        const auto found = key->subKeys.find(upperCase(name));
        if (found != key->subKeys.end()) {
            key = found->second;
        } else if (!make) {
            return os::kErrorFileNotFound;
        } else if (denied || name.size() > kLongestName) {
            return denied ? os::kErrorAccessDenied : os::kErrorInvalidParameter;
        } else {
            const KeyPointer made = std::make_shared<RegistryKey>();
            made->name = name;
            key->subKeys[upperCase(name)] = made;
            key = made;
        }
        denied = denied || key->writingDenied;
    }
    if (toWrite && denied) {
        return os::kErrorAccessDenied;
    }
    *out = key;
    return os::kErrorNone;
}

void markDeleted(RegistryKey &key) {
    key.deleted = true;
    for (const auto &[name, subKey] : key.subKeys) {
        markDeleted(*subKey);
    }
}

} // namespace

void denyWriting(const std::string &path, bool denied) {
    const Guard guard(registry().lock);
    KeyPointer key;
    if (walk(registry().root, path, false, false, &key) == os::kErrorNone) {
        key->writingDenied = denied;
    }
}

bool keyExists(const std::string &path) {
    KeyPointer key;
    return findKey(path, false, &key) == os::kErrorNone;
}

std::vector<std::string> subKeysOf(const std::string &path) {
    const Guard guard(registry().lock);
    std::vector<std::string> names;
    KeyPointer key;
    if (walk(registry().root, path, false, false, &key) == os::kErrorNone) {
        for (const auto &[upper, subKey] : key->subKeys) {
            names.push_back(subKey->name);
        }
    }
    return names;
}

std::vector<RegistryValue> valuesOf(const std::string &path) {
    const Guard guard(registry().lock);
    std::vector<RegistryValue> values;
    KeyPointer key;
    if (walk(registry().root, path, false, false, &key) == os::kErrorNone) {
        for (const auto &[upper, value] : key->values) {
            values.push_back(value);
        }
    }
    return values;
}

SystemError findKey(const std::string &path, bool toWrite, KeyPointer *key) {
    const Guard guard(registry().lock);
    return walk(registry().root, path, toWrite, false, key);
}

SystemError makeKey(const std::string &path, KeyPointer *key) {
    const Guard guard(registry().lock);
    return walk(registry().root, path, true, true, key);
}

SystemError readValue(RegistryKey &key, const std::string &name, RegistryValue *value) {
    const Guard guard(registry().lock);
    if (key.deleted) {
        return kErrorKeyDeleted;
    }
    const auto found = key.values.find(upperCase(name));
    if (found == key.values.end()) {
        return os::kErrorFileNotFound;
    }
    *value = found->second;
    return os::kErrorNone;
}

SystemError writeValue(RegistryKey &key, const RegistryValue &value) {
    const Guard guard(registry().lock);
    if (key.deleted) {
        return kErrorKeyDeleted;
    }
    // The name stays as it was spelled first.
    RegistryValue &kept = key.values[upperCase(value.name)];
    kept = {kept.name.empty() ? value.name : kept.name, value.type, value.bytes};
    return os::kErrorNone;
}

SystemError removeValue(RegistryKey &key, const std::string &name) {
    const Guard guard(registry().lock);
    if (key.deleted) {
        return kErrorKeyDeleted;
    }
    return key.values.erase(upperCase(name)) != 0 ? os::kErrorNone : os::kErrorFileNotFound;
}

SystemError subKeyAt(RegistryKey &key, uint32_t index, std::string *name) {
    const Guard guard(registry().lock);
    if (key.deleted) {
        return kErrorKeyDeleted;
    }
    if (index >= key.subKeys.size()) {
        return os::kErrorNoMoreItems;
    }
    *name = std::next(key.subKeys.begin(), static_cast<std::ptrdiff_t>(index))->second->name;
    return os::kErrorNone;
}

SystemError removeTree(RegistryKey &key, const std::string &subKey) {
    const Guard guard(registry().lock);
    std::vector<std::string> names = namesOf(subKey);
    if (key.deleted || names.empty()) {
        return key.deleted ? kErrorKeyDeleted : os::kErrorFileNotFound;
    }
    RegistryKey *parent = &key;
    for (size_t i = 0; i + 1 < names.size(); ++i) {
        const auto found = parent->subKeys.find(upperCase(names[i]));
        if (found == parent->subKeys.end()) {
            return os::kErrorFileNotFound;
        }
        parent = found->second.get();
    }
    const auto found = parent->subKeys.find(upperCase(names.back()));
    if (found == parent->subKeys.end()) {
        return os::kErrorFileNotFound;
    }
    markDeleted(*found->second);
    parent->subKeys.erase(found);
    return os::kErrorNone;
}

} // namespace zantlog::sim
