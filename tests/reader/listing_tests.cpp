// Directory listings and file entries.
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

#include "tests/support/log_folder.h"
#include "tests/support/machine.h"
#include "tests/support/test_folder.h"
#include "zantlog/discovery.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog::test;

constexpr uint32_t kFailed = 4294967295u;
constexpr uint32_t kWithoutArgument = 4294967293u;

class Listing : public testing::Test {
protected:
    ~Listing() override { zantLogOsListLogFilesEnd(&listing); }

    void make(const std::string &name, const std::string &bytes = "") {
        writeFileBytes(folder_.file(name), bytes);
    }
    [[nodiscard]] std::string directory() const { return folder_.file(""); }
    uint32_t begin() { return zantLogOsListLogFilesBegin(&listing, directory().c_str()); }

    zantLogListing listing{};

private:
    ScopedFolder folder_;
};

TEST_F(Listing, GivesEveryLogFileOnceAndNothingElse) {
    for (const char *name : {"a.log", "b.log", "12-3-1-251115-0000000000.log", "c.txt", "log", "d.log.bak"}) {
        make(name);
    }
    std::multiset<std::string> names;
    uint32_t result = begin();
    while (result == 0) {
        names.insert(zantLogOsListLogFilesName(&listing));
        result = zantLogOsListLogFilesNext(&listing);
    }
    EXPECT_EQ(result, 1u);
    EXPECT_EQ(names, (std::multiset<std::string>{"12-3-1-251115-0000000000.log", "a.log", "b.log"}));
}

TEST_F(Listing, OfADirectoryWithoutLogFilesFindsNone) {
    make("a.txt");
    EXPECT_EQ(begin(), 1u);
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), kFailed);
}

TEST_F(Listing, OfAMissingDirectoryFails) {
    EXPECT_EQ(zantLogOsListLogFilesBegin(&listing, (directory() + "missing\\deeper\\").c_str()), kFailed);
}

TEST_F(Listing, PutsThePatternRightBehindTheDirectory) {
    make("a.log");
    make("prefix-b.log");
    ASSERT_EQ(zantLogOsListLogFilesBegin(&listing, (directory() + "prefix").c_str()), 0u);
    EXPECT_STREQ(zantLogOsListLogFilesName(&listing), "prefix-b.log");
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), 1u);
}

TEST_F(Listing, OfAnOverlongDirectoryFails) {
    EXPECT_EQ(zantLogOsListLogFilesBegin(&listing, std::string(5000, 'd').c_str()), kFailed);
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), kFailed);
}

TEST_F(Listing, StaysAtItsEnd) {
    make("a.log");
    ASSERT_EQ(begin(), 0u);
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), 1u);
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), 1u);
}

TEST_F(Listing, EndsOnceAndCanBeginAgain) {
    make("a.log");
    ASSERT_EQ(begin(), 0u);
    EXPECT_EQ(zantLogOsListLogFilesEnd(&listing), 0u);
    EXPECT_EQ(listing.find, nullptr);
    EXPECT_EQ(zantLogOsListLogFilesEnd(&listing), 0u);
    EXPECT_EQ(zantLogOsListLogFilesNext(&listing), kFailed);
    ASSERT_EQ(begin(), 0u);
    EXPECT_STREQ(zantLogOsListLogFilesName(&listing), "a.log");
}

TEST_F(Listing, ABeginThatFailedLeavesNothingToEnd) {
    std::memset(&listing, 0xAA, sizeof listing);
    EXPECT_EQ(zantLogOsListLogFilesBegin(&listing, (directory() + "missing\\deeper\\").c_str()), kFailed);
    EXPECT_EQ(listing.find, nullptr);
    EXPECT_EQ(zantLogOsListLogFilesEnd(&listing), 0u);
    std::memset(&listing, 0xAA, sizeof listing);
    EXPECT_EQ(zantLogOsListLogFilesBegin(&listing, nullptr), kWithoutArgument);
    EXPECT_EQ(listing.find, nullptr);
    EXPECT_EQ(zantLogOsListLogFilesEnd(&listing), 0u);
}

TEST_F(Listing, WithoutArgumentsIsAnswered) {
    EXPECT_EQ(zantLogOsListLogFilesBegin(nullptr, "C:\\"), kWithoutArgument);
    EXPECT_EQ(zantLogOsListLogFilesBegin(&listing, nullptr), kWithoutArgument);
    EXPECT_EQ(zantLogOsListLogFilesNext(nullptr), kWithoutArgument);
    EXPECT_EQ(zantLogOsListLogFilesEnd(nullptr), kWithoutArgument);
    EXPECT_EQ(zantLogOsListLogFilesName(nullptr), nullptr);
}

int64_t secondsSince1970(const zantLogFileTime &time) {
    const uint64_t units = (static_cast<uint64_t>(time.high) << 32) + time.low;
    return static_cast<int64_t>(units / 10000000) - 11644473600;
}

TEST_F(Listing, CopiesTheCurrentFile) {
    const int64_t before = secondsNow();
    make("a.log", "12345");
    const int64_t after = secondsNow();
    ASSERT_EQ(begin(), 0u);
    zantLogListCopy copy;
    std::memset(&copy, 0xAA, sizeof copy);
    CopyLogOsListLogFiles(&listing, &copy);
    EXPECT_STREQ(copy.name, "a.log");
    EXPECT_EQ(copy.size, 5u);
    EXPECT_EQ(copy.attributes & 0x10u, 0u); // no directory
    EXPECT_GE(secondsSince1970(copy.lastWrite), before - 1);
    EXPECT_LE(secondsSince1970(copy.lastWrite), after + 1);
    EXPECT_GE(secondsSince1970(copy.creation), before - 1);
    EXPECT_LE(secondsSince1970(copy.creation), after + 1);
}

// ---- what is copied from a listing, whatever the file system says

zantLogListing listingOf(const std::string &name) {
    zantLogListing listing{};
    name.copy(listing.data.name, sizeof listing.data.name - 1);
    listing.data.attributes = 0x20;
    // 1763249000 s are 134077226000000000 units of 100 ns since 1601.
    constexpr uint64_t kCreation = 134077226000000000;
    listing.data.creation = {static_cast<uint32_t>(kCreation), static_cast<uint32_t>(kCreation >> 32)};
    listing.data.lastAccess = {1, 2};
    listing.data.lastWrite = {3, 4};
    listing.data.sizeHigh = 1;
    listing.data.sizeLow = 5;
    return listing;
}

TEST(ListingCopy, HasEveryFieldOfTheListing) {
    const zantLogListing listing = listingOf("a.log");
    zantLogListCopy copy;
    std::memset(&copy, 0xAA, sizeof copy);
    CopyLogOsListLogFiles(&listing, &copy);
    EXPECT_STREQ(copy.name, "a.log");
    EXPECT_EQ(copy.attributes, 0x20u);
    EXPECT_EQ(copy.creation.low, listing.data.creation.low);
    EXPECT_EQ(copy.creation.high, listing.data.creation.high);
    EXPECT_EQ(copy.lastWrite.low, 3u);
    EXPECT_EQ(copy.lastWrite.high, 4u);
    EXPECT_EQ(copy.size, 4294967301u);
}

TEST(ListingCopy, WithoutArgumentsDoesNothing) {
    const zantLogListing listing = listingOf("a.log");
    zantLogListCopy copy;
    std::memset(&copy, 0xAA, sizeof copy);
    CopyLogOsListLogFiles(nullptr, &copy);
    CopyLogOsListLogFiles(&listing, nullptr);
    EXPECT_EQ(copy.attributes, 0xAAAAAAAAu);
}

TEST(FileEntry, HoldsNameAndCreationTimeAndIsOtherwiseClear) {
    zantLogListing listing = listingOf("12-3-1-251115-0000000000.log");
    LogFileEntry *entry = alloc_file(&listing);
    ASSERT_NE(entry, nullptr);
    EXPECT_STREQ(entry->name, "12-3-1-251115-0000000000.log");
    EXPECT_EQ(entry->creationTime, 1763249000);
    EXPECT_EQ(entry->next, nullptr);
    EXPECT_EQ(entry->version, 0u);
    EXPECT_EQ(entry->tzOffset, 0);
    EXPECT_EQ(entry->file.file, nullptr);
    EXPECT_EQ(entry->file.mutex, nullptr);
    EXPECT_EQ(entry->file.position, 0);
    EXPECT_EQ(entry->file.length, 0);
    EXPECT_STREQ(entry->directory, "");
    EXPECT_EQ(entry->directory[1024], '\0');
    zantLogFree(entry);
}

TEST(FileEntry, HoldsNamesOfEveryLength) {
    for (size_t length = 0; length < 260; ++length) {
        zantLogListing listing = listingOf(std::string(length, 'n'));
        LogFileEntry *entry = alloc_file(&listing);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(std::string(entry->name), std::string(length, 'n'));
        zantLogFree(entry);
    }
}

TEST(FileEntry, CreationTimesAreWholeSeconds) {
    zantLogListing listing = listingOf("a.log");
    constexpr uint64_t kJustBeforeTheNext = 134077226009999999;
    listing.data.creation = {static_cast<uint32_t>(kJustBeforeTheNext),
                             static_cast<uint32_t>(kJustBeforeTheNext >> 32)};
    LogFileEntry *entry = alloc_file(&listing);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->creationTime, 1763249000);
    zantLogFree(entry);
    constexpr uint64_t kEpoch = 116444736000000000;
    listing.data.creation = {static_cast<uint32_t>(kEpoch), static_cast<uint32_t>(kEpoch >> 32)};
    entry = alloc_file(&listing);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->creationTime, 0);
    zantLogFree(entry);
    listing.data.creation = {0, 0};
    entry = alloc_file(&listing);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->creationTime, -11644473600);
    zantLogFree(entry);
}

TEST(FileEntry, CreationTimesBeyondTheCalendarDoNoHarm) {
    zantLogListing listing = listingOf("a.log");
    listing.data.creation = {0, 0x80000000u};
    LogFileEntry *entry = alloc_file(&listing);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->creationTime, 910692730085); // 30828-09-14
    zantLogFree(entry);
}

TEST(FileEntry, WithoutAListingIsNone) {
    EXPECT_EQ(alloc_file(nullptr), nullptr);
}

} // namespace
