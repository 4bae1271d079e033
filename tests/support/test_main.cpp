// The main function of every test executable: a folder for the process's files, a store location inside it
// instead of the machine's, and the counts in one line for scripts/test.sh.
#include "tests/support/child_process.h"
#include "tests/support/machine.h"
#include "tests/support/test_folder.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    using namespace zantlog::test;

    startMachine();
    int childResult = 0;
    if (runAsChild(argc, argv, &childResult)) {
        return childResult;
    }
    makeProcessFolder();
    if (!environmentText("ZANTLOG_CFG_LOC")) {
        setEnvironment("ZANTLOG_CFG_LOC", inProcessFolder("store.conf").c_str());
    }
    testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    removeProcessFolder();

    const testing::UnitTest &all = *testing::UnitTest::GetInstance();
    std::printf("zantlog-tests: %d passed, %d failed, %d skipped\n", all.successful_test_count(),
                all.failed_test_count(), all.skipped_test_count());
    if (all.test_to_run_count() == 0) {
        std::printf("no test ran\n");
        return 1;
    }
    return result;
}
