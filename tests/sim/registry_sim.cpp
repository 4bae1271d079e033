// The registry, below the local machine's root.
#include "logfile/os/os_registry.h"

#include <cstring>

#include "tests/sim/faults.h"
#include "tests/sim/handles.h"
#include "tests/sim/registry.h"

namespace zantlog::os {

namespace {

struct KeyHandle : sim::Object {
    KeyHandle(sim::KeyPointer opened, bool writes) : key(std::move(opened)), mayWrite(writes) {}
    [[nodiscard]] const char *kind() const override { return "key"; }
    sim::KeyPointer key;
    bool mayWrite;
};

// The key of a handle: 6 for none, 5 for one that was not opened to be written.
SystemError keyOf(void *handle, bool toWrite, std::shared_ptr<KeyHandle> *out) {
    *out = sim::objectOf<KeyHandle>(handle);
    if (*out == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    return toWrite && !(*out)->mayWrite ? kErrorAccessDenied : kErrorNone;
}

SystemError opened(SystemError error, sim::KeyPointer key, bool mayWrite, void **handle) {
    if (error == kErrorNone) {
        *handle = sim::newHandle(std::make_shared<KeyHandle>(std::move(key), mayWrite));
    }
    return error;
}

} // namespace

SystemError openRegistryKey(const char *path, RegistryAccess access, void **key) {
    *key = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::OpenKey); verdict.fails()) {
        return verdict.error;
    }
    const bool toWrite = access == RegistryAccess::All;
    sim::KeyPointer found;
    const SystemError error = sim::findKey(path, toWrite, &found);
    return opened(error, found, toWrite, key);
}

SystemError createRegistryKey(const char *path, void **key) {
    *key = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::CreateKey); verdict.fails()) {
        return verdict.error;
    }
    sim::KeyPointer made;
    const SystemError error = sim::makeKey(path, &made);
    return opened(error, made, true, key);
}

void closeRegistryKey(void *key) {
    sim::enter(sim::Call::CloseKey);
    sim::closeHandle(key);
}

SystemError queryRegistryValue(void *key, const char *name, uint32_t *type, void *buffer, uint32_t *size) {
    const uint32_t capacity = buffer != nullptr ? *size : 0;
    *type = 0;
    *size = 0;
    std::shared_ptr<KeyHandle> handle;
    sim::RegistryValue value;
    SystemError error = sim::enter(sim::Call::QueryValue).error;
    error = error == kErrorNone ? keyOf(key, false, &handle) : error;
    error = error == kErrorNone ? sim::readValue(*handle->key, name, &value) : error;
    if (error != kErrorNone) {
        return error;
    }
    *type = value.type;
    *size = static_cast<uint32_t>(value.bytes.size());
    if (buffer == nullptr) {
        return kErrorNone;
    }
    if (capacity < value.bytes.size()) {
        return kErrorMoreData;
    }
    std::memcpy(buffer, value.bytes.data(), value.bytes.size());
    return kErrorNone;
}

SystemError setRegistryValue(void *key, const char *name, RegistryType type, const void *bytes,
                             uint32_t size) {
    std::shared_ptr<KeyHandle> handle;
    SystemError error = sim::enter(sim::Call::SetValue).error;
    error = error == kErrorNone ? keyOf(key, true, &handle) : error;
    if (error != kErrorNone) {
        return error;
    }
    const std::string content(static_cast<const char *>(bytes), size);
    return sim::writeValue(*handle->key, {name, static_cast<uint32_t>(type), content});
}

SystemError deleteRegistryValue(void *key, const char *name) {
    std::shared_ptr<KeyHandle> handle;
    SystemError error = sim::enter(sim::Call::DeleteValue).error;
    error = error == kErrorNone ? keyOf(key, true, &handle) : error;
    return error == kErrorNone ? sim::removeValue(*handle->key, name) : error;
}

SystemError enumRegistryKey(void *key, uint32_t index, char *buffer, uint32_t *length) {
    std::shared_ptr<KeyHandle> handle;
    std::string name;
    SystemError error = sim::enter(sim::Call::EnumKey).error;
    error = error == kErrorNone ? keyOf(key, false, &handle) : error;
    error = error == kErrorNone ? sim::subKeyAt(*handle->key, index, &name) : error;
    if (error != kErrorNone) {
        return error;
    }
    if (name.size() >= *length) {
        return kErrorMoreData;
    }
    std::memcpy(buffer, name.c_str(), name.size() + 1);
    *length = static_cast<uint32_t>(name.size());
    return kErrorNone;
}

SystemError deleteRegistryTree(void *key, const char *subKey) {
    std::shared_ptr<KeyHandle> handle;
    SystemError error = sim::enter(sim::Call::DeleteTree).error;
    error = error == kErrorNone ? keyOf(key, true, &handle) : error;
    return error == kErrorNone ? sim::removeTree(*handle->key, subKey) : error;
}

} // namespace zantlog::os
