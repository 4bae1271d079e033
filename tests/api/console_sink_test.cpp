#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/api/recording_system.h"
#include "tests/support/child_process.h"
#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

using Printed = std::vector<std::string>;

const std::string kOut = "out:formatted\n";
const std::string kErr = "err:formatted\n";

class ConsoleTest : public ProductTest {
protected:
    ConsoleTest() { recording = {}; }

    // Result of a message of the type with these call flags.
    static uint32_t log(zantLogHandle &handle, uint32_t type, uint32_t flags) {
        Message message(&handle, type, "text");
        message.who = const_cast<char *>("who");
        message.slot.level = 1;
        return zantLogMsg(&handle, flags, &message);
    }
};

zantLogHandle handleWithoutFile() {
    zantLogHandle handle = {};
    handle.noContext = 1;
    return handle;
}

// A secure-audit message needs no log file, so its result is the sinks'.
uint32_t logSecure(uint32_t flags) {
    zantLogHandle handle = handleWithoutFile();
    Message message(&handle, 5, "text");
    return zantLogMsg(&handle, flags, &message);
}

} // namespace

TEST_F(ConsoleTest, EachTypeIsPrintedWhereItsFlagsSay) {
    struct Row {
        uint32_t type;
        uint32_t flags;
        Printed expected;
    };
    const std::vector<Row> rows = {
        {0, 1, {kOut}}, {1, 1, {kOut}}, {2, 1, {kOut}}, {4, 1, {}},           {0, 2, {}},
        {1, 2, {kErr}}, {2, 2, {kErr}}, {4, 2, {}},     {0, 3, {kOut}},       {1, 3, {kOut, kErr}},
        {4, 3, {}},     {2, 0, {}},     {0, 4, {}},     {2, 3, {kOut, kErr}}, {1, 8 | 16 | 64, {}},
    };
    OpenLog handle;
    for (const Row &row : rows) {
        recording = {};
        EXPECT_EQ(log(handle, row.type, row.flags), 0u);
        EXPECT_EQ(recording.printed, row.expected) << "type " << row.type << " flags " << row.flags;
    }
}

TEST_F(ConsoleTest, SecureAuditMessagesGoToStandardOutputOnly) {
    EXPECT_EQ(logSecure(1), 0u);
    EXPECT_EQ(recording.printed, Printed{kOut});
    recording.printed.clear();
    EXPECT_EQ(logSecure(2), 0u);
    EXPECT_EQ(recording.printed, Printed{});
}

TEST_F(ConsoleTest, HandleFlagsAndCallFlagsAreJoined) {
    OpenLog handle;
    handle.outputFlags = 1;
    EXPECT_EQ(log(handle, 1, 2), 0u);
    EXPECT_EQ(recording.printed, (Printed{kOut, kErr}));
    EXPECT_EQ(handle.outputFlags, 1u);
}

TEST_F(ConsoleTest, FormatterIsCalledWithTheFixedArguments) {
    OpenLog handle;
    Message message(&handle, 2, "text");
    EXPECT_EQ(zantLogMsg(&handle, 1, &message), 0u);
    ASSERT_EQ(recording.formats.size(), 1u);
    const FormatCall &call = recording.formats[0];
    EXPECT_EQ(call.list, &handle.localizer);
    EXPECT_EQ(call.reserved1, 0u);
    EXPECT_EQ(call.locale, nullptr);
    EXPECT_EQ(call.reserved2, 0u);
    EXPECT_EQ(call.flags, 0x700u);
    EXPECT_EQ(call.reserved3, 0u);
    EXPECT_EQ(call.rec, &message);
    EXPECT_EQ(call.handle, nullptr);
}

TEST_F(ConsoleTest, FormatterRunsForAuditMessagesToo) {
    OpenLog handle;
    EXPECT_EQ(log(handle, 4, 1), 0u);
    EXPECT_EQ(recording.formats.size(), 1u);
    recording.formatResult = 77;
    EXPECT_EQ(log(handle, 4, 1), 77u);
    EXPECT_EQ(log(handle, 4, 2), 0u);
    EXPECT_EQ(recording.formats.size(), 2u);
}

TEST_F(ConsoleTest, FailingFormatterIsSilentAndItsResultIsReturned) {
    recording.formatResult = 0x80001234;
    OpenLog handle;
    EXPECT_EQ(log(handle, 2, 3), 0x80001234u);
    EXPECT_EQ(recording.printed, Printed{});
    EXPECT_EQ(records().size(), 1u);
}

TEST_F(ConsoleTest, WritersFailureWinsOverTheSinks) {
    OpenLog handle;
    Message message(&handle, 2, "text");
    zantLogSetAppAttr(&message, 5); // no such severity in files
    EXPECT_EQ(zantLogMsg(&handle, 1, &message), 1u);
    EXPECT_EQ(recording.printed, Printed{kOut});
    recording.formatResult = 77;
    EXPECT_EQ(zantLogMsg(&handle, 1, &message), 1u);
    zantLogHandle fileless = handleWithoutFile();
    EXPECT_EQ(log(fileless, 1, 1), 57u);
}

TEST_F(ConsoleTest, FormatterSeesTheRenderedText) {
    OpenLog handle;
    Message message(&handle, 2, nullptr);
    message.object(0, "disk %d", 3);
    EXPECT_EQ(zantLogMsg(&handle, 1, &message), 0u);
    ASSERT_EQ(recording.formats.size(), 1u);
    EXPECT_STREQ(message.text, "disk 3");
}

TEST_F(ConsoleTest, SuccessWithoutATextPrintsNothing) {
    recording.formatsNull = true;
    OpenLog handle;
    EXPECT_EQ(log(handle, 2, 3), 0u);
    EXPECT_EQ(recording.printed, Printed{});
}

TEST_F(ConsoleTest, EmptyTextIsAnEmptyLine) {
    recording.formattedText = "";
    OpenLog handle;
    EXPECT_EQ(log(handle, 2, 1), 0u);
    EXPECT_EQ(recording.printed, Printed{"out:\n"});
}

TEST_F(ConsoleTest, MessageThatIsRefusedIsNotPrinted) {
    OpenLog handle;
    EXPECT_EQ(log(handle, 5, 1), 58u);
    EXPECT_EQ(recording.printed, Printed{});
}

// The library is looked for once in a process, so each of these is a process of its own. They return the
// number of the first expectation that fails.
#define REQUIRE(number, condition)                                                                           \
    do {                                                                                                     \
        if (!(condition))                                                                                    \
            return number;                                                                                   \
    } while (false)

ZANTLOG_CHILD(missingLibraryIsLookedForOnceASecond) {
    recording.libraryExists = false;
    for (int i = 0; i < 200; ++i) {
        REQUIRE(1, logSecure(1) == 0);
    }
    REQUIRE(2, recording.printed.empty() && recording.formats.empty());
    REQUIRE(4, recording.loads == Printed{"zantLogFormatMsg_3.dll"});
    pauseFor(1100);
    for (int i = 0; i < 200; ++i) {
        REQUIRE(5, logSecure(1) == 0);
    }
    REQUIRE(6, recording.loads.size() == 2);
    REQUIRE(7, recording.unloads == 0);
    return 0;
}

ZANTLOG_CHILD(libraryThatTurnsUpIsUsedFromThenOn) {
    recording.libraryExists = false;
    REQUIRE(1, logSecure(1) == 0);
    recording.libraryExists = true;
    pauseFor(1100);
    for (int i = 0; i < 10; ++i) {
        REQUIRE(2, logSecure(1) == 0);
    }
    REQUIRE(4, recording.printed.size() == 10);
    REQUIRE(5, recording.loads.size() == 2);
    return 0;
}

ZANTLOG_CHILD(loadedLibraryIsKept) {
    for (int i = 0; i < 10; ++i) {
        REQUIRE(1, logSecure(1) == 0);
    }
    recording.libraryExists = false;
    REQUIRE(2, logSecure(1) == 0);
    REQUIRE(4, recording.printed.size() == 11);
    REQUIRE(5, recording.loads.size() == 1 && recording.unloads == 0);
    return 0;
}

ZANTLOG_CHILD(libraryWithoutItsExportIsUnloadedAndSilent) {
    recording.exportExists = false;
    for (int i = 0; i < 10; ++i) {
        REQUIRE(1, logSecure(1) == 0);
    }
    REQUIRE(2, recording.printed.empty());
    REQUIRE(4, recording.loads.size() == 1 && recording.unloads == 1);
    return 0;
}

ZANTLOG_CHILD(libraryIsNotLoadedForWhatIsNotPrinted) {
    REQUIRE(1, logSecure(0) == 0);
    REQUIRE(2, logSecure(2) == 0);
    REQUIRE(4, recording.loads.empty());
    return 0;
}

TEST(LocalisationLibrary, MissingOneIsLookedForOnceASecond) {
    EXPECT_EQ(runChild("missingLibraryIsLookedForOnceASecond"), 0);
}

TEST(LocalisationLibrary, OneThatTurnsUpIsUsedFromThenOn) {
    EXPECT_EQ(runChild("libraryThatTurnsUpIsUsedFromThenOn"), 0);
}

TEST(LocalisationLibrary, LoadedOneIsKept) {
    EXPECT_EQ(runChild("loadedLibraryIsKept"), 0);
}

TEST(LocalisationLibrary, OneWithoutItsExportIsUnloadedAndSilent) {
    EXPECT_EQ(runChild("libraryWithoutItsExportIsUnloadedAndSilent"), 0);
}

TEST(LocalisationLibrary, IsNotLoadedForWhatIsNotPrinted) {
    EXPECT_EQ(runChild("libraryIsNotLoadedForWhatIsNotPrinted"), 0);
}
