// The registry below one key as a tree of maps: names are the same whatever the case of A to Z, and keep the
// spelling that they were made with.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zantlog::fuzz {

struct ModelValue {
    bool isText = false;
    std::string text;
    uint32_t number = 0;
};

struct ModelKey {
    std::string name;
    bool deleted = false;
    std::map<std::string, std::shared_ptr<ModelKey>> keys; // by name in upper case
    std::map<std::string, ModelValue> values;
};

using ModelKeyPointer = std::shared_ptr<ModelKey>;

std::string upper(std::string text);

// Null when the key is not there; with `make` it is made, unless a name is too long.
ModelKeyPointer walk(ModelKeyPointer key, const std::string &path, bool make);

// The result of the store: 0, 6 or 8.
uint32_t removeTree(const ModelKeyPointer &key, const std::string &path);

} // namespace zantlog::fuzz
