// Files of the machine that a test runs on. The native build's are those of the simulated machine.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zantlog::test {

// Names of the files in a folder, in ascending order.
std::vector<std::string> fileNames(const std::string &folder);

// All bytes of a file; a missing file fails the test and gives an empty text.
std::string fileBytes(const std::string &path);

void writeFileBytes(const std::string &path, const std::string &bytes);
void appendFileBytes(const std::string &path, const std::string &bytes);

bool fileExists(const std::string &path); // or a folder
uint64_t fileLength(const std::string &path);
void setFileLength(const std::string &path, uint64_t length); // what is new is zero, and takes no room

// A file or an empty folder; false when there is none, or somebody has it open.
bool removeFile(const std::string &path);

bool makeFolder(const std::string &path);       // false when it is there already
void removeFolderTree(const std::string &path); // with all below it; a missing one is no matter

// Seconds since 1970-01-01 00:00 UTC.
int64_t lastWriteTime(const std::string &path);
void setLastWriteTime(const std::string &path, int64_t seconds);

std::string currentFolder();
void setCurrentFolder(const std::string &path);

// The machine's folder for temporary files, without a separator at the end.
std::string temporaryFolder();

} // namespace zantlog::test
