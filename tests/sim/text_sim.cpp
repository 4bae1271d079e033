// Texts in the code pages of the process: those of the runtime's "C" locale, where every byte is the
// character of the same number, so that a narrow text always converts and a wide one up to U+00FF; and code
// page 1252.
#include "logfile/os/os_text.h"

#include <cstring>

#include "tests/sim/environment.h"
#include "tests/sim/faults.h"

namespace zantlog::os {

namespace {

// The runtime's comparison knows the letters of its locale only, which in the "C" locale are those of ASCII.
int lowerCase(unsigned char character) {
    return character >= 'A' && character <= 'Z' ? character + 0x20 : character;
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
    if (destination == nullptr) {
        return wideLength(source); // the runtime does not look at the characters here
    }
    for (; at < capacity; ++at) {
        if (source[at] > 0xFF) {
            return kConversionFailed;
        }
        destination[at] = static_cast<char>(source[at]);
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
    return "windows-1252";
}

const char *localeName() {
    return "C";
}

bool environmentVariable(const char *name, char *buffer, uint32_t capacity, uint32_t *length) {
    sim::enter(sim::Call::Environment);
    const std::optional<std::string> value = sim::environmentValue(name);
    if (!value) {
        return false;
    }
    *length = static_cast<uint32_t>(value->size());
    if (capacity != 0) {
        const size_t kept = *length < capacity ? *length : 0;
        std::memcpy(buffer, value->data(), kept);
        buffer[kept] = '\0';
    }
    return true;
}

} // namespace zantlog::os
