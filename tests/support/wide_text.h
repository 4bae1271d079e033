// Wide texts for tests. std::wstring will not do: the native build's runtime has wider characters than
// Windows and the library's own interface.
#pragma once

#include <cstddef>
#include <cstring>
#include <ostream>
#include <string>

namespace zantlog::test {

struct WideCharacters : std::char_traits<wchar_t> {
    static int compare(const wchar_t *left, const wchar_t *right, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            if (left[i] != right[i]) {
                return left[i] < right[i] ? -1 : 1;
            }
        }
        return 0;
    }
    static size_t length(const wchar_t *text) {
        size_t length = 0;
        while (text[length] != 0) {
            ++length;
        }
        return length;
    }
    static const wchar_t *find(const wchar_t *text, size_t count, const wchar_t &wanted) {
        for (size_t i = 0; i < count; ++i) {
            if (text[i] == wanted) {
                return text + i;
            }
        }
        return nullptr;
    }
    static wchar_t *move(wchar_t *to, const wchar_t *from, size_t count) {
        std::memmove(to, from, count * sizeof(wchar_t));
        return to;
    }
    static wchar_t *copy(wchar_t *to, const wchar_t *from, size_t count) {
        std::memcpy(to, from, count * sizeof(wchar_t));
        return to;
    }
    using std::char_traits<wchar_t>::assign;
    static wchar_t *assign(wchar_t *to, size_t count, wchar_t character) {
        for (size_t i = 0; i < count; ++i) {
            to[i] = character;
        }
        return to;
    }
};

using WideText = std::basic_string<wchar_t, WideCharacters>;

// Of ASCII.
inline WideText wideText(const std::string &text) {
    WideText wide;
    for (const char character : text) {
        wide += static_cast<wchar_t>(character);
    }
    return wide;
}

// How GoogleTest shows it.
inline void PrintTo(const WideText &text, std::ostream *out) {
    *out << "L\"";
    for (const wchar_t character : text) {
        if (character >= 0x20 && character < 0x7f) {
            *out << static_cast<char>(character);
        } else {
            *out << "\\x" << std::hex << static_cast<unsigned>(character) << std::dec << ' ';
        }
    }
    *out << '"';
}

} // namespace zantlog::test
