#include "tests/api/recording_system.h"

#include "logfile/os/os_console.h"
#include "logfile/os/os_event_log.h"
#include "logfile/os/os_module.h"

namespace zantlog::test {

RecordingSystem recording;

namespace {

int moduleToken;
int logToken;

uint32_t formatMessage(zantLogLocalizerList *list, uint32_t reserved1, const char *locale, uint32_t reserved2,
                       uint32_t flags, uint32_t reserved3, zantLogMsgRec *rec, zantLogHandle *handle,
                       char **text) {
    recording.formats.push_back({list, reserved1, locale, reserved2, flags, reserved3, rec, handle});
    if (recording.formatResult == 0 && !recording.formatsNull) {
        *text = zantLogSafeStrdup(recording.formattedText.c_str());
    }
    return recording.formatResult;
}

} // namespace

} // namespace zantlog::test

namespace zantlog::os {

using test::recording;

SystemError loadModule(const char *fileName, void **module) {
    recording.loads.emplace_back(fileName);
    *module = recording.libraryExists ? &test::moduleToken : nullptr;
    return recording.libraryExists ? kErrorNone : kErrorModuleNotFound;
}

void unloadModule(void *) {
    ++recording.unloads;
}

void *resolveFunction(void *module, const char *name) {
    const bool known = module == &test::moduleToken && std::string(name) == "LogFormatMessage";
    return known && recording.exportExists ? reinterpret_cast<void *>(test::formatMessage) : nullptr;
}

void printToStdout(const char *text, const char *suffix) {
    recording.printed.push_back(std::string("out:") + text + suffix);
}

void printToStderr(const char *text, const char *suffix) {
    recording.printed.push_back(std::string("err:") + text + suffix);
}

void *openEventLog(const char *source) {
    recording.openedSources.emplace_back(source);
    return recording.eventLogOpens ? &test::logToken : nullptr;
}

void closeEventLog(void *) {
    ++recording.closedLogs;
}

SystemError reportEvent(void *log, const Event &event) {
    test::ReportedEvent reported = {log, event.type, event.category, event.id, {}};
    for (uint16_t i = 0; i < event.stringCount; ++i) {
        reported.strings.emplace_back(event.strings[i] != nullptr ? event.strings[i] : L"(null)");
    }
    recording.events.push_back(reported);
    return recording.reportSucceeds ? kErrorNone : kErrorAccessDenied;
}

} // namespace zantlog::os
