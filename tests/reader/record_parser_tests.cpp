// Records taken apart: every version, type and kind of argument, and lines that are none.
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "zantlog/reader.h"

namespace zantlog::test {
namespace {

// A parsed line; freed at the end of the scope.
struct Parsed : zantLogMsgRec {
    explicit Parsed(const std::string &line, uint32_t version = 65543) : zantLogMsgRec{} {
        std::memset(static_cast<zantLogMsgRec *>(this), 0xEE, sizeof(zantLogMsgRec));
        LogFileHeader header = {};
        header.version = version;
        header.productId = 90;
        header.originatorId = 91;
        // A block of its own size: a sanitizer sees what is read behind it.
        const std::string exact(line);
        result = zantLogParseRecord(&header, exact.data(), exact.size(), this);
    }
    ~Parsed() { EXPECT_EQ(zantLogFreeMsg(this), 0U); }
    Parsed(const Parsed &) = delete;
    Parsed &operator=(const Parsed &) = delete;

    // Serialised again, without the line end.
    std::string again() {
        text_msg buffer;
        EXPECT_EQ(zantLogMsgSerialize(this, &buffer), 0U);
        std::string line(buffer.data, buffer.capacity - buffer.free - 1);
        free_text_msg(&buffer);
        return line;
    }

    uint32_t result;
};

bool isZero(const zantLogMsgRec &rec) {
    static const zantLogMsgRec kZero = {};
    return std::memcmp(&rec, &kZero, sizeof kZero) == 0;
}

const std::string kPrefix = "12,3,4,57,1763249000123,4242,777,";

std::string diagnostic(const std::string &arguments) {
    return "1," + kPrefix + "0:,1:t,1:w,2," + arguments;
}

// The arguments of a diagnostic record.
struct ParsedArguments : Parsed {
    explicit ParsedArguments(const std::string &list) : Parsed(diagnostic(list)) {
        EXPECT_EQ(result, 0U) << list;
        more = result == 0 && zantLisGetArgsBegin(&lis, &at) == 0;
    }
    int32_t kind() const {
        int32_t value = -1;
        EXPECT_EQ(zantLisGetArgTypeId(&at, &value), 0);
        return value;
    }
    void next() { more = zantLisGetNextArg(&at) == 0; }

    zantLisArgIter at = {};
    bool more = false;
};

TEST(RecordParser, ADiagnosticRecord) {
    Parsed rec("1,12,3,4,57,1763249000123,4242,777,5:token,12:disk failure,7:scanner,2,(2|u32:5|S2:C:|)");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.origin, 1U);
    EXPECT_EQ(rec.formatVersion, 65543U);
    EXPECT_EQ(rec.type, 1U);
    EXPECT_EQ(rec.productId, 12U);
    EXPECT_EQ(rec.originatorId, 3U);
    EXPECT_EQ(rec.fid, 4U);
    EXPECT_EQ(rec.sequence, 57U);
    EXPECT_EQ(rec.timestamp, 1763249000123U);
    EXPECT_EQ(rec.processId, 4242U);
    EXPECT_EQ(rec.threadId, 777U);
    EXPECT_STREQ(rec.contextToken, "token");
    EXPECT_STREQ(rec.text, "disk failure");
    EXPECT_STREQ(rec.who, "scanner");
    EXPECT_EQ(rec.slot.level, 2);
    EXPECT_EQ(rec.outcome, 0U);
    EXPECT_NE(rec.catalogSelector, 0U) << "its texts are UTF-8";
    EXPECT_EQ(rec.lis.argCount, 2U);
    EXPECT_EQ(rec.lis.textId, 0U);
}

TEST(RecordParser, ADebugRecordHasNoArguments) {
    Parsed rec("0," + kPrefix + "0:,1:t,3:who,-6");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.type, 0U);
    EXPECT_STREQ(rec.who, "who");
    EXPECT_EQ(rec.slot.level, -6);
    EXPECT_EQ(rec.lis.argCount, 0U);
    EXPECT_EQ(rec.contextToken, nullptr) << "an empty text is null";
}

TEST(RecordParser, AnApplicationRecord) {
    Parsed rec("2," + kPrefix + "0:,0:,3:who,4,(0|)");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.text, nullptr);
    EXPECT_STREQ(rec.who, "who");
    EXPECT_EQ(rec.slot.level, 4);
    EXPECT_EQ(rec.lis.first, nullptr);
}

TEST(RecordParser, AContextRecord) {
    Parsed rec("3," + kPrefix + "5:outer,5:title,5:inner,(1|i32:-7|)");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_STREQ(rec.contextToken, "outer");
    EXPECT_STREQ(rec.text, "title");
    EXPECT_STREQ(rec.slot.contextString, "inner");
    EXPECT_EQ(rec.lis.argCount, 1U);
    EXPECT_EQ(rec.who, nullptr);
}

TEST(RecordParser, AnAuditRecord) {
    Parsed rec("4," + kPrefix + "0:,5:login,4:mary,-1,(0|)");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_STREQ(rec.who, "mary");
    EXPECT_EQ(rec.outcome, 4294967295U) << "written as a signed number";
}

TEST(RecordParser, ALogSetRecordHasNoProduct) {
    Parsed rec("1,3,57,1763249000123,4242,777,0:,1:t,1:w,2,(0|)", 65544);
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.formatVersion, 65544U);
    EXPECT_EQ(rec.productId, 0U);
    EXPECT_EQ(rec.originatorId, 3U);
    EXPECT_EQ(rec.fid, 0U);
    EXPECT_EQ(rec.sequence, 57U);
}

TEST(RecordParser, LargestNumbers) {
    Parsed rec(
        "1,4294967295,4294967295,4294967295,4294967295,9223372036854775807,4294967295,4294967295,0:,0:,0:,"
        "-2147483648,(0|)");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.productId, 4294967295U);
    EXPECT_EQ(rec.timestamp, 9223372036854775807U);
    EXPECT_EQ(rec.threadId, 4294967295U);
    EXPECT_EQ(rec.slot.level, INT32_MIN);
}

TEST(RecordParser, ATimeBefore1970) {
    Parsed rec("0,12,3,4,57,-5,4242,777,0:,0:,0:,1");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(static_cast<int64_t>(rec.timestamp), -5);
}

TEST(RecordParser, TextsHoldWhatTheirLengthsSay) {
    Parsed rec("0," + kPrefix + "3:a,b,9:1:x,(2|)\n,2:\xC3\xA4,1");
    ASSERT_EQ(rec.result, 0U);
    EXPECT_STREQ(rec.contextToken, "a,b");
    EXPECT_STREQ(rec.text, "1:x,(2|)\n");
    EXPECT_STREQ(rec.who, "\xC3\xA4");
}

// Versions without numbers: the type is told by the form.
TEST(RecordParser, OldRecordsTakeTheirNumbersFromTheHeader) {
    Parsed rec("5:token,4:text,3:who,2", 65542);
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.productId, 90U);
    EXPECT_EQ(rec.originatorId, 91U);
    EXPECT_EQ(rec.fid, 91U);
    EXPECT_EQ(rec.sequence, 0U);
    EXPECT_EQ(rec.timestamp, 0U);
    EXPECT_EQ(rec.type, 0U);
    EXPECT_STREQ(rec.contextToken, "token");
    EXPECT_STREQ(rec.who, "who");
    EXPECT_EQ(rec.slot.level, 2);
}

TEST(RecordParser, OldRecordsShowTheirTypeByTheirForm) {
    for (const uint32_t version : {65540U, 65541U, 65542U}) {
        EXPECT_EQ(Parsed("0:,0:,3:who,2", version).type, 0U);
        EXPECT_EQ(Parsed("0:,0:,3:who,2,(1|u8:1|)", version).type, 1U);
        EXPECT_EQ(Parsed("0:,0:,3:who,(0|)", version).type, 3U);
    }
    for (const uint32_t version : {65540U, 65541U}) {
        Parsed rec("0:,0:,3,(0|)", version);
        EXPECT_EQ(rec.type, 2U);
        EXPECT_EQ(rec.slot.level, 3);
        EXPECT_EQ(rec.who, nullptr);
    }
    EXPECT_EQ(Parsed("0:,0:,3,(0|)", 65542).result, 1U)
        << "an application record of 65542 names its component";
}

TEST(RecordParser, Integers) {
    ParsedArguments list("(8|i8:-128|i16:-5|i32:5|i64:-9223372036854775808|u8:255|u16:65535|u32:7|"
                         "u64:18446744073709551615|)");
    const int64_t numbers[] = {-128, -5, 5, INT64_MIN};
    for (const int64_t expected : numbers) {
        int64_t value = 0;
        ASSERT_TRUE(list.more);
        EXPECT_EQ(list.kind(), 1);
        EXPECT_EQ(zantLisGetArg_longlong(&list.at, &value), 0);
        EXPECT_EQ(value, expected);
        list.next();
    }
    const uint64_t unsignedNumbers[] = {255, 65535, 7, UINT64_MAX};
    for (const uint64_t expected : unsignedNumbers) {
        uint64_t value = 0;
        ASSERT_TRUE(list.more);
        EXPECT_EQ(list.kind(), 2);
        EXPECT_EQ(zantLisGetArg_ulonglong(&list.at, &value), 0);
        EXPECT_EQ(value, expected);
        list.next();
    }
    EXPECT_FALSE(list.more);
}

TEST(RecordParser, RealsPointersTimesAndErrors) {
    ParsedArguments list("(5|83.250000|8-2,500000|964:4096|C64:-1|D32:-5|)");
    double real = 0;
    EXPECT_EQ(zantLisGetArg_double(&list.at, &real), 0);
    EXPECT_EQ(real, 3.25);
    list.next();
    EXPECT_EQ(zantLisGetArg_double(&list.at, &real), 0);
    EXPECT_EQ(real, -2.5) << "the decimal point of another locale";
    list.next();
    void *pointer = nullptr;
    EXPECT_EQ(zantLisGetArg_pointer(&list.at, &pointer), 0);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(pointer), 4096U);
    list.next();
    int64_t number = 0;
    EXPECT_EQ(zantLisGetArg_datetime(&list.at, &number), 0);
    EXPECT_EQ(number, -1);
    list.next();
    EXPECT_EQ(zantLisGetArg_os_error(&list.at, &number), 0);
    EXPECT_EQ(number, -5);
}

TEST(RecordParser, RealsThatAreNoNumbers) {
    ParsedArguments list("(6|8inf|8-inf|8nan|81.#INF00|8-1.#IND00|8-nan|)");
    double expected[] = {HUGE_VAL, -HUGE_VAL, NAN, HUGE_VAL, NAN, NAN};
    for (const double value : expected) {
        double real = 0;
        EXPECT_EQ(zantLisGetArg_double(&list.at, &real), 0);
        EXPECT_TRUE(std::isnan(value) ? std::isnan(real) : real == value) << real;
        list.next();
    }
}

TEST(RecordParser, Texts) {
    ParsedArguments list("(5|A4:a\xE2\x82\xAC|X2:\xC3\xA4|S3:|()|S0:|11:x|)");
    const wchar_t *wide = nullptr;
    EXPECT_EQ(zantLisGetArg_wstring(&list.at, &wide), 0);
    EXPECT_EQ(wide[0], L'a');
    EXPECT_EQ(wide[1], 0x20AC);
    EXPECT_EQ(wide[2], 0);
    list.next();
    const char *text = nullptr;
    EXPECT_EQ(zantLisGetArg_utf8string(&list.at, &text), 0);
    EXPECT_STREQ(text, "\xC3\xA4");
    list.next();
    EXPECT_EQ(zantLisGetArg_nativeString(&list.at, &text), 0);
    EXPECT_STREQ(text, "|()");
    list.next();
    EXPECT_EQ(zantLisGetArg_nativeString(&list.at, &text), 0);
    EXPECT_STREQ(text, "");
    list.next();
    wchar_t character = 0;
    EXPECT_EQ(zantLisGetArg_wchar(&list.at, &character), 0);
    EXPECT_EQ(character, L'x');
}

TEST(RecordParser, AWideCharacterThatTheLineDoesNotHold) {
    // Two and three bytes: the "|" at the fifth place has taken the second one, the last byte is anybody's.
    ParsedArguments list("(4|12:\xC3|?13:\xE2|\xAC?11:\xC4|10:|)");
    const wchar_t expected[] = {0xFFFD, 0xFFFD, 0xFFFD, 0};
    for (const wchar_t value : expected) {
        wchar_t character = 1;
        ASSERT_TRUE(list.more);
        EXPECT_EQ(zantLisGetArg_wchar(&list.at, &character), 0);
        EXPECT_EQ(character, value);
        list.next();
    }
}

TEST(RecordParser, NestedLists) {
    ParsedArguments list("(3|(1|(2|u32:1|S1:x|),),(0|),i32:9|)");
    zantLis outer = {};
    EXPECT_EQ(zantLisGetArg_lis(&list.at, &outer), 0);
    EXPECT_EQ(outer.argCount, 1U);
    zantLisArgIter at = {};
    zantLis inner = {};
    EXPECT_EQ(zantLisGetArgsBegin(&outer, &at), 0);
    EXPECT_EQ(zantLisGetArg_lis(&at, &inner), 0);
    EXPECT_EQ(inner.argCount, 2U);
    list.next();
    zantLis empty = {};
    EXPECT_EQ(zantLisGetArg_lis(&list.at, &empty), 0);
    EXPECT_EQ(empty.argCount, 0U);
    list.next();
    EXPECT_EQ(list.kind(), 1);
}

std::string nested(int depth) {
    std::string list = "(1|u32:1|)";
    for (int i = 0; i < depth; ++i) {
        list = "(1|" + list + ",)";
    }
    return list;
}

TEST(RecordParser, ListsNestAsDeepAsAnObjectCan) {
    EXPECT_EQ(Parsed(diagnostic(nested(31))).result, 0U);
    EXPECT_EQ(Parsed(diagnostic(nested(40))).result, 1U);
    EXPECT_EQ(Parsed(diagnostic(nested(20000))).result, 1U);
    EXPECT_EQ(Parsed(diagnostic(std::string(100000, '('))).result, 1U);
    EXPECT_EQ(Parsed(diagnostic("(1|(1|(1|(1|")).result, 1U);
}

// The writer puts the object's own count before the arguments, also where that is not their number.
TEST(RecordParser, TheCountIsNotBelieved) {
    EXPECT_EQ(Parsed(diagnostic("(0|u32:1|)")).lis.argCount, 1U);
    EXPECT_EQ(Parsed(diagnostic("(4294967295|)")).lis.argCount, 0U);
    EXPECT_EQ(Parsed(diagnostic("(4294967296|)")).result, 1U);
}

TEST(RecordParser, WidthsThatCHasNotAreOf64Bits) {
    Parsed rec(diagnostic("(4|i24:5|u32:4294967296|i8:200|D16:3|)"));
    ASSERT_EQ(rec.result, 0U);
    EXPECT_EQ(rec.again(), diagnostic("(4|i64:5|u64:4294967296|i64:200|D64:3|)"));
}

TEST(RecordParser, LinesComeBackAsTheyWere) {
    for (const std::string &line :
         {"0," + kPrefix + "0:,1:t,3:who,6", "2," + kPrefix + "3:tok,0:,0:,0,(0|)",
          "3," + kPrefix + "0:,5:title,5:token,(1|S1:x|)", "4," + kPrefix + "0:,0:,4:mary,7,(0|)",
          diagnostic("(12|11:x|i8:-1|i16:-1|i32:-1|i64:-1|u32:5|83.250000|964:4096|A2:C:|D32:5|C64:"
                     "1763249000|X2:C:|)"),
          diagnostic("(4|D64:5|S2:C:|(1|u32:5|),(2|(0|),u64:1|),)")}) {
        Parsed rec(line);
        ASSERT_EQ(rec.result, 0U) << line;
        EXPECT_EQ(rec.again(), line);
    }
}

TEST(RecordParser, DamagedLines) {
    for (const std::string &line : {std::string(),
                                    std::string(","),
                                    std::string("x"),
                                    "5," + kPrefix + "0:,0:,0:,1",
                                    "6," + kPrefix + "0:,0:,0:,1",
                                    "-1," + kPrefix + "0:,0:,0:,1",
                                    std::string("1,4294967296,3,4,57,1,2,3,0:,0:,0:,1,(0|)"),
                                    std::string("1,12,3,4,57,9223372036854775808,2,3,0:,0:,0:,1,(0|)"),
                                    "1,-" + kPrefix + "0:,0:,0:,1,(0|)",
                                    "2," + kPrefix + "0:,0:,0:,5,(0|)",
                                    "2," + kPrefix + "0:,0:,0:,-1,(0|)",
                                    "0," + kPrefix + "0:,0:,0:,1,",
                                    "0," + kPrefix + "0:,0:,0:,1,(0|)",
                                    "0," + kPrefix + "0:,2:t,0:,1",
                                    "0," + kPrefix + "0:,t,0:,1",
                                    "0," + kPrefix + "0:,0:,99:who,1",
                                    "0," + kPrefix + "0:,0:,18446744073709551615:who,1",
                                    "0," + kPrefix + "0:,0:,18446744073709551616:who,1",
                                    "0," + kPrefix + "0:,0:,0:,2147483648",
                                    diagnostic("(0|),"),
                                    diagnostic("(0|)x"),
                                    diagnostic("0|)"),
                                    diagnostic("(|)"),
                                    diagnostic("(-1|)"),
                                    diagnostic("(1|z|)"),
                                    diagnostic("(1|i32|)"),
                                    diagnostic("(1|i32:|)"),
                                    diagnostic("(1|i32:x|)"),
                                    diagnostic("(1|u32:-1|)"),
                                    diagnostic("(1|i65536:1|)"),
                                    diagnostic("(1|8|)"),
                                    diagnostic("(1|8x|)"),
                                    diagnostic("(1|81e5|)"),
                                    diagnostic("(1|S2:x|)"),
                                    diagnostic("(1|S1:xx|)"),
                                    diagnostic("(1|A1:\xFF|)"),
                                    diagnostic("(1|11:xx)"),
                                    diagnostic("(1|14:abcd|)"),
                                    diagnostic("(1|(0|)|)"),
                                    diagnostic("(1|(0|)")}) {
        Parsed rec(line);
        EXPECT_EQ(rec.result, 1U) << line;
        EXPECT_TRUE(isZero(rec)) << line;
    }
}

TEST(RecordParser, EveryTruncationIsDamage) {
    const std::string line = diagnostic("(4|u32:5|A3:\xE2\x82\xAC|(1|83.500000|),11:x|)");
    ASSERT_EQ(Parsed(line).result, 0U);
    for (size_t length = 0; length < line.size(); ++length) {
        EXPECT_EQ(Parsed(line.substr(0, length)).result, 1U) << line.substr(0, length);
    }
}

TEST(RecordParser, EveryChangedByteIsDamageOrAnotherRecord) {
    const std::string line = diagnostic("(4|u32:5|A3:\xE2\x82\xAC|(1|83.500000|),11:x|)");
    for (size_t at = 0; at < line.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = line;
            changed[at] = static_cast<char>(byte);
            Parsed rec(changed);
            EXPECT_LE(rec.result, 1U);
            EXPECT_EQ(rec.result == 1, isZero(rec));
        }
    }
}

TEST(RecordParser, ALineWithANulByteIsDamaged) {
    const std::string line = "0," + kPrefix + "0:,3:a" + std::string(1, '\0') + "b,0:,1";
    EXPECT_EQ(Parsed(line).result, 1U);
}

TEST(RecordParser, OtherVersionsAreNotRead) {
    for (const uint32_t version : {0U, 65539U, 65545U, 4294967295U}) {
        Parsed rec(diagnostic("(0|)"), version);
        EXPECT_EQ(rec.result, 48U) << version;
        EXPECT_TRUE(isZero(rec));
    }
}

TEST(RecordParser, NullArguments) {
    LogFileHeader header = {};
    header.version = 65543;
    zantLogMsgRec rec;
    std::memset(&rec, 0xEE, sizeof rec);
    EXPECT_EQ(zantLogParseRecord(nullptr, "x", 1, &rec), 3U);
    EXPECT_TRUE(isZero(rec));
    std::memset(&rec, 0xEE, sizeof rec);
    EXPECT_EQ(zantLogParseRecord(&header, nullptr, 0, &rec), 3U);
    EXPECT_TRUE(isZero(rec));
    EXPECT_EQ(zantLogParseRecord(&header, "x", 1, nullptr), 3U);
}

} // namespace
} // namespace zantlog::test
