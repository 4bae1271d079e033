// Record lines when memory is short, and how much of it they take.
#include <gtest/gtest.h>
#include <string>

#include "tests/format/record_line.h"
#include "tests/sim/memory.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

const std::string kUnprocessable = "33:**UNABLE TO PROCESS LOG MESSAGE**";

class ShortMemory : public testing::Test {
protected:
    ShortMemory() { sim::memory() = {}; }
    ~ShortMemory() override {
        EXPECT_EQ(sim::memory().blocks, 0);
        sim::memory() = {};
    }

    // Every request for memory from that one on fails.
    static void failFrom(uint64_t call) {
        sim::memory() = {};
        sim::memory().firstFailure = call;
        sim::memory().laterOnesFailToo = true;
    }

    // That one alone fails.
    static void failOnce(uint64_t call) {
        sim::memory() = {};
        sim::memory().firstFailure = call;
    }
};

zantLogMsgRec debugRecord(const char *token, const char *text, const char *who) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.contextToken = mutableText(token);
    record.text = mutableText(text);
    record.who = mutableText(who);
    return record;
}

TEST_F(ShortMemory, IsNoMatterForALineOf4095Bytes) {
    const std::string text(4000, 't');
    std::vector<zantLisArg> arguments{wideOf(L"wide \x20AC"), realOf(1e300 / 3e300), characterOf(0x20AC)};
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
    record.text = mutableText(text.c_str());
    record.who = mutableText("\xE9\xE9");
    record.slot.level = 2;
    chain(&record.lis, arguments);
    failFrom(1);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.result, 0u);
    EXPECT_TRUE(line.inlineArea);
    EXPECT_EQ(sim::memory().allocations, 0u);
}

TEST_F(ShortMemory, PutsTheFixedTextInThePlaceOfALongOne) {
    const std::string text(5000, 't');
    zantLogMsgRec record = debugRecord("token", text.c_str(), "who");
    failFrom(1);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.result, 0u);
    EXPECT_EQ(line.bytes, "0,1,2,3,4,5,6,7,5:token," + kUnprocessable + ",3:who,0\n");
}

TEST_F(ShortMemory, PutsTheFixedTextInThePlaceOfALongConvertedOne) {
    const std::string text(5000, '\xE9');
    zantLogMsgRec record = debugRecord("token", text.c_str(), "who");
    for (const uint64_t call : {1u, 2u}) {
        failFrom(call);
        EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,5:token," + kUnprocessable + ",3:who,0\n")
            << call;
    }
}

TEST_F(ShortMemory, FailsWhereNotEvenTheFixedTextFits) {
    const std::string token(4070, 'k');
    const std::string text(100, 't');
    zantLogMsgRec record = debugRecord(token.c_str(), text.c_str(), "who");
    failFrom(1);
    EXPECT_EQ(serialize(record).result, 4u);
}

TEST_F(ShortMemory, FailsWhenAHeapBlockCannotGrow) {
    const std::string token(5000, 'k');
    const std::string text(20000, 't');
    zantLogMsgRec record = debugRecord(token.c_str(), text.c_str(), "who");
    failOnce(2);
    text_msg buffer;
    EXPECT_EQ(zantLogMsgSerialize(&record, &buffer), 4u);
    EXPECT_EQ(buffer.data, buffer.inlineArea);
    EXPECT_EQ(buffer.capacity, 4096u);
    EXPECT_EQ(buffer.free, 4096u);
    free_text_msg(&buffer);
}

TEST_F(ShortMemory, FailsForArgumentsThatDoNotFit) {
    const std::string text(5000, 's');
    std::vector<wchar_t> wide(5001, L'w');
    wide.back() = 0;
    for (const zantLisArg &argument : {narrowOf(ZANTLIS_UTF8_STRING, text.c_str()),
                                       narrowOf(ZANTLIS_NATIVE_STRING, text.c_str()), wideOf(wide.data())}) {
        failFrom(1);
        EXPECT_EQ(serializeArguments({argument}).result, 4u);
    }
}

TEST_F(ShortMemory, FailsWhereverTheInlineAreaEnds) {
    // The area ends in every piece of the list, and at the line feed.
    zantLis nested{};
    zantLisArg date = argumentOf(ZANTLIS_DATE_TIME);
    zantLisArg pointer = argumentOf(ZANTLIS_POINTER);
    std::vector<zantLisArg> arguments{
        unsignedOf(32, 5), signedOf(ZANTLIS_OS_ERROR, 32, -5), realOf(2.5), characterOf('x'), date, pointer,
        nestedOf(&nested)};
    const std::string list = "(7|u32:5|D32:-5|82.500000|11:x|C64:0|964:0|(0|),)";
    for (size_t length = 3990; length < 4070; ++length) {
        const std::string text(length, 't');
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
        record.text = mutableText(text.c_str());
        record.slot.level = 2;
        chain(&record.lis, arguments);
        const std::string expected =
            "2,1,2,3,4,5,6,7,0:," + std::to_string(length) + ":" + text + ",0:,2," + list + "\n";
        sim::memory() = {};
        EXPECT_EQ(serialize(record).bytes, expected);
        failFrom(1);
        const SerializedLine line = serialize(record);
        if (expected.size() <= 4095) {
            EXPECT_EQ(line.bytes, expected);
        } else {
            EXPECT_EQ(line.result, 4u) << length;
        }
    }
}

TEST_F(ShortMemory, AtAnyRequestGivesAWholeLineOrNone) {
    const std::string token(6000, 'k');
    const std::string text(9000, '\xE9');
    const std::string who(20000, 'w');
    zantLogMsgRec record = debugRecord(token.c_str(), text.c_str(), who.c_str());
    uint64_t call = 1;
    for (;; ++call) {
        failOnce(call);
        const SerializedLine line = serialize(record);
        if (sim::memory().allocations < call) {
            break;
        }
        ASSERT_TRUE(line.result == 0 || line.result == 4) << call;
        if (line.result == 0) {
            EXPECT_EQ(line.bytes.substr(0, 16), "0,1,2,3,4,5,6,7,");
            EXPECT_NE(line.bytes.find(kUnprocessable), std::string::npos) << call;
            EXPECT_EQ(line.bytes.substr(line.bytes.size() - 3), ",0\n");
        }
        EXPECT_EQ(sim::memory().blocks, 0);
    }
    EXPECT_EQ(call, 5u); // four requests: three for the buffer, one for the conversion
}

TEST_F(ShortMemory, LeavesTheContentOfATextBufferThatCannotGrow) {
    text_msg buffer;
    init_text_msg(&buffer);
    *append_text_msg(&buffer, 1) = 'a';
    failFrom(1);
    EXPECT_EQ(append_text_msg(&buffer, 5000), nullptr);
    EXPECT_EQ(grow_text_msg(&buffer, 1), -1);
    EXPECT_EQ(buffer.capacity - buffer.free, 1u);
    EXPECT_EQ(buffer.data[0], 'a');
    free_text_msg(&buffer);
}

TEST_F(ShortMemory, FailsTheEndOfALineThatFillsTheInlineArea) {
    text_msg buffer;
    init_text_msg(&buffer);
    ASSERT_NE(append_text_msg(&buffer, 4095), nullptr);
    failFrom(1);
    EXPECT_EQ(terminate_text_msg(&buffer), 4u);
    free_text_msg(&buffer);
}

} // namespace
