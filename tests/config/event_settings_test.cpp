// Event source, event category and file security.
#include "tests/config/test_stores.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST(EventSource, IsStoredAndHandedOut) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, "Billing"), 0U);
    EXPECT_STREQ(cfg.eventSource.name, "Billing");
    EXPECT_EQ(cfg.changedMask, 0x8000U);
    HandedOut copy;
    EXPECT_EQ(zantLogCfgGetNtEventSource(&cfg, &copy), 0U);
    EXPECT_STREQ(copy.get(), "Billing");
}

TEST(EventSource, LongNamesAreCutAndTerminated) {
    Config cfg;
    cfg.eventSource.category = 0x4142;
    for (size_t length : {size_t{79}, size_t{80}, size_t{81}, size_t{100}, size_t{5000}}) {
        EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, std::string(length, 's').c_str()), 0U);
        EXPECT_EQ(cfg.eventSource.name, std::string(79, 's')) << length;
        EXPECT_EQ(cfg.eventSource.category, 0x4142);
    }
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, std::string(78, 't').c_str()), 0U);
    EXPECT_EQ(cfg.eventSource.name, std::string(78, 't'));
}

TEST(EventSource, TakesTheRecordsOwnText) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, "OldName"), 0U);
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, cfg.eventSource.name + 3), 0U);
    EXPECT_STREQ(cfg.eventSource.name, "Name");
}

TEST(EventSource, NullAndEmptyAreRefused) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, "Kept"), 0U);
    cfg.changedMask = 0;
    EXPECT_EQ(zantLogCfgSetNtEventSource(nullptr, "x"), 3U);
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgSetNtEventSource(&cfg, ""), 3U);
    EXPECT_STREQ(cfg.eventSource.name, "Kept");
    EXPECT_EQ(cfg.changedMask, 0U);
    char marker[] = "marker";
    char *out = marker;
    EXPECT_EQ(zantLogCfgGetNtEventSource(nullptr, &out), 3U);
    EXPECT_EQ(zantLogCfgGetNtEventSource(&cfg, nullptr), 3U);
    EXPECT_EQ(out, marker);
}

TEST(EventCategory, IsStoredButNeverZero) {
    Config cfg;
    EXPECT_EQ(zantLogCfgSetNtEventCategory(&cfg, 0), 3U);
    EXPECT_EQ(cfg.changedMask, 0U);
    EXPECT_EQ(zantLogCfgSetNtEventCategory(&cfg, 65535), 0U);
    uint16_t category = 0;
    EXPECT_EQ(zantLogCfgGetNtEventCategory(&cfg, &category), 0U);
    EXPECT_EQ(category, 65535);
    EXPECT_EQ(cfg.changedMask, 0x10000U);
    EXPECT_EQ(zantLogCfgSetNtEventCategory(&cfg, 0), 3U);
    EXPECT_EQ(cfg.eventSource.category, 65535);
    EXPECT_EQ(zantLogCfgSetNtEventCategory(nullptr, 1), 3U);
    EXPECT_EQ(zantLogCfgGetNtEventCategory(nullptr, &category), 3U);
    EXPECT_EQ(zantLogCfgGetNtEventCategory(&cfg, nullptr), 3U);
}

TEST(FileSecurity, IsStoredAndHandedOut) {
    Config cfg;
    char sddl[] = "D:(A;;GA;;;WD)";
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(&cfg, sddl), 0U);
    sddl[0] = 'X';
    EXPECT_STREQ(cfg.logFileSDDL, "D:(A;;GA;;;WD)");
    EXPECT_EQ(cfg.changedMask, 0x20000U);
    HandedOut copy;
    EXPECT_EQ(zantLogCfgGetLogFileSDDL(&cfg, &copy), 0U);
    EXPECT_STREQ(copy.get(), "D:(A;;GA;;;WD)");
    EXPECT_NE(copy.get(), cfg.logFileSDDL);
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(&cfg, cfg.logFileSDDL + 2), 0U);
    EXPECT_STREQ(cfg.logFileSDDL, "(A;;GA;;;WD)");
}

TEST(FileSecurity, MayBeEmptyAndIsNullAtFirst) {
    Config cfg;
    char marker[] = "marker";
    char *out = marker;
    EXPECT_EQ(zantLogCfgGetLogFileSDDL(&cfg, &out), 0U);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(&cfg, ""), 0U);
    EXPECT_STREQ(cfg.logFileSDDL, "");
    HandedOut copy;
    EXPECT_EQ(zantLogCfgGetLogFileSDDL(&cfg, &copy), 0U);
    EXPECT_STREQ(copy.get(), "");
}

TEST(FileSecurity, NullArgumentsAreRefused) {
    Config cfg;
    char *out = nullptr;
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(nullptr, "x"), 3U);
    EXPECT_EQ(zantLogCfgSetLogFileSDDL(&cfg, nullptr), 3U);
    EXPECT_EQ(zantLogCfgGetLogFileSDDL(nullptr, &out), 3U);
    EXPECT_EQ(zantLogCfgGetLogFileSDDL(&cfg, nullptr), 3U);
    EXPECT_EQ(cfg.changedMask, 0U);
}

TEST(FileSecurity, FreeingSetsTheFieldToNull) {
    char *sddl = zantLogSafeStrdup("D:(A;;GA;;;WD)");
    EXPECT_EQ(FreeFileSecuritySetting(&sddl), 0U);
    EXPECT_EQ(sddl, nullptr);
    EXPECT_EQ(FreeFileSecuritySetting(&sddl), 0U);
    EXPECT_EQ(FreeFileSecuritySetting(nullptr), 0xFFFFFFFFU);
}

} // namespace
} // namespace zantlog::test
