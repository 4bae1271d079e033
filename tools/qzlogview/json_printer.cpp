// One JSON object a line.
#include <cmath>

#include <nlohmann/json.hpp>

#include "tools/common/ascii.h"
#include "tools/qzlogview/arguments.h"
#include "tools/qzlogview/printer.h"
#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

std::unique_ptr<Printer> makeJsonPrinter(const std::vector<std::string> &fields);

namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const std::vector<Argument> &arguments);

Json valueOf(const Argument &argument) {
    switch (argument.kind) {
    case ZANTLIS_SIGNED:
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
    case ZANTLIS_DATE_TIME:
        return argument.number;
    case ZANTLIS_UNSIGNED:
        return argument.word;
    case ZANTLIS_DOUBLE:
        // JSON has no infinities.
        return std::isfinite(argument.real) ? Json(argument.real) : Json(argument.text);
    case ZANTLIS_NESTED:
        return jsonOf(argument.nested);
    default:
        return argument.text;
    }
}

Json jsonOf(const std::vector<Argument> &arguments) {
    Json list = Json::array();
    for (const Argument &argument : arguments) {
        list.push_back({{"type", kindName(argument.kind)}, {"value", valueOf(argument)}});
    }
    return list;
}

// On a terminal it drives nothing either.
void append(const Json &json, std::string *out) {
    appendSafeJson(json.dump(-1, ' ', false, Json::error_handler_t::replace), out);
}

class JsonPrinter : public Printer {
public:
    explicit JsonPrinter(const std::vector<std::string> &names) {
        for (const std::string &name : names) {
            fields_.push_back(findField(name)); // null: the arguments
        }
    }

    void print(const Entry &entry, Look *look, std::string *out) override {
        out->push_back('{');
        bool first = true;
        for (const Field *field : fields_) {
            value_.clear();
            if (field != nullptr) {
                field->append(entry.record, look, &value_);
            } else if (entry.record.fields.lis.first == nullptr) {
                continue;
            }
            // What a record does not have is left out, but for the text.
            if (field != nullptr && value_.empty() && std::string_view(field->name) != "text") {
                continue;
            }
            *out += first ? "\"" : ",\"";
            first = false;
            out->append(field != nullptr ? std::string_view(field->name) : kArgumentsField);
            *out += "\":";
            appendFieldValue(entry.record, field, out);
        }
        *out += "}\n";
    }

private:
    void appendFieldValue(const Record &record, const Field *field, std::string *out) const {
        if (field == nullptr) {
            append(jsonOf(argumentsOf(record.fields.lis)), out);
        } else if (field->isNumber) {
            *out += value_;
        } else {
            append(value_, out);
        }
    }

    std::vector<const Field *> fields_;
    std::string value_;
};

} // namespace

std::unique_ptr<Printer> makeJsonPrinter(const std::vector<std::string> &fields) {
    return std::make_unique<JsonPrinter>(fields);
}

} // namespace zantlog::view
