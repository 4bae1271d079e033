// Files of the simulated machine, as tests make, look at and spoil them. Paths are Windows'.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zantlog::sim {

// The drive C: is there, with room without end.
void addDrive(char letter);
void removeDrive(char letter);

constexpr uint64_t kNoLimit = UINT64_MAX;

// Room on the disk of a drive from now on. As long as there is too little for all bytes of a write, nothing
// of it is written and it fails with 112, as on NTFS; or as much as there is room for is written first, as
// Wine does.
void setRoom(uint64_t bytes, char drive = 'C');
void writeInPartOnAFullDisk(bool inPart);
uint64_t roomLeft(char drive = 'C');

enum class ListingOrder { ByName, ByNameDownwards, ByCreation, Shuffled };
void setListingOrder(ListingOrder order, uint32_t seed = 1);

// Another program's hold on a file, for as long as it lives: with access (1 read, 2 write) of its own, and
// leaving others the shared one (1 read, 2 write, 4 delete).
struct Opening;
class Hold {
public:
    Hold(const std::string &path, uint32_t access, uint32_t share);
    ~Hold();
    Hold(const Hold &) = delete;
    Hold &operator=(const Hold &) = delete;
    [[nodiscard]] bool held() const { return opening_ != nullptr; }

private:
    std::shared_ptr<Opening> opening_;
};

bool exists(const std::string &path);
bool isFolder(const std::string &path);
bool putFile(const std::string &path, const std::string &bytes);
bool appendToFile(const std::string &path, const std::string &bytes);
std::string bytesOf(const std::string &path); // "<none>" when there is no such file
uint64_t sizeOfFile(const std::string &path);
bool resizeFile(const std::string &path, uint64_t size);
bool makeFolders(const std::string &path); // with all above it
bool removeAll(const std::string &path);   // with all below it, open or not; false when there is nothing
bool removeOne(const std::string &path);   // a file, or an empty folder
std::vector<std::string> namesIn(const std::string &folder); // in ascending order

// Units of 100 ns since 1970.
int64_t creationTimeOf(const std::string &path);
int64_t lastWriteTimeOf(const std::string &path);
void setCreationTime(const std::string &path, int64_t units);
void setLastWriteTime(const std::string &path, int64_t units);

uint32_t attributesOf(const std::string &path);
void setAttributes(const std::string &path, uint32_t attributes);
std::string securityOf(const std::string &path);

std::string currentFolder();
bool setCurrentFolder(const std::string &path);

} // namespace zantlog::sim
