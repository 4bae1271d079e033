// Numbers at the beginning of a text, with what ends them.
#pragma once

#include <charconv>
#include <string_view>

namespace zantlog {

// Takes decimal digits, with a "-" before them where the type has one, and the character that follows them.
// Nothing is taken when they are not there, or when the number does not fit.
template <typename Number>
[[nodiscard]] bool takeNumber(std::string_view *rest, char closing, Number *value) {
    const char *const begin = rest->data();
    const char *const end = begin + rest->size();
    const auto [stop, error] = std::from_chars(begin, end, *value);
    if (error != std::errc{} || stop == end || *stop != closing) {
        return false;
    }
    rest->remove_prefix(static_cast<size_t>(stop - begin) + 1);
    return true;
}

} // namespace zantlog
