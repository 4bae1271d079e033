// What the property store does not tell of files and of the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zantlog::tools {

enum class Access { there, missing, denied };

// Of a registry path below HKEY_LOCAL_MACHINE, or of a file.
Access accessTo(const std::string &location);

struct RegistryValue {
    std::string name;
    std::string type; // "REG_SZ", "REG_DWORD" or "type N"
    std::string text; // of REG_SZ and REG_DWORD
};

// Values of a key; empty when it cannot be read.
std::vector<RegistryValue> registryValues(const std::string &path);

// Whether Windows reads the text as a security descriptor.
bool isSecurityDescriptor(const std::string &sddl);

// While it lives, no other configuration tool of this machine changes the store.
class StoreLock {
public:
    explicit StoreLock(const std::string &location);
    ~StoreLock();
    StoreLock(const StoreLock &) = delete;
    StoreLock &operator=(const StoreLock &) = delete;

private:
    void *mutex_ = nullptr;
};

} // namespace zantlog::tools
