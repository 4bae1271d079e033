// Values as people write them, and as the store holds them.
#include "tools/qzlogcfg/setting_value.h"

#include <gtest/gtest.h>

#include "tools/common/tool_error.h"

namespace zantlog::tools {
namespace {

std::string stored(const std::string &name, const std::string &written) {
    try {
        return storedValue(*findSetting(name), written);
    } catch (const ToolError &error) {
        EXPECT_EQ(error.code(), kExitUsage);
        return "refused";
    }
}

std::string problem(const std::string &name, const std::string &value) {
    return problemOfStoredValue(*findSetting(name), value).value_or("none");
}

struct Example {
    const char *written;
    const char *stored;
};

TEST(StoredValue, Sizes) {
    for (const Example &example : {Example{"1", "1"},
                                   {"512KB", "512"},
                                   {"512 kb", "512"},
                                   {"10MB", "10240"},
                                   {"10m", "10240"},
                                   {"1GiB", "1048576"},
                                   {"3TB", "3221225472"},
                                   {"4294967295", "4294967295"},
                                   {"4294967296", "refused"},
                                   {"0", "refused"},
                                   {"4TB", "refused"},
                                   {"18446744073709551615GB", "refused"},
                                   {"99999999999999999999", "refused"},
                                   {"", "refused"},
                                   {"MB", "refused"},
                                   {"-1", "refused"},
                                   {"1.5MB", "refused"},
                                   {"1 0", "refused"}}) {
        EXPECT_EQ(stored("MaxLogFileSizeKB", example.written), example.stored) << example.written;
    }
}

TEST(StoredValue, Times) {
    for (const Example &example : {Example{"0", "0"},
                                   {"90s", "90"},
                                   {"15min", "900"},
                                   {"15m", "900"},
                                   {"12h", "43200"},
                                   {"1d", "86400"},
                                   {"1w", "604800"},
                                   {"2147483647", "2147483647"},
                                   {"2147483648", "refused"},
                                   {"1y", "refused"},
                                   {"1h30", "refused"}}) {
        EXPECT_EQ(stored("DynaReloadInSec", example.written), example.stored) << example.written;
    }
}

TEST(StoredValue, Levels) {
    for (const Example &example : {Example{"0", "0"},
                                   {"6", "6"},
                                   {"7", "refused"},
                                   {"off", "0"},
                                   {"None", "0"},
                                   {"ALL", "6"},
                                   {"03", "3"},
                                   {"3x", "refused"},
                                   {" 3", "refused"}}) {
        EXPECT_EQ(stored("DebugLevel", example.written), example.stored) << example.written;
    }
}

TEST(StoredValue, Switches) {
    for (const char *on : {"true", "TRUE", "on", "yes", "1"}) {
        EXPECT_EQ(stored("LogToStdout", on), "true");
        EXPECT_EQ(stored("AppMsgLogging", on), "ON");
    }
    for (const char *off : {"false", "Off", "no", "0"}) {
        EXPECT_EQ(stored("LogToStdout", off), "false");
        EXPECT_EQ(stored("AppMsgLogging", off), "OFF");
    }
    EXPECT_EQ(stored("LogToStdout", ""), "refused");
    EXPECT_EQ(stored("LogToStdout", "2"), "refused");
}

TEST(StoredValue, RolloverModes) {
    for (const Example &example : {Example{"none", "None"},
                                   {"FileSize", "FileSize"},
                                   {"size", "FileSize"},
                                   {"daily", "LocalTime"},
                                   {"periodic", "Periodic"},
                                   {"FileSize | LocalTime", "FileSize | LocalTime"},
                                   {"period+size", "FileSize | Periodic"},
                                   {"localtime,periodic", "refused"},
                                   {"none,size", "refused"},
                                   {"size,what", "refused"},
                                   {"", "refused"},
                                   {"|", "refused"}}) {
        EXPECT_EQ(stored("RolloverMode", example.written), example.stored) << example.written;
    }
}

TEST(StoredValue, TimesOfDay) {
    for (const Example &example : {Example{"00:00", "00:00"},
                                   {"23:59", "23:59"},
                                   {"7:05", "07:05"},
                                   {"24:00", "refused"},
                                   {"12:60", "refused"},
                                   {"12", "refused"},
                                   {"12:5", "refused"},
                                   {"012:05", "refused"},
                                   {":05", "refused"},
                                   {"12:05:00", "refused"},
                                   {"-1:05", "refused"}}) {
        EXPECT_EQ(stored("RolloverAtLocalTime", example.written), example.stored) << example.written;
    }
}

TEST(StoredValue, Directories) {
    for (const Example &example : {Example{"C:\\logs", "C:\\logs"},
                                   {"C:\\logs\\", "C:\\logs\\"},
                                   {"\\\\server\\logs", "\\\\\\\\server\\logs"},
                                   {"C:\\\\logs", "C:\\\\\\\\logs"},
                                   {"audit", "audit"},
                                   {"", "refused"}}) {
        EXPECT_EQ(stored("LogDirectory", example.written), example.stored) << example.written;
    }
    EXPECT_EQ(stored("LogDirectory", std::string(1024, 'x')), std::string(1024, 'x'));
    EXPECT_EQ(stored("LogDirectory", std::string(1025, 'x')), "refused");
}

TEST(StoredValue, Texts) {
    EXPECT_EQ(stored("OIDNames", "a, b"), "a, b");
    EXPECT_EQ(stored("OIDNames", "a\nb"), "refused");
    EXPECT_EQ(stored("OIDNames", "a\x7f"), "refused");
    EXPECT_EQ(stored("OIDNames", "\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(stored("NtEventLogSourceName", std::string(79, 'x')), std::string(79, 'x'));
    EXPECT_EQ(stored("NtEventLogSourceName", std::string(80, 'x')), "refused");
}

TEST(StoredValueProblem, NumbersAsFilesHoldThem) {
    EXPECT_EQ(problem("NumberOfLogFiles", "-1"), "none") << "4294967295, as a file holds it";
    EXPECT_EQ(problem("NumberOfLogFiles", "4294967295"), "none");
    EXPECT_EQ(problem("NumberOfLogFiles", "0"), "0, out of the range from 1 to 4294967295");
    EXPECT_EQ(problem("DebugLevel", "-1"), "4294967295, out of the range from 0 to 6");
    EXPECT_EQ(problem("DebugLevel", ""), "\"\", which is no number that the library reads");
    EXPECT_EQ(problem("DebugLevel", "3x"), "\"3x\", which is no number that the library reads");
    EXPECT_EQ(problem("DebugLevel", "4294967296"),
              "\"4294967296\", which is no number that the library reads");
}

TEST(StoredValueProblem, Texts) {
    EXPECT_EQ(problem("RolloverMode", "None"), "none");
    EXPECT_EQ(problem("RolloverMode", "FileSize"), "none");
    EXPECT_EQ(problem("RolloverMode", "LocalTime Periodic"),
              "\"LocalTime Periodic\", of which LocalTime counts and Periodic does not");
    EXPECT_EQ(problem("L10nLib", ""), "empty, so it does not count");
    EXPECT_EQ(problem("OIDNames", std::string(1025, 'x')),
              "longer than the 1024 bytes that the library keeps");
    EXPECT_EQ(problem("AppMsgLogging", "OFF"), "none");
    EXPECT_EQ(problem("RolloverAtLocalTime", "7:05"), "none");
}

TEST(Settings, NamesHaveNoCaseAndNoDashes) {
    EXPECT_STREQ(findSetting("debuglevel")->key, "DebugLevel");
    EXPECT_STREQ(findSetting("max-log-file-size-kb")->key, "MaxLogFileSizeKB");
    EXPECT_STREQ(findSetting("ROLLOVER_TIME")->key, "RolloverAtLocalTime");
    EXPECT_EQ(findSetting("debug level"), nullptr);
    EXPECT_EQ(findSetting(""), nullptr);
    EXPECT_EQ(settingWithKey("debuglevel"), nullptr);
}

TEST(Settings, NoNameMeansTwo) {
    for (const Setting &setting : settings()) {
        EXPECT_EQ(findSetting(setting.key), &setting);
        for (const std::string &alias : setting.aliases) {
            EXPECT_EQ(findSetting(alias), &setting) << alias;
        }
    }
}

} // namespace
} // namespace zantlog::tools
