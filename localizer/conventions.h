// How numbers and times are written, and the words of the long form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "localizer/locale_name.h"

namespace zantlog::localizer {

// What a catalog file may say under a name instead of a number.
enum class Word : uint8_t {
    Decimal, // between a number's whole part and its fraction
    Group,   // between its thousands
    Date,    // patterns, see writeTime() in argument_text.h
    Time,
    Debug, // types of messages, in the order of their codes
    Diagnostic,
    Application,
    Context,
    Audit,
    SecureAudit,
    Information,
    Warning,
    Error,
    Level,
    Originator,
    Success,
    Failure,
    Count
};

inline constexpr size_t kWordCount = static_cast<size_t>(Word::Count);

// The name of a word in catalog files.
std::string_view wordName(Word word);

// What stands for a word that no file has; UTF-8. Numbers and times are the locale's, other words English.
std::string_view builtInWord(Word word, const LocaleName &locale);

// False for a "%" that stands before none of "YymdHMSIp%".
[[nodiscard]] bool isTimePattern(std::string_view pattern);

} // namespace zantlog::localizer
