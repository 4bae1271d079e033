#include "logfile/format/text_field.h"

#include <cstring>
#include <string_view>

#include "base/byte_scan.h"
#include "base/owned_text.h"
#include "base/utf8.h"
#include "logfile/os/os_text.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

// Stands where a text cannot be converted, so that the record is written all the same.
constexpr std::string_view kUnprocessable = "**UNABLE TO PROCESS LOG MESSAGE**";

// Texts of a line that stays in the inline area have fewer characters than that, in any code page.
constexpr size_t kStackUnits = ZANTLOG_TEXT_INLINE;

[[nodiscard]] bool appendCounted(text_msg *buffer, const char *bytes, size_t length) {
    char *at = openCounted(buffer, '\0', length);
    if (at == nullptr) {
        return false;
    }
    std::memcpy(at, bytes, length);
    at[length] = ',';
    return true;
}

[[nodiscard]] bool appendWide(text_msg *buffer, const wchar_t *wide, size_t wideLength) {
    size_t length = 0;
    if (!encodeUtf8(wide, wideLength, nullptr, 0, &length)) {
        return false;
    }
    const uint64_t before = contentLength(buffer);
    char *at = openCounted(buffer, '\0', length);
    if (at == nullptr) {
        return false;
    }
    if (!encodeUtf8(wide, wideLength, at, length, &length)) {
        buffer->free = buffer->capacity - before;
        return false;
    }
    at[length] = ',';
    return true;
}

[[nodiscard]] bool appendConvertedThrough(text_msg *buffer, const char *text, wchar_t *wide,
                                          size_t capacity) {
    const size_t wideLength = os::multiByteToWide(wide, text, capacity);
    return wideLength != os::kConversionFailed && appendWide(buffer, wide, wideLength);
}

// Not inlined: its area on the stack would burden every text field.
[[nodiscard, gnu::noinline]] bool appendConvertedOnStack(text_msg *buffer, const char *text, size_t length) {
    wchar_t wide[kStackUnits];
    return appendConvertedThrough(buffer, text, wide, length + 1);
}

// A text of the process's code page. False when it cannot be converted or memory is short.
[[nodiscard]] bool appendConverted(text_msg *buffer, const char *text, size_t length) {
    if (length < kStackUnits) {
        return appendConvertedOnStack(buffer, text, length);
    }
    const OwnedWideText wide(allocateBlock<wchar_t>(length + 1));
    return wide != nullptr && appendConvertedThrough(buffer, text, wide.get(), length + 1);
}

} // namespace

bool appendSigned(text_msg *buffer, int64_t value, char closing) {
    const auto bits = static_cast<uint64_t>(value);
    const size_t length = value < 0 ? 1 + decimalLength(0 - bits) : decimalLength(bits);
    char *at = appendRoom(buffer, length + 1);
    if (at == nullptr) {
        return false;
    }
    *putDecimal(at, value) = closing;
    return true;
}

bool appendUnsigned(text_msg *buffer, uint64_t value, char closing) {
    char *at = appendRoom(buffer, decimalLength(value) + 1);
    if (at == nullptr) {
        return false;
    }
    *putDecimal(at, value) = closing;
    return true;
}

char *openCounted(text_msg *buffer, char code, size_t length) {
    const size_t codeLength = code != '\0' ? 1 : 0;
    char *at = appendRoom(buffer, codeLength + decimalLength(length) + 1 + length + 1);
    if (at == nullptr) {
        return nullptr;
    }
    if (code != '\0') {
        *at++ = code;
    }
    at = putDecimal(at, static_cast<uint64_t>(length));
    *at++ = ':';
    return at;
}

uint32_t appendTextField(text_msg *buffer, const char *text, bool isUtf8) {
    if (text == nullptr) {
        text = "";
    }
    const uint64_t before = contentLength(buffer);
    const MeasuredText measured = measureText(text);
    // ASCII is the same in every code page that a process can have, and in UTF-8.
    const bool written = isUtf8 || measured.ascii ? appendCounted(buffer, text, measured.length)
                                                  : appendConverted(buffer, text, measured.length);
    if (written) [[likely]] {
        return ZANTLOG_OK;
    }
    // A heap block that could not grow has taken the fields before this one with it.
    if (contentLength(buffer) < before ||
        !appendCounted(buffer, kUnprocessable.data(), kUnprocessable.size())) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return ZANTLOG_OK;
}

} // namespace zantlog
