// What every implementation of the seam promises of named mutexes and critical sections.
#include "logfile/os/os_clock.h"
#include "logfile/os/os_mutex.h"
#include "logfile/os/os_thread.h"
#include "tests/support/test_folder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

std::string uniqueName(const char *suffix) {
    std::string name = processFolder();
    for (char &character : name) {
        character = character == '\\' ? '_' : character;
    }
    return name + suffix;
}

// A handle of a mutex; each is a handle of its own.
class Mutex {
public:
    explicit Mutex(const std::string &name) {
        EXPECT_EQ(createNamedMutex(name.c_str(), &mutex_), kErrorNone);
    }
    ~Mutex() { closeMutex(mutex_); }
    Mutex(const Mutex &) = delete;
    Mutex &operator=(const Mutex &) = delete;
    [[nodiscard]] void *get() const { return mutex_; }

private:
    void *mutex_ = nullptr;
};

// Whether a second thread gets the mutex at once, or only after the first has released it.
bool waitsForRelease(void *held, void *wanted) {
    std::atomic<bool> released{false};
    std::atomic<bool> started{false};
    bool waited = false;
    std::thread other([&] {
        started = true;
        EXPECT_EQ(acquireMutex(wanted), kErrorNone);
        waited = released;
        releaseMutex(wanted);
    });
    while (!started) {
        sleepMilliseconds(1);
    }
    sleepMilliseconds(50);
    released = true;
    releaseMutex(held);
    other.join();
    return waited;
}

TEST(MutexContract, HolderKeepsOtherThreadsOut) {
    const Mutex mutex(uniqueName("one"));
    ASSERT_EQ(acquireMutex(mutex.get()), 0u);
    EXPECT_TRUE(waitsForRelease(mutex.get(), mutex.get()));
}

TEST(MutexContract, SameNameIsTheSameMutex) {
    const Mutex first(uniqueName("same"));
    const Mutex second(uniqueName("same"));
    EXPECT_NE(first.get(), second.get());
    ASSERT_EQ(acquireMutex(first.get()), 0u);
    EXPECT_TRUE(waitsForRelease(first.get(), second.get()));
}

TEST(MutexContract, OtherNamesAreOtherMutexes) {
    const Mutex first(uniqueName("a"));
    const Mutex second(uniqueName("b"));
    ASSERT_EQ(acquireMutex(first.get()), 0u);
    EXPECT_FALSE(waitsForRelease(first.get(), second.get()));
}

TEST(MutexContract, CreatedMutexIsNotHeld) {
    const Mutex mutex(uniqueName("free"));
    bool taken = false;
    std::thread([&] {
        taken = acquireMutex(mutex.get()) == kErrorNone;
        releaseMutex(mutex.get());
    }).join();
    EXPECT_TRUE(taken);
}

TEST(MutexContract, HolderCanTakeItAgain) {
    const Mutex mutex(uniqueName("nested"));
    ASSERT_EQ(acquireMutex(mutex.get()), 0u);
    ASSERT_EQ(acquireMutex(mutex.get()), 0u);
    releaseMutex(mutex.get());
    EXPECT_TRUE(waitsForRelease(mutex.get(), mutex.get()));
}

TEST(MutexContract, MutexOfAThreadThatEndedIsTaken) {
    const Mutex mutex(uniqueName("abandoned"));
    std::thread([&] { EXPECT_EQ(acquireMutex(mutex.get()), kErrorNone); }).join();
    ASSERT_EQ(acquireMutex(mutex.get()), 0u);
    EXPECT_TRUE(waitsForRelease(mutex.get(), mutex.get()));
}

TEST(MutexContract, WaitOnNothingFails) {
    EXPECT_NE(acquireMutex(nullptr), 0u);
}

TEST(MutexContract, NamesEndAt260Characters) {
    std::string name = uniqueName("long");
    name.resize(260, 'x');
    const Mutex longest(name);
    EXPECT_NE(longest.get(), nullptr);
    void *mutex = &name;
    EXPECT_EQ(createNamedMutex((name + 'x').c_str(), &mutex), 206u);
    EXPECT_EQ(mutex, nullptr);
}

TEST(ThreadContract, ThreadsHaveIdsOfTheirOwnAndOneProcess) {
    uint32_t otherThread = 0;
    uint32_t otherProcess = 0;
    std::thread([&] {
        otherThread = threadId();
        otherProcess = processId();
    }).join();
    EXPECT_NE(threadId(), otherThread);
    EXPECT_EQ(threadId(), threadId());
    EXPECT_EQ(processId(), otherProcess);
    EXPECT_NE(processId(), 0u);
}

TEST(ThreadContract, CriticalSectionCountsWithoutLoss) {
    alignas(void *) unsigned char section[40];
    initCriticalSection(section);
    int count = 0;
    const auto work = [&] {
        for (int i = 0; i < 20000; ++i) {
            enterCriticalSection(section);
            enterCriticalSection(section);
            ++count;
            leaveCriticalSection(section);
            leaveCriticalSection(section);
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    deleteCriticalSection(section);
    EXPECT_EQ(count, 40000);
}

} // namespace

} // namespace zantlog::test
