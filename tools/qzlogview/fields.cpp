#include "tools/qzlogview/fields.h"

#include <algorithm>
#include <charconv>

#include "tools/common/ascii.h"
#include "tools/qzlogview/arguments.h"
#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

namespace {

template <typename Number> void appendNumber(Number value, std::string *out) {
    char digits[24];
    out->append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

template <auto Member> void appendMember(const Record &record, Look *, std::string *out) {
    appendNumber(record.fields.*Member, out);
}

void appendArgumentList(const std::vector<Argument> &arguments, std::string *out) {
    out->push_back('[');
    for (size_t i = 0; i < arguments.size(); ++i) {
        const Argument &argument = arguments[i];
        *out += i > 0 ? ", " : "";
        const bool text = argument.kind == ZANTLIS_WIDE_CHAR || argument.kind == ZANTLIS_WIDE_STRING ||
                          argument.kind == ZANTLIS_UTF8_STRING || argument.kind == ZANTLIS_NATIVE_STRING;
        if (argument.kind == ZANTLIS_NESTED) {
            appendArgumentList(argument.nested, out);
        } else if (text) {
            out->push_back('"');
            appendShown(argument.text, Lines::one, 0, out);
            out->push_back('"');
        } else {
            *out += argument.text;
        }
    }
    out->push_back(']');
}

bool isApplication(const Record &record) {
    return record.type() == ZANTLOG_MSG_APPLICATION;
}

const Field kFields[] = {
    {"time", false,
     [](const Record &record, Look *look, std::string *out) { look->appendTime(record, out); }},
    {"timestamp", true, appendMember<&zantLogMsgRec::timestamp>},
    {"type", false, [](const Record &record, Look *, std::string *out) { *out += typeName(record.type()); }},
    {"severity", true,
     [](const Record &record, Look *, std::string *out) {
         if (isApplication(record)) {
             appendNumber(record.level(), out);
         }
     }},
    {"level", true,
     [](const Record &record, Look *, std::string *out) {
         if (record.type() <= ZANTLOG_MSG_DIAGNOSTIC) {
             appendNumber(record.level(), out);
         }
     }},
    {"product", true, appendMember<&zantLogMsgRec::productId>},
    {"originator", true, appendMember<&zantLogMsgRec::originatorId>},
    {"fileoriginator", true, appendMember<&zantLogMsgRec::fid>},
    {"logset", false, [](const Record &record, Look *, std::string *out) { *out += record.source->logSet; }},
    {"sequence", true, appendMember<&zantLogMsgRec::sequence>},
    {"pid", true, appendMember<&zantLogMsgRec::processId>},
    {"tid", true, appendMember<&zantLogMsgRec::threadId>},
    {"context", false,
     [](const Record &record, Look *, std::string *out) {
         *out += record.type() == ZANTLOG_MSG_CONTEXT ? record.contextString() : record.contextToken();
     }},
    {"who", false, [](const Record &record, Look *, std::string *out) { *out += record.who(); }},
    {"outcome", true,
     [](const Record &record, Look *, std::string *out) {
         if (record.type() == ZANTLOG_MSG_AUDIT) {
             appendNumber(static_cast<int32_t>(record.fields.outcome), out);
         }
     }},
    {"text", false, [](const Record &record, Look *, std::string *out) { *out += record.text(); }},
    {"host", false,
     [](const Record &record, Look *, std::string *out) { *out += record.source->header.text; }},
    {"version", true, appendMember<&zantLogMsgRec::formatVersion>},
    {"file", false, [](const Record &record, Look *, std::string *out) { *out += record.source->path; }},
    {"offset", true,
     [](const Record &record, Look *, std::string *out) { appendNumber(record.offset, out); }},
};

} // namespace

const std::string &Look::product(uint32_t id) {
    const auto [place, isNew] = products_.try_emplace(id);
    if (isNew) {
        place->second = names_ != nullptr ? names_->productName(id) : "";
        if (place->second.empty()) {
            place->second = std::to_string(id);
        }
    }
    return place->second;
}

const std::string &Look::originator(uint32_t product, uint32_t id) {
    const auto [place, isNew] = originators_.try_emplace({product, id});
    if (isNew) {
        place->second = names_ != nullptr ? names_->originatorName(product, id) : "";
        if (place->second.empty()) {
            place->second = std::to_string(id);
        }
    }
    return place->second;
}

std::span<const Field> fields() {
    return kFields;
}

const Field *findField(std::string_view name) {
    const std::string wanted = tools::lowered(name);
    const auto found = std::find_if(std::begin(kFields), std::end(kFields),
                                    [&](const Field &field) { return field.name == wanted; });
    return found == std::end(kFields) ? nullptr : found;
}

void appendArguments(const Record &record, std::string *out) {
    if (record.fields.lis.first != nullptr) {
        appendArgumentList(argumentsOf(record.fields.lis), out);
    }
}

} // namespace zantlog::view
