// docs/configuration.md against the code: its table of keys, and its example.
#include "config/config_record.h"
#include "config/key_table.h"
#include "tests/config/test_stores.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace zantlog::test {
namespace {

using Lines = std::vector<std::string>;

Lines documentLines() {
    std::ifstream file(ZANTLOG_SOURCE_FOLDER "/docs/configuration.md");
    EXPECT_TRUE(file.is_open());
    Lines lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

// The lines between one that is `begin` and the next one that begins with `end`.
Lines between(const std::string &begin, const std::string &end) {
    Lines part;
    bool inside = false;
    for (const std::string &line : documentLines()) {
        if (inside && line.rfind(end, 0) == 0) {
            return part;
        }
        if (inside) {
            part.push_back(line);
        }
        inside = inside || line == begin;
    }
    ADD_FAILURE() << "no part " << begin;
    return part;
}

// The cells of a table's row without blanks and backquotes around them.
Lines cellsOf(const std::string &row) {
    Lines cells;
    std::istringstream stream(row.substr(1));
    for (std::string cell; std::getline(stream, cell, '|');) {
        const size_t first = cell.find_first_not_of(" `");
        const size_t last = cell.find_last_not_of(" `");
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

// Rows of the first table of a part, without its head.
std::vector<Lines> tableIn(const Lines &part) {
    std::vector<Lines> rows;
    for (const std::string &line : part) {
        if (line.rfind('|', 0) == 0) {
            rows.push_back(cellsOf(line));
        } else if (!rows.empty()) {
            break;
        }
    }
    EXPECT_GT(rows.size(), 2U);
    rows.erase(rows.begin(), rows.begin() + 2);
    return rows;
}

std::string nameOf(KeyType type) {
    switch (type) {
    case KeyType::Text:
        return "text";
    case KeyType::Number:
        return "number";
    default:
        return "boolean";
    }
}

std::string nameOf(KeyScope scope) {
    switch (scope) {
    case KeyScope::Both:
        return "both";
    case KeyScope::Product:
        return "product";
    default:
        return "log set";
    }
}

std::string hexadecimal(uint32_t number) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << number;
    return text.str();
}

std::string orNone(const char *text) {
    return text != nullptr ? text : "none";
}

std::string orEmpty(const char *text) {
    return *text != '\0' ? text : "empty";
}

std::string flag(uint32_t value) {
    return value != 0 ? "true" : "false";
}

// What the document calls the default of each key, taken from a fresh record.
std::map<std::string, std::string> freshValues(const zantLogCfg &cfg) {
    char mode[256] = "";
    return {
        {"LogDirectory", orEmpty(cfg.logDirectory)},
        {"OIDNames", orEmpty(cfg.originatorNames)},
        {"L10nLib", orNone(cfg.l10nLib)},
        {"L10nResource", orNone(cfg.l10nResource)},
        {"L10nResourceDir", orNone(cfg.l10nResourceDir)},
        {"DebugLevel", std::to_string(cfg.debugLevel)},
        {"DiagnosticLevel", std::to_string(cfg.diagLevel)},
        {"DynaReloadInSec", std::to_string(cfg.dynaReloadInSec)},
        {"LogToStdout", flag(cfg.outputFlags & 1)},
        {"LogToStderr", flag(cfg.outputFlags & 2)},
        {"LogToOslog", flag(cfg.outputFlags & 4)},
        {"FileName", std::string(cfg.logSetFileName) == cfg.logSetName ? "the log set's name" : "another"},
        {"AppMsgLogging", cfg.appMsgLogging == 1 ? "ON" : "OFF"},
        {"OIDAppMsgLogging", orNone(cfg.oidAppMsgLogging)},
        {"OIDDebugLogging", orNone(cfg.oidDebugLogging)},
        {"OIDDiagLogging", orNone(cfg.oidDiagLogging)},
        {"RolloverMode", RolloverModeEnumToSettingString(cfg.rolloverMode, mode)},
        {"LogRecycle", flag(cfg.logRecycle)},
        {"MaxLogFileSizeKB", std::to_string(cfg.maxLogFileSizeKB)},
        {"RolloverAtLocalTime", cfg.rolloverTime == 0 ? "00:00" : "another"},
        {"RolloverPeriodInSeconds", std::to_string(cfg.rolloverPeriod)},
        {"NumberOfLogFiles", std::to_string(cfg.numberOfLogFiles)},
        {"NtEventLogSourceName", cfg.eventSource.name},
        {"NtEventLogCategory", std::to_string(cfg.eventSource.category)},
        {"LogFileSDDL", orNone(cfg.logFileSDDL)},
    };
}

TEST(ConfigurationDocument, ListsEveryKeyInTheOrderOfReading) {
    Config cfg;
    ASSERT_EQ(initialiseConfig(1, 0, "set", &cfg), 0U);
    const std::map<std::string, std::string> defaults = freshValues(cfg);
    const std::vector<Lines> rows = tableIn(between("## Keys", "## "));
    const std::span<const ConfigKey> keys = configKeys();
    ASSERT_EQ(rows.size(), 25U);
    ASSERT_EQ(keys.size(), rows.size());
    for (size_t i = 0; i < keys.size(); ++i) {
        ASSERT_EQ(rows[i].size(), 8U); // the last column is the configuration tool's
        EXPECT_EQ(rows[i][0], keys[i].name);
        EXPECT_EQ(rows[i][1], nameOf(keys[i].type)) << rows[i][0];
        EXPECT_EQ(rows[i][3], defaults.at(rows[i][0])) << rows[i][0];
        EXPECT_EQ(rows[i][5], nameOf(keys[i].scope)) << rows[i][0];
        EXPECT_EQ(rows[i][6], hexadecimal(keys[i].setting)) << rows[i][0];
    }
}

// A setting of the document's result table, taken from a record.
std::string settingOf(const zantLogCfg &cfg, const std::string &setting) {
    const std::map<std::string, std::string> values = {
        {"log directory", cfg.logDirectory},
        {"debug level", std::to_string(cfg.debugLevel)},
        {"diag level", std::to_string(cfg.diagLevel)},
        {"output flags", std::to_string(cfg.outputFlags)},
        {"rollover mode", std::to_string(cfg.rolloverMode)},
        {"maximum size in KB", std::to_string(cfg.maxLogFileSizeKB)},
        {"rollover time in seconds", std::to_string(cfg.rolloverTime)},
        {"rollover period in seconds", std::to_string(cfg.rolloverPeriod)},
        {"recycling", std::to_string(cfg.logRecycle)},
        {"number of files", std::to_string(cfg.numberOfLogFiles)},
        {"event source", cfg.eventSource.name},
        {"application messages", std::to_string(cfg.appMsgLogging)},
        {"product names", cfg.productNames},
        {"file name", orNone(cfg.logSetFileName)},
    };
    const auto found = values.find(setting);
    return found != values.end() ? found->second : "no such setting";
}

TEST(ConfigurationDocument, ItsExampleLoadsAsItSays) {
    const Lines example = between("```conf", "```");
    ASSERT_EQ(example.size(), 18U);
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    writeConf(store->path(), example);
    registerProduct(*location, 12, store->path(), "billing,bil");
    ASSERT_EQ(example[0], "12.Configuration=C:\\zantlog\\zantlog.conf");
    ASSERT_EQ(example[1], "12.Names=billing,bil");

    Config records[3];
    ASSERT_EQ(zantLogReadCfg(12, 112, &records[0]), 0U);
    ASSERT_EQ(zantLogReadCfg(12, 3, &records[1]), 0U);
    ASSERT_EQ(zantLogReadlogsetCfg(12, "nightly", &records[2]), 0U);
    const std::vector<Lines> rows = tableIn(between("What is loaded from it:", "## "));
    ASSERT_EQ(rows.size(), 14U);
    for (const Lines &row : rows) {
        ASSERT_EQ(row.size(), 4U);
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(settingOf(records[i], row[0]), row[i + 1]) << row[0] << " of record " << i;
        }
    }
}

} // namespace
} // namespace zantlog::test
