// The console sink in processes of their own, with a localisation library that is found on the search path,
// or is not.
#include <cstdio>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/localizer_library.h"
#include "tests/api/product_fixture.h"
#include "tests/support/child_process.h"
#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

uint32_t log(zantLogHandle &handle, uint32_t type, uint32_t flags, const char *text) {
    Message message(&handle, type, text);
    message.who = const_cast<char *>("who");
    message.slot.level = 1;
    return zantLogMsg(&handle, flags, &message);
}

class ConsoleOutputTest : public ProductTest {
protected:
    ConsoleOutputTest() : streams_{folder_.file("out"), folder_.file("err")} {}

    [[nodiscard]] std::string output() const { return fileBytes(streams_.outputFile); }
    [[nodiscard]] std::string errors() const { return fileBytes(streams_.errorFile); }

    ScopedFolder folder_;
    ChildStreams streams_;
};

} // namespace

ZANTLOG_CHILD(logEveryTypeToTheConsole) {
    OpenLog handle;
    int failures = handle.result != 0 ? 1 : 0;
    failures += log(handle, ZANTLOG_MSG_DEBUG, 3, "debug") != 0;
    failures += log(handle, ZANTLOG_MSG_DIAGNOSTIC, 3, "diagnostic") != 0;
    failures += log(handle, ZANTLOG_MSG_APPLICATION, 1, "to output") != 0;
    failures += log(handle, ZANTLOG_MSG_APPLICATION, 2, "to errors") != 0;
    failures += log(handle, ZANTLOG_MSG_AUDIT, 3, "audit") != 0;
    failures += log(handle, ZANTLOG_MSG_APPLICATION, 0, "nowhere") != 0;
    return failures;
}

ZANTLOG_CHILD(logWithAFailingFormatter) {
    OpenLog handle;
    return log(handle, ZANTLOG_MSG_APPLICATION, 3, "fail") == 77 ? 0 : 1;
}

ZANTLOG_CHILD(reportSecureEvents) {
    Configuration cfg;
    std::strcpy(cfg.eventSource.name, "Application");
    cfg.eventSource.category = 7;
    cfg.outputFlags = 64;
    zantLogHandle handle = {};
    if (zantLogSecureOpen(12, 3, 0, &cfg, &handle) != 0) {
        return 1;
    }
    Message message(&handle, ZANTLOG_MSG_SECURE_AUDIT, nullptr);
    message.object(4711, "%d %s", 5, "disk0");
    zantLogSetSecureAuditAttr(&message, 1, "admin", 3);
    message.processId = 4242;
    message.threadId = 777;
    const uint32_t result = zantLogMsg(&handle, 0, &message);
    zantLogClose(&handle);
    return result == 0 ? 0 : 2;
}

TEST_F(ConsoleOutputTest, LinesGoToTheStreamsOfTheirFlags) {
    const OfferedLocalizer offered;
    ASSERT_EQ(runChild("logEveryTypeToTheConsole", {}, streams_), 0);
    EXPECT_EQ(output(), "700|-|0|debug\r\n700|-|0|diagnostic\r\n700|-|0|to output\r\n");
    EXPECT_EQ(errors(), "700|-|0|diagnostic\r\n700|-|0|to errors\r\n");
    EXPECT_EQ(records().size(), 6u);
}

TEST_F(ConsoleOutputTest, WithoutALocalisationLibraryThereIsSilence) {
    ASSERT_EQ(runChild("logEveryTypeToTheConsole", {}, streams_), 0);
    EXPECT_EQ(output(), "");
    EXPECT_EQ(errors(), "");
    EXPECT_EQ(records().size(), 6u);
}

TEST_F(ConsoleOutputTest, FailingFormatterPrintsNothing) {
    const OfferedLocalizer offered;
    ASSERT_EQ(runChild("logWithAFailingFormatter", {}, streams_), 0);
    EXPECT_EQ(output(), "");
    EXPECT_EQ(errors(), "");
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ConsoleOutputTest, SecureEventsAreReported) {
    EXPECT_EQ(runChild("reportSecureEvents"), 0);
}
