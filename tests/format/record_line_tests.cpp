// Lines of whole records: versions, types, text fields.
#include <gtest/gtest.h>
#include <string>

#include "tests/format/record_line.h"

namespace {

using namespace zantlog::test;

TEST(RecordLine, IsTheDocumentedExample) {
    std::vector<zantLisArg> arguments{unsignedOf(32, 5), narrowOf(ZANTLIS_NATIVE_STRING, "C:")};
    zantLogMsgRec record{};
    record.formatVersion = 65543;
    record.type = 1;
    record.productId = 12;
    record.originatorId = 3;
    record.fid = 3;
    record.sequence = 57;
    record.timestamp = 1763249000123;
    record.processId = 4242;
    record.threadId = 777;
    record.text = mutableText("disk failure");
    record.who = mutableText("scanner");
    record.slot.level = 2;
    chain(&record.lis, arguments);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.result, 0u);
    EXPECT_EQ(line.bytes,
              "1,12,3,3,57,1763249000123,4242,777,0:,12:disk failure,7:scanner,2,(2|u32:5|S2:C:|)\n");
    EXPECT_TRUE(line.inlineArea);
}

// ---- prefixes and versions

TEST(RecordLine, OfAProductFileHasEightNumbers) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, 65543);
    record.slot.level = 3;
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,0:,0:,3\n");
}

TEST(RecordLine, OfALogSetFileHasNeitherProductNorFileOriginator) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, 65544);
    record.slot.level = 3;
    EXPECT_EQ(serialize(record).bytes, "0,2,4,5,6,7,0:,0:,0:,3\n");
}

TEST(RecordLine, OfAnOlderVersionHasNoNumbers) {
    for (const uint32_t version : {65540u, 65541u, 65542u}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, version);
        record.slot.level = 3;
        EXPECT_EQ(serialize(record).bytes, "0:,0:,0:,3\n") << version;
    }
}

TEST(RecordLine, NumbersOfThePrefixAreUnsigned) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.productId = 4294967295u;
    record.originatorId = 4294967294u;
    record.fid = 4294967293u;
    record.sequence = 4294967292u;
    record.processId = 4294967291u;
    record.threadId = 4294967290u;
    record.timestamp = 9223372036854775807u;
    EXPECT_EQ(serialize(record).bytes,
              "0,4294967295,4294967294,4294967293,4294967292,9223372036854775807,4294967291,"
              "4294967290,0:,0:,0:,0\n");
}

TEST(RecordLine, TheTimestampIsSigned) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.timestamp = 18446744073709551615u;
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,-1,6,7,0:,0:,0:,0\n");
    record.timestamp = 9223372036854775808u;
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,-9223372036854775808,6,7,0:,0:,0:,0\n");
}

TEST(RecordLine, VersionsOutsideTheSupportedOnesFail) {
    for (const uint32_t version : {0u, 65539u, 65545u, 4294967295u}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, version);
        EXPECT_EQ(serialize(record).result, 1u) << version;
    }
    for (const uint32_t version : {65540u, 65544u}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, version);
        EXPECT_EQ(serialize(record).result, 0u) << version;
    }
}

// ---- types

TEST(RecordLine, DebugHasWhoAndLevelAndNoArguments) {
    std::vector<zantLisArg> arguments{unsignedOf(32, 5)};
    for (const auto &[version, expected] :
         {std::pair{65541u, "0:,4:text,3:who,6\n"}, std::pair{65542u, "0:,4:text,3:who,6\n"},
          std::pair{65543u, "0,1,2,3,4,5,6,7,0:,4:text,3:who,6\n"},
          std::pair{65544u, "0,2,4,5,6,7,0:,4:text,3:who,6\n"}}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG, version);
        record.text = mutableText("text");
        record.who = mutableText("who");
        record.slot.level = 6;
        chain(&record.lis, arguments);
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(RecordLine, DiagnosticHasWhoLevelAndArguments) {
    for (const auto &[version, expected] :
         {std::pair{65540u, "0:,4:text,3:who,1,(0|)\n"}, std::pair{65542u, "0:,4:text,3:who,1,(0|)\n"},
          std::pair{65543u, "1,1,2,3,4,5,6,7,0:,4:text,3:who,1,(0|)\n"},
          std::pair{65544u, "1,2,4,5,6,7,0:,4:text,3:who,1,(0|)\n"}}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_DIAGNOSTIC, version);
        record.text = mutableText("text");
        record.who = mutableText("who");
        record.slot.level = 1;
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(RecordLine, ApplicationNamesItsComponentOnlyFromVersion65542On) {
    for (const auto &[version, expected] :
         {std::pair{65540u, "0:,4:text,2,(0|)\n"}, std::pair{65541u, "0:,4:text,2,(0|)\n"},
          std::pair{65542u, "0:,4:text,3:who,2,(0|)\n"},
          std::pair{65543u, "2,1,2,3,4,5,6,7,0:,4:text,3:who,2,(0|)\n"},
          std::pair{65544u, "2,2,4,5,6,7,0:,4:text,3:who,2,(0|)\n"}}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION, version);
        record.text = mutableText("text");
        record.who = mutableText("who");
        record.slot.level = 2;
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(RecordLine, ContextHasItsStringAndArguments) {
    for (const auto &[version, expected] :
         {std::pair{65541u, "5:token,5:title,5:token,(0|)\n"},
          std::pair{65543u, "3,1,2,3,4,5,6,7,5:token,5:title,5:token,(0|)\n"},
          std::pair{65544u, "3,2,4,5,6,7,5:token,5:title,5:token,(0|)\n"}}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_CONTEXT, version);
        record.contextToken = mutableText("token");
        record.text = mutableText("title");
        record.slot.contextString = mutableText("token");
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(RecordLine, ContextWithoutAStringHasAnEmptyField) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_CONTEXT);
    EXPECT_EQ(serialize(record).bytes, "3,1,2,3,4,5,6,7,0:,0:,0:,(0|)\n");
}

TEST(RecordLine, AuditHasSubjectAndOutcome) {
    for (const auto &[version, expected] : {std::pair{65540u, "0:,4:text,3:who,17,(0|)\n"},
                                            std::pair{65543u, "4,1,2,3,4,5,6,7,0:,4:text,3:who,17,(0|)\n"},
                                            std::pair{65544u, "4,2,4,5,6,7,0:,4:text,3:who,17,(0|)\n"}}) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_AUDIT, version);
        record.text = mutableText("text");
        record.who = mutableText("who");
        record.outcome = 17;
        EXPECT_EQ(serialize(record).bytes, expected);
    }
}

TEST(RecordLine, TheOutcomeIsSigned) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_AUDIT);
    record.outcome = 4294967295u;
    EXPECT_EQ(serialize(record).bytes, "4,1,2,3,4,5,6,7,0:,0:,0:,-1,(0|)\n");
    record.outcome = 2147483648u;
    EXPECT_EQ(serialize(record).bytes, "4,1,2,3,4,5,6,7,0:,0:,0:,-2147483648,(0|)\n");
}

TEST(RecordLine, TheLevelIsSigned) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DIAGNOSTIC);
    record.slot.level = INT32_MIN;
    EXPECT_EQ(serialize(record).bytes, "1,1,2,3,4,5,6,7,0:,0:,0:,-2147483648,(0|)\n");
    record.slot.level = INT32_MAX;
    EXPECT_EQ(serialize(record).bytes, "1,1,2,3,4,5,6,7,0:,0:,0:,2147483647,(0|)\n");
}

TEST(RecordLine, SecureAuditAndUnknownTypesFail) {
    for (const uint32_t version : {65540u, 65543u, 65544u}) {
        for (const uint32_t type : {5u, 6u, 4294967295u}) {
            zantLogMsgRec record = recordOf(type, version);
            record.text = mutableText("text");
            EXPECT_EQ(serialize(record).result, 1u) << type;
        }
    }
}

TEST(RecordLine, SeveritiesFromZeroToFourAreOneDigit) {
    for (int32_t severity = 0; severity <= 4; ++severity) {
        zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
        record.slot.level = severity;
        const std::string digit(1, static_cast<char>('0' + severity));
        EXPECT_EQ(serialize(record).bytes, "2,1,2,3,4,5,6,7,0:,0:,0:," + digit + ",(0|)\n");
    }
}

TEST(RecordLine, OtherSeveritiesFail) {
    for (const uint32_t version : {65541u, 65543u}) {
        for (const int32_t severity : {-1, 5, INT32_MAX, INT32_MIN}) {
            zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION, version);
            record.slot.level = severity;
            EXPECT_EQ(serialize(record).result, 1u) << severity;
        }
    }
}

// ---- text fields

TEST(RecordLine, NullAndEmptyTextsAreTheSameField) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DIAGNOSTIC);
    record.contextToken = mutableText("");
    record.text = mutableText("");
    record.who = mutableText("");
    EXPECT_EQ(serialize(record).bytes, "1,1,2,3,4,5,6,7,0:,0:,0:,0,(0|)\n");
}

TEST(RecordLine, TokenComesBeforeText) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.contextToken = mutableText("token");
    record.text = mutableText("a, b: c");
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,5:token,7:a, b: c,0:,0\n");
}

TEST(RecordLine, LineFeedsInTextsBecomeCarriageReturns) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.text = mutableText("one\ntwo\r\nthree\n");
    record.who = mutableText("\n");
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,0:,15:one\rtwo\r\rthree\r,1:\r,0\n");
}

TEST(RecordLine, TextsOfTheCodePageBecomeUtf8AndAreCountedInItsBytes) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.contextToken = mutableText("\xE9");
    record.text = mutableText("caf\xE9 \xFC\xDF");
    record.who = mutableText("\xC0 la");
    EXPECT_EQ(serialize(record).bytes,
              "0,1,2,3,4,5,6,7,2:\xC3\xA9,10:caf\xC3\xA9 \xC3\xBC\xC3\x9F,5:\xC3\x80 la,0\n");
}

TEST(RecordLine, ACharacterBeyondAsciiIsFoundAnywhereInAText) {
    for (size_t before = 0; before < 40; ++before) {
        for (size_t offset = 0; offset < 16; ++offset) {
            // The text begins at every place of a sixteen-byte block.
            alignas(16) char area[96] = "";
            const std::string ascii(before, 'a');
            ascii.copy(area + offset, before);
            area[offset + before] = '\xE9';
            zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
            record.text = area + offset;
            EXPECT_EQ(serialize(record).bytes,
                      "0,1,2,3,4,5,6,7,0:," + std::to_string(before + 2) + ":" + ascii + "\xC3\xA9,0:,0\n");
        }
    }
}

TEST(RecordLine, BytesBehindATextsEndDoNotCount) {
    for (size_t length = 0; length < 40; ++length) {
        for (size_t offset = 0; offset < 16; ++offset) {
            alignas(16) char area[96];
            std::fill(std::begin(area), std::end(area), '\xFF');
            const std::string ascii(length, 'a');
            ascii.copy(area + offset, length);
            area[offset + length] = '\0';
            zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
            record.text = area + offset;
            EXPECT_EQ(serialize(record).bytes,
                      "0,1,2,3,4,5,6,7,0:," + std::to_string(length) + ":" + ascii + ",0:,0\n");
        }
    }
}

TEST(RecordLine, WithTheUtf8FlagTextsAreCopiedByteForByte) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.catalogSelector = 7;
    record.contextToken = mutableText("\xC3\xA9");
    record.text = mutableText("\xE2\x82\xAC 5");
    record.who = mutableText("\xFF\xC3"); // not checked either
    EXPECT_EQ(serialize(record).bytes, "0,1,2,3,4,5,6,7,2:\xC3\xA9,5:\xE2\x82\xAC 5,2:\xFF\xC3,0\n");
}

TEST(RecordLine, WithTheUtf8FlagTheContextStringIsCopiedToo) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_CONTEXT);
    record.catalogSelector = 1;
    record.slot.contextString = mutableText("\xC3\xA9");
    EXPECT_EQ(serialize(record).bytes, "3,1,2,3,4,5,6,7,0:,0:,2:\xC3\xA9,(0|)\n");
}

// ---- size of a line

// A debug record around a text of n bytes (four digits) has n + 30 bytes.
zantLogMsgRec debugRecordWith(const std::string &text) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.text = mutableText(text.c_str());
    record.slot.level = 2;
    return record;
}

TEST(RecordLine, Of4095BytesStaysInTheInlineArea) {
    const std::string text(4065, 't');
    zantLogMsgRec record = debugRecordWith(text);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.bytes, "0,1,2,3,4,5,6,7,0:,4065:" + text + ",0:,2\n");
    EXPECT_EQ(line.bytes.size(), 4095u);
    EXPECT_TRUE(line.inlineArea);
}

TEST(RecordLine, Of4096BytesNeedsAHeapBlock) {
    const std::string text(4066, 't');
    zantLogMsgRec record = debugRecordWith(text);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.bytes, "0,1,2,3,4,5,6,7,0:,4066:" + text + ",0:,2\n");
    EXPECT_EQ(line.bytes.size(), 4096u);
    EXPECT_FALSE(line.inlineArea);
}

TEST(RecordLine, OfAConvertedTextMayHave4095BytesInTheInlineArea) {
    // 2032 characters of two bytes each and one of one: 4065 bytes.
    const std::string text = std::string(2032, '\xE9') + "x";
    std::string utf8;
    for (int character = 0; character < 2032; ++character) {
        utf8 += "\xC3\xA9";
    }
    zantLogMsgRec record = debugRecordWith(text);
    const SerializedLine line = serialize(record);
    EXPECT_EQ(line.bytes, "0,1,2,3,4,5,6,7,0:,4065:" + utf8 + "x,0:,2\n");
    EXPECT_TRUE(line.inlineArea);
}

TEST(RecordLine, OfAnyLengthIsWhole) {
    for (const size_t length : {4060u, 4090u, 4095u, 4096u, 4097u, 8191u, 8192u, 8193u, 20000u, 1000000u}) {
        const std::string text(length, 't');
        zantLogMsgRec record = debugRecordWith(text);
        EXPECT_EQ(serialize(record).bytes,
                  "0,1,2,3,4,5,6,7,0:," + std::to_string(length) + ":" + text + ",0:,2\n");
    }
}

TEST(RecordLine, OfALongConvertedTextIsWhole) {
    for (const size_t length : {4094u, 4095u, 4096u, 5000u, 100000u}) {
        const std::string text(length, '\xE9');
        std::string utf8;
        for (size_t character = 0; character < length; ++character) {
            utf8 += "\xC3\xA9";
        }
        zantLogMsgRec record = debugRecordWith(text);
        EXPECT_EQ(serialize(record).bytes,
                  "0,1,2,3,4,5,6,7,0:," + std::to_string(2 * length) + ":" + utf8 + ",0:,2\n");
    }
}

TEST(RecordLine, SeveralLongFieldsAreWhole) {
    const std::string token(3000, 'k');
    const std::string text(6000, 't');
    const std::string who(9000, 'w');
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    record.contextToken = mutableText(token.c_str());
    record.text = mutableText(text.c_str());
    record.who = mutableText(who.c_str());
    EXPECT_EQ(serialize(record).bytes,
              "0,1,2,3,4,5,6,7,3000:" + token + ",6000:" + text + ",9000:" + who + ",0\n");
}

// ---- failure

TEST(RecordLine, NullArgumentsAreInvalid) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DEBUG);
    text_msg buffer;
    EXPECT_EQ(zantLogMsgSerialize(nullptr, &buffer), 3u);
    EXPECT_EQ(zantLogMsgSerialize(&record, nullptr), 3u);
    EXPECT_EQ(zantLogMsgSerialize(nullptr, nullptr), 3u);
}

TEST(RecordLine, AFailureLeavesTheBufferReleased) {
    const std::string text(10000, 't');
    zantLogMsgRec wrongSeverity = recordOf(ZANTLOG_MSG_APPLICATION);
    wrongSeverity.text = mutableText(text.c_str());
    wrongSeverity.slot.level = 5;
    zantLogMsgRec wrongVersion = recordOf(ZANTLOG_MSG_DEBUG, 65545);
    for (zantLogMsgRec *record : {&wrongSeverity, &wrongVersion}) {
        text_msg buffer;
        EXPECT_EQ(zantLogMsgSerialize(record, &buffer), 1u);
        EXPECT_EQ(buffer.data, buffer.inlineArea);
        EXPECT_EQ(buffer.capacity, 4096u);
        EXPECT_EQ(buffer.free, 4096u);
        free_text_msg(&buffer);
        free_text_msg(&buffer);
    }
}

TEST(RecordLine, SerializingDoesNotChangeTheRecord) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_DIAGNOSTIC);
    char text[] = "one\ntwo";
    record.text = text;
    const SerializedLine first = serialize(record);
    const SerializedLine second = serialize(record);
    EXPECT_EQ(first.bytes, second.bytes);
    EXPECT_STREQ(text, "one\ntwo");
    EXPECT_EQ(record.text, text);
}

} // namespace
