// Creation of a directory with all its parents.
#include "logfile/os/directory_tree.h"
#include "tests/os/contract_folder.h"

#include <gtest/gtest.h>

namespace zantlog::test {

namespace {

bool isFolder(const std::string &path) {
    os::FileStatus status{};
    return os::fileStatus(path.c_str(), &status) == os::kErrorNone && !status.regular;
}

class DirectoryTree : public testing::Test {
protected:
    const std::string folder = makeContractFolder();

    uint32_t create(const std::string &below) {
        return createDirectoryTree((folder + below).c_str(), nullptr);
    }
};

TEST_F(DirectoryTree, AllParentsAreCreated) {
    EXPECT_EQ(create("\\a\\b\\c"), 0u);
    EXPECT_TRUE(isFolder(folder + "\\a\\b\\c"));
}

TEST_F(DirectoryTree, SeparatorAtTheEndChangesNothing) {
    EXPECT_EQ(create("\\a\\b\\"), 0u);
    EXPECT_TRUE(isFolder(folder + "\\a\\b"));
}

TEST_F(DirectoryTree, ExistingFoldersAreLeftAlone) {
    EXPECT_EQ(create("\\a"), 0u);
    ASSERT_TRUE(putFile(folder + "\\a\\file.log", "x"));
    EXPECT_EQ(create("\\a\\b"), 0u);
    EXPECT_EQ(create("\\a\\b"), 0u);
    EXPECT_EQ(fileContent(folder + "\\a\\file.log"), "x");
}

TEST_F(DirectoryTree, FileHigherUpFailsWith1) {
    ASSERT_TRUE(putFile(folder + "\\a", "x"));
    EXPECT_EQ(create("\\a\\b"), 1u);
}

TEST_F(DirectoryTree, FileInItsPlaceIsTakenForExisting) {
    ASSERT_TRUE(putFile(folder + "\\a", "x"));
    EXPECT_EQ(create("\\a"), 0u);
    EXPECT_FALSE(isFolder(folder + "\\a"));
}

TEST_F(DirectoryTree, DriveThatDoesNotExistFailsWith1) {
    EXPECT_EQ(createDirectoryTree("Q:\\logs", nullptr), 1u);
}

TEST_F(DirectoryTree, NameThatCannotBeFailsWith1) {
    EXPECT_EQ(create("\\a<b\\c"), 1u);
}

TEST_F(DirectoryTree, PathsOf1025CharactersAndMoreAre3) {
    // A name that the system refuses follows the first folder, so that no deeper one is made.
    std::string path = folder + "\\x\\<";
    path.resize(1025, 'y');
    EXPECT_EQ(createDirectoryTree(path.c_str(), nullptr), 3u);
    EXPECT_FALSE(isFolder(folder + "\\x"));
    path.resize(1024);
    EXPECT_EQ(createDirectoryTree(path.c_str(), nullptr), 1u);
    EXPECT_TRUE(isFolder(folder + "\\x"));
}

TEST_F(DirectoryTree, NullPathIs3) {
    EXPECT_EQ(createDirectoryTree(nullptr, nullptr), 3u);
}

TEST_F(DirectoryTree, DriveAloneIsNothingToCreate) {
    EXPECT_EQ(createDirectoryTree("", nullptr), 0u);
    EXPECT_EQ(createDirectoryTree("Q:\\", nullptr), 0u);
}

TEST_F(DirectoryTree, FifthCharacterIsTheFirstThatCanEndAName) {
    // The prefix up to index 3 is never created, so a drive without folders needs none.
    EXPECT_EQ(createDirectoryTree("abc", nullptr), 0u);
    EXPECT_FALSE(isFolder("abc"));
}

TEST_F(DirectoryTree, SecurityTextIsForAllOfThem) {
    EXPECT_EQ(createDirectoryTree((folder + "\\a\\b").c_str(), "D:(A;OICI;GA;;;WD)"), 0u);
    EXPECT_EQ(createDirectoryTree((folder + "\\c\\d").c_str(), "no descriptor"), 0u);
    EXPECT_TRUE(isFolder(folder + "\\a\\b"));
    EXPECT_TRUE(isFolder(folder + "\\c\\d"));
}

} // namespace

} // namespace zantlog::test
