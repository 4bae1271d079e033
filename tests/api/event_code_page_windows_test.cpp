// Events of texts in a code page whose characters have up to two bytes: not every text has a wide form there.
#include <clocale>

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
