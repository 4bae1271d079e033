#include "tests/support/test_folder.h"

#include <atomic>
#include <cstdio>

#include "tests/support/files.h"

namespace zantlog::test {

namespace {

std::string &folder() {
    static std::string path;
    return path;
}

} // namespace

const std::string &processFolder() {
    return folder();
}

std::string inProcessFolder(const std::string &name) {
    return folder() + '\\' + name;
}

ScopedFolder::ScopedFolder() {
    static std::atomic<int> count{0};
    path_ = inProcessFolder("folder" + std::to_string(++count));
    makeFolder(path_);
}

ScopedFolder::~ScopedFolder() {
    removeFolderTree(path_);
}

std::string ScopedFolder::file(const std::string &name) const {
    return path_ + '\\' + name;
}

void makeProcessFolder() {
    folder() = temporaryFolder() + "\\zantlog-test-" + std::to_string(ownProcessId());
    // What a crashed process of the same number left must not be met.
    removeFolderTree(folder());
    makeFolder(folder());
}

void removeProcessFolder() {
    removeFolderTree(folder());
    if (fileExists(folder())) {
        std::fprintf(stderr, "cannot remove %s\n", folder().c_str());
    }
}

} // namespace zantlog::test
