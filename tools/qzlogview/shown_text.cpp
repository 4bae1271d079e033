#include "tools/qzlogview/shown_text.h"

#include <cstdint>
#include <cstring>

#include <algorithm>

#include "tools/qzlogview/characters.h"

namespace zantlog::view {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

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

// Whether all of eight bytes are printable ASCII. A borrow between bytes begins at one that is not.
bool areEightPlain(const char *bytes) {
    constexpr uint64_t kOnes = 0x0101010101010101;
    uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    const uint64_t notDelete = word ^ (kOnes * 0x7F);
    return ((word | (word - kOnes * 0x20) | ((notDelete - kOnes) & ~notDelete)) & (kOnes * 0x80)) == 0;
}

// Printable ASCII from a place on, which most of every text is.
size_t plainLength(std::string_view text, size_t at) {
    size_t end = at;
    while (text.size() - end >= sizeof(uint64_t) && areEightPlain(text.data() + end)) {
        end += sizeof(uint64_t);
    }
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
        const Character character = characterAt(text, at);
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

std::string quoted(std::string_view text) {
    constexpr size_t kLongest = 60;
    std::string shown = "\"";
    appendShown(text.substr(0, kLongest), Lines::one, 0, &shown);
    return shown + (text.size() > kLongest ? "...\"" : "\"");
}

void appendSafeJson(std::string_view json, std::string *out) {
    for (size_t at = 0; at < json.size();) {
        const Character character = characterAt(json, at);
        // Line feeds and the like do not stand in JSON texts.
        if (character.bytes != 0 && isUnsafe(character.code)) {
            *out += "\\u";
            appendHexadecimal(character.code, 4, out);
        } else {
            out->append(json, at, std::max<size_t>(character.bytes, 1));
        }
        at += std::max<size_t>(character.bytes, 1);
    }
}

} // namespace zantlog::view
