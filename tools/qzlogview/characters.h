// Characters of UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zantlog::view {

struct Character {
    char32_t code;
    size_t bytes; // 0: no UTF-8 begins here
};

// The character at a place, which is not the end: shortest form, no surrogates, nothing above U+10FFFF.
Character characterAt(std::string_view text, size_t at);

// Takes the character at a place; a byte that is none is one of its own, above all characters.
char32_t nextCharacter(std::string_view text, size_t *at);

void appendCharacter(char32_t code, std::string *out);

// UTF-16 of the length that its terminating zero gives; halves of surrogate pairs become U+FFFD.
std::string utf8Of(const wchar_t *text);

} // namespace zantlog::view
