// Saving of records, to both back ends of the store.
#include "tests/config/product_fixture.h"
#include "tests/support/files.h"
#include "tests/support/test_folder.h"

#include <cstring>
#include <gtest/gtest.h>
#include <optional>

namespace zantlog::test {
namespace {

constexpr uint32_t kEverySetting = 0x7F03FFFF;

// What a section holds: values of any type as text, "(none)" for one that is not there.
class Section {
public:
    Section(const std::string &path, const std::string &section) {
        opened_ = utiOpenPropertyStore(path.c_str(), section.c_str(), &store_, ZANTLOG_STORE_READ) == 0;
    }
    ~Section() {
        if (opened_) {
            utiClosePropertyStore(&store_);
        }
    }
    Section(const Section &) = delete;
    Section &operator=(const Section &) = delete;

    std::string text(const char *name) {
        HandedOut value;
        return opened_ && utiGetPropertyAsStr(&store_, name, &value) == 0 ? value.get() : "(none)";
    }
    std::string number(const char *name) {
        uint32_t value = 0;
        return opened_ && utiGetPropertyAsULong(&store_, name, &value) == 0 ? std::to_string(value)
                                                                            : "(none)";
    }

private:
    PropertyStore store_{};
    bool opened_ = false;
};

class Saving : public ProductConfig {
protected:
    uint32_t save(zantLogCfg &cfg, uint32_t originator = 112) {
        return zantLogWriteCfg(kProduct, originator, &cfg);
    }
    uint32_t saveLogSet(zantLogCfg &cfg, const char *name = "nightly") {
        return zantLogWritelogSetCfg(kProduct, name, &cfg);
    }
    [[nodiscard]] Section section(const std::string &name) const { return {store->path(), name}; }
    // A log set's section, seen from the product's path.
    [[nodiscard]] Section logSetSection(const std::string &name) const {
        return {store->path(), store->logSet(name)};
    }
};

void fill(zantLogCfg &cfg) {
    std::strcpy(cfg.logDirectory, "D:\\logs\\");
    std::strcpy(cfg.originatorNames, "one,two");
    cfg.l10nLib = zantLogSafeStrdup("lib");
    cfg.l10nResource = zantLogSafeStrdup("res");
    cfg.l10nResourceDir = zantLogSafeStrdup("dir");
    cfg.debugLevel = 6;
    cfg.diagLevel = 1;
    cfg.dynaReloadInSec = 3600;
    cfg.outputFlags = 1 | 4;
    cfg.rolloverMode = 3;
    cfg.logRecycle = 1;
    cfg.maxLogFileSizeKB = 0xFFFFFFFF;
    cfg.rolloverTime = 86340; // 23:59
    cfg.rolloverPeriod = 0xFFFFFFFF;
    cfg.numberOfLogFiles = 7;
    cfg.appMsgLogging = 0;
    cfg.oidAppMsgLogging = zantLogSafeStrdup("a");
    cfg.oidDebugLogging = zantLogSafeStrdup("b");
    cfg.oidDiagLogging = zantLogSafeStrdup("c");
    std::strcpy(cfg.eventSource.name, "Source");
    cfg.eventSource.category = 65535;
    cfg.logFileSDDL = zantLogSafeStrdup("D:");
}

TEST_P(Saving, EverySettingOfAProductIsLoadedAgain) {
    Config cfg;
    fill(cfg);
    cfg.changedMask = kEverySetting;
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(cfg.changedMask, kEverySetting) << "the masks stay";
    Config read;
    ASSERT_EQ(load(read), 0U);
    EXPECT_STREQ(read.logDirectory, "D:\\logs\\");
    EXPECT_STREQ(read.originatorNames, "one,two");
    EXPECT_STREQ(read.l10nLib, "lib");
    EXPECT_STREQ(read.l10nResource, "res");
    EXPECT_STREQ(read.l10nResourceDir, "dir");
    EXPECT_EQ(read.debugLevel, 6U);
    EXPECT_EQ(read.diagLevel, 1U);
    EXPECT_EQ(read.dynaReloadInSec, 3600);
    EXPECT_EQ(read.outputFlags, 5U);
    EXPECT_EQ(read.rolloverMode, 3U);
    EXPECT_EQ(read.logRecycle, 1U);
    EXPECT_EQ(read.maxLogFileSizeKB, 0xFFFFFFFFU);
    EXPECT_EQ(read.rolloverTime, 86340);
    EXPECT_EQ(read.rolloverPeriod, 0xFFFFFFFF);
    EXPECT_EQ(read.numberOfLogFiles, 7U);
    EXPECT_EQ(read.appMsgLogging, 0U);
    EXPECT_STREQ(read.eventSource.name, "Source");
    EXPECT_EQ(read.eventSource.category, 65535);
    EXPECT_STREQ(read.logFileSDDL, "D:");
}

TEST_P(Saving, FormsOfTheValues) {
    Config cfg;
    fill(cfg);
    cfg.dynaReloadInSec = -1;
    cfg.changedMask = kEverySetting;
    ASSERT_EQ(save(cfg, 3), 0U);
    Section own = section("3");
    EXPECT_EQ(own.text("LogDirectory"), "D:\\logs\\");
    EXPECT_EQ(own.text("OIDNames"), "one,two");
    EXPECT_EQ(own.number("DebugLevel"), "6");
    EXPECT_EQ(own.number("DynaReloadInSec"), "4294967295");
    EXPECT_EQ(own.text("LogToStdout"), "true");
    EXPECT_EQ(own.text("LogToStderr"), "false");
    EXPECT_EQ(own.text("LogToOslog"), "true");
    EXPECT_EQ(own.text("RolloverMode"), "FileSize | LocalTime");
    EXPECT_EQ(own.text("LogRecycle"), "true");
    EXPECT_EQ(own.number("MaxLogFileSizeKB"), "4294967295");
    EXPECT_EQ(own.text("RolloverAtLocalTime"), "23:59");
    EXPECT_EQ(own.number("RolloverPeriodInSeconds"), "4294967295");
    EXPECT_EQ(own.text("AppMsgLogging"), "OFF");
    EXPECT_EQ(own.number("NtEventLogCategory"), "65535");
    for (const char *logSetKey : {"FileName", "OIDAppMsgLogging", "OIDDebugLogging", "OIDDiagLogging"}) {
        EXPECT_EQ(own.text(logSetKey), "(none)") << logSetKey;
    }
    EXPECT_EQ(section("Default").text("RolloverMode"), "(none)");
}

TEST_P(Saving, TimesOfDayAreWrittenAsTheyAre) {
    Config cfg;
    const std::pair<int64_t, const char *> times[] = {{0, "00:00"},    {59, "00:00"},    {60, "00:01"},
                                                      {3661, "01:01"}, {90000, "25:00"}, {360000, "100:00"}};
    for (const auto &[seconds, text] : times) {
        cfg.rolloverTime = seconds;
        cfg.changedMask = ZANTLOG_SETTING_ROLLOVER_TIME;
        ASSERT_EQ(save(cfg), 0U);
        EXPECT_EQ(section("Default").text("RolloverAtLocalTime"), text);
    }
}

TEST_P(Saving, SwitchesAreOnForExactlyOne) {
    Config cfg;
    cfg.changedMask = ZANTLOG_SETTING_LOG_RECYCLE;
    cfg.logRecycle = 2;
    cfg.appMsgLogging = 2;
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").text("LogRecycle"), "false");
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "OFF");
    cfg.appMsgLogging = 1;
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "ON");
}

TEST_P(Saving, EachOutputHasAKeyOfItsOwn) {
    const char *const keys[] = {"LogToStdout", "LogToStderr", "LogToOslog"};
    for (int on = 0; on < 3; ++on) {
        Config cfg;
        cfg.outputFlags = 1u << on;
        cfg.changedMask =
            ZANTLOG_SETTING_LOG_TO_STDOUT | ZANTLOG_SETTING_LOG_TO_STDERR | ZANTLOG_SETTING_LOG_TO_OSLOG;
        ASSERT_EQ(save(cfg), 0U);
        for (int key = 0; key < 3; ++key) {
            EXPECT_EQ(section("Default").text(keys[key]), key == on ? "true" : "false") << keys[key];
        }
    }
}

TEST_P(Saving, ALevelAloneTakesTheSwitchOfApplicationMessagesWithIt) {
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    ASSERT_EQ(zantLogCfgSetDebugLevel(&cfg, 4), 0U);
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").number("DebugLevel"), "4");
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "ON");
    EXPECT_EQ(section("Default").text("LogDirectory"), "(none)");
    EXPECT_EQ(section("Default").text("NtEventLogSourceName"), "(none)");
}

TEST_P(Saving, TheDirectoryAloneTakesNothingWithIt) {
    Config cfg;
    ASSERT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").text("LogDirectory"), "D:\\logs\\");
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "(none)");
}

TEST_P(Saving, ARecordWithoutChangesWritesNothing) {
    Config cfg;
    ASSERT_EQ(load(cfg), 0U);
    EXPECT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "(none)");
    EXPECT_EQ(saveLogSet(cfg), 61U);
}

TEST_P(Saving, RemovingWinsOverWriting) {
    store->text("Default", "LogDirectory", "D:\\old");
    Config cfg;
    ASSERT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\new", nullptr), 0U);
    cfg.removeMask = ZANTLOG_SETTING_LOG_DIRECTORY;
    ASSERT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").text("LogDirectory"), "(none)");
}

// Removing what is not there succeeds in a file; the registry refuses it, and the save ends.
TEST_P(Saving, RemovingAnAbsentKeyEndsASaveToTheRegistry) {
    Config cfg;
    cfg.removeMask = ZANTLOG_SETTING_DEBUG_LEVEL;
    cfg.changedMask = ZANTLOG_SETTING_LOG_DIRECTORY | ZANTLOG_SETTING_DIAG_LEVEL;
    std::strcpy(cfg.logDirectory, "D:\\logs\\");
    cfg.diagLevel = 5;
    EXPECT_EQ(save(cfg), store->isFile() ? 0U : 1U);
    EXPECT_EQ(section("Default").text("LogDirectory"), "D:\\logs\\") << "it comes before";
    EXPECT_EQ(section("Default").number("DiagnosticLevel"), store->isFile() ? "5" : "(none)");
}

TEST_P(Saving, ANullTextEndsTheSave) {
    Config cfg;
    cfg.changedMask =
        ZANTLOG_SETTING_LOG_DIRECTORY | ZANTLOG_SETTING_L10N_LIB | ZANTLOG_SETTING_EVENT_CATEGORY;
    std::strcpy(cfg.logDirectory, "D:\\logs\\");
    cfg.eventSource.category = 4;
    EXPECT_EQ(save(cfg), 3U);
    EXPECT_EQ(section("Default").text("LogDirectory"), "D:\\logs\\");
    EXPECT_EQ(section("Default").text("AppMsgLogging"), "(none)");
    EXPECT_EQ(section("Default").number("NtEventLogCategory"), "(none)");
}

// The keys for the host are tried one after the other, and nobody is told.
TEST_P(Saving, FailuresOfTheHostsKeysStopNothing) {
    store->text("Default", "AppMsgLogging", "ON");
    Config cfg;
    cfg.changedMask = ZANTLOG_SETTING_EVENT_CATEGORY | ZANTLOG_SETTING_LOG_FILE_SDDL; // the text is null
    cfg.removeMask = ZANTLOG_SETTING_EVENT_SOURCE;                                    // there is none
    cfg.eventSource.category = 4;
    EXPECT_EQ(save(cfg), 0U);
    EXPECT_EQ(section("Default").number("NtEventLogCategory"), "4");
    EXPECT_EQ(section("Default").text("LogFileSDDL"), "(none)");
}

TEST_P(Saving, ArgumentsAndRegistration) {
    Config cfg;
    EXPECT_EQ(zantLogWriteCfg(0, 3, &cfg), 3U);
    EXPECT_EQ(zantLogWriteCfg(kProduct, 0, &cfg), 3U);
    EXPECT_EQ(zantLogWriteCfg(kProduct, 3, nullptr), 3U);
    EXPECT_EQ(zantLogWriteCfg(kProduct + 1, 3, &cfg), 6U);
    EXPECT_EQ(zantLogWritelogSetCfg(0, "a", &cfg), 3U);
    EXPECT_EQ(zantLogWritelogSetCfg(kProduct, nullptr, &cfg), 3U);
    EXPECT_EQ(zantLogWritelogSetCfg(kProduct, "a", nullptr), 3U);
    EXPECT_EQ(zantLogWritelogSetCfg(kProduct + 1, "a", &cfg), 6U) << "before the masks are looked at";
}

TEST_P(Saving, EverySettingOfALogSetIsLoadedAgain) {
    Config cfg;
    fill(cfg);
    cfg.changedMask = kEverySetting & ~uint32_t{ZANTLOG_SETTING_FILE_NAME};
    ASSERT_EQ(saveLogSet(cfg), 0U);
    Config read;
    ASSERT_EQ(zantLogReadlogsetCfg(kProduct, "nightly", &read), 0U);
    EXPECT_STREQ(read.logDirectory, "D:\\logs\\");
    EXPECT_STREQ(read.originatorNames, "one,two");
    EXPECT_EQ(read.debugLevel, 6U);
    EXPECT_EQ(read.outputFlags, 5U);
    EXPECT_EQ(read.rolloverTime, 86340);
    EXPECT_STREQ(read.oidAppMsgLogging, "a");
    EXPECT_STREQ(read.oidDebugLogging, "b");
    EXPECT_STREQ(read.oidDiagLogging, "c");
    EXPECT_STREQ(read.eventSource.name, "Source");
    EXPECT_STREQ(read.logFileSDDL, "D:");
    for (const char *productKey : {"L10nLib", "L10nResource", "L10nResourceDir"}) {
        EXPECT_EQ(logSetSection("nightly").text(productKey), "(none)") << productKey;
    }
    EXPECT_EQ(logSetSection("Default").text("RolloverMode"), "(none)");
}

TEST_P(Saving, WritingTheFileNameEndsTheSaveOfALogSet) {
    Config cfg;
    cfg.logSetFileName = zantLogSafeStrdup("night");
    cfg.eventSource.category = 4;
    cfg.changedMask = ZANTLOG_SETTING_FILE_NAME | ZANTLOG_SETTING_EVENT_CATEGORY;
    ASSERT_EQ(saveLogSet(cfg), 0U);
    EXPECT_EQ(logSetSection("nightly").text("FileName"), "night");
    EXPECT_EQ(logSetSection("nightly").text("AppMsgLogging"), "OFF");
    EXPECT_EQ(logSetSection("nightly").number("NtEventLogCategory"), "(none)");
}

TEST_P(Saving, AFileNameThatCannotBeWrittenIsTold) {
    Config cfg; // without a name
    cfg.changedMask = ZANTLOG_SETTING_FILE_NAME;
    EXPECT_EQ(saveLogSet(cfg), 3U);
    EXPECT_EQ(logSetSection("nightly").text("AppMsgLogging"), "OFF") << "it comes before";
}

TEST_P(Saving, ALogSetsSettingsCanBeRemovedAlone) {
    store->text(store->logSet("nightly"), "LogDirectory", "D:\\night");
    Config cfg;
    cfg.removeMask = ZANTLOG_SETTING_LOG_DIRECTORY;
    EXPECT_EQ(saveLogSet(cfg), 0U);
    EXPECT_EQ(logSetSection("nightly").text("LogDirectory"), "(none)");
}

TEST_P(Saving, TheFileNameIsNotRemovedAndTheRestIsSaved) {
    store->text(store->logSet("nightly"), "FileName", "night");
    store->text(store->logSet("nightly"), "AppMsgLogging", "ON");
    Config cfg;
    cfg.eventSource.category = 4;
    cfg.changedMask = ZANTLOG_SETTING_FILE_NAME | ZANTLOG_SETTING_EVENT_CATEGORY;
    cfg.removeMask = ZANTLOG_SETTING_FILE_NAME;
    ASSERT_EQ(saveLogSet(cfg), 61U);
    EXPECT_EQ(logSetSection("nightly").text("FileName"), "night");
    EXPECT_EQ(logSetSection("nightly").text("AppMsgLogging"), "(none)") << "it goes with any removal";
    EXPECT_EQ(logSetSection("nightly").number("NtEventLogCategory"), "4");
}

TEST_P(Saving, AnotherSectionsLinesStay) {
    store->text("Default", "LogDirectory", "D:\\default");
    store->text("4", "LogDirectory", "D:\\four");
    Config cfg;
    ASSERT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\three", nullptr), 0U);
    ASSERT_EQ(save(cfg, 3), 0U);
    EXPECT_EQ(section("Default").text("LogDirectory"), "D:\\default");
    EXPECT_EQ(section("3").text("LogDirectory"), "D:\\three\\");
    EXPECT_EQ(section("4").text("LogDirectory"), "D:\\four");
}

INSTANTIATE_TEST_SUITE_P(BothBackEnds, Saving, testing::Values(BackEnd::Conf, BackEnd::Registry));

TEST(SavingToAFile, ThatIsMissingMakesIt) {
    const auto location = makeLocation();
    const std::string path = inProcessFolder("made\\by\\saving.conf");
    registerProduct(*location, kProduct, path, "billing");
    Config cfg;
    ASSERT_EQ(zantLogCfgSetDirectory(&cfg, "D:\\logs", nullptr), 0U);
    ASSERT_EQ(zantLogWriteCfg(kProduct, 112, &cfg), 0U);
    const std::string bytes = fileBytes(path);
    EXPECT_NE(bytes.find("###\r\nDefault.LogDirectory=D:\\logs\\\r\n"), std::string::npos);
    removeFile(path);
}

TEST(SavingToAFile, ThatCannotBeMadeFails) {
    const auto location = makeLocation();
    registerProduct(*location, kProduct, "no-folder-in-its-path.conf", "billing");
    Config cfg;
    cfg.changedMask = ZANTLOG_SETTING_DEBUG_LEVEL;
    EXPECT_EQ(zantLogWriteCfg(kProduct, 112, &cfg), 1U);
    EXPECT_EQ(zantLogWritelogSetCfg(kProduct, "a", &cfg), 1U);
}

} // namespace
} // namespace zantlog::test
