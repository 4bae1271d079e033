#include "tests/fuzz/registry_model.h"

#include "tests/fuzz/operations.h"

namespace zantlog::fuzz {

namespace {

constexpr size_t kLongestName = 255;

std::vector<std::string> namesOf(const std::string &path) {
    std::vector<std::string> names;
    for (const std::string &name : cut(path, '\\')) {
        if (!name.empty()) {
            names.push_back(name);
        }
    }
    return names;
}

void markDeleted(ModelKey &key) {
    key.deleted = true;
    for (const auto &[name, below] : key.keys) {
        markDeleted(*below);
    }
}

} // namespace

std::string upper(std::string text) {
    for (char &character : text) {
        if (character >= 'a' && character <= 'z') {
            character = static_cast<char>(character - 'a' + 'A');
        }
    }
    return text;
}

ModelKeyPointer walk(ModelKeyPointer key, const std::string &path, bool make) {
    for (const std::string &name : namesOf(path)) {
        if (key->keys.count(upper(name)) == 0) {
            if (!make || name.size() > kLongestName) {
                return nullptr;
            }
            key->keys[upper(name)] = std::make_shared<ModelKey>(ModelKey{name, false, {}, {}});
        }
        key = key->keys[upper(name)];
    }
    return key;
}

uint32_t removeTree(const ModelKeyPointer &key, const std::string &path) {
    constexpr uint32_t kFailed = 6;
    constexpr uint32_t kNoRoot = 8;
    const std::vector<std::string> names = namesOf(path);
    if (key->deleted) {
        return kFailed;
    }
    ModelKeyPointer parent = key;
    for (size_t i = 0; i + 1 < names.size(); ++i) {
        parent = parent->keys.count(upper(names[i])) != 0 ? parent->keys[upper(names[i])] : nullptr;
        if (parent == nullptr) {
            return kNoRoot;
        }
    }
    if (names.empty() || parent->keys.count(upper(names.back())) == 0) {
        return kNoRoot;
    }
    markDeleted(*parent->keys[upper(names.back())]);
    parent->keys.erase(upper(names.back()));
    return 0;
}

} // namespace zantlog::fuzz
