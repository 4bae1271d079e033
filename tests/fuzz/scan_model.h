// Numbers in texts, as the runtime's scanf and strtoul families read them, worked out on the digits as text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zantlog::fuzz {

inline bool isSpace(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\v' ||
           character == '\f' || character == '\r';
}

// What is left of a text. A read that finds nothing makes all later ones find nothing.
struct Rest {
    std::string text;
    bool failed = false;

    void skipSpaces() {
        while (!text.empty() && isSpace(text[0])) {
            text.erase(0, 1);
        }
    }

    // Sign and digits, `width` characters at most.
    std::string numeral(size_t width) {
        skipSpaces();
        std::string taken;
        while (!failed && taken.size() < width && taken.size() < text.size()) {
            const char character = text[taken.size()];
            const bool sign = taken.empty() && (character == '-' || character == '+');
            if (!sign && (character < '0' || character > '9')) {
                break;
            }
            taken += character;
        }
        failed = failed || taken.find_first_of("0123456789") == std::string::npos;
        text.erase(0, failed ? 0 : taken.size());
        return failed ? "0" : taken;
    }

    // The digits without sign and leading zeros; more than twelve are as good as twelve.
    static int64_t magnitude(const std::string &numeral) {
        const size_t first = numeral.find_first_not_of("+-0");
        const std::string digits = first == std::string::npos ? "0" : numeral.substr(first);
        return digits.size() > 12 ? INT64_C(999999999999) : std::stoll(digits);
    }

    uint32_t unsigned32(size_t width = SIZE_MAX) {
        const std::string taken = numeral(width);
        const int64_t value = magnitude(taken);
        if (value > INT64_C(0xffffffff)) {
            return 0xffffffffu;
        }
        return static_cast<uint32_t>(taken[0] == '-' ? -value : value);
    }

    int32_t signed32(size_t width = SIZE_MAX) {
        const std::string taken = numeral(width);
        const int64_t value = taken[0] == '-' ? -magnitude(taken) : magnitude(taken);
        return static_cast<int32_t>(value < INT32_MIN ? INT32_MIN : value > INT32_MAX ? INT32_MAX : value);
    }

    std::string word(size_t width) {
        skipSpaces();
        std::string taken;
        while (!failed && taken.size() < width && taken.size() < text.size() &&
               !isSpace(text[taken.size()])) {
            taken += text[taken.size()];
        }
        failed = failed || taken.empty();
        text.erase(0, taken.size());
        return taken;
    }

    void literal(char expected) {
        failed = failed || text.empty() || text[0] != expected;
        text.erase(0, failed ? 0 : 1);
    }
};

// The number that a text begins with; 0 when it begins with none.
inline uint32_t leadingNumber(const std::string &text) {
    Rest rest{text};
    const uint32_t value = rest.unsigned32();
    return rest.failed ? 0 : value;
}

} // namespace zantlog::fuzz
