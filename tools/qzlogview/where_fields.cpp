#include "tools/qzlogview/where_fields.h"

#include "tools/common/ascii.h"

namespace zantlog::view {

namespace {

using Number = std::optional<int64_t>;
using Text = std::optional<std::string_view>;

template <auto Member> Number member(const Record &record) {
    return static_cast<int64_t>(record.fields.*Member);
}

Number severity(const Record &record) {
    return record.type() == ZANTLOG_MSG_APPLICATION ? Number(record.level()) : std::nullopt;
}

Number level(const Record &record) {
    return record.type() <= ZANTLOG_MSG_DIAGNOSTIC ? Number(record.level()) : std::nullopt;
}

Number outcome(const Record &record) {
    return record.type() == ZANTLOG_MSG_AUDIT ? Number(static_cast<int32_t>(record.fields.outcome))
                                              : std::nullopt;
}

Number typeNamed(const std::string &name) {
    for (uint32_t type = ZANTLOG_MSG_DEBUG; type <= ZANTLOG_MSG_AUDIT; ++type) {
        if (typeName(type) == name) {
            return type;
        }
    }
    if (name == "app") {
        return ZANTLOG_MSG_APPLICATION;
    }
    return name == "diag" ? Number(ZANTLOG_MSG_DIAGNOSTIC) : std::nullopt;
}

Number severityNamed(const std::string &name) {
    constexpr int32_t kHighest = 4;
    for (int32_t severity = 0; severity <= kHighest; ++severity) {
        if (severityName(severity) == name) {
            return severity;
        }
    }
    return name == "info" ? Number(0) : std::nullopt;
}

Text orNone(std::string_view text) {
    return text.empty() ? Text() : Text(text);
}

// The token of the context that a message belongs to; a context's own record belongs to it.
Text contextOf(const Record &record) {
    return orNone(record.type() == ZANTLOG_MSG_CONTEXT ? record.contextString() : record.contextToken());
}

Text subject(const Record &record) {
    return record.type() == ZANTLOG_MSG_AUDIT ? Text(record.who()) : std::nullopt;
}

Text title(const Record &record) {
    return record.type() == ZANTLOG_MSG_CONTEXT ? Text(record.text()) : std::nullopt;
}

Text whole(const Record &record) {
    return record.text();
}

constexpr WhereKind kNumber = WhereKind::number;
constexpr WhereKind kText = WhereKind::text;

const WhereField kFields[] = {
    {"product", kNumber, member<&zantLogMsgRec::productId>, nullptr, nullptr},
    {"originator", kNumber, member<&zantLogMsgRec::originatorId>, nullptr, nullptr},
    {"fileoriginator", kNumber, member<&zantLogMsgRec::fid>, nullptr, nullptr},
    {"logset", kText, nullptr, [](const Record &record) { return orNone(record.source->logSet); }, nullptr},
    {"type", kNumber, member<&zantLogMsgRec::type>, nullptr, typeNamed},
    {"severity", kNumber, severity, nullptr, severityNamed},
    {"level", kNumber, level, nullptr, nullptr},
    {"who", kText, nullptr, [](const Record &record) { return orNone(record.who()); }, nullptr},
    {"subject", kText, nullptr, subject, nullptr},
    {"outcome", kNumber, outcome, nullptr, nullptr},
    {"context", kText, nullptr, contextOf, nullptr},
    {"title", kText, nullptr, title, nullptr},
    {"pid", kNumber, member<&zantLogMsgRec::processId>, nullptr, nullptr},
    {"tid", kNumber, member<&zantLogMsgRec::threadId>, nullptr, nullptr},
    {"sequence", kNumber, member<&zantLogMsgRec::sequence>, nullptr, nullptr},
    {"time", WhereKind::time, member<&zantLogMsgRec::timestamp>, nullptr, nullptr},
    {"text", kText, nullptr, whole, nullptr},
    {"args", WhereKind::arguments, nullptr, nullptr, nullptr},
    {"file", kText, nullptr, [](const Record &record) { return Text(record.source->path); }, nullptr},
    {"host", kText, nullptr, [](const Record &record) { return Text(record.source->header.text); }, nullptr},
    {"version", kNumber, member<&zantLogMsgRec::formatVersion>, nullptr, nullptr},
};

} // namespace

const WhereField *findWhereField(std::string_view name) {
    const std::string wanted = tools::lowered(name);
    for (const WhereField &field : kFields) {
        if (field.name == wanted) {
            return &field;
        }
    }
    return nullptr;
}

std::vector<std::string> whereFieldNames() {
    std::vector<std::string> names;
    for (const WhereField &field : kFields) {
        names.emplace_back(field.name);
    }
    return names;
}

} // namespace zantlog::view
