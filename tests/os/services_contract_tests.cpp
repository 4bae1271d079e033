// What every implementation of the seam promises of its smaller services: memory, console, modules, host,
// event log.
#include "logfile/os/os_console.h"
#include "logfile/os/os_event_log.h"
#include "logfile/os/os_host.h"
#include "logfile/os/os_memory.h"
#include "logfile/os/os_module.h"
#include "tests/os/contract_folder.h"
#include "tests/support/child_process.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

TEST(MemoryContract, BlocksGrowAndKeepWhatTheyHold) {
    auto *block = static_cast<char *>(allocate(4));
    ASSERT_NE(block, nullptr);
    std::memcpy(block, "abc", 4);
    auto *grown = static_cast<char *>(reallocate(block, 100000));
    ASSERT_NE(grown, nullptr);
    EXPECT_STREQ(grown, "abc");
    release(grown);
}

TEST(MemoryContract, WhatIsTooLargeIsNotThere) {
    EXPECT_EQ(allocate(SIZE_MAX / 2), nullptr);
    void *block = allocate(16);
    EXPECT_EQ(reallocate(block, SIZE_MAX / 2), nullptr);
    release(block);
}

ZANTLOG_CHILD(printsOnBothStreams) {
    printToStdout("first", "\n");
    printToStdout("100%s", "");
    printToStderr("wrong", "\n");
    return 0;
}

TEST(ConsoleContract, TextAndSuffixGoToTheirStream) {
    const std::string folder = makeContractFolder();
    const ChildStreams streams{folder + "\\out.txt", folder + "\\err.txt"};
    EXPECT_EQ(runChild("printsOnBothStreams", {}, streams), 0);
    EXPECT_EQ(fileContent(streams.outputFile), "first\r\n100%s");
    EXPECT_EQ(fileContent(streams.errorFile), "wrong\r\n");
}

TEST(ModuleContract, LoadedModuleGivesItsFunctions) {
    void *module = nullptr;
    ASSERT_EQ(loadModule("kernel32.dll", &module), 0u);
    EXPECT_NE(resolveFunction(module, "GetTickCount"), nullptr);
    EXPECT_EQ(resolveFunction(module, "NoSuchFunction"), nullptr);
    unloadModule(module);
}

TEST(ModuleContract, MissingModuleIs126) {
    void *module = &module;
    EXPECT_EQ(loadModule("zantlog-no-such-library.dll", &module), 126u);
    EXPECT_EQ(module, nullptr);
}

class HostContract : public testing::Test {
protected:
    HostContract() { EXPECT_TRUE(startSockets()); }
    ~HostContract() override { cleanUpSockets(); }
};

bool collectAddress(void *context, const HostAddress &address) {
    auto &addresses = *static_cast<std::vector<HostAddress> *>(context);
    addresses.push_back(address);
    return true;
}

bool countToOne(void *context, const HostAddress &) {
    ++*static_cast<int *>(context);
    return false;
}

TEST_F(HostContract, SocketsNest) {
    EXPECT_TRUE(startSockets());
    cleanUpSockets();
    char name[512];
    EXPECT_TRUE(hostName(name, sizeof(name)));
}

TEST_F(HostContract, HostHasAName) {
    char name[512];
    ASSERT_TRUE(hostName(name, sizeof(name)));
    EXPECT_GT(std::strlen(name), 0u);
    EXPECT_LT(std::strlen(name), sizeof(name));
}

TEST_F(HostContract, NameThatDoesNotFitFails) {
    char name[1] = {'x'};
    EXPECT_FALSE(hostName(name, 1));
    EXPECT_FALSE(hostName(name, 0));
}

TEST_F(HostContract, AddressesAreGivenInNetworkOrder) {
    std::vector<HostAddress> addresses;
    ASSERT_TRUE(resolveHost("10.1.2.3", collectAddress, &addresses));
    ASSERT_EQ(addresses.size(), 1u);
    EXPECT_EQ(addresses[0].family, AddressFamily::Ipv4);
    const uint8_t expected[16] = {10, 1, 2, 3};
    EXPECT_EQ(std::memcmp(addresses[0].bytes, expected, sizeof(expected)), 0);
}

TEST_F(HostContract, VisitorEndsTheWalk) {
    int visits = 0;
    char name[512];
    ASSERT_TRUE(hostName(name, sizeof(name)));
    if (resolveHost(name, countToOne, &visits)) {
        EXPECT_LE(visits, 1);
    }
    visits = 0;
    ASSERT_TRUE(resolveHost("10.1.2.3", countToOne, &visits));
    EXPECT_EQ(visits, 1);
}

TEST_F(HostContract, NameThatCannotBeFails) {
    int visits = 0;
    EXPECT_FALSE(resolveHost("no such host", countToOne, &visits));
    EXPECT_EQ(visits, 0);
}

TEST(EventLogContract, EventIsReported) {
    void *log = openEventLog("Application");
    ASSERT_NE(log, nullptr);
    const wchar_t *strings[] = {L"one", L"two"};
    const Event event{4, 0, 4711, 2, strings};
    EXPECT_EQ(reportEvent(log, event), 0u);
    const Event bare{1, 7, 0, 0, nullptr};
    EXPECT_EQ(reportEvent(log, bare), 0u);
    closeEventLog(log);
}

} // namespace

} // namespace zantlog::test
