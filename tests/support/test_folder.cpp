#include "tests/support/test_folder.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

namespace zantlog::test {

namespace {

#if defined(_WIN32)
constexpr char kSeparator = '\\';
int processId() {
    return _getpid();
}
#else
constexpr char kSeparator = '/';
int processId() {
    return getpid();
}
#endif

std::string &folder() {
    static std::string path;
    return path;
}

} // namespace

const std::string &processFolder() {
    return folder();
}

std::string inProcessFolder(const std::string &name) {
    return folder() + kSeparator + name;
}

ScopedFolder::ScopedFolder() {
    static std::atomic<int> count{0};
    path_ = inProcessFolder("folder" + std::to_string(++count));
    std::filesystem::create_directory(path_);
}

ScopedFolder::~ScopedFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScopedFolder::file(const std::string &name) const {
    return path_ + kSeparator + name;
}

void setEnvironment(const char *name, const char *value) {
#if defined(_WIN32)
    // An empty value removes the variable; the runtime passes both on to the system.
    _putenv_s(name, value != nullptr ? value : "");
#else
    if (value != nullptr) {
        setenv(name, value, 1);
    } else {
        unsetenv(name);
    }
#endif
}

void makeProcessFolder() {
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    const std::filesystem::path path = base / ("zantlog-test-" + std::to_string(processId()));
    // What a crashed process of the same number left must not be met.
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
    folder() = path.string();
}

void removeProcessFolder() {
    std::error_code error;
    std::filesystem::remove_all(folder(), error);
    if (error) {
        std::fprintf(stderr, "cannot remove %s: %s\n", folder().c_str(), error.message().c_str());
    }
}

} // namespace zantlog::test
