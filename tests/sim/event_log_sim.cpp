// The system's event log.
#include "logfile/os/os_event_log.h"

#include "tests/sim/event_log.h"
#include "tests/sim/faults.h"
#include "tests/sim/handles.h"

namespace zantlog::os {

namespace {

struct EventLogHandle : sim::Object {
    explicit EventLogHandle(std::string ofSource) : source(std::move(ofSource)) {}
    [[nodiscard]] const char *kind() const override { return "event log"; }
    std::string source;
};

std::u16string textOf(const wchar_t *text) {
    static_assert(sizeof(wchar_t) == sizeof(char16_t));
    return text != nullptr ? reinterpret_cast<const char16_t *>(text) : u"(null)";
}

} // namespace

void *openEventLog(const char *source) {
    if (sim::enter(sim::Call::OpenEventLog).fails() || sim::isRefused(source)) {
        return nullptr;
    }
    return sim::newHandle(std::make_shared<EventLogHandle>(source));
}

void closeEventLog(void *log) {
    sim::enter(sim::Call::CloseEventLog);
    sim::closeHandle(log);
}

SystemError reportEvent(void *log, const Event &event) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::ReportEvent); verdict.fails()) {
        return verdict.error;
    }
    const auto handle = sim::objectOf<EventLogHandle>(log);
    if (handle == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    sim::ReportedEvent reported{handle->source, event.type, event.category, event.id, {}};
    for (uint16_t i = 0; i < event.stringCount; ++i) {
        reported.strings.push_back(textOf(event.strings[i]));
    }
    sim::addEvent(reported);
    return kErrorNone;
}

} // namespace zantlog::os
