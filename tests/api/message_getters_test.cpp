#include <vector>

#include <gtest/gtest.h>

#include "zantlog/zantlog.h"

namespace {

constexpr uint32_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 0xFFFFFFFF};

char kToken[] = "token";
char kText[] = "text";
char kWho[] = "who";

// Every field has a value of its own.
zantLogMsgRec record(uint32_t type) {
    zantLogMsgRec rec = {};
    rec.origin = 1;
    rec.formatVersion = 65543;
    rec.type = type;
    rec.productId = 101;
    rec.originatorId = 102;
    rec.fid = 103;
    rec.sequence = 104;
    rec.timestamp = 0x0123456789ABCDEF;
    rec.processId = 105;
    rec.threadId = 106;
    rec.contextToken = kToken;
    rec.text = kText;
    rec.slot.level = -107;
    rec.who = kWho;
    rec.outcome = 108;
    rec.lis.textId = 109;
    return rec;
}

bool contains(const std::vector<uint32_t> &types, uint32_t type) {
    for (const uint32_t each : types) {
        if (each == type) {
            return true;
        }
    }
    return false;
}

// The getter gives `expected` for the allowed types and 3, storing nothing, for the others.
template <typename T>
void expectField(uint32_t (*get)(zantLogMsgRec *, T *), const std::vector<uint32_t> &allowed, T expected,
                 T untouched) {
    for (const uint32_t type : kTypes) {
        zantLogMsgRec rec = record(type);
        T out = untouched;
        const bool defined = allowed.empty() || contains(allowed, type);
        EXPECT_EQ(get(&rec, &out), defined ? 0u : 3u) << "type " << type;
        EXPECT_EQ(out, defined ? expected : untouched) << "type " << type;
    }
    zantLogMsgRec rec = record(allowed.empty() ? 0 : allowed.front());
    T out = untouched;
    EXPECT_EQ(get(nullptr, &out), 3u);
    EXPECT_EQ(out, untouched);
    EXPECT_EQ(get(&rec, nullptr), 3u);
}

void expectNumber(uint32_t (*get)(zantLogMsgRec *, uint32_t *), const std::vector<uint32_t> &allowed,
                  uint32_t expected) {
    expectField<uint32_t>(get, allowed, expected, 0xDEAD);
}

void expectLevel(uint32_t (*get)(zantLogMsgRec *, int32_t *), const std::vector<uint32_t> &allowed) {
    expectField<int32_t>(get, allowed, -107, 0xDEAD);
}

void expectText(uint32_t (*get)(zantLogMsgRec *, const char **), const std::vector<uint32_t> &allowed,
                const char *expected) {
    static const char untouched[] = "untouched";
    expectField<const char *>(get, allowed, expected, untouched);
}

} // namespace

TEST(Getters, TypeOfEveryRecord) {
    for (const uint32_t type : kTypes) {
        zantLogMsgRec rec = record(type);
        uint32_t out = 0xDEAD;
        EXPECT_EQ(zantLogGetMsgType(&rec, &out), 0u);
        EXPECT_EQ(out, type);
    }
    zantLogMsgRec rec = record(0);
    uint32_t out = 0xDEAD;
    EXPECT_EQ(zantLogGetMsgType(nullptr, &out), 3u);
    EXPECT_EQ(zantLogGetMsgType(&rec, nullptr), 3u);
    EXPECT_EQ(out, 0xDEADu);
}

TEST(Getters, NumbersOfEveryRecord) {
    expectNumber(zantLogGetMsgProductId, {}, 101);
    expectNumber(zantLogGetMsgOriginatorId, {}, 102);
    expectNumber(zantLogGetMsgFid, {}, 103);
    expectNumber(zantLogGetMsgPid, {}, 105);
    expectNumber(zantLogGetMsgTid, {}, 106);
}

TEST(Getters, TimestampOfEveryRecord) {
    expectField<uint64_t>(zantLogGetMsgTimestamp, {}, 0x0123456789ABCDEF, 0xDEAD);
}

TEST(Getters, TextsOfEveryRecord) {
    expectText(zantLogGetMsgContextToken, {}, kToken);
    expectText(zantLogGetMsgText, {}, kText);
}

TEST(Getters, NullTextsAreHandedOutAsNull) {
    zantLogMsgRec rec = {};
    const char *out = "untouched";
    EXPECT_EQ(zantLogGetMsgText(&rec, &out), 0u);
    EXPECT_EQ(out, nullptr);
    out = "untouched";
    EXPECT_EQ(zantLogGetMsgContextToken(&rec, &out), 0u);
    EXPECT_EQ(out, nullptr);
}

TEST(Getters, LisGivesTheAddressInsideTheRecord) {
    for (const uint32_t type : kTypes) {
        zantLogMsgRec rec = record(type);
        zantLis *out = nullptr;
        EXPECT_EQ(zantLogGetMsgLis(&rec, &out), 0u);
        EXPECT_EQ(out, &rec.lis);
    }
    zantLogMsgRec rec = record(0);
    zantLis *out = nullptr;
    EXPECT_EQ(zantLogGetMsgLis(nullptr, &out), 3u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(zantLogGetMsgLis(&rec, nullptr), 3u);
}

TEST(Getters, WhoOfItsOwnTypeOnly) {
    expectText(zantLogGetMsgAppAttrWho, {2}, kWho);
    expectText(zantLogGetMsgDebugAttrWho, {0}, kWho);
    expectText(zantLogGetMsgDiagAttrWho, {1}, kWho);
}

TEST(Getters, SubjectAndOutcomeOfBothAuditTypes) {
    expectText(zantLogGetMsgAuditAttrSubject, {4, 5}, kWho);
    expectNumber(zantLogGetMsgAuditAttrOutcome, {4, 5}, 108);
}

TEST(Getters, LevelOfItsOwnTypeOnly) {
    expectLevel(zantLogGetMsgAppAttrSeverity, {2});
    expectLevel(zantLogGetMsgDebugLevel, {0});
    expectLevel(zantLogGetMsgDebugAttrLevel, {0});
    expectLevel(zantLogGetMsgDiagLevel, {1});
    expectLevel(zantLogGetMsgDiagAttrLevel, {1});
}

TEST(Getters, AuditLevelExistsInSecureAuditRecordsOnly) {
    expectLevel(zantLogGetMsgAuditLevel, {5});
}

TEST(Getters, ContextTokenOfAContextRecordOnly) {
    static char announced[] = "announced";
    for (const uint32_t type : kTypes) {
        zantLogMsgRec rec = record(type);
        rec.slot.contextString = announced;
        const char *out = "untouched";
        EXPECT_EQ(zantLogGetMsgContextAttrToken(&rec, &out), type == 3 ? 0u : 3u);
        EXPECT_STREQ(out, type == 3 ? "announced" : "untouched");
    }
    zantLogMsgRec rec = record(3);
    const char *out = "untouched";
    EXPECT_EQ(zantLogGetMsgContextAttrToken(nullptr, &out), 3u);
    EXPECT_EQ(zantLogGetMsgContextAttrToken(&rec, nullptr), 3u);
}

TEST(Getters, FreedRecordReadsAsTypeZeroWithEveryPointerNull) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 4, "x"), 0u);
    zantLogSetAuditAttr(&rec, "s", 1);
    zantLogFreeMsg(&rec);
    uint32_t type = 9;
    EXPECT_EQ(zantLogGetMsgType(&rec, &type), 0u);
    EXPECT_EQ(type, 0u);
    const char *out = "untouched";
    EXPECT_EQ(zantLogGetMsgText(&rec, &out), 0u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(zantLogGetMsgDebugAttrWho(&rec, &out), 0u);
    EXPECT_EQ(out, nullptr);
}
