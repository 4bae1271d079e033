// Numbers and switches of a configuration record.
#include "tests/config/test_stores.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST(ConfigValues, RolloverModeTakesZeroToFive) {
    for (uint32_t mode = 0; mode <= 5; ++mode) {
        Config cfg;
        EXPECT_EQ(zantLogCfgSetRolloverMode(&cfg, mode), 0U);
        uint32_t out = 99;
        EXPECT_EQ(zantLogCfgGetRolloverMode(&cfg, &out), 0U);
        EXPECT_EQ(out, mode);
        EXPECT_EQ(cfg.changedMask, 0x400U);
    }
}

TEST(ConfigValues, RolloverModeRefusesSixAndMore) {
    Config cfg;
    cfg.rolloverMode = 3;
    for (uint32_t mode : {6U, 7U, 8U, 0x80000001U, 0xFFFFFFFFU}) {
        EXPECT_EQ(zantLogCfgSetRolloverMode(&cfg, mode), 3U);
        EXPECT_EQ(cfg.rolloverMode, 3U);
        EXPECT_EQ(cfg.changedMask, 0U);
    }
}

TEST(ConfigValues, MaxFileSizeRefusesZero) {
    Config cfg;
    cfg.maxLogFileSizeKB = 7;
    EXPECT_EQ(zantLogCfgSetMaxFileSize(&cfg, 0), 3U);
    EXPECT_EQ(cfg.maxLogFileSizeKB, 7U);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(zantLogCfgSetMaxFileSize(&cfg, 0xFFFFFFFF), 0U);
    uint32_t kb = 0;
    EXPECT_EQ(zantLogCfgGetMaxFileSize(&cfg, &kb), 0U);
    EXPECT_EQ(kb, 0xFFFFFFFFU);
    EXPECT_EQ(cfg.changedMask, 0x800U);
}

TEST(ConfigValues, RolloverPeriodHas64BitsAndRefusesZeroOnly) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetRolloverPeriod(&cfg, 0), 3U);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(zantLogCfgSetRolloverPeriod(&cfg, 0x100000001), 0U);
    int64_t seconds = 0;
    EXPECT_EQ(zantLogCfgGetRolloverPeriod(&cfg, &seconds), 0U);
    EXPECT_EQ(seconds, 4294967297);
    EXPECT_EQ(cfg.changedMask, 0x2000U);
    EXPECT_EQ(zantLogCfgSetRolloverPeriod(&cfg, -5), 0U);
    EXPECT_EQ(cfg.rolloverPeriod, -5);
}

TEST(ConfigValues, RolloverTimeHas64BitsAndTakesZero) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetRolloverTime(&cfg, 0x100000002), 0U);
    int64_t seconds = 0;
    EXPECT_EQ(zantLogCfgGetRolloverTime(&cfg, &seconds), 0U);
    EXPECT_EQ(seconds, 4294967298);
    EXPECT_EQ(cfg.changedMask, 0x1000U);
    EXPECT_EQ(zantLogCfgSetRolloverTime(&cfg, 0), 0U);
    EXPECT_EQ(cfg.rolloverTime, 0);
}

TEST(ConfigValues, NumberOfLogFilesRefusesZero) {
    Config cfg;
    cfg.numberOfLogFiles = 4;
    EXPECT_EQ(zantLogCfgSetNumberOfLogFiles(&cfg, 0), 3U);
    EXPECT_EQ(cfg.numberOfLogFiles, 4U);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(zantLogCfgSetNumberOfLogFiles(&cfg, 1), 0U);
    uint32_t count = 0;
    EXPECT_EQ(zantLogCfgGetNumberOfLogFiles(&cfg, &count), 0U);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(cfg.changedMask, 0x4000U);
}

TEST(ConfigValues, LevelsGoFromZeroToSix) {
    for (uint32_t level = 0; level <= 6; ++level) {
        Config cfg;
        uint32_t debug = 99;
        uint32_t diag = 99;
        EXPECT_EQ(zantLogCfgSetDebugLevel(&cfg, level), 0U);
        EXPECT_EQ(cfg.changedMask, 0x20U);
        EXPECT_EQ(zantLogCfgSetDiagLevel(&cfg, level), 0U);
        EXPECT_EQ(cfg.changedMask, 0x60U);
        EXPECT_EQ(zantLogCfgGetDebugLevel(&cfg, &debug), 0U);
        EXPECT_EQ(zantLogCfgGetDiagLevel(&cfg, &diag), 0U);
        EXPECT_EQ(debug, level);
        EXPECT_EQ(diag, level);
    }
}

TEST(ConfigValues, LevelsOutOfRangeAreRefused) {
    Config cfg;
    cfg.debugLevel = 2;
    cfg.diagLevel = 3;
    for (uint32_t level : {7U, static_cast<uint32_t>(-1)}) {
        EXPECT_EQ(zantLogCfgSetDebugLevel(&cfg, level), 3U);
        EXPECT_EQ(zantLogCfgSetDiagLevel(&cfg, level), 3U);
    }
    EXPECT_EQ(cfg.debugLevel, 2U);
    EXPECT_EQ(cfg.diagLevel, 3U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST(ConfigValues, ReloadIntervalTakesZeroAndRefusesNegative) {
    Config cfg;
    cfg.dynaReloadInSec = 9;
    EXPECT_EQ(zantLogCfgSetDynaSetting(&cfg, -1), 3U);
    EXPECT_EQ(cfg.dynaReloadInSec, 9);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(zantLogCfgSetDynaSetting(&cfg, 0), 0U);
    int32_t seconds = 99;
    EXPECT_EQ(zantLogCfgGetDynaSetting(&cfg, &seconds), 0U);
    EXPECT_EQ(seconds, 0);
    EXPECT_EQ(cfg.changedMask, 0x4000000U);
    EXPECT_EQ(zantLogCfgSetDynaSetting(&cfg, 0x7FFFFFFF), 0U);
    EXPECT_EQ(cfg.dynaReloadInSec, 0x7FFFFFFF);
}

TEST(ConfigValues, NullArgumentsAreRefusedAndStoreNothing) {
    Config cfg;
    uint32_t number = 77;
    int64_t wide = 77;
    int32_t small = 77;
    EXPECT_EQ(zantLogCfgSetRolloverMode(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverMode(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverMode(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetMaxFileSize(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetMaxFileSize(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetMaxFileSize(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetRolloverPeriod(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverPeriod(nullptr, &wide), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverPeriod(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetRolloverTime(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverTime(nullptr, &wide), 3U);
    EXPECT_EQ(zantLogCfgGetRolloverTime(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetNumberOfLogFiles(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetNumberOfLogFiles(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetNumberOfLogFiles(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDebugLevel(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetDebugLevel(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetDebugLevel(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDiagLevel(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetDiagLevel(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetDiagLevel(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetDynaSetting(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetDynaSetting(nullptr, &small), 3U);
    EXPECT_EQ(zantLogCfgGetDynaSetting(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetFlags(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetFlags(nullptr, &number), 3U);
    EXPECT_EQ(zantLogCfgGetFlags(&cfg, nullptr), 3U);
    EXPECT_EQ(number, 77U);
    EXPECT_EQ(wide, 77);
    EXPECT_EQ(small, 77);
    EXPECT_EQ(cfg.changedMask, 0U);
}

struct FlagSwitch {
    uint32_t (*enable)(zantLogCfg *);
    uint32_t (*disable)(zantLogCfg *);
    uint32_t flag;
    uint32_t bit;
};

TEST(ConfigValues, EachOutputSwitchHasItsFlagAndBit) {
    const FlagSwitch switches[] = {
        {zantLogCfgEnableLogToStdout, zantLogCfgDisableLogToStdout, 1, 0x80},
        {zantLogCfgEnableLogToStderr, zantLogCfgDisableLogToStderr, 2, 0x100},
        {zantLogCfgEnableLogToOslog, zantLogCfgDisableLogToOslog, 4, 0x200},
        {zantLogCfgEnableLogToOslogX, zantLogCfgDisableLogToOslogX, 64, 0},
    };
    for (const FlagSwitch &output : switches) {
        Config cfg;
        EXPECT_EQ(output.enable(&cfg), 0U);
        EXPECT_EQ(cfg.outputFlags, output.flag);
        EXPECT_EQ(cfg.changedMask, output.bit);

        cfg.changedMask = 0;
        cfg.outputFlags = 0xFFFFFFFF;
        EXPECT_EQ(output.disable(&cfg), 0U);
        EXPECT_EQ(cfg.outputFlags, 0xFFFFFFFF - output.flag);
        EXPECT_EQ(cfg.changedMask, output.bit);
    }
}

TEST(ConfigValues, RecyclingSwitch) {
    Config cfg;
    EXPECT_EQ(zantLogCfgEnableLogRecycling(&cfg), 0U);
    EXPECT_EQ(cfg.logRecycle, 1U);
    EXPECT_EQ(cfg.changedMask, 0x1000000U);
    cfg.changedMask = 0;
    EXPECT_EQ(zantLogCfgDisableLogRecycling(&cfg), 0U);
    EXPECT_EQ(cfg.logRecycle, 0U);
    EXPECT_EQ(cfg.changedMask, 0x1000000U);
}

TEST(ConfigValues, ApplicationMessageSwitchMarksEverythingButTheDirectory) {
    Config cfg;
    EXPECT_EQ(zantLogCfgEnableAppMsgLogging(&cfg), 0U);
    EXPECT_EQ(cfg.appMsgLogging, 1U);
    EXPECT_EQ(cfg.changedMask, 0x7FFFFFFEU);
    cfg.changedMask = 0;
    EXPECT_EQ(zantLogCfgDisableAppMsgLogging(&cfg), 0U);
    EXPECT_EQ(cfg.appMsgLogging, 0U);
    EXPECT_EQ(cfg.changedMask, 0x7FFFFFFEU);
}

TEST(ConfigValues, SettersAddToTheMaskAndLeaveTheRemoveMask) {
    Config cfg;
    cfg.changedMask = 0x80000001;
    cfg.removeMask = 0x40;
    EXPECT_EQ(zantLogCfgSetDebugLevel(&cfg, 1), 0U);
    EXPECT_EQ(cfg.changedMask, 0x80000021U);
    EXPECT_EQ(cfg.removeMask, 0x40U);
}

TEST(ConfigValues, FlagsAreSetAsAWhole) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetFlags(&cfg, 0x47), 0U);
    uint32_t flags = 0;
    EXPECT_EQ(zantLogCfgGetFlags(&cfg, &flags), 0U);
    EXPECT_EQ(flags, 0x47U);
    EXPECT_EQ(cfg.changedMask, 0x380U);
}

TEST(ConfigValues, UnknownFlagsAreIgnored) {
    Config cfg;
    cfg.outputFlags = 0x47;
    EXPECT_EQ(zantLogCfgSetFlags(&cfg, 8), 0U);
    EXPECT_EQ(cfg.outputFlags, 0U);
    EXPECT_EQ(cfg.changedMask, 0x380U);

    cfg.outputFlags = 0x10;
    EXPECT_EQ(zantLogCfgSetFlags(&cfg, 0x7FFFFFFF), 0U);
    EXPECT_EQ(cfg.outputFlags, 0x57U);
}

TEST(ConfigValues, NegativeFlagsAreRefused) {
    Config cfg;
    cfg.outputFlags = 4;
    EXPECT_EQ(zantLogCfgSetFlags(&cfg, 0x80000000), 3U);
    EXPECT_EQ(zantLogCfgSetFlags(&cfg, static_cast<uint32_t>(-1)), 3U);
    EXPECT_EQ(cfg.outputFlags, 4U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST(ConfigValues, FlagsAreHandedOutWhole) {
    Config cfg;
    cfg.outputFlags = 0xDEADBEEF;
    uint32_t flags = 0;
    EXPECT_EQ(zantLogCfgGetFlags(&cfg, &flags), 0U);
    EXPECT_EQ(flags, 0xDEADBEEFU);
}

} // namespace
} // namespace zantlog::test
