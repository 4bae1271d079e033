// qzlogger: writes messages into the log of a product. docs/tools.md describes it.
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/common/command_line.h"
#include "tools/common/exit_codes.h"
#include "tools/common/result_text.h"
#include "tools/qzlogger/check.h"
#include "tools/qzlogger/log.h"
#include "tools/qzlogger/message_lines.h"
#include "tools/qzlogger/options.h"

using namespace zantlog::tools;

namespace {

int fail(const std::string &what) {
    std::cerr << "qzlogger: " << what << '\n';
    return kExitFailure;
}

std::string whoseLog(const LoggerOptions &options) {
    std::string name =
        "product " + std::to_string(options.product) + ", originator " + std::to_string(options.originator);
    if (options.logSet) {
        name += ", log set \"" + *options.logSet + "\"";
    }
    return name;
}

// What --from names. Opened before the log, so that a wrong name leaves no log file behind.
struct Input {
    std::ifstream file;
    std::istream *stream = nullptr;
    std::string name;
};

bool openInput(const std::string &from, Input *input) {
    if (from == "-") {
        makeStandardInputBinary();
        std::ios::sync_with_stdio(false);
        input->stream = &std::cin;
        input->name = "standard input";
        return true;
    }
    input->file.open(std::filesystem::path(std::u8string(from.begin(), from.end())), std::ios::binary);
    input->stream = &input->file;
    input->name = "\"" + from + "\"";
    return input->file.is_open();
}

int sendLines(Log *log, const Input &input) {
    MessageLines lines(*input.stream);
    for (std::string line; lines.next(&line);) {
        const uint32_t result = log->send(line, static_cast<uint32_t>(lines.number() - 1));
        if (result != 0) {
            return fail("line " + std::to_string(lines.number()) + " of " + input.name +
                        " was not logged, nor what follows it: " + resultText(result));
        }
    }
    return lines.failed()
               ? fail("reading " + input.name + " failed after line " + std::to_string(lines.number()))
               : kExitSuccess;
}

int sendText(Log *log, const std::string &text) {
    const uint32_t result = log->send(text, 0);
    return result == 0 ? kExitSuccess : fail("the message was not logged: " + resultText(result));
}

int run(const LoggerOptions &options) {
    if (!options.catalogs.empty()) {
        return checkCatalogs(options.catalogs);
    }
    Input input;
    if (options.from && !openInput(*options.from, &input)) {
        return fail("cannot open " + input.name + ": " + std::strerror(errno));
    }
    Log log(options);
    if (const uint32_t result = log.open(); result != 0) {
        return fail("cannot open the log of " + whoseLog(options) + ": " + resultText(result));
    }
    if (const std::string note = log.filterNote(); !note.empty()) {
        std::cerr << "qzlogger: note: " << note << '\n';
    }
    const int code = options.from ? sendLines(&log, input) : sendText(&log, *options.text);
    if (const uint32_t result = log.close(); result != 0) {
        return fail("closing the log of " + whoseLog(options) + " failed: " + resultText(result));
    }
    return code;
}

} // namespace

int main() {
    try {
        useCodePageOfUser();
        int exitCode = kExitFailure;
        const std::optional<LoggerOptions> options = readLoggerOptions(commandLineArguments(), &exitCode);
        return options ? run(*options) : exitCode;
    } catch (const std::exception &error) {
        return fail(error.what());
    }
}
