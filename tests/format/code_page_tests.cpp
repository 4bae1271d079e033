// Texts in a code page with two-byte characters, where a text can be malformed.
#include <clocale>
#include <gtest/gtest.h>

#include "tests/format/record_line.h"

namespace {

using namespace zantlog::test;

class JapaneseTexts : public testing::Test {
protected:
    void SetUp() override {
        before_ = std::setlocale(LC_ALL, nullptr);
        if (std::setlocale(LC_ALL, ".932") == nullptr) {
            GTEST_FAIL() << "the runtime has no code page 932";
        }
    }
    void TearDown() override { std::setlocale(LC_ALL, before_.c_str()); }

private:
    std::string before_;
};

TEST_F(JapaneseTexts, AreConvertedFromTheirCodePage) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.text = mutableText("\x93\xFA\x96{"); // two characters; the second one ends in a byte of ASCII
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,6:\xE6\x97\xA5\xE6\x9C\xAC,0:,0\n");
}

TEST_F(JapaneseTexts, ThatAreMalformedGiveWayToAFixedText) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.contextToken = mutableText("token");
    record.text = mutableText("a\x93"); // the first byte of two
    record.who = mutableText("who");
    EXPECT_EQ(serialize(record).bytes,
              "0,1,2,3,4,5,6,7,5:token,33:**UNABLE TO PROCESS LOG MESSAGE**,3:who,0\n");
}

TEST_F(JapaneseTexts, ThatAreMalformedAreCopiedUnderTheUtf8Flag) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.catalogSelector = 1;
    record.text = mutableText("a\x93");
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,2:a\x93,0:,0\n");
}

TEST_F(JapaneseTexts, ThatAreMalformedAndLongGiveWayToAFixedText) {
    const std::string text = std::string(20000, 'a') + "\x93";
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.text = mutableText(text.c_str());
    record.who = mutableText("\x93");
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,33:**UNABLE TO PROCESS LOG MESSAGE**,"
                                       "33:**UNABLE TO PROCESS LOG MESSAGE**,0\n");
}

TEST(DecimalPoint, IsTheLocales) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "German"), nullptr);
    const SerializedLine line = serializeArguments({realOf(-3.25)});
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(line.bytes, "2,1,2,3,4,5,6,7,0:,0:,0:,2,(1|8-3,250000|)\n");
}

} // namespace
