// Each test process has one folder for its files; it goes when the process ends.
#pragma once

#include <string>

#include "tests/support/machine.h"

namespace zantlog::test {

// The process's folder, made by the test main, without a separator at the end.
const std::string &processFolder();

// A name inside the process's folder: "name" becomes "<folder><separator>name". Nothing is made.
std::string inProcessFolder(const std::string &name);

// A folder of its own inside the process's folder, removed with what it holds at the end of the scope.
class ScopedFolder {
public:
    ScopedFolder();
    ~ScopedFolder();
    ScopedFolder(const ScopedFolder &) = delete;
    ScopedFolder &operator=(const ScopedFolder &) = delete;

    // Without a separator at the end.
    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] std::string file(const std::string &name) const;

private:
    std::string path_;
};

// For the test main only.
void makeProcessFolder();
void removeProcessFolder();

} // namespace zantlog::test
