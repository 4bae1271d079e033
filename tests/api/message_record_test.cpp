#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/record_bytes.h"
#include "tests/support/machine.h"
#include "zantlog/zantlog.h"

namespace {

// A record whose bytes are known, so that a store that should not happen is seen.
zantLogMsgRec filledRecord(uint32_t type) {
    zantLogMsgRec rec;
    std::memset(&rec, 0x5A, sizeof rec);
    rec.type = type;
    return rec;
}

bool sameBytes(const zantLogMsgRec &left, const zantLogMsgRec &right) {
    return zantlog::test::bytesOf(left) == zantlog::test::bytesOf(right);
}

// A handle that no file and no context belongs to.
zantLogHandle plainHandle() {
    zantLogHandle handle = {};
    handle.noContext = 1;
    return handle;
}

char *text(const char *value) {
    return zantLogSafeStrdup(value);
}

} // namespace

TEST(InitMsg, RefusesANullRecordAndDrawsNoNumber) {
    zantLogHandle handle = plainHandle();
    handle.sequence = 9;
    EXPECT_EQ(zantLogInitMsg(nullptr, &handle, 1, "x"), 3u);
    EXPECT_EQ(handle.sequence, 9u);
}

TEST(InitMsg, FillsARecordForAHandleWithoutALogFile) {
    zantLogHandle handle = plainHandle();
    handle.sequence = 41;
    handle.originatorId = 3;
    handle.catalogSelector = 8;
    zantLogMsgRec rec;
    std::memset(&rec, 0xA5, sizeof rec);
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 2, "hello"), 0u);
    EXPECT_EQ(rec.origin, 0u);
    EXPECT_EQ(rec.formatVersion, 0u);
    EXPECT_EQ(rec.type, 2u);
    EXPECT_EQ(rec.productId, 0u);
    EXPECT_EQ(rec.originatorId, 0u);
    EXPECT_EQ(rec.fid, 0u);
    EXPECT_EQ(rec.sequence, 41u);
    EXPECT_EQ(handle.sequence, 42u);
    EXPECT_EQ(rec.processId, getPID());
    EXPECT_EQ(rec.threadId, getTID());
    EXPECT_EQ(rec.contextToken, nullptr);
    EXPECT_STREQ(rec.text, "hello");
    EXPECT_EQ(rec.catalogSelector, 0u);
    EXPECT_EQ(rec.slot.contextString, nullptr);
    EXPECT_EQ(rec.who, nullptr);
    EXPECT_EQ(rec.outcome, 0u);
    EXPECT_EQ(rec.lis.textId, 0u);
    EXPECT_EQ(rec.lis.first, nullptr);
    for (const uint8_t byte : rec.reserved) {
        ASSERT_EQ(byte, 0u);
    }
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
}

TEST(InitMsg, CopiesTheText) {
    zantLogHandle handle = plainHandle();
    char source[] = "first";
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 0, source), 0u);
    std::strcpy(source, "other");
    EXPECT_STREQ(rec.text, "first");
    zantLogFreeMsg(&rec);
}

TEST(InitMsg, KeepsANullTextNullAndAnEmptyTextEmpty) {
    zantLogHandle handle = plainHandle();
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 0, nullptr), 0u);
    EXPECT_EQ(rec.text, nullptr);
    zantLogFreeMsg(&rec);
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 0, ""), 0u);
    EXPECT_STREQ(rec.text, "");
    zantLogFreeMsg(&rec);
}

TEST(InitMsg, TakesAnyTypeAsItIs) {
    zantLogHandle handle = plainHandle();
    for (const uint32_t type : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 0xFFFFFFFFu}) {
        zantLogMsgRec rec;
        ASSERT_EQ(zantLogInitMsg(&rec, &handle, type, nullptr), 0u);
        EXPECT_EQ(rec.type, type);
        zantLogFreeMsg(&rec);
    }
}

TEST(InitMsg, StampsMillisecondsSince1970) {
    zantLogHandle handle = plainHandle();
    const auto before = static_cast<uint64_t>(zantlog::test::secondsNow()) * 1000;
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 0, nullptr), 0u);
    EXPECT_GE(rec.timestamp, before);
    EXPECT_LE(rec.timestamp, static_cast<uint64_t>(zantlog::test::secondsNow()) * 1000 + 1000);
    zantLogFreeMsg(&rec);
}

TEST(InitMsg, NullHandleGivesNoNumberNoIdsAndNoContext) {
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, nullptr, 1, "t"), 0u);
    EXPECT_EQ(rec.sequence, 0u);
    EXPECT_EQ(rec.productId, 0u);
    EXPECT_EQ(rec.originatorId, 0u);
    EXPECT_EQ(rec.contextToken, nullptr);
    EXPECT_STREQ(rec.text, "t");
    EXPECT_NE(rec.processId, 0u);
    zantLogFreeMsg(&rec);
}

TEST(InitMsg, BorrowsTheTokenOfALiveContext) {
    zantLogHandle handle = {};
    handle.context.type = 3;
    char token[] = "job-7";
    handle.context.slot.contextString = token;
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 1, nullptr), 0u);
    EXPECT_EQ(rec.contextToken, token);
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_STREQ(token, "job-7");
}

TEST(InitMsg, IgnoresTheContextRecordOfAHandleWithoutContext) {
    zantLogHandle handle = plainHandle();
    handle.context.type = 3;
    char token[] = "job-7";
    handle.context.slot.contextString = token;
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 1, nullptr), 0u);
    EXPECT_EQ(rec.contextToken, nullptr);
    zantLogFreeMsg(&rec);
}

TEST(InitMsg, AllZeroHandleGivesTheGettersRefusalAfterNumberAndTime) {
    zantLogHandle handle = {};
    handle.sequence = 5;
    zantLogMsgRec rec;
    std::memset(&rec, 0xA5, sizeof rec);
    EXPECT_EQ(zantLogInitMsg(&rec, &handle, 1, "not copied"), 3u);
    EXPECT_EQ(rec.sequence, 5u);
    EXPECT_EQ(handle.sequence, 6u);
    EXPECT_NE(rec.timestamp, 0u);
    EXPECT_NE(rec.timestamp, 0xA5A5A5A5A5A5A5A5u);
    EXPECT_EQ(rec.text, nullptr);
    EXPECT_EQ(rec.contextToken, nullptr);
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
}

TEST(FreeMsg, NullIsHarmless) {
    EXPECT_EQ(zantLogFreeMsg(nullptr), 0u);
}

TEST(FreeMsg, LeavesAZeroFilledRecordAndMayBeRepeated) {
    zantLogHandle handle = plainHandle();
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 2, "text"), 0u);
    zantLogSetAppAttrEx(&rec, "who", 4);
    const zantLogMsgRec zero = {};
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_TRUE(sameBytes(rec, zero));
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_TRUE(sameBytes(rec, zero));
}

TEST(FreeMsg, FreesTheTokenOfAContextRecord) {
    zantLogMsgRec rec = {};
    rec.type = 3;
    ASSERT_EQ(zantLogSetContextAttr(&rec, "token"), 0u);
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_EQ(rec.slot.contextString, nullptr);
}

TEST(FreeMsg, FreesWhatTheReaderGaveToEachType) {
    for (const uint32_t type : {0u, 1u, 2u, 4u}) {
        zantLogMsgRec rec = {};
        rec.origin = 1;
        rec.type = type;
        rec.contextToken = text("token");
        rec.who = text("who");
        rec.text = text("text");
        EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
        EXPECT_EQ(rec.who, nullptr);
    }
}

TEST(FreeMsg, LeavesTheSubjectOfAReadSecureAuditRecordToTheCaller) {
    zantLogMsgRec rec = {};
    rec.origin = 1;
    rec.type = 5;
    char *subject = text("subject");
    rec.who = subject;
    rec.contextToken = text("token");
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_STREQ(subject, "subject");
    zantLogFree(subject);
}

TEST(FreeMsg, LeavesWhoAndTokenOfABuiltRecordToTheCaller) {
    zantLogMsgRec rec = {};
    char who[] = "who";
    char token[] = "token";
    rec.type = 1;
    rec.who = who;
    rec.contextToken = token;
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_STREQ(who, "who");
    EXPECT_STREQ(token, "token");
}

TEST(FreeMsg, ReleasesTheCatalogObject) {
    zantLogMsgRec rec = {};
    const auto build = [](zantLis *lis, ...) {
        va_list args;
        va_start(args, lis);
        const int32_t result = zantLisVEx(lis, 0, 17, "%d", args);
        va_end(args);
        return result;
    };
    ASSERT_EQ(build(&rec.lis, 5), 0);
    ASSERT_EQ(rec.lis.textId, 17u);
    EXPECT_EQ(zantLogFreeMsg(&rec), 0u);
    EXPECT_EQ(rec.lis.textId, 0u);
    EXPECT_EQ(rec.lis.first, nullptr);
}

TEST(DiagAttr, StoresWhoAndLevelOfEveryValidLevel) {
    for (const auto set : {zantLogSetDiagAttr, zantLogSetDebugAttr}) {
        for (int32_t level = 1; level <= 6; ++level) {
            zantLogMsgRec rec = {};
            EXPECT_EQ(set(&rec, "scanner", level), 0u);
            EXPECT_STREQ(rec.who, "scanner");
            EXPECT_EQ(rec.slot.level, level);
        }
    }
}

TEST(DiagAttr, StoresALevelOutOfRangeWithResult1) {
    for (const auto set : {zantLogSetDiagAttr, zantLogSetDebugAttr}) {
        for (const int32_t level : {0, 7, -1, INT32_MIN, INT32_MAX}) {
            zantLogMsgRec rec = {};
            EXPECT_EQ(set(&rec, "scanner", level), 1u) << level;
            EXPECT_STREQ(rec.who, "scanner");
            EXPECT_EQ(rec.slot.level, level);
        }
    }
}

TEST(DiagAttr, NullWhoStoresNothing) {
    zantLogMsgRec rec = filledRecord(1);
    const zantLogMsgRec before = rec;
    EXPECT_EQ(zantLogSetDiagAttr(&rec, nullptr, 3), 3u);
    EXPECT_EQ(zantLogSetDebugAttr(&rec, nullptr, 3), 3u);
    EXPECT_TRUE(sameBytes(rec, before));
}

TEST(DiagAttr, StoresThePointerItself) {
    const char who[] = "mine";
    zantLogMsgRec rec = {};
    ASSERT_EQ(zantLogSetDiagAttr(&rec, who, 1), 0u);
    EXPECT_EQ(rec.who, who);
}

TEST(AuditAttr, StoresSubjectAndOutcomeAndNoLevel) {
    zantLogMsgRec rec = {};
    rec.slot.level = 99;
    EXPECT_EQ(zantLogSetAuditAttr(&rec, "admin", 0xFFFFFFFF), 0u);
    EXPECT_STREQ(rec.who, "admin");
    EXPECT_EQ(rec.outcome, 0xFFFFFFFFu);
    EXPECT_EQ(rec.slot.level, 99);
    EXPECT_EQ(zantLogSetAuditAttr(&rec, nullptr, 0), 0u);
    EXPECT_EQ(rec.who, nullptr);
}

TEST(SecureAuditAttr, StoresLevelSubjectAndOutcome) {
    zantLogMsgRec rec = {};
    EXPECT_EQ(zantLogSetSecureAuditAttr(&rec, -4, "admin", 12), 0u);
    EXPECT_EQ(rec.slot.level, -4);
    EXPECT_STREQ(rec.who, "admin");
    EXPECT_EQ(rec.outcome, 12u);
    EXPECT_EQ(zantLogSetSecureAuditAttr(&rec, 1, nullptr, 0), 0u);
    EXPECT_EQ(rec.who, nullptr);
}

TEST(AppAttr, StoresTheSeverityAlone) {
    char who[] = "w";
    zantLogMsgRec rec = {};
    rec.who = who;
    EXPECT_EQ(zantLogSetAppAttr(&rec, 77), 0u);
    EXPECT_EQ(rec.slot.level, 77);
    EXPECT_EQ(rec.who, who);
}

TEST(AppAttr, ExtendedFormStoresWhoToo) {
    zantLogMsgRec rec = {};
    EXPECT_EQ(zantLogSetAppAttrEx(&rec, "w", -2), 0u);
    EXPECT_EQ(rec.slot.level, -2);
    EXPECT_STREQ(rec.who, "w");
    EXPECT_EQ(zantLogSetAppAttrEx(&rec, nullptr, 0), 0u);
    EXPECT_EQ(rec.who, nullptr);
}

TEST(ContextAttr, CopiesTheToken) {
    zantLogMsgRec rec = {};
    rec.type = 3;
    char token[] = "abc";
    ASSERT_EQ(zantLogSetContextAttr(&rec, token), 0u);
    token[0] = 'x';
    EXPECT_STREQ(rec.slot.contextString, "abc");
    zantLogFreeMsg(&rec);
}

TEST(ContextAttr, NullTokenStoresNothing) {
    zantLogMsgRec rec = filledRecord(3);
    const zantLogMsgRec before = rec;
    EXPECT_EQ(zantLogSetContextAttr(&rec, nullptr), 3u);
    EXPECT_TRUE(sameBytes(rec, before));
}

TEST(Setters, RefuseANullRecord) {
    EXPECT_EQ(zantLogSetDiagAttr(nullptr, "w", 1), 3u);
    EXPECT_EQ(zantLogSetDebugAttr(nullptr, "w", 1), 3u);
    EXPECT_EQ(zantLogSetAuditAttr(nullptr, "s", 1), 3u);
    EXPECT_EQ(zantLogSetSecureAuditAttr(nullptr, 1, "s", 1), 3u);
    EXPECT_EQ(zantLogSetAppAttr(nullptr, 1), 3u);
    EXPECT_EQ(zantLogSetAppAttrEx(nullptr, "w", 1), 3u);
    EXPECT_EQ(zantLogSetContextAttr(nullptr, "t"), 3u);
}

TEST(Timestamps, SequenceOrdersMessagesOfOneHandle) {
    zantLogHandle handle = plainHandle();
    zantLogMsgRec first;
    zantLogMsgRec second;
    ASSERT_EQ(zantLogInitMsg(&first, &handle, 0, nullptr), 0u);
    ASSERT_EQ(zantLogInitMsg(&second, &handle, 0, nullptr), 0u);
    EXPECT_LE(first.timestamp, second.timestamp);
    EXPECT_EQ(second.sequence, first.sequence + 1);
}
