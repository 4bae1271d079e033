// The registry back end of the property store.
#include "propstore/registry_store.h"

#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "base/owned_text.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_text.h"
#include "propstore/conf_line.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

struct KeyCloser {
    void operator()(void *key) const { os::closeRegistryKey(key); }
};
using OwnedKey = std::unique_ptr<void, KeyCloser>;

// Null when memory is short.
OwnedText joinPath(std::string_view location, std::string_view section) {
    OwnedText path = allocateBlock<char>(location.size() + section.size() + 2);
    if (path == nullptr) {
        return nullptr;
    }
    char *at = path.get();
    std::memcpy(at, location.data(), location.size());
    at += location.size();
    *at++ = '\\';
    std::memcpy(at, section.data(), section.size());
    at[section.size()] = '\0';
    return path;
}

OwnedText copyView(std::string_view text) {
    OwnedText copy = allocateBlock<char>(text.size() + 1);
    if (copy == nullptr) {
        return nullptr;
    }
    std::memcpy(copy.get(), text.data(), text.size());
    copy.get()[text.size()] = '\0';
    return copy;
}

// Reads a value of this type. Nothing promises that a text in the registry is terminated: a terminator is put
// behind it.
bool readValue(void *key, const char *name, os::RegistryType type, OwnedText *bytes, uint32_t *size) {
    uint32_t foundType = 0;
    *size = 0;
    if (os::queryRegistryValue(key, name, &foundType, nullptr, size) != os::kErrorNone) {
        return false;
    }
    OwnedText buffer = allocateBlock<char>(size_t{*size} + 1);
    if (buffer == nullptr) {
        return false;
    }
    if (os::queryRegistryValue(key, name, &foundType, buffer.get(), size) != os::kErrorNone) {
        return false;
    }
    if (foundType != static_cast<uint32_t>(type)) {
        return false;
    }
    buffer.get()[*size] = '\0';
    *bytes = std::move(buffer);
    return true;
}

bool readText(void *key, const char *name, OwnedText *text) {
    uint32_t size;
    return readValue(key, name, os::RegistryType::Text, text, &size);
}

uint32_t removeTree(void *key, const char *subKey) {
    const os::SystemError error = os::deleteRegistryTree(key, subKey);
    if (error == os::kErrorNone) {
        return ZANTLOG_STORE_OK;
    }
    return error == os::kErrorFileNotFound ? ZANTLOG_STORE_NO_ROOT : ZANTLOG_STORE_FAILED;
}

// A root with backslashes names its own way from the top: "base\name\sub-key".
uint32_t removeTreeByPath(std::string_view path) {
    const size_t last = path.rfind('\\');
    const std::string_view parent = path.substr(0, last);
    const size_t before = parent.rfind('\\');
    if (before == std::string_view::npos) {
        return ZANTLOG_STORE_FAILED;
    }
    const OwnedText base = copyView(parent.substr(0, before));
    const OwnedText name = copyView(parent.substr(before + 1));
    const OwnedText subKey = copyView(path.substr(last + 1));
    if (base == nullptr || name == nullptr || subKey == nullptr) {
        return ZANTLOG_STORE_FAILED;
    }

    void *opened = nullptr;
    if (registryOpenStore(base.get(), name.get(), os::RegistryAccess::All, &opened) != ZANTLOG_STORE_OK) {
        return ZANTLOG_STORE_FAILED;
    }
    const OwnedKey key(opened);
    return removeTree(key.get(), subKey.get());
}

} // namespace

uint32_t registryOpenStore(const char *location, const char *section, os::RegistryAccess access, void **key) {
    const OwnedText path = section[0] != '\0' ? joinPath(location, section) : copyText(location);
    if (path == nullptr) {
        return ZANTLOG_STORE_CANNOT_OPEN;
    }
    void *opened = nullptr;
    if (os::openRegistryKey(path.get(), access, &opened) != os::kErrorNone) {
        return ZANTLOG_STORE_CANNOT_OPEN;
    }
    *key = opened;
    return ZANTLOG_STORE_OK;
}

uint32_t registryCreateStore(const char *location, const char *section, void **key) {
    const OwnedText path = joinPath(location, section);
    if (path == nullptr) {
        return ZANTLOG_STORE_FAILED;
    }
    void *created = nullptr;
    if (os::createRegistryKey(path.get(), &created) != os::kErrorNone) {
        return ZANTLOG_STORE_FAILED;
    }
    *key = created;
    return ZANTLOG_STORE_OK;
}

uint32_t registryGetPropertyAsStr(void *key, const char *name, char **value) {
    OwnedText text;
    if (!readText(key, name, &text)) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    zantLogFree(*value);
    *value = text.release(); // the caller's from here on
    return ZANTLOG_STORE_OK;
}

uint32_t registryGetPropertyAsULong(void *key, const char *name, uint32_t *value) {
    OwnedText bytes;
    uint32_t size;
    if (!readValue(key, name, os::RegistryType::Number, &bytes, &size)) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    if (size < sizeof *value) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    std::memcpy(value, bytes.get(), sizeof *value);
    return ZANTLOG_STORE_OK;
}

uint32_t registryGetPropertyAsBool(void *key, const char *name, uint32_t *value) {
    OwnedText text;
    if (!readText(key, name, &text)) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    *value = os::compareIgnoringCase(text.get(), "true") == 0 ? 1 : 0;
    return ZANTLOG_STORE_OK;
}

uint32_t registrySetPropertyAsStr(void *key, const char *name, const char *value) {
    const size_t size = std::strlen(value) + 1;
    if (size > UINT32_MAX) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    const os::SystemError error =
        os::setRegistryValue(key, name, os::RegistryType::Text, value, static_cast<uint32_t>(size));
    return error == os::kErrorNone ? ZANTLOG_STORE_OK : ZANTLOG_STORE_NOT_FOUND;
}

uint32_t registrySetPropertyAsULong(void *key, const char *name, uint32_t value) {
    const os::SystemError error =
        os::setRegistryValue(key, name, os::RegistryType::Number, &value, sizeof value);
    return error == os::kErrorNone ? ZANTLOG_STORE_OK : ZANTLOG_STORE_NOT_FOUND;
}

uint32_t registrySetPropertyAsBool(void *key, const char *name, uint32_t value) {
    return registrySetPropertyAsStr(key, name, value == 1 ? "true" : "false");
}

uint32_t registryRemoveProperty(void *key, const char *name) {
    return os::deleteRegistryValue(key, name) == os::kErrorNone ? ZANTLOG_STORE_OK : ZANTLOG_STORE_FAILED;
}

uint32_t registryRemovePropertyRoot(void *key, const char *root) {
    if (namesConfFile(root)) {
        return os::deleteFile(root) == os::kErrorNone ? ZANTLOG_STORE_OK : ZANTLOG_STORE_FAILED;
    }
    if (std::strchr(root, '\\') != nullptr) {
        return removeTreeByPath(root);
    }
    return removeTree(key, root);
}

uint32_t registryEnumKey(void *key, uint32_t index, char *buffer, uint32_t *length) {
    uint32_t size = *length;
    const os::SystemError error = os::enumRegistryKey(key, index, buffer, &size);
    if (error == os::kErrorNoMoreItems) {
        return ZANTLOG_STORE_NO_MORE;
    }
    if (error != os::kErrorNone) {
        return ZANTLOG_STORE_FAILED;
    }
    *length = size;
    return ZANTLOG_STORE_OK;
}

} // namespace zantlog
