#include "tools/qzlogview/shown_text.h"

#include <cstdint>

namespace zantlog::view {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct Character {
    char32_t code;
    size_t bytes; // 0: no UTF-8 begins here
};

bool isContinuation(std::string_view text, size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

// The character at a place: shortest form, no surrogates, nothing above U+10FFFF.
Character decode(std::string_view text, size_t at) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[at + i]); };
    const unsigned first = byte(0);
    if (first < 0x80) {
        return {first, 1};
    }
    const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4) {
        return {0, 0};
    }
    char32_t code = first & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        if (!isContinuation(text, at + i)) {
            return {0, 0};
        }
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kLeast[length] || surrogate || code > 0x10FFFF ? Character{0, 0} : Character{code, length};
}

// Control characters, and what makes text run the other way or hides.
bool isUnsafe(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x061C ||
           (code >= 0x200B && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
           (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF;
}

void appendHexadecimal(char32_t code, int digits, std::string *out) {
    constexpr char kDigits[] = "0123456789abcdef";
    for (int digit = digits - 1; digit >= 0; --digit) {
        out->push_back(kDigits[code >> (4 * digit) & 0xF]);
    }
}

void appendEscape(char32_t code, std::string *out) {
    if (code == '\n') {
        *out += "\\n";
    } else if (code == '\t') {
        *out += "\\t";
    } else if (code < 0x100) {
        *out += "\\x";
        appendHexadecimal(code, 2, out);
    } else {
        *out += "\\u";
        appendHexadecimal(code, 4, out);
    }
}

// Printable ASCII from a place on, which most of every text is.
size_t plainLength(std::string_view text, size_t at) {
    size_t end = at;
    while (end < text.size() && text[end] >= ' ' && text[end] != 0x7F) {
        ++end;
    }
    return end - at;
}

} // namespace

void appendShown(std::string_view text, Lines lines, size_t indentation, std::string *out) {
    for (size_t at = 0; at < text.size();) {
        if (const size_t plain = plainLength(text, at); plain > 0) {
            out->append(text, at, plain);
            at += plain;
            continue;
        }
        const Character character = decode(text, at);
        if (character.bytes == 0) {
            *out += kReplacement;
        } else if (character.code == '\n' && lines == Lines::indented) {
            out->push_back('\n');
            out->append(indentation, ' ');
        } else if (isUnsafe(character.code)) {
            appendEscape(character.code, out);
        } else {
            out->append(text, at, character.bytes);
        }
        at += character.bytes == 0 ? 1 : character.bytes;
    }
}

void appendUtf8(std::string_view text, std::string *out) {
    for (size_t at = 0; at < text.size();) {
        const Character character = decode(text, at);
        if (character.bytes == 0) {
            *out += kReplacement;
        } else {
            out->append(text, at, character.bytes);
        }
        at += character.bytes == 0 ? 1 : character.bytes;
    }
}

} // namespace zantlog::view
