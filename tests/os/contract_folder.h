// A folder for the contract tests of the seam, made and filled through the seam alone.
#pragma once

#include <cstdint>
#include <string>

#include "logfile/os/os_file.h"

namespace zantlog::test {

// A new folder inside the process's folder, without a separator at the end.
std::string makeContractFolder();

// Writes `content` as the whole of a file; false on any failure.
[[nodiscard]] bool putFile(const std::string &path, const std::string &content);

// What a file holds; "<unreadable>" when it cannot be opened.
std::string fileContent(const std::string &path);

// Closes the file at the end of the scope.
class OpenFile {
public:
    OpenFile(const std::string &path, os::FileMode mode, const char *sddl = nullptr);
    ~OpenFile();
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    [[nodiscard]] os::SystemError error() const { return error_; }
    [[nodiscard]] void *get() const { return file_; }
    [[nodiscard]] uint64_t size() const;

private:
    void *file_ = nullptr; // before the error: opening stores both
    os::SystemError error_;
};

} // namespace zantlog::test
