#include "tests/support/files.h"

#include <gtest/gtest.h>

#include "tests/sim/clock.h"
#include "tests/sim/files.h"
#include "tests/sim/volume.h"

namespace zantlog::test {

std::vector<std::string> fileNames(const std::string &folder) {
    return sim::namesIn(folder);
}

std::string fileBytes(const std::string &path) {
    EXPECT_TRUE(sim::exists(path)) << path;
    return sim::exists(path) ? sim::bytesOf(path) : "";
}

void writeFileBytes(const std::string &path, const std::string &bytes) {
    EXPECT_TRUE(sim::putFile(path, bytes)) << path;
}

void appendFileBytes(const std::string &path, const std::string &bytes) {
    EXPECT_TRUE(sim::appendToFile(path, bytes)) << path;
}

bool fileExists(const std::string &path) {
    return sim::exists(path);
}

uint64_t fileLength(const std::string &path) {
    return sim::sizeOfFile(path);
}

void setFileLength(const std::string &path, uint64_t length) {
    EXPECT_TRUE(sim::resizeFile(path, length)) << path;
}

bool removeFile(const std::string &path) {
    return sim::removeOne(path);
}

bool makeFolder(const std::string &path) {
    return sim::makeFolder(path, nullptr) == os::kErrorNone;
}

void removeFolderTree(const std::string &path) {
    sim::removeAll(path);
}

int64_t lastWriteTime(const std::string &path) {
    return sim::lastWriteTimeOf(path) / sim::kUnitsPerSecond;
}

void setLastWriteTime(const std::string &path, int64_t seconds) {
    sim::setLastWriteTime(path, seconds * sim::kUnitsPerSecond);
}

std::string currentFolder() {
    return sim::currentFolder();
}

void setCurrentFolder(const std::string &path) {
    EXPECT_TRUE(sim::setCurrentFolder(path)) << path;
}

std::string temporaryFolder() {
    return "C:\\Temp";
}

} // namespace zantlog::test
