// Opening and closing: the first file, the handle's fields, results.
#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/writer/writer_fixture.h"

#include <regex>

namespace zantlog::test {

namespace {

using OpenFile = WriterTest;
using CloseFile = WriterTest;

TEST_F(OpenFile, NullArgumentIsRefused) {
    TestLog log;
    zantLogFile *state = log.handle.file;
    EXPECT_EQ(zantLogOpenFile(nullptr, &cfg_, &cfg_), 3u);
    EXPECT_EQ(zantLogOpenFile(&log.handle, nullptr, &cfg_), 3u);
    EXPECT_EQ(zantLogOpenFile(&log.handle, &cfg_, nullptr), 3u);
    EXPECT_EQ(log.handle.file, state);
}

TEST_F(OpenFile, HandleWithoutStateIsRefused) {
    zantLogHandle handle{};
    EXPECT_EQ(zantLogOpenFile(&handle, &cfg_, &cfg_), 57u);
}

TEST_F(OpenFile, EmptyDirectoryTakesTheStateAway) {
    TestLog log;
    cfg_.logDirectory[0] = '\0';
    EXPECT_EQ(log.open(&cfg_, &cfg_), 53u);
    EXPECT_EQ(log.handle.file, nullptr);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 3u);
}

TEST_F(OpenFile, EmptyDirectoryIsSeenBeforeAMissingState) {
    zantLogHandle handle{};
    cfg_.logDirectory[0] = '\0';
    EXPECT_EQ(zantLogOpenFile(&handle, &cfg_, &cfg_), 53u);
}

TEST_F(OpenFile, EmptyDirectoryOfTheHandlesConfigurationDoesNotMatter) {
    zantLogCfg handleCfg = cfg_;
    handleCfg.logDirectory[0] = '\0';
    TestLog log;
    EXPECT_EQ(log.open(&handleCfg, &cfg_), 0u);
}

TEST_F(OpenFile, LogSetWithoutANameIsRefused) {
    TestLog log;
    cfg_.isLogSet = 1;
    EXPECT_EQ(log.open(&cfg_, &cfg_), 3u);
    EXPECT_EQ(log.handle.file, nullptr);
}

TEST_F(OpenFile, NewFileHoldsItsHeaderLine) {
    const int64_t before = secondsNow();
    const TestLog log(&cfg_);
    const int64_t after = secondsNow();
    ASSERT_EQ(log.opened, 0u);

    std::smatch fields;
    const std::string content = onlyFile();
    ASSERT_TRUE(
        std::regex_match(content, fields, std::regex("\\$Header 65543,12,3,([0-9]+),(-?[0-9]+),[^,\n]+\n")));
    EXPECT_GE(std::stoll(fields[1]), before);
    EXPECT_LE(std::stoll(fields[1]), after);
}

TEST_F(OpenFile, FirstFileOfADayHasNumberZero) {
    const TestLog log(&cfg_);
    EXPECT_EQ(names(), std::vector<std::string>{productName(0, 0)});
}

TEST_F(OpenFile, FirstFileHasNumberZeroInEveryMode) {
    for (uint32_t mode = 0; mode <= 5; ++mode) {
        const ScopedFolder folder;
        zantLogCfg cfg = configurationFor(folder.path());
        cfg.rolloverMode = mode;
        cfg.rolloverPeriod = 3600;
        const TestLog log(&cfg);
        EXPECT_EQ(fileNames(folder.path()), std::vector<std::string>{productName(0, 0)}) << mode;
    }
}

TEST_F(OpenFile, DirectoryTreeIsCreated) {
    zantLogCfg cfg = configurationFor(folder_.file("one\\two"));
    const TestLog log(&cfg);
    EXPECT_EQ(log.opened, 0u);
    EXPECT_EQ(fileNames(folder_.file("one\\two")), std::vector<std::string>{productName(0, 0)});
}

TEST_F(OpenFile, DirectoryIsAPrefixAsItStands) {
    std::string directory = folder_.file("app_");
    directory.copy(cfg_.logDirectory, directory.size() + 1);
    cfg_.logDirectory[directory.size()] = '\0';
    const TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 0u);
    // The name itself counts as a directory to be made, and the file stands beside it.
    EXPECT_EQ(names(), (std::vector<std::string>{"app_", "app_" + productName(0, 0)}));
}

TEST_F(OpenFile, LongestDirectoryThatCannotBeMadeFailsAndOverrunsNothing) {
    const std::string directory = "C:\\" + std::string(1021, 'd');
    directory.copy(cfg_.logDirectory, 1024);
    cfg_.logDirectory[1024] = '\0';
    const TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 1u);
}

TEST_F(OpenFile, FileInPlaceOfTheDirectoryIsAPathThatIsNotFound) {
    put("taken", "");
    zantLogCfg cfg = configurationFor(folder_.file("taken"));
    const TestLog log(&cfg);
    EXPECT_EQ(log.opened, 51u);
}

TEST_F(OpenFile, FileHigherUpInThePathFails) {
    put("taken", "");
    zantLogCfg cfg = configurationFor(folder_.file("taken\\logs"));
    const TestLog log(&cfg);
    EXPECT_EQ(log.opened, 1u);
}

TEST_F(OpenFile, NameThatTheSystemRefusesCannotBeOpened) {
    char name[] = "what?";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    const TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 32u);
}

TEST_F(OpenFile, DirectoryUnderTheNameOfTheFileIsDenied) {
    makeFolder(folder_.file(productName(0, 0)));
    const TestLog log(&cfg_);
    EXPECT_EQ(log.opened, 51u);
}

TEST_F(OpenFile, HandleTakesItsFieldsFromTheFirstConfiguration) {
    zantLogCfg handleCfg = cfg_;
    handleCfg.originatorId = 5;
    handleCfg.debugLevel = 4;
    handleCfg.diagLevel = 6;
    handleCfg.outputFlags = 3;
    handleCfg.dynaReloadInSec = 90;
    handleCfg.secureAuditLevel = 7;
    TestLog log;
    log.handle.sequence = 99;
    const int64_t before = secondsNow();
    ASSERT_EQ(log.open(&handleCfg, &cfg_), 0u);
    const int64_t after = secondsNow();

    EXPECT_EQ(log.handle.debugLevel, 4);
    EXPECT_EQ(log.handle.diagLevel, 6);
    EXPECT_EQ(log.handle.outputFlags, 3u);
    EXPECT_EQ(log.handle.noContext, 1u);
    EXPECT_EQ(log.handle.sequence, 1u);
    EXPECT_EQ(log.handle.reloadInterval, 90);
    EXPECT_EQ(log.handle.originatorId, 5u);
    EXPECT_EQ(log.handle.secureAuditLevel, 0);
    EXPECT_GE(log.handle.openTime, before);
    EXPECT_LE(log.handle.openTime, after);
    EXPECT_EQ(log.handle.lastReloadTime, log.handle.openTime);
    EXPECT_EQ(names(), std::vector<std::string>{productName(0, 0, 3)});
    EXPECT_EQ(writerProductId(log.handle.file), 12u);
}

TEST_F(OpenFile, ConfigurationsKeepTheirTexts) {
    char sddl[] = "D:(A;;GA;;;WD)";
    cfg_.logFileSDDL = sddl;
    {
        const TestLog log(&cfg_);
        ASSERT_EQ(log.opened, 0u);
        EXPECT_STREQ(log.state().fileSecurity, "D:(A;;GA;;;WD)");
        EXPECT_NE(log.state().fileSecurity, sddl);
    }
    EXPECT_EQ(cfg_.logFileSDDL, sddl);
}

TEST_F(OpenFile, LogSetFileIsNamedByItsSecond) {
    char name[] = "night";
    cfg_.isLogSet = 1;
    cfg_.logSetName = name;
    cfg_.originatorId = 0;
    const std::string before = dateInNames();
    const TestLog log(&cfg_);
    ASSERT_EQ(log.opened, 0u);
    ASSERT_EQ(names().size(), 1u);
    EXPECT_TRUE(std::regex_match(names()[0], std::regex("12-night-" + before + "[0-9]{6}\\.log")));
    EXPECT_TRUE(std::regex_match(onlyFile(), std::regex("\\$Header 65544,-?[0-9]+,[^,\n]+\n")));
}

TEST_F(CloseFile, NullAndSecureHandlesAreRefused) {
    zantLogHandle handle{};
    EXPECT_EQ(zantLogCloseFile(nullptr), 3u);
    EXPECT_EQ(zantLogCloseFile(&handle), 3u);
}

TEST_F(CloseFile, HandleThatIsNotAttachedIsRefused) {
    TestLog log(&cfg_);
    zantLogHandle other{};
    other.file = log.handle.file;
    EXPECT_EQ(zantLogCloseFile(&other), 1u);
    EXPECT_EQ(log.write(debugRecord(1, "still open")), 0u);
}

TEST_F(CloseFile, LastHandleClosesTheFile) {
    TestLog log(&cfg_);
    const std::string path = folder_.file(names().at(0));
    EXPECT_FALSE(removeFile(path));
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
    EXPECT_TRUE(removeFile(path));
}

TEST_F(CloseFile, SecondCloseIsRefused) {
    TestLog log(&cfg_);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 3u);
}

TEST_F(CloseFile, SecondCloseBesideAnotherHandleFindsItDetached) {
    TestLog log(&cfg_);
    TestLog other(&cfg_);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 0u);
    EXPECT_EQ(zantLogCloseFile(&log.handle), 1u);
    log.handle.file = nullptr; // it goes with the other handle
}

TEST_F(CloseFile, AttachingTwiceAttachesOnce) {
    TestLog log(&cfg_);
    EXPECT_EQ(zantLogAddLogToFile(nullptr), 3u);
    EXPECT_EQ(zantLogAddLogToFile(&log.handle), 0u);
    EXPECT_EQ(log.state().handles, &log.handle);
    EXPECT_EQ(log.handle.next, nullptr);
    zantLogHandle stateless{};
    EXPECT_EQ(zantLogAddLogToFile(&stateless), 57u);
}

TEST_F(CloseFile, HandlesAreListedMostRecentFirst) {
    TestLog first(&cfg_);
    zantLogHandle second{};
    second.file = first.handle.file;
    EXPECT_EQ(zantLogAddLogToFile(&second), 0u);
    EXPECT_EQ(first.state().handles, &second);
    EXPECT_EQ(second.next, &first.handle);
    EXPECT_EQ(zantLogCloseFile(&second), 0u);
    EXPECT_EQ(first.state().handles, &first.handle);
}

} // namespace

} // namespace zantlog::test
