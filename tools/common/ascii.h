// Case, numbers and blanks of ASCII texts, whatever the locale.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zantlog::tools {

constexpr char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// Decimal digits and nothing else, in 64 bits.
inline std::optional<uint64_t> wholeNumber(std::string_view text) {
    uint64_t value = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc{} || stop != end) {
        return std::nullopt;
    }
    return value;
}

} // namespace zantlog::tools
