// Registry, mutexes, modules, console and event log of the simulated machine, as tests set and look at them.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "logfile/os/os_console.h"
#include "logfile/os/os_event_log.h"
#include "logfile/os/os_module.h"
#include "logfile/os/os_mutex.h"
#include "logfile/os/os_registry.h"
#include "tests/sim/console.h"
#include "tests/sim/event_log.h"
#include "tests/sim/modules.h"
#include "tests/sim/mutexes.h"
#include "tests/sim/registry.h"

namespace zantlog::test {

namespace {

TEST(SimulatedRegistry, DeniedWritingIsDeniedBelowToo) {
    void *key = nullptr;
    ASSERT_EQ(os::createRegistryKey("SOFTWARE\\locked\\below", &key), 0u);
    os::closeRegistryKey(key);
    sim::denyWriting("SOFTWARE\\locked", true);
    EXPECT_EQ(os::openRegistryKey("SOFTWARE\\locked\\below", os::RegistryAccess::All, &key), 5u);
    EXPECT_EQ(os::openRegistryKey("SOFTWARE\\locked\\below", os::RegistryAccess::Read, &key), 0u);
    os::closeRegistryKey(key);
    EXPECT_EQ(os::createRegistryKey("SOFTWARE\\locked\\other", &key), 5u);
    EXPECT_FALSE(sim::keyExists("SOFTWARE\\locked\\other"));
    sim::denyWriting("SOFTWARE\\locked", false);
    EXPECT_EQ(os::createRegistryKey("SOFTWARE\\locked\\other", &key), 0u);
    os::closeRegistryKey(key);
    EXPECT_EQ(sim::subKeysOf("SOFTWARE\\locked"), (std::vector<std::string>{"below", "other"}));
    ASSERT_EQ(os::createRegistryKey("SOFTWARE", &key), 0u);
    EXPECT_EQ(os::deleteRegistryTree(key, "locked"), 0u);
    os::closeRegistryKey(key);
}

TEST(SimulatedRegistry, HandleOfADeletedKeyIs1018) {
    void *parent = nullptr;
    void *key = nullptr;
    ASSERT_EQ(os::createRegistryKey("SOFTWARE", &parent), 0u);
    ASSERT_EQ(os::createRegistryKey("SOFTWARE\\doomed", &key), 0u);
    EXPECT_EQ(os::deleteRegistryTree(parent, "doomed"), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(os::queryRegistryValue(key, "A", &type, nullptr, &size), 1018u);
    EXPECT_EQ(os::setRegistryValue(key, "A", os::RegistryType::Text, "x", 2), 1018u);
    os::closeRegistryKey(key);
    os::closeRegistryKey(parent);
}

TEST(SimulatedRegistry, ValuesAreSeenWithTypeAndBytes) {
    void *key = nullptr;
    ASSERT_EQ(os::createRegistryKey("SOFTWARE\\seen", &key), 0u);
    ASSERT_EQ(os::setRegistryValue(key, "Name", os::RegistryType::Text, "x", 2), 0u);
    ASSERT_EQ(os::setRegistryValue(key, "NAME", os::RegistryType::Text, "y", 2), 0u);
    os::closeRegistryKey(key);
    const std::vector<sim::RegistryValue> values = sim::valuesOf("software\\SEEN");
    ASSERT_EQ(values.size(), 1u);
    EXPECT_EQ(values[0].name, "Name");
    EXPECT_EQ(values[0].type, 1u);
    EXPECT_EQ(values[0].bytes, std::string("y\0", 2));
}

TEST(SimulatedMutexes, CanBeRefused) {
    void *mutex = nullptr;
    sim::refuseMutex("theirs", 5);
    EXPECT_EQ(os::createNamedMutex("theirs", &mutex), 5u);
    EXPECT_EQ(mutex, nullptr);
    sim::refuseMutex("theirs", 0);
    EXPECT_EQ(os::createNamedMutex("theirs", &mutex), 0u);
    os::closeMutex(mutex);
}

TEST(SimulatedMutexes, BackslashIsForFoldersOfObjects) {
    void *mutex = nullptr;
    EXPECT_EQ(os::createNamedMutex("a\\b", &mutex), 3u);
    EXPECT_EQ(os::createNamedMutex("Global\\a", &mutex), 0u);
    os::closeMutex(mutex);
}

TEST(SimulatedMutexes, ReleaseByAnotherIsCounted) {
    void *mutex = nullptr;
    ASSERT_EQ(os::createNamedMutex("unheld", &mutex), 0u);
    const uint64_t before = sim::mutexMisuses();
    os::releaseMutex(mutex);
    EXPECT_EQ(sim::mutexMisuses(), before + 1);
    os::closeMutex(mutex);
}

TEST(SimulatedMutexes, GoWithTheirLastHandle) {
    void *mutex = nullptr;
    ASSERT_EQ(os::createNamedMutex("passing", &mutex), 0u);
    ASSERT_EQ(os::acquireMutex(mutex), 0u);
    const int held = sim::heldMutexes();
    os::closeMutex(mutex);
    EXPECT_EQ(sim::heldMutexes(), held - 1);
}

int answer() {
    return 42;
}

TEST(SimulatedModules, HaveTheFunctionsThatTestsGiveThem) {
    sim::addModule("test.dll", {{"answer", sim::asFunction(answer)}});
    void *module = nullptr;
    ASSERT_EQ(os::loadModule("TEST.DLL", &module), 0u);
    EXPECT_EQ(reinterpret_cast<int (*)()>(os::resolveFunction(module, "answer"))(), 42);
    EXPECT_EQ(os::resolveFunction(module, "question"), nullptr);
    os::unloadModule(module);
    sim::removeModule("test.dll");
    EXPECT_EQ(os::loadModule("test.dll", &module), 126u);
}

TEST(SimulatedConsole, KeepsWhatIsPrinted) {
    sim::clearConsole();
    testing::internal::CaptureStdout();
    os::printToStdout("one", "\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "one\n");
    EXPECT_EQ(sim::printedToStdout(), "one\n");
    EXPECT_EQ(sim::printedToStderr(), "");
    sim::clearConsole();
}

TEST(SimulatedEventLog, KeepsWhatIsReported) {
    sim::clearEvents();
    void *log = os::openEventLog("Application");
    const wchar_t *strings[] = {L"one", nullptr};
    EXPECT_EQ(os::reportEvent(log, {4, 7, 4711, 2, strings}), 0u);
    os::closeEventLog(log);
    const std::vector<sim::ReportedEvent> events = sim::reportedEvents();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].source, "Application");
    EXPECT_EQ(events[0].type, 4u);
    EXPECT_EQ(events[0].category, 7u);
    EXPECT_EQ(events[0].id, 4711u);
    EXPECT_EQ(events[0].strings, (std::vector<std::u16string>{u"one", u"(null)"}));
    EXPECT_EQ(os::reportEvent(log, {4, 7, 4711, 0, nullptr}), 6u); // closed
}

TEST(SimulatedEventLog, SourcesCanBeRefused) {
    sim::refuseEventSource("Secret", true);
    EXPECT_EQ(os::openEventLog("Secret"), nullptr);
    sim::refuseEventSource("Secret", false);
}

} // namespace

} // namespace zantlog::test
