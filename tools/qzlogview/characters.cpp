#include "tools/qzlogview/characters.h"

namespace zantlog::view {

namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;
constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

Character characterAt(std::string_view text, size_t at) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[at + i]); };
    const unsigned first = byte(0);
    if (first < 0x80) {
        return {first, 1};
    }
    const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() - at < length) {
        return {0, 0};
    }
    char32_t code = first & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return {0, 0};
        }
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kLeast[length] || surrogate || code > kLastCharacter ? Character{0, 0}
                                                                       : Character{code, length};
}

char32_t nextCharacter(std::string_view text, size_t *at) {
    const Character character = characterAt(text, *at);
    if (character.bytes == 0) {
        return kLastCharacter + 1 + static_cast<unsigned char>(text[(*at)++]);
    }
    *at += character.bytes;
    return character.code;
}

void appendCharacter(char32_t code, std::string *out) {
    const auto put = [&](char32_t bits) {
        out->push_back(static_cast<char>(static_cast<unsigned char>(bits)));
    };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

std::string utf8Of(const wchar_t *text) {
    std::string converted;
    for (; *text != 0; ++text) {
        const char32_t unit = static_cast<char16_t>(*text);
        const char32_t next = static_cast<char16_t>(text[1]);
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendCharacter(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00), &converted);
            ++text;
        } else {
            appendCharacter(isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacement : unit, &converted);
        }
    }
    return converted;
}

} // namespace zantlog::view
