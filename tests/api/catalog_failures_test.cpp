// What becomes of a message when the catalog library fails, and who frees its object how often.
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/entry_point_support.h"
#include "tests/api/product_fixture.h"
#include "tests/api/stubborn_catalog.h"

using namespace zantlog::test;

namespace {

class CatalogFailuresTest : public ProductTest {
protected:
    CatalogFailuresTest() {
        catalog = {};
        setting("Default", "DebugLevel", "6");
        setting("Default", "DiagnosticLevel", "6");
    }
    ~CatalogFailuresTest() override { catalog = {}; }
};

struct MappedResult {
    int32_t catalogResult;
    uint32_t result;
};

const std::vector<MappedResult> kMappedResults = {{-1, 10}, {-2, 3}, {-3, 4}, {-4, 2}, {-5, 10}};

} // namespace

TEST_F(CatalogFailuresTest, AFailedBuildIsMappedAndNothingIsWritten) {
    OpenLog log;
    for (const MappedResult &row : kMappedResults) {
        catalog.buildResult = row.catalogResult;
        EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "x"), row.result) << row.catalogResult;
        EXPECT_EQ(zantLogAppMsg(&log, 8, 0, 4711, "x"), row.result) << row.catalogResult;
        EXPECT_EQ(zantLogDiagMsg(&log, 0, 1, "w", 4711, "x"), row.result) << row.catalogResult;
        EXPECT_EQ(zantLogAuditMsg(&log, 0, "s", 0, 4711, "x"), row.result) << row.catalogResult;
    }
    EXPECT_EQ(catalog.frees, 0) << "what was not built is not freed";
    EXPECT_EQ(log.sequence, 1u);
    EXPECT_TRUE(records().empty());
    EXPECT_TRUE(commonLockIsFree());
}

TEST_F(CatalogFailuresTest, AFailedBuildOfASecureAuditMessageIsMapped) {
    Configuration configuration;
    std::strcpy(configuration.eventSource.name, "Application");
    configuration.secureAuditLevel = 6;
    zantLogHandle log = {};
    ASSERT_EQ(zantLogSecureOpen(12, 3, 0, &configuration, &log), 0u);
    for (const MappedResult &row : kMappedResults) {
        catalog.buildResult = row.catalogResult;
        EXPECT_EQ(zantLogSecureAuditMsg(&log, 1, "s", 0, 4711, "x"), row.result) << row.catalogResult;
    }
    EXPECT_EQ(catalog.frees, 0);
    EXPECT_EQ(log.sequence, 0u);
    zantLogClose(&log);
}

TEST_F(CatalogFailuresTest, AFailedTitleOfAContextIsMappedAndNothingIsWritten) {
    OpenLog log;
    for (const MappedResult &row : kMappedResults) {
        catalog.buildResult = row.catalogResult;
        for (const uint32_t msgid : {0u, 4711u}) {
            zantLogHandle context = {};
            EXPECT_EQ(zantLogCreateContext(&log, &context, "t", msgid, "x"), row.result) << row.catalogResult;
            EXPECT_EQ(context.file, nullptr);
        }
    }
    EXPECT_EQ(catalog.frees, 0);
    EXPECT_TRUE(records().empty());
}

TEST_F(CatalogFailuresTest, ATextThatCannotBeBuiltIsLoggedAsNone) {
    OpenLog log;
    catalog.buildResult = -4;
    EXPECT_EQ(zantLogDebugMsg(&log, 0, 1, "w", "x"), 0u);
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 0, "x"), 0u);
    EXPECT_EQ(catalog.frees, 0);
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].rest, "0:,0:,1:w,1");
    EXPECT_EQ(records()[1].rest, "0:,0:,0:,0,(0|)");
}

TEST_F(CatalogFailuresTest, AnObjectIsFreedOnceWhateverBecomesOfItsMessage) {
    OpenLog log;
    const auto freesOf = [](auto call, uint32_t expected) {
        catalog.frees = 0;
        GivenObject object(4711, "x");
        EXPECT_EQ(call(&object), expected);
        EXPECT_TRUE(object.isGone());
        return catalog.frees;
    };
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogAppMsg2L(&log, 0, 0, 0, nullptr, lis); }, 0), 1);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogAppMsg2L(&log, 0, 0, 5, nullptr, lis); }, 1), 1);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogDiagMsg2L(&log, 0, 0, 0, "w", "x", lis); }, 1), 1);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogAuditMsg2L(&log, 0, 0, "s", 0, lis); }, 0), 1);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogSecureAuditMsgL(&log, 0, "s", 0, lis); }, 58), 1);
    breakContext(&log);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogAppMsg2L(&log, 0, 0, 0, nullptr, lis); }, 3), 1);
    EXPECT_EQ(freesOf([&](zantLis *lis) { return zantLogAuditMsg2L(&log, 0, 0, "s", 0, lis); }, 3), 1);
}

TEST_F(CatalogFailuresTest, AnObjectThatTheLibraryBuiltIsFreedOnce) {
    OpenLog log;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "x"), 0u);
    EXPECT_EQ(catalog.frees, 1);
    EXPECT_EQ(zantLogDiagMsg(&log, 0, 0, "w", 4711, "x"), 1u);
    EXPECT_EQ(catalog.frees, 2);
    breakContext(&log);
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "x"), 3u);
    EXPECT_EQ(catalog.frees, 3);
    EXPECT_EQ(zantLogSecureAuditMsg(&log, 0, "s", 0, 4711, "x"), 3u);
    EXPECT_EQ(catalog.frees, 4);
}

TEST_F(CatalogFailuresTest, AnObjectThatCannotBeFreedIs1AndTheRecordIsEmptyAllTheSame) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    zantLogMsgRec rec;
    ASSERT_EQ(zantLogInitMsg(&rec, &handle, 1, "text"), 0u);
    catalog.freeResult = -1;
    EXPECT_EQ(zantLogFreeMsg(&rec), 1u);
    EXPECT_EQ(rec.text, nullptr);
    EXPECT_EQ(rec.type, 0u);
}

TEST_F(CatalogFailuresTest, AMessageThatWasLoggedIsLoggedThoughItsObjectCannotBeFreed) {
    OpenLog log;
    catalog.freeResult = -1;
    EXPECT_EQ(zantLogAppMsg(&log, 0, 0, 4711, "x"), 0u);
    EXPECT_EQ(records().size(), 1u);
}
