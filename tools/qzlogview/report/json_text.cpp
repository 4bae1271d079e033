#include "tools/qzlogview/report/json_text.h"

#include <nlohmann/json.hpp>

namespace zantlog::view {

namespace {

constexpr std::string_view kLineSeparator = "\xE2\x80\xA8";
constexpr std::string_view kParagraphSeparator = "\xE2\x80\xA9";

// What replaces the character that begins there, and its length; empty for a character that may stay.
std::string_view escapeOf(std::string_view text, size_t *length) {
    *length = 1;
    switch (text.front()) {
    case '<':
        return "\\u003c";
    case '>':
        return "\\u003e";
    case '&':
        return "\\u0026";
    case '\xE2':
        *length = 3;
        return text.starts_with(kLineSeparator)        ? "\\u2028"
               : text.starts_with(kParagraphSeparator) ? "\\u2029"
                                                       : "";
    default:
        return "";
    }
}

} // namespace

std::string jsonText(std::string_view text) {
    using nlohmann::json;
    const std::string quoted = json(text).dump(-1, ' ', false, json::error_handler_t::replace);
    std::string safe;
    safe.reserve(quoted.size());
    for (size_t i = 0; i < quoted.size();) {
        size_t length = 0;
        const std::string_view escape = escapeOf(std::string_view(quoted).substr(i), &length);
        safe.append(escape.empty() ? std::string_view(quoted).substr(i, length) : escape);
        i += length;
    }
    return safe;
}

} // namespace zantlog::view
