#include "logfile/format/argument_list.h"

#include <cstring>

#include "base/utf8.h"
#include "logfile/format/real_number.h"
#include "logfile/format/text_field.h"
#include "logfile/os/os_text.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr uint16_t kFullWidth = 64; // bits

// Lists within lists: deeper ones, or one that holds itself, would end the caller's stack.
constexpr int kDeepestNesting = 1000;

[[nodiscard]] uint32_t appendList(text_msg *buffer, const zantLis &list, int depth);

uint32_t memoryResult(bool appended) {
    return appended ? ZANTLOG_OK : ZANTLOG_OUT_OF_MEMORY;
}

// "<code><width>:<value>|"
template <typename Number>
[[nodiscard]] bool appendInteger(text_msg *buffer, char code, uint16_t width, Number value) {
    char digits[20];
    const auto length = static_cast<size_t>(putDecimal(digits, value) - digits);
    char *at = appendRoom(buffer, 1 + decimalLength(width) + 1 + length + 1);
    if (at == nullptr) {
        return false;
    }
    *at++ = code;
    at = putDecimal(at, width);
    *at++ = ':';
    for (size_t digit = 0; digit < length; ++digit) {
        *at++ = digits[digit];
    }
    *at = '|';
    return true;
}

[[nodiscard]] bool appendReal(text_msg *buffer, double value) {
    char area[kRealNumberBytes];
    const size_t length = formatReal(area, value);
    char *at = appendRoom(buffer, 1 + length + 1);
    if (at == nullptr) {
        return false;
    }
    *at++ = '8';
    std::memcpy(at, area, length);
    at[length] = '|';
    return true;
}

// "1", the length as one character, ":", the UTF-8 bytes, "|".
[[nodiscard]] uint32_t appendWideCharacter(text_msg *buffer, uint16_t character) {
    const auto unit = static_cast<wchar_t>(character);
    char bytes[4];
    size_t length = 0;
    if (!encodeUtf8(&unit, unit != 0 ? 1 : 0, bytes, sizeof bytes, &length)) {
        return ZANTLOG_FAILURE;
    }
    const size_t fieldLength = length + 4;
    char *field = appendRoom(buffer, fieldLength);
    if (field == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    // What the fixed place of the "|" leaves over at the field's end is filled with another one.
    field[fieldLength - 1] = '|';
    field[0] = '1';
    field[1] = static_cast<char>('0' + length);
    field[2] = ':';
    std::memcpy(field + 3, bytes, length);
    // Kept: the "|" is the fifth byte whatever the length, so it stands in the place of a longer character's
    // second byte; readers of existing files find it there.
    constexpr size_t kClosingPlace = 4;
    if (kClosingPlace < fieldLength) {
        field[kClosingPlace] = '|';
    }
    return ZANTLOG_OK;
}

[[nodiscard]] uint32_t appendWideString(text_msg *buffer, const wchar_t *text) {
    if (text == nullptr) {
        return ZANTLOG_FAILURE;
    }
    const size_t wideLength = os::wideLength(text);
    size_t length = 0;
    if (!encodeUtf8(text, wideLength, nullptr, 0, &length)) {
        return ZANTLOG_FAILURE;
    }
    char *at = openCounted(buffer, 'A', length);
    if (at == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (!encodeUtf8(text, wideLength, at, length, &length)) {
        return ZANTLOG_FAILURE;
    }
    at[length] = '|';
    return ZANTLOG_OK;
}

// The bytes as they are: the code letter tells a reader what they are.
[[nodiscard]] uint32_t appendNarrowString(text_msg *buffer, char code, const char *text) {
    if (text == nullptr) {
        return ZANTLOG_FAILURE;
    }
    const size_t length = std::strlen(text);
    char *at = openCounted(buffer, code, length);
    if (at == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    std::memcpy(at, text, length);
    at[length] = '|';
    return ZANTLOG_OK;
}

// `depth` is that of the list around it.
[[nodiscard]] uint32_t appendNestedList(text_msg *buffer, const void *list, int depth) {
    if (list == nullptr || depth == kDeepestNesting) {
        return ZANTLOG_FAILURE;
    }
    return appendList(buffer, *static_cast<const zantLis *>(list), depth + 1);
}

[[nodiscard]] uint32_t appendArgument(text_msg *buffer, const zantLisArg &argument, int depth) {
    switch (argument.kind) {
    case ZANTLIS_WIDE_CHAR:
        return appendWideCharacter(buffer, argument.first.character);
    case ZANTLIS_SIGNED:
        return memoryResult(appendInteger(buffer, 'i', argument.first.width, argument.second.number));
    case ZANTLIS_UNSIGNED:
        return memoryResult(appendInteger(buffer, 'u', argument.first.width, argument.second.word));
    case ZANTLIS_DOUBLE:
        return memoryResult(appendReal(buffer, argument.first.real));
    case ZANTLIS_POINTER:
        return memoryResult(appendInteger(buffer, '9', kFullWidth, argument.first.word));
    case ZANTLIS_WIDE_STRING:
        return appendWideString(buffer, argument.first.wide);
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return memoryResult(appendInteger(buffer, 'D', argument.first.width, argument.second.number));
    case ZANTLIS_DATE_TIME:
        return memoryResult(appendInteger(buffer, 'C', kFullWidth, argument.first.seconds));
    case ZANTLIS_NESTED:
        return appendNestedList(buffer, argument.first.pointer, depth);
    case ZANTLIS_UTF8_STRING:
        return appendNarrowString(buffer, 'X', argument.first.narrow);
    case ZANTLIS_NATIVE_STRING:
        return appendNarrowString(buffer, 'S', argument.first.narrow);
    default:
        return ZANTLOG_FAILURE;
    }
}

uint32_t appendList(text_msg *buffer, const zantLis &list, int depth) {
    char *open = appendRoom(buffer, 1);
    if (open == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    *open = '(';
    // The count is the object's own, also where it does not tell the length of the chain.
    if (!appendUnsigned(buffer, list.argCount, '|')) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    for (const zantLisArg *argument = list.first; argument != nullptr; argument = argument->next) {
        const uint32_t result = appendArgument(buffer, *argument, depth);
        if (result != ZANTLOG_OK) {
            return result;
        }
    }
    char *close = appendRoom(buffer, 2);
    if (close == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    close[0] = ')';
    close[1] = ',';
    return ZANTLOG_OK;
}

} // namespace

uint32_t appendArgumentList(text_msg *buffer, const zantLis &list) {
    return appendList(buffer, list, 0);
}

} // namespace zantlog
