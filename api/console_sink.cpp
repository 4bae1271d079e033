// Messages on the standard streams.
#include "api/localizer.h"
#include "api/sinks.h"
#include "base/owned_text.h"
#include "logfile/os/os_console.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr uint32_t kConsoleFormat = 0x700;

} // namespace

uint32_t printMessage(zantLogHandle *handle, uint32_t flags, zantLogMsgRec *rec) {
    const LogFormatMessage format = localizerFormatter();
    if (format == nullptr) {
        return ZANTLOG_OK;
    }
    char *formatted = nullptr;
    const uint32_t result =
        format(&handle->localizer, 0, nullptr, 0, kConsoleFormat, 0, rec, nullptr, &formatted);
    if (result != ZANTLOG_OK) {
        return result;
    }
    const OwnedText text(formatted);
    if (!text) {
        return ZANTLOG_OK;
    }
    if ((flags & ZANTLOG_TO_STDOUT) != 0 && rec->type != ZANTLOG_MSG_AUDIT) {
        os::printToStdout(text.get(), "\n");
    }
    if ((flags & ZANTLOG_TO_STDERR) != 0 &&
        (rec->type == ZANTLOG_MSG_APPLICATION || rec->type == ZANTLOG_MSG_DIAGNOSTIC)) {
        os::printToStderr(text.get(), "\n");
    }
    return ZANTLOG_OK;
}

} // namespace zantlog
