// The command line of qzlogger.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zantlog::tools {

enum class Family { application, diagnostic, debug, audit, secureAudit };

// Options as given, complete and consistent. Texts are UTF-8.
struct LoggerOptions {
    uint32_t product = 0;
    uint32_t originator = 0;
    Family family = Family::application;
    std::optional<std::string> logSet;
    std::optional<std::string> context; // token; ASCII
    std::string title;                  // of the context
    int32_t severity = 0;
    int32_t level = 1;
    std::string who;
    std::string subject;
    uint32_t outcome = 0;
    uint32_t messageId = 0;
    std::optional<uint32_t> sequence; // of the first message; each one after it has the next number
    uint32_t outputFlags = 0;
    std::optional<std::string> text;
    std::optional<std::string> from;   // a file, or "-"
    std::vector<std::string> catalogs; // files to check; then nothing is logged, and nothing else is given
};

// Reads the command line. When there is nothing to log (help, version, a usage error), it has said so and
// stores the exit code of the process.
std::optional<LoggerOptions> readLoggerOptions(std::vector<std::string> arguments, int *exitCode);

} // namespace zantlog::tools
