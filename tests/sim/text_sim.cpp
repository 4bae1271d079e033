// Texts of the native build. Its code page is Latin-1: every byte is the character of the same number, so a
// narrow text always converts and a wide one up to U+00FF. Windows' own code page 1252 differs in 0x80 to
// 0x9F.
#include "logfile/os/os_text.h"

#include <cstdlib>
#include <cstring>

namespace zantlog::os {

namespace {

int lowerCase(unsigned char character) {
    const bool upper = (character >= 'A' && character <= 'Z') ||
                       (character >= 0xC0 && character <= 0xDE && character != 0xD7);
    return upper ? character + 0x20 : character;
}

} // namespace

size_t multiByteToWide(wchar_t *destination, const char *source, size_t capacity) {
    const size_t length = std::strlen(source);
    if (destination == nullptr) {
        return length;
    }
    for (size_t at = 0; at < capacity; ++at) {
        destination[at] = static_cast<unsigned char>(source[at]);
        if (source[at] == '\0') {
            return at;
        }
    }
    return capacity;
}

size_t wideToMultiByte(char *destination, const wchar_t *source, size_t capacity) {
    size_t at = 0;
    for (; destination == nullptr || at < capacity; ++at) {
        if (source[at] > 0xFF) {
            return kConversionFailed;
        }
        if (destination != nullptr) {
            destination[at] = static_cast<char>(source[at]);
        }
        if (source[at] == 0) {
            return at;
        }
    }
    return capacity;
}

size_t wideCharToMultiByte(char (&destination)[16], wchar_t character) {
    if (character > 0xFF) {
        return kConversionFailed;
    }
    destination[0] = static_cast<char>(character);
    return 1;
}

size_t wideLength(const wchar_t *text) {
    size_t length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return length;
}

int32_t collate(const char *left, const char *right) {
    return std::strcmp(left, right);
}

int32_t compareIgnoringCase(const char *left, const char *right) {
    for (;; ++left, ++right) {
        const int difference =
            lowerCase(static_cast<unsigned char>(*left)) - lowerCase(static_cast<unsigned char>(*right));
        if (difference != 0 || *left == '\0') {
            return difference;
        }
    }
}

const char *codePageName() {
    return "ISO-8859-1";
}

const char *localeName() {
    return "C";
}

bool environmentVariable(const char *name, char *buffer, uint32_t capacity, uint32_t *length) {
    const char *value = std::getenv(name);
    if (value == nullptr) {
        return false;
    }
    *length = static_cast<uint32_t>(std::strlen(value));
    if (capacity != 0) {
        const size_t kept = *length < capacity ? *length : 0;
        std::memcpy(buffer, value, kept);
        buffer[kept] = '\0';
    }
    return true;
}

} // namespace zantlog::os
