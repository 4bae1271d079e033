// Files of the simulated machine, as far as no contract of the seam reaches.
#include "tests/sim/files.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "logfile/os/os_directory.h"
#include "logfile/os/os_file.h"
#include "tests/sim/clock.h"
#include "tests/support/test_folder.h"

namespace zantlog::test {

namespace {

constexpr uint32_t kRead = 1;
constexpr uint32_t kWrite = 2;

class SimulatedFiles : public testing::Test {
protected:
    ~SimulatedFiles() override { sim::setListingOrder(sim::ListingOrder::ByName); }

    static os::SystemError openError(const std::string &path, os::FileMode mode) {
        void *file = nullptr;
        const os::SystemError error = os::openFile(path.c_str(), mode, nullptr, &file);
        if (file != nullptr) {
            os::closeFile(file);
        }
        return error;
    }
    std::vector<std::string> listing() const {
        std::vector<std::string> names;
        void *find = nullptr;
        zantLogFindData data{};
        os::SystemError error = os::findFirst(folder.file("*.log").c_str(), &find, &data);
        for (; error == 0; error = os::findNext(find, &data)) {
            names.emplace_back(data.name);
        }
        os::findClose(find);
        return names;
    }

    const ScopedFolder folder;
    const std::string path = folder.file("file.log");
};

TEST_F(SimulatedFiles, HoldOfAnotherProgramShutsOthersOut) {
    ASSERT_TRUE(sim::putFile(path, "x"));
    {
        const sim::Hold hold(path, kRead, 0);
        ASSERT_TRUE(hold.held());
        EXPECT_EQ(openError(path, os::FileMode::Append), 32u);
        EXPECT_EQ(openError(path, os::FileMode::Truncate), 32u);
        EXPECT_EQ(openError(path, os::FileMode::Read), 32u);
    }
    {
        const sim::Hold hold(path, kRead, kRead);
        EXPECT_EQ(openError(path, os::FileMode::Append), 32u);
        EXPECT_EQ(openError(path, os::FileMode::Read), 0u);
    }
    {
        const sim::Hold hold(path, kWrite, kRead | kWrite);
        EXPECT_EQ(openError(path, os::FileMode::Append), 0u);
    }
    EXPECT_EQ(sim::bytesOf(path), "x");
}

TEST_F(SimulatedFiles, AttributesDenyWhatTheyDenyOnWindows) {
    ASSERT_TRUE(sim::putFile(path, "x"));
    sim::setAttributes(path, 0x01); // read-only
    EXPECT_EQ(openError(path, os::FileMode::Append), 5u);
    EXPECT_EQ(openError(path, os::FileMode::Truncate), 5u);
    EXPECT_EQ(openError(path, os::FileMode::Read), 0u);
    EXPECT_EQ(os::deleteFile(path.c_str()), 5u);
    sim::setAttributes(path, 0x02); // hidden
    EXPECT_EQ(openError(path, os::FileMode::Append), 0u);
    EXPECT_EQ(openError(path, os::FileMode::Truncate), 5u);
}

TEST_F(SimulatedFiles, OverwritingKeepsTheCreationTimeAndWritingMovesTheLastWrite) {
    ASSERT_TRUE(sim::putFile(path, "x"));
    const int64_t created = sim::creationTimeOf(path);
    sim::clock().advanceSeconds(100);
    ASSERT_TRUE(sim::putFile(path, "y"));
    EXPECT_EQ(sim::creationTimeOf(path), created);
    EXPECT_EQ(sim::lastWriteTimeOf(path), created + 100 * sim::kUnitsPerSecond);
}

TEST_F(SimulatedFiles, CopyKeepsTheLastWriteTime) {
    ASSERT_TRUE(sim::putFile(path, "x"));
    const int64_t written = sim::lastWriteTimeOf(path);
    sim::clock().advanceSeconds(100);
    ASSERT_EQ(os::copyFile(path.c_str(), folder.file("copy.log").c_str()), 0u);
    EXPECT_EQ(sim::lastWriteTimeOf(folder.file("copy.log")), written);
    EXPECT_EQ(sim::creationTimeOf(folder.file("copy.log")), written + 100 * sim::kUnitsPerSecond);
}

TEST_F(SimulatedFiles, SecurityTextIsKeptIfItIsOne) {
    void *file = nullptr;
    ASSERT_EQ(os::openFile(path.c_str(), os::FileMode::Append, "D:(A;;GA;;;WD)", &file), 0u);
    os::closeFile(file);
    EXPECT_EQ(sim::securityOf(path), "D:(A;;GA;;;WD)");
    ASSERT_EQ(os::createDirectory(folder.file("sub").c_str(), "no descriptor"), 0u);
    EXPECT_EQ(sim::securityOf(folder.file("sub")), "");
}

TEST_F(SimulatedFiles, OrderOfListingsIsTheTests) {
    for (const char *name : {"b.log", "c.log", "a.log"}) {
        ASSERT_TRUE(sim::putFile(folder.file(name), "x"));
    }
    EXPECT_EQ(listing(), (std::vector<std::string>{"a.log", "b.log", "c.log"}));
    sim::setListingOrder(sim::ListingOrder::ByNameDownwards);
    EXPECT_EQ(listing(), (std::vector<std::string>{"c.log", "b.log", "a.log"}));
    sim::setListingOrder(sim::ListingOrder::ByCreation);
    EXPECT_EQ(listing(), (std::vector<std::string>{"b.log", "c.log", "a.log"}));
    sim::setListingOrder(sim::ListingOrder::Shuffled, 3);
    const std::vector<std::string> shuffled = listing();
    EXPECT_EQ(listing(), shuffled);
    EXPECT_EQ(shuffled.size(), 3u);
}

TEST_F(SimulatedFiles, ShortNamesCountThoseThatBeginAlike) {
    for (const char *name : {"longname-1.log", "longname-2.log"}) {
        ASSERT_TRUE(sim::putFile(folder.file(name), "x"));
    }
    void *find = nullptr;
    zantLogFindData data{};
    ASSERT_EQ(os::findFirst(folder.file("*.log").c_str(), &find, &data), 0u);
    EXPECT_STREQ(data.shortName, "LONGNA~1.LOG");
    ASSERT_EQ(os::findNext(find, &data), 0u);
    EXPECT_STREQ(data.shortName, "LONGNA~2.LOG");
    os::findClose(find);
}

TEST_F(SimulatedFiles, MissingDriveIs3AndAnotherDriveCanBeThere) {
    EXPECT_EQ(openError("D:\\file.log", os::FileMode::Append), 3u);
    sim::addDrive('D');
    EXPECT_EQ(openError("D:\\file.log", os::FileMode::Append), 0u);
    ASSERT_TRUE(sim::putFile(path, "x"));
    EXPECT_EQ(os::replaceFile(path.c_str(), "D:\\moved.log"), 17u);
    EXPECT_EQ(os::copyFile(path.c_str(), "D:\\copied.log"), 0u);
    sim::removeDrive('D');
}

TEST_F(SimulatedFiles, PathsEndAt259Characters) {
    std::string deep = folder.path();
    while (deep.size() < 200) {
        deep += "\\0123456789";
    }
    ASSERT_TRUE(sim::makeFolders(deep));
    const std::string longest = deep + "\\" + std::string(259 - deep.size() - 1, 'n');
    EXPECT_EQ(openError(longest, os::FileMode::Append), 0u);
    EXPECT_EQ(openError(longest + "n", os::FileMode::Append), 3u);
}

TEST_F(SimulatedFiles, NetworkNamesAreNotFound) {
    EXPECT_EQ(openError("\\\\server\\share\\file.log", os::FileMode::Append), 53u);
}

TEST_F(SimulatedFiles, CopyOntoAFileThatIsOpenIs32) {
    ASSERT_TRUE(sim::putFile(path, "new"));
    ASSERT_TRUE(sim::putFile(folder.file("open.log"), "old"));
    const sim::Hold hold(folder.file("open.log"), kWrite, kRead | kWrite);
    EXPECT_EQ(os::copyFile(path.c_str(), folder.file("open.log").c_str()), 32u);
    EXPECT_EQ(sim::bytesOf(folder.file("open.log")), "old");
}

TEST_F(SimulatedFiles, MoveOntoTheSameNameChangesItsCase) {
    ASSERT_TRUE(sim::putFile(path, "x"));
    EXPECT_EQ(os::replaceFile(path.c_str(), folder.file("FILE.LOG").c_str()), 0u);
    EXPECT_EQ(sim::namesIn(folder.path()), std::vector<std::string>{"FILE.LOG"});
}

} // namespace

} // namespace zantlog::test
