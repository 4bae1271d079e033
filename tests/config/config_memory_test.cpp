// What the configuration does when memory is short: every allocation of every scenario fails once.
#include "config/config_record.h"
#include "tests/config/failing_memory.h"
#include "tests/config/test_stores.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

constexpr uint32_t kProduct = 61;

// Fails the next allocation for the scope.
struct NoMemory {
    NoMemory() { failAllocation(1); }
    ~NoMemory() {
        EXPECT_TRUE(allocationHasFailed());
        failAllocation(0);
    }
    NoMemory(const NoMemory &) = delete;
    NoMemory &operator=(const NoMemory &) = delete;
};

TEST(ConfigMemory, ASetterWithoutMemoryIsFourWithANullFieldAndItsBit) {
    const struct {
        uint32_t (*set)(zantLogCfg *, const char *);
        char *zantLogCfg::*field;
        uint32_t bit;
    } texts[] = {
        {zantLogCfgSetL10nLib, &zantLogCfg::l10nLib, 0x4},
        {zantLogCfgSetL10nResource, &zantLogCfg::l10nResource, 0x8},
        {zantLogCfgSetL10nResourceDir, &zantLogCfg::l10nResourceDir, 0x10},
        {zantLogCfgSetLogsetFilename, &zantLogCfg::logSetFileName, 0x8000000},
        {zantLogCfgSetLogsetOIDappMsgLogging, &zantLogCfg::oidAppMsgLogging, 0x10000000},
        {zantLogCfgSetLogsetOIDDebugLogging, &zantLogCfg::oidDebugLogging, 0x20000000},
        {zantLogCfgSetLogsetOIDDiagLogging, &zantLogCfg::oidDiagLogging, 0x40000000},
        {zantLogCfgSetLogFileSDDL, &zantLogCfg::logFileSDDL, 0x20000},
    };
    const size_t before = liveBlocks();
    for (const auto &text : texts) {
        Config cfg;
        ASSERT_EQ(text.set(&cfg, "old"), 0U);
        cfg.changedMask = 0;
        const NoMemory noMemory;
        EXPECT_EQ(text.set(&cfg, "new"), 4U);
        EXPECT_EQ(cfg.*text.field, nullptr);
        EXPECT_EQ(cfg.changedMask, text.bit);
    }
    EXPECT_EQ(liveBlocks(), before);
}

TEST(ConfigMemory, AGetterWithoutMemoryIsFourAndStoresNothing) {
    uint32_t (*const getters[])(zantLogCfg *, char **) = {
        zantLogCfgGetL10nResource,          zantLogCfgGetL10nResourceDir,
        zantLogCfgGetLogsetFilename,        zantLogCfgGetLogsetOIDOIDappMsgLogging,
        zantLogCfgGetLogsetOIDDebugLogging, zantLogCfgGetLogsetOIDDiagLogging,
        zantLogCfgGetLogFileSDDL,           zantLogCfgGetNtEventSource,
    };
    char text[] = "text";
    zantLogCfg cfg{};
    cfg.l10nResource = cfg.l10nResourceDir = cfg.logSetFileName = cfg.oidAppMsgLogging = text;
    cfg.oidDebugLogging = cfg.oidDiagLogging = cfg.logFileSDDL = cfg.l10nLib = text;
    for (const auto get : getters) {
        char *out = text;
        const NoMemory noMemory;
        EXPECT_EQ(get(&cfg, &out), 4U);
        EXPECT_EQ(out, text);
    }
    char *out = text;
    {
        const NoMemory noMemory;
        EXPECT_EQ(zantLogCfgGetL10nLib(&cfg, &out), 4U);
        EXPECT_EQ(out, nullptr);
    }
    out = text;
    {
        const NoMemory noMemory;
        EXPECT_EQ(zantLogCfgGetDirectory(&cfg, &out), 0U);
        EXPECT_EQ(out, nullptr);
    }
    std::strcpy(cfg.productNames, "name");
    out = text;
    {
        const NoMemory noMemory;
        EXPECT_EQ(LogCfgGetShortNames(&cfg, 263, &out), 4U);
        EXPECT_EQ(out, nullptr);
    }
}

TEST(ConfigMemory, FreeingARecordFreesEachOfItsTexts) {
    char *zantLogCfg::*const fields[] = {
        &zantLogCfg::logFileSDDL,      &zantLogCfg::l10nLib,         &zantLogCfg::l10nResource,
        &zantLogCfg::l10nResourceDir,  &zantLogCfg::logSetName,      &zantLogCfg::logSetFileName,
        &zantLogCfg::oidAppMsgLogging, &zantLogCfg::oidDebugLogging, &zantLogCfg::oidDiagLogging,
    };
    const size_t before = liveBlocks();
    zantLogCfg cfg{};
    for (const auto field : fields) {
        cfg.*field = zantLogSafeStrdup("text");
    }
    EXPECT_EQ(liveBlocks(), before + 9);
    EXPECT_EQ(zantLogFreeCfg(&cfg), 0U);
    EXPECT_EQ(liveBlocks(), before);
}

TEST(ConfigMemory, TimesWithoutMemoryAreZero) {
    uint32_t a = 9;
    uint32_t b = 9;
    uint32_t c = 9;
    const NoMemory noMemory;
    EXPECT_EQ(zantLogGetTime("1:2:3", &a, &b, &c), 0);
    EXPECT_EQ(a + b + c, 27U);
}

TEST(ConfigMemory, MakingAndCopyingRecordsLeakNothing) {
    Config source;
    ASSERT_EQ(zantLogCfgSetL10nLib(&source, "lib"), 0U);
    ASSERT_EQ(zantLogCfgSetL10nResource(&source, "res"), 0U);
    ASSERT_EQ(zantLogCfgSetL10nResourceDir(&source, "dir"), 0U);
    ASSERT_EQ(zantLogCfgSetLogFileSDDL(&source, "D:"), 0U);
    const zantLogCfg empty{};
    EXPECT_EQ(sweepAllocations([&] {
                  zantLogCfg copy;
                  const uint32_t result = copyConfig(&copy, &source);
                  EXPECT_EQ(result, allocationHasFailed() ? 4U : 0U);
                  if (result != 0) {
                      EXPECT_EQ(std::memcmp(&copy, &empty, sizeof empty), 0);
                  }
                  zantLogFreeCfg(&copy);
              }),
              4);
    EXPECT_EQ(sweepAllocations([&] {
                  zantLogCfg cfg;
                  const uint32_t result = initialiseConfig(1, 0, "nightly", &cfg);
                  EXPECT_EQ(result, allocationHasFailed() ? 4U : 0U);
                  zantLogFreeCfg(&cfg);
              }),
              2);
}

class ConfigMemoryStore : public testing::TestWithParam<BackEnd> {
protected:
    void SetUp() override {
        location = makeLocation();
        store = makeStore(GetParam());
        registerProduct(*location, kProduct, store->path(), "billing");
        for (const std::string &section : {std::string("Default"), std::string("3"), store->logSet("Default"),
                                           store->logSet("nightly"), store->logSet("weekly")}) {
            store->text(section, "LogDirectory", "D:\\logs");
            store->text(section, "L10nLib", "lib");
            store->text(section, "FileName", "file");
            store->text(section, "OIDDebugLogging", "3");
            store->text(section, "LogFileSDDL", "D:");
        }
    }
    std::unique_ptr<TestStore> location;
    std::unique_ptr<TestStore> store;
};

TEST_P(ConfigMemoryStore, ReadingAProductLeaksNothing) {
    EXPECT_GT(sweepAllocations([] {
                  Config cfg;
                  const uint32_t result = zantLogReadCfg(kProduct, 3, &cfg);
                  EXPECT_TRUE(result == 0 || result == 6) << result;
                  EXPECT_TRUE(result == 0 || allocationHasFailed());
              }),
              10);
}

TEST_P(ConfigMemoryStore, ReadingALogSetLeaksNothing) {
    EXPECT_GT(sweepAllocations([] {
                  Config cfg;
                  const uint32_t result = zantLogReadlogsetCfg(kProduct, "nightly", &cfg);
                  EXPECT_TRUE(result == 0 || result == 4 || result == 6) << result;
                  EXPECT_TRUE(result == 0 || allocationHasFailed());
              }),
              10);
}

TEST_P(ConfigMemoryStore, ReadingAllRecordsLeaksNothing) {
    EXPECT_GT(sweepAllocations([] {
                  zantLogCfg *array[8] = {};
                  uint32_t count = 0;
                  const uint32_t result = zantLogReadAllCfg(nullptr, 8, array, &count);
                  EXPECT_TRUE(result == 0 || result == 39) << result;
                  EXPECT_EQ(result == 0, count > 0);
                  EXPECT_TRUE(count == 5 || allocationHasFailed());
                  FreeConfigArray(array, count);
              }),
              20);
}

TEST_P(ConfigMemoryStore, ReadingOneProductWithEveryCapacityLeaksNothing) {
    for (uint32_t capacity = 0; capacity < 6; ++capacity) {
        EXPECT_GT(sweepAllocations([capacity] {
                      zantLogCfg *array[8] = {};
                      uint32_t count = 0;
                      const uint32_t result =
                          zantLogReadProdIDCfg(nullptr, kProduct, capacity, array, &count);
                      EXPECT_TRUE(result == 0 || result == 39) << result;
                      EXPECT_LE(count, capacity);
                      FreeConfigArray(array, count);
                  }),
                  5);
    }
}

TEST_P(ConfigMemoryStore, ThePathOfAProductLeaksNothing) {
    EXPECT_GT(sweepAllocations([] {
                  char *path = nullptr;
                  const uint32_t result = GetProductCfgPath(GetZantLogCfgLoc(), kProduct, &path);
                  EXPECT_EQ(result, allocationHasFailed() ? 6U : 0U);
                  EXPECT_EQ(path != nullptr, result == 0);
                  zantLogFree(path);
              }),
              0);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, ConfigMemoryStore, testing::Values(BackEnd::Conf, BackEnd::Registry),
                         [](const auto &backEnd) {
                             return std::string(backEnd.param == BackEnd::Conf ? "Conf" : "Registry");
                         });

TEST(ConfigMemoryDuplicates, AreFreed) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, kProduct, store->path(), "billing");
    writeConf(store->path(), {"Default.L10nLib=lib", "3.DebugLevel=1", "LOGSET.a.DebugLevel=1",
                              "4.DebugLevel=1", "3.DiagnosticLevel=1", "112.DebugLevel=1",
                              "LOGSET.b.DebugLevel=1", "LOGSET.a.DiagnosticLevel=1"});
    const size_t before = liveBlocks();
    zantLogCfg *array[8] = {};
    uint32_t count = 0;
    ASSERT_EQ(zantLogReadAllCfg(nullptr, 8, array, &count), 0U);
    EXPECT_EQ(count, 5U);
    FreeConfigArray(array, count);
    EXPECT_EQ(liveBlocks(), before);
}

} // namespace
} // namespace zantlog::test
