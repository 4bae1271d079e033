// The localisation library at work: found on the search path by processes of their own.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/localizer_library.h"
#include "tests/api/product_fixture.h"
#include "tests/support/child_process.h"
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

constexpr uint32_t kStreams = ZANTLOG_TO_STDOUT | ZANTLOG_TO_STDERR | ZANTLOG_AUTO_SEQUENCE;
constexpr size_t kTimeLength = sizeof("2026-03-29 12:00:05.007 ") - 1;

class OutputTest : public ProductTest {
protected:
    OutputTest() : streams_{folder_.file("out"), folder_.file("err")} {
        setting("Default", "DiagnosticLevel", "6");
        setting("Default", "DebugLevel", "6");
        setting("Default", "L10nResourceDir", folder_.path());
        setting("Default", "L10nResource", "disk");
        (void)makeFolder(folder_.file("default"));
        writeFileBytes(folder_.file("default") + "\\disk.msg", "4711 = disk {1} is {2} % full\n");
    }

    // The lines of a stream without their times.
    static std::vector<std::string> timeless(const std::string &file) {
        std::vector<std::string> lines = linesOf(fileBytes(file));
        for (std::string &line : lines) {
            EXPECT_GT(line.size(), kTimeLength);
            line = line.size() > kTimeLength ? line.substr(kTimeLength) : line;
        }
        return lines;
    }

    ScopedFolder folder_;
    ChildStreams streams_;
};

using Lines = std::vector<std::string>;

} // namespace

ZANTLOG_CHILD(logEveryFamily) {
    OpenLog handle;
    int failures = handle.result != 0 ? 1 : 0;
    failures += zantLogAppMsg2Ex(&handle, 0, kStreams, 2, "backup", 4711, "%s %u", "C:", 93) != 0;
    failures += zantLogAppMsg2Ex(&handle, 0, kStreams, 0, "backup", 0, "plain %d", 5) != 0;
    failures += zantLogAppMsg2Ex(&handle, 0, kStreams, 1, "backup", 7, "%d", 5) != 0;
    failures += zantLogDiagMsg2(&handle, 0, kStreams, 3, "backup", 4711, "%s %u", "D:", 1) != 0;
    failures += zantLogDebugMsg2(&handle, 0, kStreams, 6, "backup", "detail") != 0;
    failures += zantLogAuditMsg2(&handle, 0, kStreams, "mary", 5, 4711, "%s %u", "E:", 2) != 0;
    return failures;
}

// Messages of text and of a catalog, through a secure handle that puts its prefix before them.
ZANTLOG_CHILD(reportEveryKindOfArgument) {
    Configuration cfg;
    std::strcpy(cfg.eventSource.name, "Application");
    cfg.outputFlags = ZANTLOG_SECURE_EVENT;
    zantLogHandle handle = {};
    if (zantLogSecureOpen(12, 3, 0, &cfg, &handle) != 0) {
        return 1;
    }
    int failures = 0;
    const auto report = [&](Message &message) {
        message.who = const_cast<char *>("mary");
        message.processId = 4242;
        message.threadId = 777;
        message.sequence = 57;
        failures += zantLogMsg(&handle, 0, &message) != 0;
    };
    Message numbers(&handle, ZANTLOG_MSG_SECURE_AUDIT, nullptr);
    report(numbers.object(1, "%lld%llu%f", INT64_MIN, UINT64_MAX, 0.5));
    Message texts(&handle, ZANTLOG_MSG_SECURE_AUDIT, nullptr);
    report(texts.object(2, "%ls%U%s", L"w\x4F60", "u\xE4\xBD\xA0", "native"));
    Message others(&handle, ZANTLOG_MSG_SECURE_AUDIT, nullptr);
    report(others.object(3, "%lc%p%r", 0x4F60, reinterpret_cast<void *>(0x1F), -5));
    Message rest(&handle, ZANTLOG_MSG_SECURE_AUDIT, nullptr);
    zantLis inner = {};
    report(rest.object(4, "%R%T%N", int64_t{1} << 32, int64_t{0}, &inner));
    Message text(&handle, ZANTLOG_MSG_SECURE_AUDIT, "disk C: is full");
    report(text);
    zantLogClose(&handle);
    return failures;
}

TEST_F(OutputTest, ConsoleHasTheLongForm) {
    const OfferedLocalizer offered;
    ASSERT_EQ(runChild("logEveryFamily", {}, streams_), 0);
    const Lines both = {
        "[application, error 2] originator 3, backup: disk C: is 93 % full\r",
        "[application, information 0] originator 3, backup: plain 5\r",
        "[application, warning 1] originator 3, backup: [Cannot find catalog for message id=7] 5\r",
        "[diagnostic, level 3] originator 3, backup: disk D: is 1 % full\r"};
    Lines output = both;
    output.emplace_back("[debug, level 6] originator 3, backup: detail\r");
    EXPECT_EQ(timeless(streams_.outputFile), output);
    EXPECT_EQ(timeless(streams_.errorFile), both);
    EXPECT_EQ(records().size(), 6u);
}

TEST_F(OutputTest, AuditMessagesAreInTheFileAlone) {
    const OfferedLocalizer offered;
    ASSERT_EQ(runChild("logEveryFamily", {}, streams_), 0);
    EXPECT_EQ((fileBytes(streams_.outputFile) + fileBytes(streams_.errorFile)).find("audit"),
              std::string::npos);
    EXPECT_EQ((fileBytes(streams_.outputFile) + fileBytes(streams_.errorFile)).find("E:"), std::string::npos);
    EXPECT_EQ(records().back().type, 4u);
}

TEST_F(OutputTest, SecureAuditMessagesReachNoLogFile) {
    const OfferedLocalizer offered;
    EXPECT_EQ(runChild("reportEveryKindOfArgument"), 0);
    EXPECT_TRUE(logNames().empty());
}
