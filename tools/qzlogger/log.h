// The log that qzlogger writes to.
#pragma once

#include <string>

#include "tools/qzlogger/options.h"
#include "zantlog/handle.h"

namespace zantlog::tools {

class Log {
public:
    explicit Log(const LoggerOptions &options) : options_(options) {}
    ~Log() { (void)close(); }
    Log(const Log &) = delete;
    Log &operator=(const Log &) = delete;

    // Result codes of the library. An event log that cannot be opened is a warning on standard error, unless
    // the messages would go nowhere else.
    [[nodiscard]] uint32_t open();
    [[nodiscard]] uint32_t close();

    // `index` counts the messages from 0. Text in UTF-8 without NUL bytes.
    [[nodiscard]] uint32_t send(const std::string &text, uint32_t index);

    // The configuration's level is below the messages', so that nothing is written. Empty, or a sentence that
    // says so.
    [[nodiscard]] std::string filterNote();

private:
    [[nodiscard]] uint32_t openFile();
    [[nodiscard]] uint32_t openSecure();
    [[nodiscard]] uint32_t openEventLog();
    [[nodiscard]] uint32_t openContext();
    [[nodiscard]] uint32_t sendText(const char *text, uint32_t sequence, uint32_t flags);
    [[nodiscard]] uint32_t sendCatalogMessage(const wchar_t *text, uint32_t sequence, uint32_t flags);

    const LoggerOptions &options_;
    zantLogHandle handle_{};
    zantLogHandle context_{};
    zantLogHandle *target_ = &handle_; // of messages: the context, when there is one
    bool open_ = false;
};

} // namespace zantlog::tools
