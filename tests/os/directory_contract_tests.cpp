// What every implementation of the seam promises of directory listings.
#include "logfile/os/os_directory.h"
#include "tests/os/contract_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace zantlog::test {

namespace {

using namespace zantlog::os;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class DirectoryContract : public testing::Test {
protected:
    const std::string folder = makeContractFolder();

    std::vector<std::string> listing(const std::string &pattern) {
        std::vector<std::string> names;
        void *find = nullptr;
        zantLogFindData data{};
        SystemError error = findFirst((folder + "\\" + pattern).c_str(), &find, &data);
        while (error == kErrorNone) {
            names.emplace_back(data.name);
            error = findNext(find, &data);
        }
        lastError = error;
        if (find != nullptr) {
            findClose(find);
        }
        return names;
    }

    SystemError lastError = kErrorNone;
};

TEST_F(DirectoryContract, ListsWhatMatchesAndEndsWith18) {
    for (const char *name : {"\\b.log", "\\a.log", "\\a.txt", "\\log"}) {
        ASSERT_TRUE(putFile(folder + name, "x"));
    }
    EXPECT_THAT(listing("*.log"), UnorderedElementsAre("a.log", "b.log"));
    EXPECT_EQ(lastError, 18u);
}

TEST_F(DirectoryContract, PatternIgnoresCase) {
    ASSERT_TRUE(putFile(folder + "\\A.LOG", "x"));
    EXPECT_THAT(listing("*.log"), ElementsAre("A.LOG"));
}

TEST_F(DirectoryContract, NameWithoutWildcardsIsFoundAlone) {
    ASSERT_TRUE(putFile(folder + "\\a.log", "x"));
    ASSERT_TRUE(putFile(folder + "\\ab.log", "x"));
    EXPECT_THAT(listing("a.log"), ElementsAre("a.log"));
}

TEST_F(DirectoryContract, NoMatchIs2) {
    void *find = this;
    zantLogFindData data{};
    EXPECT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), 2u);
    EXPECT_EQ(find, nullptr);
}

TEST_F(DirectoryContract, MissingFolderIs3) {
    void *find = this;
    zantLogFindData data{};
    EXPECT_EQ(findFirst((folder + "\\nowhere\\*.log").c_str(), &find, &data), 3u);
    EXPECT_EQ(find, nullptr);
}

TEST_F(DirectoryContract, FoldersAreListedAndMarked) {
    ASSERT_EQ(createDirectory((folder + "\\sub.log").c_str(), nullptr), kErrorNone);
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), kErrorNone);
    findClose(find);
    EXPECT_STREQ(data.name, "sub.log");
    EXPECT_EQ(data.attributes & 0x10u, 0x10u);
}

TEST_F(DirectoryContract, DataCarriesSizeAndTimes) {
    ASSERT_TRUE(putFile(folder + "\\a.log", "12345"));
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), kErrorNone);
    findClose(find);
    EXPECT_EQ(data.sizeHigh, 0u);
    EXPECT_EQ(data.sizeLow, 5u);
    EXPECT_EQ(data.attributes & 0x10u, 0u);
    // 2020-01-01 in 100 ns units since 1601.
    EXPECT_GT(uint64_t{data.creation.high} << 32 | data.creation.low, 132223104000000000u);
    EXPECT_GT(uint64_t{data.lastWrite.high} << 32 | data.lastWrite.low, 132223104000000000u);
}

} // namespace

} // namespace zantlog::test
