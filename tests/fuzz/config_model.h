// What a configuration record holds after its sections in a `.conf` file have been laid over each other.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "zantlog/config.h"

namespace zantlog::fuzz {

struct ExpectedConfig {
    uint32_t debugLevel = 0;
    uint32_t diagLevel = 0;
    uint32_t outputFlags = 0;
    std::string logDirectory;
    std::optional<std::string> logFileSDDL;
    uint32_t maxLogFileSizeKB = 10240;
    uint32_t rolloverMode = 0;
    int64_t rolloverPeriod = 43200;
    int64_t rolloverTime = 0;
    uint32_t numberOfLogFiles = 0xffffffffu;
    uint32_t logRecycle = 0;
    std::string eventSource = "Application";
    uint32_t eventCategory = 0;
    std::string originatorNames;
    std::optional<std::string> l10nLib;
    std::optional<std::string> l10nResource;
    std::optional<std::string> l10nResourceDir;
    int64_t dynaReloadInSec = 0;
    std::optional<std::string> logSetName;
    std::optional<std::string> logSetFileName;
    uint32_t appMsgLogging = 1;
    std::optional<std::string> oidAppMsgLogging;
    std::optional<std::string> oidDebugLogging;
    std::optional<std::string> oidDiagLogging;
    uint32_t found = 0;  // keys of the last section that count
    bool unsure = false; // a text held characters that are not of the code page
};

// Lays a section of the file over the record: "Default", "3", or for a log set "LOGSET.trade".
void loadSection(ExpectedConfig *cfg, const std::string &file, const std::string &section);

// Ends the run where the record differs; texts are left out when the model is unsure of them.
void requireConfig(const ExpectedConfig &expected, const zantLogCfg &cfg);

// What holds for every loaded record, whatever was in the file.
void requireSane(const zantLogCfg &cfg);

} // namespace zantlog::fuzz
