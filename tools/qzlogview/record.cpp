#include "tools/qzlogview/record.h"

#include <iterator>
#include <utility>

namespace zantlog::view {

namespace {

std::string_view viewOf(const char *text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

} // namespace

Record::Record(Record &&other) noexcept
    : source(other.source), offset(other.offset), fields(std::exchange(other.fields, zantLogMsgRec{})) {}

Record &Record::operator=(Record &&other) noexcept {
    if (this != &other) {
        zantLogFreeMsg(&fields);
        source = other.source;
        offset = other.offset;
        fields = std::exchange(other.fields, zantLogMsgRec{});
    }
    return *this;
}

Record::~Record() {
    zantLogFreeMsg(&fields);
}

std::string_view Record::text() const {
    return viewOf(fields.text);
}

std::string_view Record::who() const {
    return viewOf(fields.who);
}

std::string_view Record::contextToken() const {
    return viewOf(fields.contextToken);
}

std::string_view Record::contextString() const {
    return type() == ZANTLOG_MSG_CONTEXT ? viewOf(fields.slot.contextString) : std::string_view();
}

int32_t Record::level() const {
    const bool has = type() <= ZANTLOG_MSG_APPLICATION;
    return has ? fields.slot.level : -1;
}

std::string typeName(uint32_t type) {
    static constexpr const char *kNames[] = {"debug",   "diagnostic", "application",
                                             "context", "audit",      "secure-audit"};
    return type < std::size(kNames) ? kNames[type] : "type " + std::to_string(type);
}

std::string severityName(int32_t severity) {
    static constexpr const char *kNames[] = {"information", "warning", "error", "severe", "fatal"};
    const bool known = severity >= 0 && static_cast<size_t>(severity) < std::size(kNames);
    return known ? kNames[severity] : "severity " + std::to_string(severity);
}

} // namespace zantlog::view
