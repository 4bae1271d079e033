#include "tools/qzlogger/log.h"

#include <iostream>
#include <memory>

#include "tools/common/code_page.h"
#include "tools/common/command_line.h"
#include "tools/common/result_text.h"
#include "zantlog/zantlog.h"

namespace zantlog::tools {

namespace {

// A configuration record, released at the end of the scope.
struct Configuration {
    zantLogCfg record{};
    ~Configuration() { (void)zantLogFreeCfg(&record); }
};

void warn(uint32_t result) {
    std::cerr << "qzlogger: warning: " << resultText(result) << '\n';
}

} // namespace

uint32_t Log::open() {
    uint32_t result = options_.family == Family::secureAudit ? openSecure() : openFile();
    if (result == ZANTLOG_OK && options_.context) {
        result = openContext();
    }
    open_ = result == ZANTLOG_OK;
    if (!open_) {
        (void)zantLogClose(&handle_); // what a failed open leaves behind
    }
    return result;
}

// Messages go through the context's handle from here on.
uint32_t Log::openContext() {
    const uint32_t result = zantLogCreateContext(&handle_, &context_, options_.context->c_str(), 0, "%s",
                                                 codePageFromUtf8(options_.title).c_str());
    if (result != ZANTLOG_OK) {
        (void)zantLogDestroyContext(&context_);
        return result;
    }
    context_.catalogSelector = handle_.catalogSelector; // a context does not take it over
    target_ = &context_;
    return ZANTLOG_OK;
}

uint32_t Log::openFile() {
    uint32_t result = options_.logSet
                          ? zantLogOpenLogSet(options_.product, options_.originator,
                                              codePageFromUtf8(*options_.logSet).c_str(), &handle_)
                          : zantLogOpen(options_.product, options_.originator, &handle_);
    if (result == ZANTLOG_OK) {
        result = openEventLog();
    }
    if (result == ZANTLOG_EVENT_LOG_UNAVAILABLE) {
        warn(result); // the file is open
        result = ZANTLOG_OK;
    }
    // Says that the texts of its messages are UTF-8, whatever the code page.
    handle_.catalogSelector = 1;
    return result;
}

// The library opens the event log only when the configuration asks for it.
uint32_t Log::openEventLog() {
    if ((options_.outputFlags & ZANTLOG_TO_EVENT_LOG) == 0 || handle_.eventLog.handle != nullptr) {
        return ZANTLOG_OK;
    }
    const auto configuration = std::make_unique<Configuration>();
    const uint32_t result = zantLogReadCfg(options_.product, options_.originator, &configuration->record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    return osLogOpen(&configuration->record.eventSource, &handle_.eventLog) == ZANTLOG_OS_OK
               ? ZANTLOG_OK
               : ZANTLOG_EVENT_LOG_UNAVAILABLE;
}

uint32_t Log::openSecure() {
    const auto configuration = std::make_unique<Configuration>();
    const uint32_t result = zantLogReadCfg(options_.product, options_.originator, &configuration->record);
    if (result != ZANTLOG_OK) {
        return result;
    }
    return zantLogSecureOpen(options_.product, options_.originator, 0, &configuration->record, &handle_);
}

uint32_t Log::close() {
    if (!open_) {
        return ZANTLOG_OK;
    }
    open_ = false;
    if (target_ == &context_) {
        target_ = &handle_;
        (void)zantLogDestroyContext(&context_); // before its parent
    }
    const uint32_t result = zantLogClose(&handle_);
    // A secure handle has no file to close, and says so.
    return options_.family == Family::secureAudit ? uint32_t{ZANTLOG_OK} : result;
}

uint32_t Log::send(const std::string &text, uint32_t index) {
    const uint32_t sequence = options_.sequence.value_or(0) + index;
    const uint32_t flags = options_.outputFlags | (options_.sequence ? 0U : uint32_t{ZANTLOG_AUTO_SEQUENCE});
    return options_.messageId != 0 ? sendCatalogMessage(wideFromUtf8(text).c_str(), sequence, flags)
                                   : sendText(text.c_str(), sequence, flags);
}

uint32_t Log::sendText(const char *text, uint32_t sequence, uint32_t flags) {
    switch (options_.family) {
    case Family::application:
        return zantLogAppMsg2Ex(target_, sequence, flags, options_.severity, options_.who.c_str(), 0, "%s",
                                text);
    case Family::diagnostic:
        return zantLogDiagMsg2(target_, sequence, flags, options_.level, options_.who.c_str(), 0, "%s", text);
    case Family::debug:
        return zantLogDebugMsg2(target_, sequence, flags, options_.level, options_.who.c_str(), "%s", text);
    default:
        return ZANTLOG_INVALID_ARGUMENT;
    }
}

// The argument is wide, because readers and the event log take narrow ones for native texts.
uint32_t Log::sendCatalogMessage(const wchar_t *text, uint32_t sequence, uint32_t flags) {
    const uint32_t id = options_.messageId;
    switch (options_.family) {
    case Family::application:
        return zantLogAppMsg2Ex(target_, sequence, flags, options_.severity, options_.who.c_str(), id, "%ls",
                                text);
    case Family::diagnostic:
        return zantLogDiagMsg2(target_, sequence, flags, options_.level, options_.who.c_str(), id, "%ls",
                               text);
    case Family::audit:
        return zantLogAuditMsg2(target_, sequence, flags, options_.subject.c_str(), options_.outcome, id,
                                "%ls", text);
    case Family::secureAudit:
        // The subject is a native text in the event log.
        return zantLogSecureAuditMsg(target_, options_.level, codePageFromUtf8(options_.subject).c_str(),
                                     options_.outcome, id, "%ls", text);
    default:
        return ZANTLOG_INVALID_ARGUMENT;
    }
}

std::string Log::filterNote() {
    int32_t highest = INT32_MAX;
    uint32_t result = ZANTLOG_OK;
    switch (options_.family) {
    case Family::diagnostic:
        result = zantLogGetDiagLevel(target_, &highest);
        break;
    case Family::debug:
        result = zantLogGetDebugLevel(target_, &highest);
        break;
    case Family::secureAudit:
        result = zantLogGetSecureAuditLevel(target_, &highest);
        break;
    default:
        break;
    }
    if (result != ZANTLOG_OK || options_.level <= highest) {
        return {};
    }
    return "level " + std::to_string(options_.level) + " is above the configured level " +
           std::to_string(highest) + ": nothing is written";
}

} // namespace zantlog::tools
