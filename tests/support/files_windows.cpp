#include "tests/support/files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <system_error>

#include <windows.h>

namespace zantlog::test {

namespace {

constexpr int64_t kUnitsPerSecond = 10000000;            // of 100 ns
constexpr int64_t kUnitsBefore1970 = 116444736000000000; // since 1601

} // namespace

std::vector<std::string> fileNames(const std::string &folder) {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string fileBytes(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFileBytes(const std::string &path, const std::string &bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file.good()) << path;
}

void appendFileBytes(const std::string &path, const std::string &bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << bytes;
    EXPECT_TRUE(file.good()) << path;
}

bool fileExists(const std::string &path) {
    return std::filesystem::exists(path);
}

uint64_t fileLength(const std::string &path) {
    return std::filesystem::file_size(path);
}

void setFileLength(const std::string &path, uint64_t length) {
    std::filesystem::resize_file(path, length);
}

bool removeFile(const std::string &path) {
    std::error_code error;
    return std::filesystem::remove(path, error);
}

bool makeFolder(const std::string &path) {
    return std::filesystem::create_directory(path);
}

void removeFolderTree(const std::string &path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

int64_t lastWriteTime(const std::string &path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_TRUE(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data)) << path;
    const uint64_t units =
        static_cast<uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32 | data.ftLastWriteTime.dwLowDateTime;
    return (static_cast<int64_t>(units) - kUnitsBefore1970) / kUnitsPerSecond;
}

void setLastWriteTime(const std::string &path, int64_t seconds) {
    const auto units = static_cast<uint64_t>(seconds * kUnitsPerSecond + kUnitsBefore1970);
    const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    HANDLE file = CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              0, nullptr);
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time)) << path;
    CloseHandle(file);
}

std::string currentFolder() {
    return std::filesystem::current_path().string();
}

void setCurrentFolder(const std::string &path) {
    std::filesystem::current_path(path);
}

std::string temporaryFolder() {
    std::string folder = std::filesystem::temp_directory_path().string();
    if (folder.back() == '\\') {
        folder.pop_back();
    }
    return folder;
}

} // namespace zantlog::test
