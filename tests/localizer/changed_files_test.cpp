#include <string>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"

using namespace zantlog::test;

namespace {

class ChangedFilesTest : public LocalizerTest {
protected:
    ChangedFilesTest() {
        object_.lis()->textId = 1;
        rec_.lis = *object_.lis();
    }

    // Longer than files are left alone.
    static void wait() { pauseFor(1100); }

    CatalogObject object_;
    const std::string none_ = "[Cannot find catalog for message id=1] ";
};

} // namespace

TEST_F(ChangedFilesTest, ChangeIsSeenAfterASecond) {
    catalog("default", "1 = old\n");
    EXPECT_EQ(format(), "old");
    catalog("default", "1 = new\n");
    wait();
    EXPECT_EQ(format(), "new");
}

TEST_F(ChangedFilesTest, ChangeWithinTheSecondOfTheLastOneIsSeen) {
    catalog("default", "1 = a\n");
    const int64_t written = lastWriteTime(catalogPath("default"));
    EXPECT_EQ(format(), "a");
    catalog("default", "1 = b\n");
    setLastWriteTime(catalogPath("default"), written);
    wait();
    EXPECT_EQ(format(), "b");
}

TEST_F(ChangedFilesTest, FileThatStaysIsNotReadAgain) {
    const int64_t past = secondsNow() - 1000;
    catalog("default", "1 = read\n");
    setLastWriteTime(catalogPath("default"), past);
    EXPECT_EQ(format(), "read");
    catalog("default", "1 = not seen\n");
    setLastWriteTime(catalogPath("default"), past);
    wait();
    EXPECT_EQ(format(), "read");
}

TEST_F(ChangedFilesTest, FilesComeAndGo) {
    EXPECT_EQ(format(), none_);
    catalog("default", "1 = there\n");
    wait();
    EXPECT_EQ(format(), "there");
    ASSERT_TRUE(removeFile(catalogPath("default")));
    wait();
    EXPECT_EQ(format(), none_);
    catalog("default", "1 = there again\n");
    wait();
    EXPECT_EQ(format(), "there again");
}

TEST_F(ChangedFilesTest, FolderInTheFilesPlaceIsNone) {
    (void)makeFolder(folder_.file("default"));
    (void)makeFolder(catalogPath("default"));
    EXPECT_EQ(format(), none_);
}

TEST_F(ChangedFilesTest, FileThatGrewTooLargeLeavesWhatWasRead) {
    catalog("default", "1 = small\n");
    EXPECT_EQ(format(), "small");
    setFileLength(catalogPath("default"), 8 * 1024 * 1024 + 1);
    wait();
    EXPECT_EQ(format(), "small");
    catalog("default", "1 = small again\n");
    wait();
    EXPECT_EQ(format(), "small again");
}
