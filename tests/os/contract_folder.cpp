#include "tests/os/contract_folder.h"

#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace zantlog::test {

std::string makeContractFolder() {
    static int count = 0;
    std::string path = processFolder() + "\\contract" + std::to_string(++count);
    EXPECT_EQ(os::createDirectory(path.c_str(), nullptr), os::kErrorNone);
    return path;
}

OpenFile::OpenFile(const std::string &path, os::FileMode mode, const char *sddl)
    : error_(os::openFile(path.c_str(), mode, sddl, &file_)) {}

OpenFile::~OpenFile() {
    if (file_ != nullptr) {
        os::closeFile(file_);
    }
}

uint64_t OpenFile::size() const {
    uint64_t size = UINT64_MAX;
    EXPECT_EQ(os::fileSize(file_, &size), os::kErrorNone);
    return size;
}

bool putFile(const std::string &path, const std::string &content) {
    const OpenFile file(path, os::FileMode::Truncate);
    uint32_t written = 0;
    const auto count = static_cast<uint32_t>(content.size());
    return file.error() == os::kErrorNone &&
           os::writeFile(file.get(), content.data(), count, &written) == os::kErrorNone && written == count;
}

std::string fileContent(const std::string &path) {
    const OpenFile file(path, os::FileMode::Read);
    if (file.error() != os::kErrorNone) {
        return "<unreadable>";
    }
    std::string content;
    char block[4096];
    uint32_t read = 0;
    while (os::readFile(file.get(), block, sizeof(block), &read) == os::kErrorNone && read != 0) {
        content.append(block, read);
    }
    return content;
}

} // namespace zantlog::test
