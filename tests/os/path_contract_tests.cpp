// What every implementation of the seam promises of paths and patterns.
#include "logfile/os/os_directory.h"
#include "logfile/os/os_file.h"
#include "tests/os/contract_folder.h"
#include "tests/support/files.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace zantlog::test {

namespace {

using namespace zantlog::os;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class PathContract : public testing::Test {
protected:
    SystemError statusOf(const std::string &below) {
        FileStatus status{};
        return fileStatus((folder + below).c_str(), &status);
    }
    std::vector<std::string> listing(const std::string &pattern, SystemError *first = nullptr) {
        std::vector<std::string> names;
        void *find = nullptr;
        zantLogFindData data{};
        SystemError error = findFirst((folder + "\\" + pattern).c_str(), &find, &data);
        if (first != nullptr) {
            *first = error;
        }
        while (error == kErrorNone) {
            names.emplace_back(data.name);
            error = findNext(find, &data);
        }
        if (find != nullptr) {
            findClose(find);
        }
        return names;
    }

    const std::string folder = makeContractFolder();
    const std::string path = folder + "\\file.log";
};

TEST_F(PathContract, CaseOfNamesIsIgnoredAndKept) {
    ASSERT_TRUE(putFile(folder + "\\File.Log", "first"));
    EXPECT_EQ(fileContent(folder + "\\FILE.lOG"), "first");
    ASSERT_TRUE(putFile(path, "second"));
    EXPECT_THAT(listing("*.log"), ElementsAre("File.Log"));
    EXPECT_EQ(fileContent(folder + "\\File.Log"), "second");
}

TEST_F(PathContract, SlashSeparatesToo) {
    std::string slashes = path;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    ASSERT_TRUE(putFile(slashes, "x"));
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(PathContract, DotsAndDoubledSeparatorsAreTakenOut) {
    ASSERT_EQ(createDirectory((folder + "\\sub").c_str(), nullptr), kErrorNone);
    ASSERT_TRUE(putFile(folder + "\\.\\sub\\..\\\\file.log", "x"));
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(PathContract, DotsAndBlanksAtTheEndOfANameAreDropped) {
    ASSERT_TRUE(putFile(folder + "\\file.log. .", "x"));
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(PathContract, CharactersThatNoNameHasAre123) {
    for (const char character : std::string("<>\"|?*\x01")) {
        const std::string name = folder + "\\a" + character + "b.log";
        EXPECT_EQ(OpenFile(name, FileMode::Append).error(), 123u) << name;
        EXPECT_EQ(createDirectory(name.c_str(), nullptr), 123u) << name;
        EXPECT_EQ(deleteFile(name.c_str()), 123u) << name;
    }
}

TEST_F(PathContract, SeparatorBehindAFolderIsNoMatter) {
    EXPECT_EQ(statusOf("\\"), 0u);
    EXPECT_EQ(createDirectory((folder + "\\sub\\").c_str(), nullptr), 0u);
    EXPECT_EQ(statusOf("\\sub"), 0u);
}

TEST_F(PathContract, RelativePathsBeginInTheCurrentFolder) {
    const std::string before = currentFolder();
    setCurrentFolder(folder);
    EXPECT_TRUE(putFile("file.log", "x"));
    EXPECT_TRUE(putFile(".\\second.log", "y"));
    // The drive alone stands for its current folder.
    EXPECT_EQ(fileContent(folder.substr(0, 2) + "file.log"), "x");
    EXPECT_EQ(fileContent(folder.substr(2)), "<unreadable>"); // a folder: from the root of the current drive
    EXPECT_EQ(fileContent(folder.substr(2) + "\\second.log"), "y");
    setCurrentFolder(before);
    EXPECT_EQ(fileContent(path), "x");
}

// With 3 on Windows, and 2 under Wine.
TEST_F(PathContract, DriveThatIsNotThereFails) {
    EXPECT_NE(OpenFile("Q:\\file.log", FileMode::Append).error(), 0u);
    EXPECT_NE(OpenFile("Q:\\file.log", FileMode::Read).error(), 0u);
    EXPECT_NE(createDirectory("Q:\\logs", nullptr), 0u);
    EXPECT_NE(deleteFile("Q:\\file.log"), 0u);
}

TEST_F(PathContract, StarAloneListsTheFolderItselfToo) {
    ASSERT_TRUE(putFile(path, "x"));
    ASSERT_TRUE(putFile(folder + "\\bare", "x"));
    EXPECT_THAT(listing("*"), UnorderedElementsAre(".", "..", "file.log", "bare"));
    EXPECT_THAT(listing("*.*"), UnorderedElementsAre(".", "..", "file.log", "bare"));
}

TEST_F(PathContract, QuestionMarkIsOneCharacter) {
    for (const char *name : {"\\a1.log", "\\a22.log", "\\a.log", "\\b1.log"}) {
        ASSERT_TRUE(putFile(folder + name, "x"));
    }
    EXPECT_THAT(listing("a?.log"), ElementsAre("a1.log"));
    EXPECT_THAT(listing("?1.*"), UnorderedElementsAre("a1.log", "b1.log"));
}

TEST_F(PathContract, PatternMatchesTheWholeName) {
    for (const char *name : {"\\a.log", "\\a.log.old", "\\ba.log", "\\a.lo"}) {
        ASSERT_TRUE(putFile(folder + name, "x"));
    }
    EXPECT_THAT(listing("a*.log"), ElementsAre("a.log"));
    EXPECT_THAT(listing("*a*g"), UnorderedElementsAre("a.log", "ba.log"));
}

// A longer name has a short one beside it, whose extension ends after three characters.
TEST_F(PathContract, PatternMatchesShortNamesToo) {
    ASSERT_TRUE(putFile(folder + "\\a.logs", "x"));
    ASSERT_TRUE(putFile(folder + "\\a.lo", "x"));
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), 0u);
    EXPECT_STREQ(data.name, "a.logs");
    EXPECT_STRNE(data.shortName, "");
    EXPECT_EQ(findNext(find, &data), 18u);
    findClose(find);
}

TEST_F(PathContract, ShortNamesAreThereForLongOnesOnly) {
    ASSERT_TRUE(putFile(folder + "\\EIGHTLTR.LOG", "x"));
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), 0u);
    EXPECT_STREQ(data.shortName, "");
    findClose(find);
}

TEST_F(PathContract, PatternThatEndsInASeparatorFindsNothing) {
    SystemError error = 0;
    EXPECT_THAT(listing("", &error), IsEmpty());
    EXPECT_EQ(error, 2u);
}

TEST_F(PathContract, WhatComesAfterTheListingBeganDoesNotEndIt) {
    for (const char *name : {"\\a.log", "\\b.log", "\\c.log"}) {
        ASSERT_TRUE(putFile(folder + name, "x"));
    }
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(findFirst((folder + "\\*.log").c_str(), &find, &data), 0u);
    EXPECT_EQ(deleteFile((folder + "\\" + data.name).c_str()), 0u);
    EXPECT_EQ(findNext(find, &data), 0u);
    EXPECT_EQ(findNext(find, &data), 0u);
    EXPECT_EQ(findNext(find, &data), 18u);
    EXPECT_EQ(findNext(find, &data), 18u);
    findClose(find);
}

TEST_F(PathContract, CopyOntoItselfIs32) {
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(copyFile(path.c_str(), path.c_str()), 32u);
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(PathContract, FoldersAreNotCopied) {
    ASSERT_TRUE(putFile(path, "x"));
    ASSERT_EQ(createDirectory((folder + "\\sub").c_str(), nullptr), 0u);
    EXPECT_EQ(copyFile((folder + "\\sub").c_str(), (folder + "\\copy").c_str()), 5u);
    EXPECT_EQ(copyFile(path.c_str(), (folder + "\\sub").c_str()), 5u);
}

TEST_F(PathContract, FolderDoesNotGiveWayToAFile) {
    ASSERT_TRUE(putFile(path, "x"));
    ASSERT_EQ(createDirectory((folder + "\\sub").c_str(), nullptr), 0u);
    EXPECT_EQ(replaceFile(path.c_str(), (folder + "\\sub").c_str()), 5u);
    EXPECT_EQ(fileContent(path), "x");
}

TEST_F(PathContract, ReplaceIntoAMissingFolderIs3) {
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(replaceFile(path.c_str(), (folder + "\\nowhere\\file.log").c_str()), 3u);
    EXPECT_EQ(replaceFile((folder + "\\nowhere\\file.log").c_str(), path.c_str()), 3u);
}

} // namespace

} // namespace zantlog::test
