#include "tools/qzlogcfg/system_store.h"

#include <windows.h>

#include <sddl.h>

#include <filesystem>
#include <fstream>

#include "tools/common/ascii.h"
#include "tools/common/command_line.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/store_section.h"

namespace zantlog::tools {

namespace {

// Closes itself.
struct Key {
    HKEY handle = nullptr;
    explicit Key(const std::string &path)
        : error(RegOpenKeyExW(HKEY_LOCAL_MACHINE, wideFromUtf8(path).c_str(), 0, KEY_READ, &handle)) {}
    ~Key() {
        if (handle != nullptr) {
            RegCloseKey(handle);
        }
    }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;
    LSTATUS error;
};

Access accessOfFile(const std::string &path) {
    const std::filesystem::path file(wideFromUtf8(path));
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return Access::missing;
    }
    return std::ifstream(file).is_open() ? Access::there : Access::denied;
}

RegistryValue makeValue(const std::wstring &name, DWORD type, const std::vector<BYTE> &data) {
    RegistryValue value;
    value.name = utf8FromWide(name);
    if (type == REG_SZ) {
        value.type = "REG_SZ";
        std::wstring text(reinterpret_cast<const wchar_t *>(data.data()), data.size() / sizeof(wchar_t));
        text.erase(std::min(text.find(L'\0'), text.size()));
        value.text = utf8FromWide(text);
    } else if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        value.type = "REG_DWORD";
        value.text = std::to_string(*reinterpret_cast<const DWORD *>(data.data()));
    } else {
        value.type = "type " + std::to_string(type);
    }
    return value;
}

// Of a name for a mutex: the same for every spelling of the location's case.
uint64_t hashOf(const std::string &text) {
    uint64_t hash = 0xcbf29ce484222325u;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
    }
    return hash;
}

} // namespace

Access accessTo(const std::string &location) {
    if (isConfFile(location)) {
        return accessOfFile(location);
    }
    const Key key(location);
    if (key.error == ERROR_SUCCESS) {
        return Access::there;
    }
    return key.error == ERROR_FILE_NOT_FOUND ? Access::missing : Access::denied;
}

std::vector<RegistryValue> registryValues(const std::string &path) {
    constexpr DWORD kNameCapacity = 16384;
    const Key key(path);
    std::vector<RegistryValue> values;
    DWORD longest = 0;
    if (key.error != ERROR_SUCCESS ||
        RegQueryInfoKeyW(key.handle, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         &longest, nullptr, nullptr) != ERROR_SUCCESS) {
        return values;
    }
    std::wstring name(kNameCapacity, L'\0');
    for (DWORD index = 0;; ++index) {
        std::vector<BYTE> data(longest + sizeof(wchar_t));
        DWORD nameLength = kNameCapacity;
        DWORD dataLength = longest;
        DWORD type = 0;
        const LSTATUS error = RegEnumValueW(key.handle, index, name.data(), &nameLength, nullptr, &type,
                                            data.data(), &dataLength);
        if (error != ERROR_SUCCESS) {
            return values;
        }
        data.resize(dataLength);
        values.push_back(makeValue(name.substr(0, nameLength), type, data));
    }
}

bool isSecurityDescriptor(const std::string &sddl) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(wideFromUtf8(sddl).c_str(), SDDL_REVISION_1,
                                                             &descriptor, nullptr) == 0) {
        return false;
    }
    LocalFree(descriptor);
    return true;
}

StoreLock::StoreLock(const std::string &location) {
    constexpr DWORD kPatience = 30000;
    const std::wstring name = L"Global\\qzlogcfg-" + std::to_wstring(hashOf(lowered(location)));
    mutex_ = CreateMutexW(nullptr, FALSE, name.c_str());
    // A tool that died left a whole store: each of its changes was one step.
    const DWORD outcome = mutex_ != nullptr ? WaitForSingleObject(mutex_, kPatience) : WAIT_FAILED;
    if (outcome != WAIT_OBJECT_0 && outcome != WAIT_ABANDONED) {
        if (mutex_ != nullptr) {
            CloseHandle(mutex_);
        }
        throw ToolError(kExitNotAccessible, "another program is changing " + location + "; try again");
    }
}

StoreLock::~StoreLock() {
    ReleaseMutex(mutex_);
    CloseHandle(mutex_);
}

} // namespace zantlog::tools
