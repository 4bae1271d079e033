// Calls that are made to fail, disks that fill up, heaps that run short.
#include "tests/sim/faults.h"

#include <gtest/gtest.h>
#include <string>

#include "logfile/os/file_layer.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_memory.h"
#include "tests/sim/census.h"
#include "tests/sim/files.h"
#include "tests/sim/memory.h"
#include "tests/support/test_folder.h"

namespace zantlog::test {

namespace {

using sim::Call;

class Faults : public testing::Test {
protected:
    Faults() {
        sim::clearFaults();
        sim::resetCalls();
        EXPECT_EQ(os::openFile(path.c_str(), os::FileMode::Append, nullptr, &file), 0u);
        sim::resetCalls();
    }
    ~Faults() override {
        sim::clearFaults();
        sim::setRoom(sim::kNoLimit);
        sim::writeInPartOnAFullDisk(false);
        os::closeFile(file);
    }
    uint32_t write(const std::string &text) {
        return os::writeFile(file, text.data(), static_cast<uint32_t>(text.size()), &written);
    }

    const ScopedFolder folder;
    const std::string path = folder.file("file.log");
    void *file = nullptr;
    uint32_t written = 99;
};

TEST_F(Faults, NthCallOfAKindFailsOnce) {
    sim::setFault({.call = Call::WriteFile, .number = 2, .error = 112});
    EXPECT_EQ(write("a"), 0u);
    EXPECT_EQ(write("b"), 112u);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(write("c"), 0u);
    EXPECT_EQ(sim::bytesOf(path), "ac");
    EXPECT_EQ(sim::faultsMet(), 1u);
}

TEST_F(Faults, LaterOnesFailToo) {
    sim::setFault({.call = Call::WriteFile, .number = 2, .laterOnesToo = true});
    EXPECT_EQ(write("a"), 0u);
    EXPECT_EQ(write("b"), 5u);
    EXPECT_EQ(write("c"), 5u);
    EXPECT_EQ(sim::faultsMet(), 2u);
    sim::clearFaults();
    EXPECT_EQ(write("d"), 0u);
}

TEST_F(Faults, AnyCallThatCanFailIsCounted) {
    sim::setFault({.number = 3, .error = 31});
    uint64_t size = 0;
    EXPECT_EQ(write("a"), 0u);
    os::stampLastWrite(file);
    EXPECT_EQ(os::fileSize(file, &size), 0u);
    EXPECT_EQ(os::seekToEnd(file, &size), 31u);
    EXPECT_EQ(os::seekToEnd(file, &size), 0u);
    EXPECT_EQ(sim::callsThatCanFail(), 4u);
    EXPECT_EQ(sim::calls(Call::StampLastWrite), 1u);
    EXPECT_EQ(sim::calls(Call::SeekToEnd), 2u);
}

TEST_F(Faults, CountBeginsWithTheFault) {
    EXPECT_EQ(write("a"), 0u);
    sim::setFault({.call = Call::WriteFile});
    EXPECT_EQ(write("b"), 5u);
    EXPECT_EQ(write("c"), 0u);
}

TEST_F(Faults, WriteCanBeShort) {
    sim::setFault({.call = Call::WriteFile, .action = sim::FaultAction::Shorten, .bytes = 2});
    EXPECT_EQ(write("abcde"), 0u);
    EXPECT_EQ(written, 2u);
    EXPECT_EQ(sim::bytesOf(path), "ab");
}

TEST_F(Faults, ShortAppendLeavesNothing) {
    auto log = std::make_unique<zantLogOsFile>();
    ASSERT_EQ(zantLogOs_open(log.get(), path.c_str(), ZANTLOG_OPEN_APPEND, nullptr), 0);
    ASSERT_EQ(zantLogOs_append(log.get(), "whole\n", 6), 6);
    sim::setFault({.call = Call::WriteFile, .action = sim::FaultAction::Shorten, .bytes = 2});
    sim::setFault({.call = Call::WriteFile, .number = 2, .error = 112});
    EXPECT_EQ(appendBlock(log.get(), "half\n", 5), AppendOutcome::DiskFull);
    EXPECT_EQ(sim::bytesOf(path), "whole\n");
    EXPECT_EQ(zantLogOs_append(log.get(), "next\n", 5), 5);
    EXPECT_EQ(sim::bytesOf(path), "whole\nnext\n");
    zantLogOs_close(log.get());
}

TEST_F(Faults, FullDiskTakesNothingUntilRoomComesBack) {
    sim::setRoom(4);
    EXPECT_EQ(write("abc"), 0u);
    EXPECT_EQ(sim::roomLeft(), 1u);
    EXPECT_EQ(write("de"), 112u);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(os::truncateFile(file, 1), 0u);
    EXPECT_EQ(sim::roomLeft(), 3u);
    EXPECT_EQ(write("bcd"), 0u);
    EXPECT_EQ(sim::bytesOf(path), "abcd");
    EXPECT_EQ(write("e"), 112u);
    sim::setRoom(sim::kNoLimit);
    EXPECT_EQ(write("e"), 0u);
}

TEST_F(Faults, FullDiskCanTakeAPart) {
    sim::setRoom(4);
    sim::writeInPartOnAFullDisk(true);
    EXPECT_EQ(write("abcdef"), 0u);
    EXPECT_EQ(written, 4u);
    EXPECT_EQ(write("ef"), 112u);
    EXPECT_EQ(written, 0u);
}

TEST_F(Faults, DeletedFilesGiveTheirRoomBack) {
    ASSERT_TRUE(sim::putFile(folder.file("other"), "12345"));
    sim::setRoom(0);
    EXPECT_EQ(os::deleteFile(folder.file("other").c_str()), 0u);
    EXPECT_EQ(sim::roomLeft(), 5u);
}

TEST_F(Faults, NthAllocationFails) {
    const sim::Census before = sim::takeCensus();
    sim::memory().allocations = 0;
    sim::memory().firstFailure = 2;
    void *block = os::allocate(8);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(os::reallocate(block, 16), nullptr);
    EXPECT_EQ(sim::leftSince(before), "1 heap blocks");
    void *grown = os::reallocate(block, 16);
    EXPECT_NE(grown, nullptr);
    os::release(grown);
    sim::memory().firstFailure = 0;
    EXPECT_EQ(sim::leftSince(before), "");
}

TEST_F(Faults, CensusNamesWhatIsLeft) {
    const sim::Census before = sim::takeCensus();
    void *second = nullptr;
    ASSERT_EQ(os::openFile(path.c_str(), os::FileMode::Read, nullptr, &second), 0u);
    EXPECT_EQ(sim::leftSince(before), "1 file handles");
    os::closeFile(second);
    EXPECT_EQ(sim::leftSince(before), "");
    os::closeFile(second);
    EXPECT_EQ(sim::leftSince(before), "1 misuses of handles");
}

} // namespace

} // namespace zantlog::test
