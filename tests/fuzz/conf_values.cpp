// Values of a `.conf` file: whole numbers, and texts in code page 1252.
#include "tests/fuzz/conf_model.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace zantlog::fuzz {

namespace {

// Characters 80 to 9f of the code page. Those that it leaves free stand for the control of their number.
constexpr uint32_t kUpper[] = {0x20ac, 0x81,   0x201a, 0x192,  0x201e, 0x2026, 0x2020, 0x2021,
                               0x2c6,  0x2030, 0x160,  0x2039, 0x152,  0x8d,   0x17d,  0x8f,
                               0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                               0x2dc,  0x2122, 0x161,  0x203a, 0x153,  0x9d,   0x17e,  0x178};

// The character that begins there and its length; 0 where UTF-8 is violated.
size_t decode(const std::string &text, size_t at, uint32_t *character) {
    const auto byte = [&](size_t index) {
        return index < text.size() ? static_cast<uint32_t>(static_cast<unsigned char>(text[index])) : 0u;
    };
    const uint32_t first = byte(at);
    const size_t length = first < 0x80 ? 1 : first < 0xc2 ? 0 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    constexpr uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    *character = length < 2 ? first : first & (0xffu >> (length + 1));
    for (size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xc0u) != 0x80u) {
            return 0;
        }
        *character = *character << 6 | (byte(at + i) & 0x3fu);
    }
    const bool surrogate = *character >= 0xd800 && *character < 0xe000;
    return first < 0xf5 && !surrogate && *character >= kLeast[length] && *character < 0x110000 ? length : 0;
}

} // namespace

uint32_t numberOf(const std::string &value) {
    size_t at = 0;
    while (at < value.size() && (value[at] == ' ' || (value[at] >= '\t' && value[at] <= '\r'))) {
        ++at;
    }
    const bool negative = at < value.size() && value[at] == '-';
    at += at < value.size() && (value[at] == '-' || value[at] == '+') ? 1 : 0;
    uint64_t number = 0;
    for (; at < value.size() && value[at] >= '0' && value[at] <= '9'; ++at) {
        number = std::min<uint64_t>(number * 10 + static_cast<uint64_t>(value[at] - '0'), uint64_t{1} << 40);
    }
    if (number > 0xffffffffu) {
        return 0xffffffffu;
    }
    return static_cast<uint32_t>(negative ? (uint64_t{1} << 32) - number : number);
}

std::string utf8Of(const std::string &text) {
    std::string utf8;
    for (const char narrow : text) {
        const auto byte = static_cast<unsigned char>(narrow);
        const uint32_t character = byte >= 0x80 && byte < 0xa0 ? kUpper[byte - 0x80] : byte;
        if (character < 0x80) {
            utf8 += static_cast<char>(character);
        } else if (character < 0x800) {
            utf8 += static_cast<char>(0xc0u | character >> 6);
            utf8 += static_cast<char>(0x80u | (character & 0x3fu));
        } else {
            utf8 += static_cast<char>(0xe0u | character >> 12);
            utf8 += static_cast<char>(0x80u | (character >> 6 & 0x3fu));
            utf8 += static_cast<char>(0x80u | (character & 0x3fu));
        }
    }
    return utf8;
}

Conversion codePageOf(const std::string &utf8, std::string *text) {
    text->clear();
    bool unsure = false;
    for (size_t at = 0; at < utf8.size();) {
        uint32_t character = 0;
        const size_t length = decode(utf8, at, &character);
        if (length == 0) {
            return Conversion::Refused;
        }
        at += length;
        const uint32_t *upper = std::find(std::begin(kUpper), std::end(kUpper), character);
        if (upper != std::end(kUpper)) {
            *text += static_cast<char>(0x80 + (upper - kUpper));
        } else {
            unsure = unsure || character > 0xff || (character >= 0x80 && character < 0xa0);
            *text += static_cast<char>(character);
        }
    }
    return unsure ? Conversion::Unsure : Conversion::Done;
}

} // namespace zantlog::fuzz
