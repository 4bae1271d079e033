#include "tools/qzlogview/report/argument_json.h"

#include <iterator>

#include "tools/qzlogview/arguments.h"
#include "tools/qzlogview/report/json_text.h"

namespace zantlog::view {

namespace {

// For those who read the page.
const char *kindWords(int32_t kind) {
    static constexpr const char *kWords[] = {
        "character",     "signed",           "unsigned",   "double",
        "pointer",       "wide text",        "error code", "error code (wide)",
        "date and time", "nested arguments", "UTF-8 text", "text",
    };
    return kind >= 0 && static_cast<size_t>(kind) < std::size(kWords) ? kWords[kind] : "unknown kind";
}

std::string arrayOf(const std::vector<Argument> &arguments) {
    std::string list = "[";
    for (const Argument &argument : arguments) {
        const std::string value =
            argument.kind == ZANTLIS_NESTED ? arrayOf(argument.nested) : jsonText(argument.text);
        list += list.size() > 1 ? "," : "";
        list += "[\"" + std::string(kindWords(argument.kind)) + "\"," + value + "]";
    }
    return list + "]";
}

} // namespace

std::string argumentJson(const zantLis &object) {
    const std::vector<Argument> arguments = argumentsOf(object);
    return arguments.empty() ? std::string() : arrayOf(arguments);
}

} // namespace zantlog::view
