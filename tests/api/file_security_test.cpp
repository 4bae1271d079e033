// "LogFileSDDL": the security of new log files and folders.
#include <string>

#include <gtest/gtest.h>

#include "tests/api/file_security.h"
#include "tests/api/product_fixture.h"
#include "tests/support/files.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

constexpr char kEveryone[] = "D:(A;;GA;;;WD)";
constexpr char kAdministrators[] = "D:P(A;;GA;;;BA)(A;;GA;;;SY)";

class FileSecurityTest : public ProductTest {
protected:
    FileSecurityTest() { setting("Default", "LogDirectory", folder()); }

    [[nodiscard]] std::string outer() const { return logFolder() + "\\outer"; }
    [[nodiscard]] std::string folder() const { return outer() + "\\inner"; }
    [[nodiscard]] std::string path(size_t index) const {
        const std::vector<std::string> names = fileNames(folder());
        return index < names.size() ? folder() + "\\" + names[index] : "no such file";
    }
};

} // namespace

TEST_F(FileSecurityTest, NewFilesAndFoldersAreAsOpenAsTheText) {
    setting("3", "LogFileSDDL", kEveryone);
    const OpenLog log;
    EXPECT_EQ(log.result, 0u);
    EXPECT_TRUE(everyoneMayRead(outer()));
    EXPECT_TRUE(everyoneMayRead(folder()));
    EXPECT_TRUE(everyoneMayRead(path(0)));
}

TEST_F(FileSecurityTest, NewFilesAndFoldersAreAsNarrowAsTheText) {
    setting("3", "LogFileSDDL", kAdministrators);
    const OpenLog log;
    EXPECT_EQ(log.result, 0u);
    EXPECT_FALSE(everyoneMayRead(outer()));
    EXPECT_FALSE(everyoneMayRead(folder()));
    EXPECT_FALSE(everyoneMayRead(path(0)));
}

TEST_F(FileSecurityTest, OneOfTheDefaultSectionHoldsForAll) {
    setting("Default", "LogFileSDDL", kAdministrators);
    const OpenLog log;
    EXPECT_FALSE(everyoneMayRead(path(0)));
}

TEST_F(FileSecurityTest, WithoutOneOrWithOneThatDoesNotParseItIsTheSystemsDefault) {
    const std::string plain = logFolder() + "\\plain";
    writeFileBytes(plain, "x");
    const std::string folderOfAll = logFolder() + "\\folder";
    ASSERT_TRUE(makeFolder(folderOfAll));
    for (const char *text : {"none", "", "D:(A;;GA;;;WD", "everyone", "(A;;GA;;;WD)", "WD"}) {
        if (std::string(text) != "none") {
            setting("3", "LogFileSDDL", text);
        }
        {
            OpenLog log;
            EXPECT_EQ(log.result, 0u) << text;
            EXPECT_EQ(logText(&log, "text"), 0u) << text;
            EXPECT_EQ(everyoneMayRead(folder()), everyoneMayRead(folderOfAll)) << text;
            EXPECT_EQ(everyoneMayRead(path(0)), everyoneMayRead(plain)) << text;
        }
        removeFolderTree(outer());
    }
}

TEST_F(FileSecurityTest, FileAfterARolloverGetsItToo) {
    setting("3", "LogFileSDDL", kAdministrators);
    setting("3", "MaxLogFileSizeKB", "1");
    setting("3", "RolloverMode", "FileSize");
    OpenLog log;
    for (int i = 0; i < 20 && fileNames(folder()).size() < 2; ++i) {
        ASSERT_EQ(logText(&log, std::string(200, 'x').c_str()), 0u);
    }
    ASSERT_EQ(fileNames(folder()).size(), 2u);
    EXPECT_FALSE(everyoneMayRead(path(0)));
    EXPECT_FALSE(everyoneMayRead(path(1)));
}

TEST_F(FileSecurityTest, FileThatIsThereKeepsItsOwn) {
    setting("3", "LogFileSDDL", kAdministrators);
    { const OpenLog first; }
    setting("3", "LogFileSDDL", kEveryone);
    const OpenLog second;
    EXPECT_EQ(fileNames(folder()).size(), 1u);
    EXPECT_FALSE(everyoneMayRead(folder()));
    EXPECT_FALSE(everyoneMayRead(path(0)));
}

TEST_F(FileSecurityTest, FilesOfLogSetsHaveTheirOwn) {
    setting("LOGSET.nightly", "LogFileSDDL", kAdministrators);
    setting("LOGSET.nightly", "LogDirectory", folder());
    zantLogHandle handle = {};
    const uint32_t result = zantLogOpenLogSet(12, 3, "nightly", &handle);
    EXPECT_EQ(result, 0u);
    EXPECT_FALSE(everyoneMayRead(path(0)));
    zantLogClose(&handle);
}
