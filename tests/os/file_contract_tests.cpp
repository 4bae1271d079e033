// What every implementation of the seam promises of files.
#include "logfile/os/os_clock.h"
#include "logfile/os/os_directory.h"
#include "logfile/os/os_file.h"
#include "tests/os/contract_folder.h"

#include <gtest/gtest.h>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

class FileContract : public testing::Test {
protected:
    const std::string folder = makeContractFolder();
    const std::string path = folder + "\\file.log";
    const std::string missing = folder + "\\nowhere\\file.log";
};

uint32_t written(void *file, const std::string &text) {
    uint32_t count = 0;
    EXPECT_EQ(writeFile(file, text.data(), static_cast<uint32_t>(text.size()), &count), kErrorNone);
    return count;
}

int64_t lastWriteUnits(const std::string &path) {
    void *find = nullptr;
    zantLogFindData data{};
    EXPECT_EQ(findFirst(path.c_str(), &find, &data), kErrorNone);
    findClose(find);
    return static_cast<int64_t>(uint64_t{data.lastWrite.high} << 32 | data.lastWrite.low);
}

TEST_F(FileContract, AppendCreatesAMissingFile) {
    const OpenFile file(path, FileMode::Append);
    EXPECT_EQ(file.error(), 0u);
    EXPECT_EQ(file.size(), 0u);
}

TEST_F(FileContract, AppendKeepsWhatAFileHolds) {
    ASSERT_TRUE(putFile(path, "old"));
    const OpenFile file(path, FileMode::Append);
    EXPECT_EQ(file.error(), 0u);
    EXPECT_EQ(file.size(), 3u);
}

TEST_F(FileContract, AppendStandsAtTheStartUntilItIsMoved) {
    ASSERT_TRUE(putFile(path, "old"));
    {
        const OpenFile file(path, FileMode::Append);
        EXPECT_EQ(written(file.get(), "N"), 1u);
    }
    EXPECT_EQ(fileContent(path), "Nld");
}

TEST_F(FileContract, TruncateEmptiesAFile) {
    ASSERT_TRUE(putFile(path, "old"));
    const OpenFile file(path, FileMode::Truncate);
    EXPECT_EQ(file.error(), 0u);
    EXPECT_EQ(file.size(), 0u);
}

TEST_F(FileContract, TruncateCreatesAMissingFile) {
    const OpenFile file(path, FileMode::Truncate);
    EXPECT_EQ(file.error(), 0u);
}

TEST_F(FileContract, ReadOfAMissingFileIs2) {
    const OpenFile file(path, FileMode::Read);
    EXPECT_EQ(file.error(), 2u);
    EXPECT_EQ(file.get(), nullptr);
}

TEST_F(FileContract, MissingFolderIs3InEveryMode) {
    EXPECT_EQ(OpenFile(missing, FileMode::Append).error(), 3u);
    EXPECT_EQ(OpenFile(missing, FileMode::Truncate).error(), 3u);
    EXPECT_EQ(OpenFile(missing, FileMode::Read).error(), 3u);
}

TEST_F(FileContract, FolderInPlaceOfAFileIs5) {
    EXPECT_EQ(OpenFile(folder, FileMode::Append).error(), 5u);
    EXPECT_EQ(OpenFile(folder, FileMode::Read).error(), 5u);
}

TEST_F(FileContract, FileInPlaceOfAFolderIs3) {
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(OpenFile(path + "\\below.log", FileMode::Append).error(), 3u);
}

TEST_F(FileContract, EmptyPathIs3) {
    EXPECT_EQ(OpenFile("", FileMode::Append).error(), 3u);
}

TEST_F(FileContract, SeveralCanWriteAndReadAtOnce) {
    const OpenFile first(path, FileMode::Append);
    const OpenFile second(path, FileMode::Append);
    const OpenFile reader(path, FileMode::Read);
    EXPECT_EQ(first.error(), 0u);
    EXPECT_EQ(second.error(), 0u);
    EXPECT_EQ(reader.error(), 0u);
    EXPECT_EQ(written(first.get(), "seen"), 4u);
    EXPECT_EQ(second.size(), 4u);
    EXPECT_EQ(reader.size(), 4u);
}

TEST_F(FileContract, SecurityThatDoesNotParseIsTheDefault) {
    EXPECT_EQ(OpenFile(path, FileMode::Append, "no descriptor").error(), 0u);
    EXPECT_EQ(OpenFile(folder + "\\empty.log", FileMode::Append, "").error(), 0u);
}

TEST_F(FileContract, FileIsMadeWithASecurityText) {
    const OpenFile file(path, FileMode::Append, "D:(A;;GA;;;WD)");
    EXPECT_EQ(file.error(), 0u);
    EXPECT_EQ(written(file.get(), "x"), 1u);
}

TEST_F(FileContract, SeekToEndGivesTheSize) {
    ASSERT_TRUE(putFile(path, "12345"));
    const OpenFile file(path, FileMode::Append);
    uint64_t position = 0;
    EXPECT_EQ(seekToEnd(file.get(), &position), 0u);
    EXPECT_EQ(position, 5u);
    EXPECT_EQ(written(file.get(), "67"), 2u);
    EXPECT_EQ(fileContent(path), "1234567");
}

TEST_F(FileContract, SeekToMovesWhereTheNextReadBegins) {
    ASSERT_TRUE(putFile(path, "12345"));
    const OpenFile file(path, FileMode::Read);
    const auto next = [&] {
        char byte = 0;
        uint32_t read = 0;
        EXPECT_EQ(readFile(file.get(), &byte, 1, &read), 0u);
        return read == 1 ? byte : '-';
    };
    EXPECT_EQ(next(), '1');
    EXPECT_EQ(seekTo(file.get(), 3), 0u);
    EXPECT_EQ(next(), '4');
    EXPECT_EQ(seekTo(file.get(), 0), 0u);
    EXPECT_EQ(next(), '1');
    EXPECT_EQ(seekTo(file.get(), 0x100000005u), 0u) << "behind the end";
    EXPECT_EQ(next(), '-');
    EXPECT_EQ(seekTo(file.get(), UINT64_MAX), 131u) << "a negative position";
}

TEST_F(FileContract, SeekToEndFollowsWhatOthersAppend) {
    const OpenFile first(path, FileMode::Append);
    const OpenFile second(path, FileMode::Append);
    EXPECT_EQ(written(first.get(), "one"), 3u);
    uint64_t position = 0;
    EXPECT_EQ(seekToEnd(second.get(), &position), 0u);
    EXPECT_EQ(position, 3u);
}

TEST_F(FileContract, EndBeyondFourGibibytesIsGivenWhole) {
    const OpenFile file(path, FileMode::Append);
    ASSERT_EQ(truncateFile(file.get(), 0x100000005u), 0u);
    uint64_t position = 0;
    EXPECT_EQ(seekToEnd(file.get(), &position), 0u);
    EXPECT_EQ(position, 0x100000005u);
    EXPECT_EQ(file.size(), 0x100000005u);
    // The one size whose low half reads as a failure of the older calls.
    ASSERT_EQ(truncateFile(file.get(), 0x1ffffffffu), 0u);
    EXPECT_EQ(seekToEnd(file.get(), &position), 0u);
    EXPECT_EQ(position, 0x1ffffffffu);
    ASSERT_EQ(truncateFile(file.get(), 0u), 0u);
}

TEST_F(FileContract, WriteOfNothingWritesNothing) {
    const OpenFile file(path, FileMode::Append);
    EXPECT_EQ(written(file.get(), ""), 0u);
    EXPECT_EQ(file.size(), 0u);
}

TEST_F(FileContract, BytesAreWrittenAsTheyAre) {
    const std::string bytes("a\r\nb\n\0\x1a\xff", 8);
    ASSERT_TRUE(putFile(path, bytes));
    EXPECT_EQ(fileContent(path), bytes);
}

TEST_F(FileContract, WriteToAFileOpenForReadingIs5) {
    ASSERT_TRUE(putFile(path, "old"));
    const OpenFile file(path, FileMode::Read);
    uint32_t count = 77;
    EXPECT_EQ(writeFile(file.get(), "x", 1, &count), 5u);
    EXPECT_EQ(count, 0u);
}

TEST_F(FileContract, ReadOfAFileOpenForWritingIs5) {
    ASSERT_TRUE(putFile(path, "old"));
    const OpenFile file(path, FileMode::Append);
    char byte = 0;
    uint32_t count = 77;
    EXPECT_EQ(readFile(file.get(), &byte, 1, &count), 5u);
    EXPECT_EQ(count, 0u);
}

TEST_F(FileContract, ReadsContinueWhereTheLastOneEnded) {
    ASSERT_TRUE(putFile(path, "abcde"));
    const OpenFile file(path, FileMode::Read);
    char block[4] = {};
    uint32_t count = 0;
    EXPECT_EQ(readFile(file.get(), block, 3, &count), 0u);
    EXPECT_EQ(std::string(block, count), "abc");
    EXPECT_EQ(readFile(file.get(), block, 3, &count), 0u);
    EXPECT_EQ(std::string(block, count), "de");
    EXPECT_EQ(readFile(file.get(), block, 3, &count), 0u);
    EXPECT_EQ(count, 0u);
}

TEST_F(FileContract, TruncatedFileIsCutAndAppendedToThere) {
    ASSERT_TRUE(putFile(path, "12345678"));
    {
        const OpenFile file(path, FileMode::Append);
        EXPECT_EQ(truncateFile(file.get(), 3), 0u);
        uint64_t position = 0;
        EXPECT_EQ(seekToEnd(file.get(), &position), 0u);
        EXPECT_EQ(position, 3u);
        EXPECT_EQ(written(file.get(), "x"), 1u);
    }
    EXPECT_EQ(fileContent(path), "123x");
}

TEST_F(FileContract, TruncateOfAFileOpenForReadingFails) {
    ASSERT_TRUE(putFile(path, "old"));
    const OpenFile file(path, FileMode::Read);
    EXPECT_NE(truncateFile(file.get(), 0), 0u);
    EXPECT_EQ(fileContent(path), "old");
}

TEST_F(FileContract, StampMovesTheLastWriteTimeAndNotTheSize) {
    ASSERT_TRUE(putFile(path, "x"));
    const OpenFile file(path, FileMode::Append);
    const int64_t before = lastWriteUnits(path);
    sleepMilliseconds(30);
    stampLastWrite(file.get());
    const int64_t after = lastWriteUnits(path);
    EXPECT_GE(after - before, 20 * 10000);
    EXPECT_LE(after - before, 60 * 10000000);
    EXPECT_EQ(file.size(), 1u);
}

TEST_F(FileContract, DeletedFileIsGone) {
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(deleteFile(path.c_str()), 0u);
    EXPECT_EQ(OpenFile(path, FileMode::Read).error(), 2u);
}

TEST_F(FileContract, DeleteOfAMissingFileIs2) {
    EXPECT_EQ(deleteFile(path.c_str()), 2u);
    EXPECT_EQ(deleteFile(missing.c_str()), 3u);
}

TEST_F(FileContract, DeleteOfAFolderIs5) {
    EXPECT_EQ(deleteFile(folder.c_str()), 5u);
}

TEST_F(FileContract, DeleteOfAnOpenFileIs32) {
    for (const FileMode mode : {FileMode::Append, FileMode::Truncate, FileMode::Read}) {
        ASSERT_TRUE(putFile(path, "x"));
        const OpenFile file(path, mode);
        EXPECT_EQ(deleteFile(path.c_str()), 32u);
    }
    EXPECT_EQ(deleteFile(path.c_str()), 0u);
}

TEST_F(FileContract, CopyOverwritesItsDestination) {
    const std::string destination = folder + "\\copy.log";
    ASSERT_TRUE(putFile(path, "new"));
    ASSERT_TRUE(putFile(destination, "older and longer"));
    EXPECT_EQ(copyFile(path.c_str(), destination.c_str()), 0u);
    EXPECT_EQ(fileContent(destination), "new");
    EXPECT_EQ(fileContent(path), "new");
}

TEST_F(FileContract, CopyFailsWithoutSourceOrFolder) {
    EXPECT_EQ(copyFile(path.c_str(), (folder + "\\copy.log").c_str()), 2u);
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(copyFile(path.c_str(), missing.c_str()), 3u);
}

TEST_F(FileContract, CopyReadsAFileThatIsBeingWritten) {
    const OpenFile file(path, FileMode::Append);
    EXPECT_EQ(written(file.get(), "live"), 4u);
    EXPECT_EQ(copyFile(path.c_str(), (folder + "\\copy.log").c_str()), 0u);
    EXPECT_EQ(fileContent(folder + "\\copy.log"), "live");
}

TEST_F(FileContract, ReplaceMovesOntoAnExistingFile) {
    const std::string source = folder + "\\file.tmp";
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(putFile(source, "new"));
    EXPECT_EQ(replaceFile(source.c_str(), path.c_str()), 0u);
    EXPECT_EQ(fileContent(path), "new");
    EXPECT_EQ(OpenFile(source, FileMode::Read).error(), 2u);
}

TEST_F(FileContract, ReplaceNeedsNoFileToReplace) {
    const std::string source = folder + "\\file.tmp";
    ASSERT_TRUE(putFile(source, "new"));
    EXPECT_EQ(replaceFile(source.c_str(), path.c_str()), 0u);
    EXPECT_EQ(fileContent(path), "new");
}

TEST_F(FileContract, ReplaceOfAnOpenFileIs5AndChangesNothing) {
    const std::string source = folder + "\\file.tmp";
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(putFile(source, "new"));
    const OpenFile open(path, FileMode::Read);
    EXPECT_EQ(replaceFile(source.c_str(), path.c_str()), 5u);
    EXPECT_EQ(fileContent(path), "old");
    EXPECT_EQ(fileContent(source), "new");
}

TEST_F(FileContract, ReplaceFailsWithoutSourceOrWithAnOpenOne) {
    EXPECT_EQ(replaceFile((folder + "\\file.tmp").c_str(), path.c_str()), 2u);
    ASSERT_TRUE(putFile(path, "x"));
    const OpenFile open(path, FileMode::Append);
    EXPECT_EQ(replaceFile(path.c_str(), (folder + "\\moved.log").c_str()), 32u);
}

TEST_F(FileContract, ExistingDirectoryIs183) {
    EXPECT_EQ(createDirectory(folder.c_str(), nullptr), 183u);
    ASSERT_TRUE(putFile(path, "x"));
    EXPECT_EQ(createDirectory(path.c_str(), nullptr), 183u);
}

TEST_F(FileContract, DirectoryWithoutItsParentIs3) {
    EXPECT_EQ(createDirectory((folder + "\\a\\b").c_str(), nullptr), 3u);
    EXPECT_EQ(createDirectory("", nullptr), 3u);
}

TEST_F(FileContract, DirectoryIsMadeWithAnySecurityText) {
    EXPECT_EQ(createDirectory((folder + "\\a").c_str(), "D:(A;OICI;GA;;;WD)"), 0u);
    EXPECT_EQ(createDirectory((folder + "\\b").c_str(), "no descriptor"), 0u);
    EXPECT_TRUE(putFile(folder + "\\a\\file.log", "x"));
}

TEST_F(FileContract, StatusTellsFilesFromFolders) {
    ASSERT_TRUE(putFile(path, "x"));
    FileStatus status{};
    EXPECT_EQ(fileStatus(path.c_str(), &status), 0u);
    EXPECT_TRUE(status.regular);
    EXPECT_LE(std::abs(status.lastWrite - nowSeconds()), 60);
    EXPECT_EQ(fileStatus(folder.c_str(), &status), 0u);
    EXPECT_FALSE(status.regular);
}

TEST_F(FileContract, StatusOfAMissingFileIs2) {
    FileStatus status{};
    EXPECT_EQ(fileStatus(path.c_str(), &status), 2u);
    EXPECT_EQ(fileStatus(missing.c_str(), &status), 3u);
}

} // namespace

} // namespace zantlog::test
