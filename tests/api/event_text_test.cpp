// Events of messages that are given as texts.
#include <clocale>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/event_sink_fixture.h"
#include "tests/support/child_process.h"
#include "tests/support/wide_text.h"

using namespace zantlog::test;

TEST_F(EventSinkTest, TextMessageIsOneFormattedString) {
    open();
    recording.formattedText = "localised text";
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().id, 0u);
    EXPECT_EQ(event().strings, Strings{L"localised text"});
    EXPECT_TRUE(recording.printed.empty());
}

TEST_F(EventSinkTest, FormatterIsCalledWithTheFixedArguments) {
    open();
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    ASSERT_EQ(recording.formats.size(), 1u);
    const FormatCall &call = recording.formats[0];
    EXPECT_EQ(call.list, &handle_.localizer);
    EXPECT_EQ(call.reserved1, 0u);
    EXPECT_STREQ(call.locale, setlocale(LC_ALL, nullptr));
    EXPECT_EQ(call.reserved2, 0u);
    EXPECT_EQ(call.flags, 0x600u);
    EXPECT_EQ(call.reserved3, 0u);
    EXPECT_EQ(call.rec, &message);
    EXPECT_EQ(call.handle, &handle_);
}

TEST_F(EventSinkTest, PrefixStandsDirectlyBeforeTheFormattedText) {
    open(64);
    recording.formattedText = "localised text";
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    EXPECT_EQ(event().strings, Strings{L"12,3,57,4242,777,(null),admin,0 localised text"});
}

TEST_F(EventSinkTest, LongFormattedTextIsNotCut) {
    open(64);
    recording.formattedText = std::string(20000, 't');
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
    ASSERT_EQ(event().strings.size(), 1u);
    EXPECT_EQ(event().strings[0], L"12,3,57,4242,777,(null),admin,0 " + WideText(20000, L't'));
}

TEST_F(EventSinkTest, FailingFormatterStillReportsAndGivesItsResult) {
    open();
    recording.formatResult = 9;
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 9u);
    EXPECT_EQ(event().strings, Strings{L""});
}

TEST_F(EventSinkTest, FailingFormatterLeavesThePrefixAlone) {
    open(64);
    recording.formatResult = 9;
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 9u);
    EXPECT_EQ(event().strings, Strings{L"12,3,57,4242,777,(null),admin,0 "});
}

TEST_F(EventSinkTest, FailingReportWinsOverTheFormatter) {
    open();
    recording.formatResult = 9;
    recording.reportSucceeds = false;
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), kMinusOne);
}

ZANTLOG_CHILD(textEventWithoutALocalisationLibrary) {
    recording.libraryExists = false;
    for (const uint32_t flags : {4u, 68u}) {
        recording.events.clear();
        zantLogHandle handle = {};
        handle.noContext = 1;
        handle.outputFlags = flags;
        Message message(&handle, 5, "text");
        message.processId = 1;
        message.threadId = 2;
        if (zantLogMsg(&handle, 0, &message) != 0 || recording.events.size() != 1) {
            return 1;
        }
        const Strings expected = {flags == 4 ? L"" : L"0,0,0,1,2,(null),(null),0 "};
        if (recording.events[0].strings != expected || recording.events[0].id != 0) {
            return 2;
        }
    }
    return 0;
}

TEST(TextEvent, WithoutALocalisationLibraryIsReportedWithoutItsText) {
    EXPECT_EQ(runChild("textEventWithoutALocalisationLibrary"), 0);
}
