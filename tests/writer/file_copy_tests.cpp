// Copying and deleting log files.
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"
#include "zantlog/log_file.h"

#include <gtest/gtest.h>

namespace zantlog::test {

namespace {

class FileCopy : public testing::Test {
protected:
    FileCopy() {
        makeFolder(from_);
        makeFolder(to_);
    }

    ScopedFolder folder_;
    const std::string from_ = folder_.file("from");
    const std::string to_ = folder_.file("to");
    const std::string source_ = folder_.file("from\\a.log");
    const std::string copy_ = folder_.file("to\\a.log");
};

using FileCopyEx = FileCopy;
using FileDeletion = FileCopy;

TEST_F(FileCopy, NullArgumentIsRefused) {
    EXPECT_EQ(zantLogCopyFile(nullptr, to_.c_str()), 3u);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), nullptr), 3u);
}

TEST_F(FileCopy, CopiesEverySizeAroundItsBlock) {
    for (const size_t size : {1u, 1021u, 1022u, 1023u, 2044u, 2045u, 100000u}) {
        std::string content;
        for (size_t i = 0; i < size; ++i) {
            content += static_cast<char>('a' + i % 26);
        }
        writeFileBytes(source_, content);
        EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u) << size;
        EXPECT_EQ(fileBytes(copy_), content) << size;
    }
}

TEST_F(FileCopy, BytesAreCopiedAsTheyAre) {
    const std::string content("\r\n\x1a\0\xff\n", 6);
    writeFileBytes(source_, content);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), content);
}

TEST_F(FileCopy, EmptyFileMakesAnEmptyCopy) {
    writeFileBytes(source_, "");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "");
}

TEST_F(FileCopy, ExistingDestinationIsReplaced) {
    writeFileBytes(source_, "new");
    writeFileBytes(copy_, "old and longer");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "new");
}

TEST_F(FileCopy, DirectoryMayEndInASeparator) {
    writeFileBytes(source_, "x");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), (to_ + "\\").c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "x");
}

TEST_F(FileCopy, MissingSourceCannotBeOpened) {
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 32u);
    EXPECT_FALSE(fileExists(copy_));
}

TEST_F(FileCopy, DirectoryAsSourceCannotBeOpened) {
    makeFolder(source_);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 32u);
}

TEST_F(FileCopy, MissingDirectoryIsDenied) {
    writeFileBytes(source_, "x");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), folder_.file("missing").c_str()), 47u);
}

TEST_F(FileCopy, DirectoryUnderTheDestinationsNameIsDenied) {
    writeFileBytes(source_, "x");
    makeFolder(copy_);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 47u);
}

TEST_F(FileCopy, DestinationThatTheSystemRefusesCannotBeCreated) {
    writeFileBytes(source_, "x");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), folder_.file("what?").c_str()), 32u);
}

TEST_F(FileCopy, SourceIsNotCopiedOntoItself) {
    writeFileBytes(source_, "precious");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), from_.c_str()), 34u);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), (from_ + "\\").c_str()), 34u);
    EXPECT_EQ(fileBytes(source_), "precious");
}

TEST_F(FileCopy, SourceWithoutSeparatorJoinsTheDirectorysLastName) {
    const std::string former = currentFolder();
    setCurrentFolder(from_);
    writeFileBytes("a.log", "x");
    EXPECT_EQ(zantLogCopyFile("a.log", folder_.file("to\\prefix_").c_str()), 0u);
    setCurrentFolder(former);
    EXPECT_EQ(fileBytes(folder_.file("to\\prefix_a.log")), "x");
}

TEST_F(FileCopy, FileThatIsOpenForWritingCanBeCopied) {
    zantLogOsFile file{};
    ASSERT_EQ(zantLogOs_open(&file, source_.c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0);
    ASSERT_EQ(zantLogOs_append(&file, "abc", 3), 3);
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "abc");
    EXPECT_EQ(zantLogOs_close(&file), 0);
}

TEST_F(FileCopy, LeavesNothingOpen) {
    writeFileBytes(source_, "x");
    EXPECT_EQ(zantLogCopyFile(source_.c_str(), to_.c_str()), 0u);
    EXPECT_TRUE(removeFile(source_));
    EXPECT_TRUE(removeFile(copy_));
}

TEST_F(FileCopyEx, NullArgumentIsRefused) {
    EXPECT_EQ(zantLogCopyFileEx(nullptr, to_.c_str()), 3u);
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), nullptr), 3u);
}

TEST_F(FileCopyEx, CopiesAndOverwrites) {
    writeFileBytes(source_, "new");
    writeFileBytes(copy_, "old and longer");
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "new");
    writeFileBytes(source_, "");
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), to_.c_str()), 0u);
    EXPECT_EQ(fileBytes(copy_), "");
}

TEST_F(FileCopyEx, AnyFailureIsOne) {
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), to_.c_str()), 34u);
    writeFileBytes(source_, "x");
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), folder_.file("missing").c_str()), 34u);
    EXPECT_EQ(zantLogCopyFileEx(source_.c_str(), from_.c_str()), 34u);
    EXPECT_EQ(fileBytes(source_), "x");
}

TEST_F(FileCopyEx, SourceNeedsASeparator) {
    EXPECT_EQ(zantLogCopyFileEx("a.log", to_.c_str()), 34u);
}

TEST_F(FileDeletion, NullIsRefused) {
    EXPECT_EQ(zantLogDeleteFile(nullptr), 3u);
}

TEST_F(FileDeletion, DeletesInSilence) {
    writeFileBytes(source_, "x");
    testing::internal::CaptureStdout();
    EXPECT_EQ(zantLogDeleteFile(source_.c_str()), 0u);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_FALSE(fileExists(source_));
}

TEST_F(FileDeletion, FailureIsPrintedAndSucceeds) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(zantLogDeleteFile(source_.c_str()), 0u);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), source_ + " File Deletion failed\n");
}

} // namespace

} // namespace zantlog::test
