// Reading numbers and words out of texts.
#include "base/scan.h"

namespace zantlog {

namespace {

bool isBlank(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

const char *skipBlanks(const char *at) {
    while (isBlank(*at)) {
        ++at;
    }
    return at;
}

struct Number {
    bool negative;
    uint64_t magnitude; // `most` when the digits say more
};

// The sign counts towards the width, as with scanf. Null when there is no digit.
const char *readNumber(const char *at, int maximumWidth, uint64_t most, Number *number) {
    size_t width = maximumWidth > 0 ? static_cast<size_t>(maximumWidth) : SIZE_MAX;
    number->negative = *at == '-';
    if (*at == '-' || *at == '+') {
        ++at;
        --width;
    }
    if (width == 0 || !isDigit(*at)) {
        return nullptr;
    }
    number->magnitude = 0;
    for (; width != 0 && isDigit(*at); ++at, --width) {
        const auto digit = static_cast<uint64_t>(*at - '0');
        const bool fits = number->magnitude <= (most - digit) / 10;
        number->magnitude = fits ? number->magnitude * 10 + digit : most;
    }
    return at;
}

template <typename Signed>
bool readSigned(const char **at, int maximumWidth, uint64_t mostNegative, Signed *value) {
    *at = skipBlanks(*at);
    Number number{};
    const char *end = readNumber(*at, maximumWidth, mostNegative, &number);
    if (end == nullptr) {
        return false;
    }
    *at = end;
    const uint64_t mostPositive = mostNegative - 1;
    const uint64_t bounded =
        number.negative || number.magnitude <= mostPositive ? number.magnitude : mostPositive;
    *value = static_cast<Signed>(number.negative ? ~bounded + 1 : bounded);
    return true;
}

} // namespace

bool Scanner::unsigned32(uint32_t *value, int maximumWidth) {
    at = skipBlanks(at);
    Number number{};
    // One more than fits marks the overflow.
    constexpr uint64_t kOverflow = uint64_t{UINT32_MAX} + 1;
    const char *end = readNumber(at, maximumWidth, kOverflow, &number);
    if (end == nullptr) {
        return false;
    }
    at = end;
    if (number.magnitude == kOverflow) {
        *value = UINT32_MAX;
    } else {
        const auto magnitude = static_cast<uint32_t>(number.magnitude);
        *value = number.negative ? ~magnitude + 1 : magnitude;
    }
    return true;
}

bool Scanner::signed32(int32_t *value, int maximumWidth) {
    return readSigned(&at, maximumWidth, uint64_t{1} << 31, value);
}

bool Scanner::signed64(int64_t *value, int maximumWidth) {
    return readSigned(&at, maximumWidth, uint64_t{1} << 63, value);
}

bool Scanner::word(char *buffer, size_t capacity) {
    at = skipBlanks(at);
    if (*at == '\0' || capacity < 2) {
        return false;
    }
    size_t length = 0;
    while (length < capacity - 1 && *at != '\0' && !isBlank(*at)) {
        buffer[length++] = *at++;
    }
    buffer[length] = '\0';
    return true;
}

bool Scanner::literal(char expected) {
    if (*at == '\0' || *at != expected) {
        return false;
    }
    ++at;
    return true;
}

uint32_t leadingUnsigned32(const char *text) {
    Scanner scanner{text};
    uint32_t value = 0;
    return scanner.unsigned32(&value) ? value : 0;
}

} // namespace zantlog
