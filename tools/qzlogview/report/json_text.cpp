#include "tools/qzlogview/report/json_text.h"

#include <cstdint>
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

void appendCodePoint(std::string *text, uint32_t c) {
    const auto byte = [text](uint32_t value) { text->push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | c >> 6);
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | c >> 12);
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | c >> 18);
        byte(0x80 | (c >> 12 & 0x3F));
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

bool isHighSurrogate(uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
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

std::string utf8Of(const wchar_t *text) {
    std::string converted;
    for (; *text != 0; ++text) {
        const uint32_t unit = static_cast<uint16_t>(*text);
        const uint32_t next = static_cast<uint16_t>(text[1]);
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendCodePoint(&converted, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            ++text;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendCodePoint(&converted, 0xFFFD);
        } else {
            appendCodePoint(&converted, unit);
        }
    }
    return converted;
}

} // namespace zantlog::view
