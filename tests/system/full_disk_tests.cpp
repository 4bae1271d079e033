// A disk that runs full. ZANTLOG_SMALL_DISK names a folder on a disk of 128 KB; see the script small-disk.
#include "tests/system/system_fixture.h"

#include "zantlog/handle.h"
#include "zantlog/log_file.h"
#include "zantlog/logging.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zantlog::test {

namespace {

constexpr size_t kDiskSize = 128 * 1024;

class FullDisk : public SystemTest {
protected:
    void SetUp() override {
        const char *disk = std::getenv("ZANTLOG_SMALL_DISK");
        if (disk == nullptr || !std::filesystem::exists(std::string(disk) + "/.small-disk")) {
            GTEST_SKIP() << "needs a small disk: run as a user who may mount one, by CTest";
        }
        disk_ = disk;
        std::replace(disk_.begin(), disk_.end(), '/', '\\');
        directory_ = disk_ + "\\logs";
        std::filesystem::create_directory(directory_);
        configure({}, directory_);
    }

    void TearDown() override {
        if (!disk_.empty()) {
            std::filesystem::remove_all(directory_);
            std::filesystem::remove(filler());
        }
    }

    [[nodiscard]] std::string filler() const { return disk_ + "\\filler"; }

    // Leaves so much of the disk free.
    void fillUpTo(size_t free) const {
        std::ofstream file(filler(), std::ios::binary);
        const std::string page(4096, 'f');
        for (size_t taken = 0; taken + free < kDiskSize; taken += page.size()) {
            file << page << std::flush;
        }
        ASSERT_TRUE(file.good());
    }

    std::string disk_;
    std::string directory_;
};

uint32_t logNumber(zantLogHandle *handle, int number) {
    const std::string text(1000, 'y');
    return zantLogDebugMsg(handle, 0, 1, "writer", "%d %s", number, text.c_str());
}

TEST_F(FullDisk, FailsTheMessageAndLeavesNoPartOfIt) {
    fillUpTo(64 * 1024);
    zantLogHandle handle;
    ASSERT_EQ(zantLogOpen(12, 3, &handle), 0u);
    int written = 0;
    uint32_t result = 0;
    while (written < 1000 && (result = logNumber(&handle, written)) == 0) {
        ++written;
    }
    EXPECT_EQ(result, 54u);
    EXPECT_EQ(logNumber(&handle, written), 54u);
    EXPECT_GT(written, 10);

    const std::string path = directory_ + "\\" + fileNames(directory_).at(0);
    std::string content = fileBytes(path);
    EXPECT_TRUE(content.ends_with(",6:writer,1\n"));
    EXPECT_EQ(linesOf(content).size(), 1u + static_cast<size_t>(written));

    // With room again, the same handle goes on.
    std::filesystem::remove(filler());
    EXPECT_EQ(logNumber(&handle, written), 0u);
    content = fileBytes(path);
    EXPECT_TRUE(content.ends_with(",6:writer,1\n"));
    EXPECT_EQ(linesOf(content).size(), 2u + static_cast<size_t>(written));
    EXPECT_EQ(zantLogClose(&handle), 0u);
}

TEST_F(FullDisk, FailsTheOpenAndLeavesNoPartOfTheHeader) {
    fillUpTo(0);
    zantLogHandle handle;
    EXPECT_EQ(zantLogOpen(12, 3, &handle), 1u);
    EXPECT_EQ(logNumber(&handle, 0), 5u);
    for (const std::string &name : fileNames(directory_)) {
        EXPECT_EQ(fileBytes(directory_ + "\\" + name), "") << name;
    }
    std::filesystem::remove(filler());
    EXPECT_EQ(logNumber(&handle, 1), 0u);
    EXPECT_EQ(linesOf(fileBytes(directory_ + "\\" + fileNames(directory_).back())).size(), 2u);
    EXPECT_EQ(zantLogClose(&handle), 0u);
}

TEST_F(FullDisk, FailsACopy) {
    fillUpTo(8 * 1024);
    const std::string source = logs_.file("a.log");
    writeFileBytes(source, std::string(50000, 'x'));
    EXPECT_EQ(zantLogCopyFile(source.c_str(), directory_.c_str()), 54u);
    EXPECT_EQ(std::filesystem::file_size(directory_ + "\\a.log"), 8176u); // eight whole blocks of 1022 bytes
}

} // namespace

} // namespace zantlog::test
