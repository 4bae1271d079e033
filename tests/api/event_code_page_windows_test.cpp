// Events of texts in a code page whose characters have up to two bytes: not every text has a wide form there.
#include <clocale>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/event_sink_fixture.h"

using namespace zantlog::test;

namespace {

// The runtime's locale is the process's; this one has characters of two bytes.
class JapaneseLocale {
public:
    JapaneseLocale() { set_ = std::setlocale(LC_CTYPE, ".932") != nullptr; }
    ~JapaneseLocale() { std::setlocale(LC_CTYPE, "C"); }
    JapaneseLocale(const JapaneseLocale &) = delete;
    JapaneseLocale &operator=(const JapaneseLocale &) = delete;

    [[nodiscard]] bool set() const { return set_; }

private:
    bool set_;
};

} // namespace

TEST_F(EventSinkTest, TextWithoutAWideFormLeavesThePrefixAloneAndGives1) {
    const JapaneseLocale locale;
    ASSERT_TRUE(locale.set());
    open(64);
    recording.formattedText = "cut \x81";
    SecureMessage message(&handle_, "text");
    EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 1u);
    EXPECT_EQ(event().strings, Strings{L"12,3,57,4242,777,(null),admin,0 "});
}

TEST_F(EventSinkTest, PrefixIsNotCutWithinACharacter) {
    const JapaneseLocale locale;
    ASSERT_TRUE(locale.set());
    open(64);
    std::string subject;
    for (int i = 0; i < 2000; ++i) {
        subject += "\x82\xA0"; // U+3042
    }
    // The rest of the buffer is a whole number of characters after the one token, half a one more after the
    // other.
    for (const bool even : {false, true}) {
        recording.events.clear();
        SecureMessage message(&handle_);
        message.lis.textId = 1;
        message.contextToken = const_cast<char *>(even ? "job" : "jobs");
        message.who = const_cast<char *>(subject.c_str());
        EXPECT_EQ(zantLogMsg(&handle_, 0, &message), 0u);
        const WideText before = even ? L"12,3,57,4242,777,job," : L"12,3,57,4242,777,jobs,";
        EXPECT_EQ(event().strings, Strings{before + WideText((2047 - before.size()) / 2, L'\x3042')});
    }
}
