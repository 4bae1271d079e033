// Misuse of the lock ends the process by abort(), without a word.
#include "tests/support/child_process.h"
#include "tests/support/files.h"
#include "tests/support/test_folder.h"
#include "zantlog/dispatch.h"

#include <gtest/gtest.h>
#include <thread>

using namespace zantlog::test;

namespace {

constexpr char kLabel[] = "label()";
constexpr char kEqualText[] = "label()";
constexpr int kStillAlive = 42;

zantLogLockRec theLock;

void takeTenTimes() {
    for (int i = 0; i < 10; ++i) {
        zantLogLock(&theLock, kLabel);
    }
}

ZANTLOG_CHILD(usesTheLockProperly) {
    takeTenTimes();
    for (int i = 0; i < 10; ++i) {
        zantLogUnlock(&theLock, kLabel);
    }
    zantLogDestroyLock(&theLock);
    return kStillAlive;
}

ZANTLOG_CHILD(takesItElevenTimes) {
    takeTenTimes();
    zantLogLock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(takesTheCommonLockElevenTimes) {
    for (int i = 0; i < 11; ++i) {
        zantLockCommon(kLabel);
    }
    return kStillAlive;
}

ZANTLOG_CHILD(releasesAFreshLock) {
    zantLogUnlock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesTheFreshCommonLock) {
    zantUnlockCommon(kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesOnceTooOften) {
    zantLogLock(&theLock, kLabel);
    zantLogUnlock(&theLock, kLabel);
    zantLogUnlock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesALockThatIsNotInitialised) {
    zantLogLock(&theLock, kLabel);
    theLock.initialised = 0;
    zantLogUnlock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesWithAnEqualText) {
    zantLogLock(&theLock, kLabel);
    zantLogUnlock(&theLock, kEqualText);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesInTheWrongOrder) {
    zantLogLock(&theLock, kLabel);
    zantLogLock(&theLock, kEqualText);
    zantLogUnlock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesWithoutALabel) {
    zantLogLock(&theLock, kLabel);
    zantLogUnlock(&theLock, nullptr);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesOnAnotherThread) {
    zantLogLock(&theLock, kLabel);
    std::thread([] { zantLogUnlock(&theLock, kLabel); }).join();
    return kStillAlive;
}

ZANTLOG_CHILD(releasesTheCommonLockWithAnEqualText) {
    zantLockCommon(kLabel);
    zantUnlockCommon(kEqualText);
    return kStillAlive;
}

ZANTLOG_CHILD(destroysAFreshLock) {
    zantLogDestroyLock(&theLock);
    return kStillAlive;
}

ZANTLOG_CHILD(destroysTheFreshCommonLock) {
    zantDestroyCommonLock();
    return kStillAlive;
}

ZANTLOG_CHILD(destroysALockTwice) {
    zantLogLockInit(&theLock);
    zantLogDestroyLock(&theLock);
    zantLogDestroyLock(&theLock);
    return kStillAlive;
}

ZANTLOG_CHILD(destroysAHeldLock) {
    zantLogLock(&theLock, kLabel);
    zantLogDestroyLock(&theLock);
    return kStillAlive;
}

ZANTLOG_CHILD(destroysTheHeldCommonLock) {
    zantLockCommon(kLabel);
    zantDestroyCommonLock();
    return kStillAlive;
}

ZANTLOG_CHILD(takesADeeperLockThanThereCanBe) {
    theLock.depth = 10;
    zantLogLock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(takesWhatIsNoLock) {
    theLock.initialised = 77;
    zantLogLock(&theLock, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(makesNoLock) {
    zantLogLockInit(nullptr);
    return kStillAlive;
}

ZANTLOG_CHILD(takesNoLock) {
    zantLogLock(nullptr, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(releasesNoLock) {
    zantLogUnlock(nullptr, kLabel);
    return kStillAlive;
}

ZANTLOG_CHILD(destroysNoLock) {
    zantLogDestroyLock(nullptr);
    return kStillAlive;
}

class LockMisuse : public testing::TestWithParam<const char *> {};

TEST_P(LockMisuse, Aborts) {
    EXPECT_EQ(runChild(GetParam()), kAbortExitCode);
}

INSTANTIATE_TEST_SUITE_P(
    , LockMisuse,
    testing::Values("takesItElevenTimes", "takesTheCommonLockElevenTimes", "releasesAFreshLock",
                    "releasesTheFreshCommonLock", "releasesOnceTooOften", "releasesALockThatIsNotInitialised",
                    "releasesWithAnEqualText", "releasesInTheWrongOrder", "releasesWithoutALabel",
                    "releasesOnAnotherThread", "releasesTheCommonLockWithAnEqualText", "destroysAFreshLock",
                    "destroysTheFreshCommonLock", "destroysALockTwice", "destroysAHeldLock",
                    "destroysTheHeldCommonLock", "takesADeeperLockThanThereCanBe", "takesWhatIsNoLock",
                    "makesNoLock", "takesNoLock", "releasesNoLock", "destroysNoLock"),
    [](const testing::TestParamInfo<const char *> &role) { return std::string(role.param); });

TEST(LockUse, ProperUseEndsAsItShould) {
    EXPECT_EQ(runChild("usesTheLockProperly"), kStillAlive);
}

TEST(LockUse, AbortPrintsNothing) {
    const ScopedFolder folder;
    const ChildStreams streams{folder.file("out.txt"), folder.file("err.txt")};
    EXPECT_EQ(runChild("destroysAFreshLock", {}, streams), kAbortExitCode);
    for (const std::string &path : {streams.outputFile, streams.errorFile}) {
        ASSERT_TRUE(fileExists(path));
        EXPECT_EQ(fileBytes(path), "");
    }
}

} // namespace
