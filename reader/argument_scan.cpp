#include "reader/argument_scan.h"

#include <limits>

#include "reader/number_scan.h"
#include "zantlog/catalog.h"

namespace zantlog {

namespace {

// What the writer puts around the bytes of a character, and where its "|" stands whatever their number.
constexpr size_t kCharacterFrame = 4;
constexpr size_t kCharacterClosing = 4;
constexpr char16_t kReplacement = 0xFFFD;

// "1", the number of bytes as one digit, ":", the bytes, "|".
bool scanCharacter(std::string_view *rest, ScannedArgument *argument) {
    if (rest->size() < kCharacterFrame || (*rest)[1] < '0' || (*rest)[1] > '3' || (*rest)[2] != ':') {
        return false;
    }
    const auto length = static_cast<size_t>((*rest)[1] - '0');
    const size_t closing = length == 0 ? kCharacterFrame - 1 : kCharacterClosing;
    if (rest->size() < length + kCharacterFrame || (*rest)[closing] != '|') {
        return false;
    }
    argument->kind = ZANTLIS_WIDE_CHAR;
    // The writer's "|" has taken the place of a longer character's second byte.
    const auto byte = static_cast<unsigned char>((*rest)[3]);
    const bool held = length == 0 || (length == 1 && byte < 0x80);
    argument->word = !held ? kReplacement : length == 0 ? 0 : byte;
    rest->remove_prefix(length + kCharacterFrame);
    return true;
}

// "<width>:<number>|" behind the code letter.
template <typename Number> bool scanInteger(std::string_view *rest, int32_t kind, ScannedArgument *argument) {
    Number value = 0;
    std::string_view taken = *rest;
    if (!takeNumber(&taken, ':', &argument->width) || !takeNumber(&taken, '|', &value)) {
        return false;
    }
    *rest = taken;
    argument->kind = kind;
    argument->word = static_cast<uint64_t>(value);
    return true;
}

// How runtimes print what is no number, and infinities.
bool scanUnusualReal(std::string_view digits, double *value) {
    const bool negative = digits.starts_with('-');
    digits.remove_prefix(negative ? 1 : 0);
    if (digits.starts_with("1.#INF") || digits == "inf") {
        *value = std::numeric_limits<double>::infinity();
    } else if (digits.starts_with("1.#") || digits == "nan") {
        *value = std::numeric_limits<double>::quiet_NaN();
    } else {
        return false;
    }
    *value = negative ? -*value : *value;
    return true;
}

// Digits as "%f" prints them, with the decimal point of any locale.
bool scanReal(std::string_view *rest, ScannedArgument *argument) {
    constexpr size_t kLongest = 336;
    char area[kLongest];
    const size_t length = rest->find('|');
    if (length == std::string_view::npos || length == 0 || length > kLongest) {
        return false;
    }
    for (size_t i = 0; i < length; ++i) {
        area[i] = (*rest)[i] == ',' ? '.' : (*rest)[i];
    }
    const auto [stop, error] = std::from_chars(area, area + length, argument->real, std::chars_format::fixed);
    const bool ordinary = error == std::errc{} && stop == area + length;
    if (!ordinary && !scanUnusualReal({area, length}, &argument->real)) {
        return false;
    }
    argument->kind = ZANTLIS_DOUBLE;
    rest->remove_prefix(length + 1);
    return true;
}

// "<length>:<bytes>|" behind the code letter.
bool scanText(std::string_view *rest, int32_t kind, ScannedArgument *argument) {
    size_t length = 0;
    std::string_view taken = *rest;
    if (!takeNumber(&taken, ':', &length) || length >= taken.size() || taken[length] != '|') {
        return false;
    }
    argument->kind = kind;
    argument->text = taken.substr(0, length);
    *rest = taken.substr(length + 1);
    return true;
}

// The whole list, and the comma behind it.
bool scanNested(std::string_view *rest, int depth, ScannedArgument *argument) {
    std::string_view inside = *rest;
    if (depth >= kDeepestParsedNesting || !openArgumentList(&inside)) {
        return false;
    }
    ScannedArgument ignored;
    Scan scan = Scan::argument;
    while (scan == Scan::argument) {
        scan = scanArgument(&inside, depth + 1, &ignored);
    }
    if (scan == Scan::malformed || !inside.starts_with(',')) {
        return false;
    }
    argument->kind = ZANTLIS_NESTED;
    argument->text = rest->substr(0, rest->size() - inside.size());
    *rest = inside.substr(1);
    return true;
}

bool scanBehindCode(std::string_view *rest, char code, ScannedArgument *argument) {
    switch (code) {
    case 'i':
        return scanInteger<int64_t>(rest, ZANTLIS_SIGNED, argument);
    case 'u':
        return scanInteger<uint64_t>(rest, ZANTLIS_UNSIGNED, argument);
    case '8':
        return scanReal(rest, argument);
    case '9':
        return scanInteger<uint64_t>(rest, ZANTLIS_POINTER, argument);
    case 'A':
        return scanText(rest, ZANTLIS_WIDE_STRING, argument);
    case 'D':
        return scanInteger<int64_t>(rest, ZANTLIS_OS_ERROR, argument);
    case 'C':
        return scanInteger<int64_t>(rest, ZANTLIS_DATE_TIME, argument);
    case 'X':
        return scanText(rest, ZANTLIS_UTF8_STRING, argument);
    case 'S':
        return scanText(rest, ZANTLIS_NATIVE_STRING, argument);
    default:
        return false;
    }
}

} // namespace

bool openArgumentList(std::string_view *rest) {
    uint32_t count = 0; // the writer's own; the arguments are counted anew
    if (!rest->starts_with('(')) {
        return false;
    }
    std::string_view taken = rest->substr(1);
    if (!takeNumber(&taken, '|', &count)) {
        return false;
    }
    *rest = taken;
    return true;
}

Scan scanArgument(std::string_view *rest, int depth, ScannedArgument *argument) {
    if (rest->empty()) {
        return Scan::malformed;
    }
    const char code = rest->front();
    if (code == ')') {
        rest->remove_prefix(1);
        return Scan::end;
    }
    *argument = {};
    if (code == '(' || code == '1') {
        const bool taken = code == '(' ? scanNested(rest, depth, argument) : scanCharacter(rest, argument);
        return taken ? Scan::argument : Scan::malformed;
    }
    std::string_view behind = rest->substr(1);
    if (!scanBehindCode(&behind, code, argument)) {
        return Scan::malformed;
    }
    *rest = behind;
    return Scan::argument;
}

} // namespace zantlog
