#include "localizer/argument_text.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "base/bounded_text.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_text.h"

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

constexpr char kIsoPattern[] = "%Y-%m-%dT%H:%M:%S";
constexpr unsigned kDefaultDigits = 6;
constexpr unsigned kGroupedDigits = 2;
constexpr size_t kLongestNumber = 512; // 309 digits, point, 99 digits

struct Number {
    bool negative;
    Text digits; // or "inf", "nan"
};

// Blanks before the sign, zeros behind it.
void appendPadded(const Number &number, size_t length, const Placeholder &place, NativeText *out) {
    const size_t used = length + (number.negative ? 1 : 0);
    const size_t missing = place.width > used ? place.width - used : 0;
    for (size_t i = 0; i < missing && !place.zeros; ++i) {
        out->native(" ");
    }
    if (number.negative) {
        out->native("-");
    }
    for (size_t i = 0; i < missing && place.zeros; ++i) {
        out->native("0");
    }
}

void appendWhole(Text digits, bool grouped, Text group, NativeText *out) {
    for (size_t i = 0; i < digits.size(); ++i) {
        if (grouped && i > 0 && (digits.size() - i) % 3 == 0) {
            out->utf8(group);
        }
        out->native(digits.substr(i, 1));
    }
}

size_t groupsOf(size_t digits) {
    return digits == 0 ? 0 : (digits - 1) / 3;
}

void appendNumber(const Number &number, const Placeholder &place, const Manner &manner, NativeText *out) {
    const size_t digits = number.digits.find_first_not_of("0123456789");
    const Text whole = number.digits.substr(0, digits);
    Text rest = digits == Text::npos ? Text() : number.digits.substr(digits);
    const bool grouped = place.letter == 'n';
    appendPadded(number, number.digits.size() + (grouped ? groupsOf(whole.size()) : 0), place, out);
    appendWhole(whole, grouped, manner.group, out);
    if (!rest.empty() && rest.front() == '.') {
        out->utf8(manner.decimal);
        rest.remove_prefix(1);
    }
    out->native(rest);
}

void appendHexadecimal(uint64_t value, const Placeholder &place, NativeText *out) {
    char digits[20];
    BoundedText text(digits);
    text.hexadecimal(value);
    if (place.letter == 'X') {
        for (char *at = digits; *at != '\0'; ++at) {
            *at = *at >= 'a' ? static_cast<char>(*at - 'a' + 'A') : *at;
        }
    }
    appendPadded({.negative = false, .digits = digits}, text.length(), place, out);
    out->native(digits);
}

void appendOctal(uint64_t value, const Placeholder &place, NativeText *out) {
    char digits[24];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value, 8);
    const Text text(digits, static_cast<size_t>(end.ptr - digits));
    appendPadded({.negative = false, .digits = text}, text.size(), place, out);
    out->native(text);
}

// What a negative number looks like in other bases: 32 bits when it fits into them.
uint64_t bitsOf(int64_t value) {
    return value < 0 && value >= INT32_MIN ? static_cast<uint32_t>(value) : static_cast<uint64_t>(value);
}

void appendInteger(uint64_t magnitude, bool negative, uint64_t bits, const Placeholder &place,
                   const Manner &manner, NativeText *out) {
    if (place.letter == 'x' || place.letter == 'X') {
        appendHexadecimal(bits, place, out);
        return;
    }
    if (place.letter == 'o') {
        appendOctal(bits, place, out);
        return;
    }
    char digits[24];
    BoundedText text(digits);
    text.number(magnitude);
    appendNumber({.negative = negative, .digits = digits}, place, manner, out);
}

void appendSigned(int64_t value, const Placeholder &place, const Manner &manner, NativeText *out) {
    const auto bits = static_cast<uint64_t>(value);
    appendInteger(value < 0 ? ~bits + 1 : bits, value < 0, bitsOf(value), place, manner, out);
}

std::to_chars_result writeReal(char *begin, char *end, double value, const Placeholder &place) {
    const bool chosen = place.precision != kNoPrecision;
    const int digits = static_cast<int>(chosen ? place.precision : kDefaultDigits);
    switch (place.letter) {
    case 'e':
        return std::to_chars(begin, end, value, std::chars_format::scientific, digits);
    case 'g':
        return std::to_chars(begin, end, value, std::chars_format::general, digits);
    case 'n':
        return std::to_chars(begin, end, value, std::chars_format::fixed,
                             chosen ? digits : static_cast<int>(kGroupedDigits));
    case 'f':
        return std::to_chars(begin, end, value, std::chars_format::fixed, digits);
    default:
        return chosen ? std::to_chars(begin, end, value, std::chars_format::fixed, digits)
                      : std::to_chars(begin, end, value);
    }
}

void appendReal(double value, const Placeholder &place, const Manner &manner, NativeText *out) {
    char area[kLongestNumber];
    const bool negative = std::signbit(value) && !std::isnan(value);
    const std::to_chars_result end =
        writeReal(area, area + sizeof area, negative ? -value : std::fabs(value), place);
    const Text digits(area, static_cast<size_t>(end.ptr - area));
    appendNumber({.negative = negative, .digits = digits}, place, manner, out);
}

void appendPointer(const void *value, const Placeholder &place, NativeText *out) {
    Placeholder digits = place;
    if (place.letter != 'x' && place.letter != 'X') {
        out->native("0x");
        digits.width = place.zeros ? place.width : 0; // no blanks behind the "0x"
    }
    appendHexadecimal(reinterpret_cast<uintptr_t>(value), digits, out);
}

void appendDateTime(int64_t seconds, const Placeholder &place, const Manner &manner, NativeText *out) {
    std::tm broken = {};
    if (!os::localTime(seconds, &broken)) {
        appendSigned(seconds, kPlain, manner, out);
        return;
    }
    const bool iso = place.letter == 'i';
    if (iso) {
        (void)appendTime(seconds, kIsoPattern, out);
        return;
    }
    if (place.letter != 't') {
        (void)appendTime(seconds, manner.date, out);
    }
    if (place.letter != 't' && place.letter != 'd') {
        out->native(" ");
    }
    if (place.letter != 'd') {
        (void)appendTime(seconds, manner.time, out);
    }
}

void appendField(char letter, const std::tm &time, BoundedText *field) {
    const int hour = time.tm_hour % 12 == 0 ? 12 : time.tm_hour % 12;
    const auto number = [field](int value, unsigned digits) { field->signedNumber(value, digits); };
    switch (letter) {
    case 'Y':
        return number(time.tm_year + 1900, 4);
    case 'y':
        return number(time.tm_year % 100, 2);
    case 'm':
        return number(time.tm_mon + 1, 2);
    case 'd':
        return number(time.tm_mday, 2);
    case 'H':
        return number(time.tm_hour, 2);
    case 'I':
        return number(hour, 2);
    case 'M':
        return number(time.tm_min, 2);
    case 'S':
        return number(time.tm_sec, 2);
    case 'p':
        field->text(time.tm_hour < 12 ? "AM" : "PM");
        return;
    default:
        field->character(letter);
        return;
    }
}

bool appendCharacter(const zantLisArgIter &iter, NativeText *out) {
    wchar_t value = 0;
    if (zantLisGetArg_wchar(&iter, &value) != ZANTLIS_OK) {
        return false;
    }
    out->wide(&value, value != 0 ? 1 : 0);
    return true;
}

bool appendWideString(const zantLisArgIter &iter, NativeText *out) {
    const wchar_t *value = nullptr;
    if (zantLisGetArg_wstring(&iter, &value) != ZANTLIS_OK || value == nullptr) {
        return false;
    }
    out->wide(value, os::wideLength(value));
    return true;
}

bool appendNarrowString(const zantLisArgIter &iter, int32_t kind, NativeText *out) {
    const char *value = nullptr;
    const int32_t result = kind == ZANTLIS_UTF8_STRING ? zantLisGetArg_utf8string(&iter, &value)
                                                       : zantLisGetArg_nativeString(&iter, &value);
    if (result != ZANTLIS_OK || value == nullptr) {
        return false;
    }
    if (kind == ZANTLIS_UTF8_STRING) {
        out->utf8(value);
    } else {
        out->native(value);
    }
    return true;
}

// Fetches a value and hands it on.
template <typename Value, typename Use>
bool fetch(int32_t (*get)(const zantLisArgIter *, Value *), const zantLisArgIter &iter, Use use) {
    Value value = {};
    if (get(&iter, &value) != ZANTLIS_OK) {
        return false;
    }
    use(value);
    return true;
}

} // namespace

bool appendArgument(const zantLisArgIter &iter, int32_t kind, const Placeholder &place, const Manner &manner,
                    NativeText *out) {
    const auto asSigned = [&](int64_t value) { appendSigned(value, place, manner, out); };
    switch (kind) {
    case ZANTLIS_WIDE_CHAR:
        return appendCharacter(iter, out);
    case ZANTLIS_SIGNED:
        return fetch(&zantLisGetArg_longlong, iter, asSigned);
    case ZANTLIS_UNSIGNED:
        return fetch(&zantLisGetArg_ulonglong, iter,
                     [&](uint64_t value) { appendInteger(value, false, value, place, manner, out); });
    case ZANTLIS_DOUBLE:
        return fetch(&zantLisGetArg_double, iter,
                     [&](double value) { appendReal(value, place, manner, out); });
    case ZANTLIS_POINTER:
        return fetch(&zantLisGetArg_pointer, iter,
                     [&](const void *value) { appendPointer(value, place, out); });
    case ZANTLIS_WIDE_STRING:
        return appendWideString(iter, out);
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return fetch(&zantLisGetArg_os_error, iter, asSigned);
    case ZANTLIS_DATE_TIME:
        return fetch(&zantLisGetArg_datetime, iter,
                     [&](int64_t value) { appendDateTime(value, place, manner, out); });
    case ZANTLIS_UTF8_STRING:
    case ZANTLIS_NATIVE_STRING:
        return appendNarrowString(iter, kind, out);
    default:
        return false;
    }
}

bool appendTime(int64_t seconds, std::string_view pattern, NativeText *out) {
    std::tm time = {};
    if (!os::localTime(seconds, &time)) {
        return false;
    }
    while (!pattern.empty()) {
        const size_t percent = pattern.find('%');
        out->utf8(pattern.substr(0, percent));
        if (percent == Text::npos || percent + 1 == pattern.size()) {
            break;
        }
        char digits[16];
        BoundedText field(digits);
        appendField(pattern[percent + 1], time, &field);
        out->native(digits);
        pattern.remove_prefix(percent + 2);
    }
    return true;
}

} // namespace zantlog::localizer
