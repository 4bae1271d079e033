// Conversions between UTF-8, UTF-16 and the process's code page, by ICU.
#include "base/utf8.h"

#include "base/code_page_converter.h"

#include <cstring>
#include <unicode/ustring.h>

namespace zantlog {

namespace {

static_assert(sizeof(wchar_t) == sizeof(UChar), "wide text is UTF-16");

constexpr size_t kLongestText = INT32_MAX - 1; // ICU counts in int32_t

UChar *asUtf16(wchar_t *text) {
    return reinterpret_cast<UChar *>(text);
}
const UChar *asUtf16(const wchar_t *text) {
    return reinterpret_cast<const UChar *>(text);
}

// What it cannot convert is an error: a substitute would be written into a store and not be found there
// again.
uint32_t openExact(Converter *out) {
    return openConverter(out, [](UConverter *converter, UErrorCode *status) {
        ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, status);
        ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, status);
    });
}

} // namespace

bool encodeUtf8(const wchar_t *text, size_t textLength, char *buffer, size_t capacity, size_t *length) {
    if (textLength > kLongestText) {
        return false;
    }
    const auto room = static_cast<int32_t>(capacity < kLongestText ? capacity : kLongestText);
    int32_t needed = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8(buffer, room, &needed, asUtf16(text), static_cast<int32_t>(textLength), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
        return false;
    }
    *length = static_cast<size_t>(needed);
    return true;
}

uint32_t utf8FromWide(const wchar_t *text, size_t textLength, OwnedText *out) {
    size_t length = 0;
    if (!encodeUtf8(text, textLength, nullptr, 0, &length)) {
        return ZANTLOG_FAILURE;
    }
    OwnedText converted = allocateBlock<char>(length + 1);
    if (converted == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (!encodeUtf8(text, textLength, converted.get(), length + 1, &length)) {
        return ZANTLOG_FAILURE;
    }
    *out = std::move(converted);
    return ZANTLOG_OK;
}

bool decodeUtf8(const char *text, size_t bytes, wchar_t *buffer, size_t capacity, size_t *length) {
    if (bytes > kLongestText || capacity > kLongestText) {
        return false;
    }
    int32_t units = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(asUtf16(buffer), static_cast<int32_t>(capacity), &units, text, static_cast<int32_t>(bytes),
                  &status);
    *length = static_cast<size_t>(units);
    return !U_FAILURE(status);
}

uint32_t wideFromUtf8(const char *text, OwnedWideText *out) {
    const size_t bytes = std::strlen(text);
    // No character has fewer bytes in UTF-8 than it has units in UTF-16.
    OwnedWideText converted = bytes < kLongestText ? allocateBlock<wchar_t>(bytes + 1) : nullptr;
    if (converted == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    size_t length = 0;
    if (!decodeUtf8(text, bytes, converted.get(), bytes + 1, &length)) {
        return ZANTLOG_FAILURE;
    }
    *out = std::move(converted);
    return ZANTLOG_OK;
}

uint32_t codePageFromUtf8(const char *text, OwnedText *out) {
    OwnedWideText wide;
    uint32_t result = wideFromUtf8(text, &wide);
    Converter converter;
    if (result == ZANTLOG_OK) {
        result = openExact(&converter);
    }
    if (result != ZANTLOG_OK) {
        return result;
    }
    const int32_t wideLength = u_strlen(asUtf16(wide.get()));
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        ucnv_fromUChars(converter.get(), nullptr, 0, asUtf16(wide.get()), wideLength, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status)) {
        return resultOf(status);
    }
    OwnedText converted = allocateBlock<char>(static_cast<size_t>(length) + 1);
    if (converted == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    status = U_ZERO_ERROR;
    ucnv_fromUChars(converter.get(), converted.get(), length + 1, asUtf16(wide.get()), wideLength, &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    *out = std::move(converted);
    return ZANTLOG_OK;
}

uint32_t utf8FromCodePage(const char *text, OwnedText *out) {
    const size_t bytes = std::strlen(text);
    if (bytes > kLongestText) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    Converter converter;
    if (const uint32_t result = openExact(&converter); result != ZANTLOG_OK) {
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    const auto length = static_cast<int32_t>(bytes);
    const int32_t wideLength = ucnv_toUChars(converter.get(), nullptr, 0, text, length, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status)) {
        return resultOf(status);
    }
    OwnedWideText wide = allocateBlock<wchar_t>(static_cast<size_t>(wideLength) + 1);
    if (wide == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    status = U_ZERO_ERROR;
    ucnv_toUChars(converter.get(), asUtf16(wide.get()), wideLength + 1, text, length, &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    return utf8FromWide(wide.get(), static_cast<size_t>(wideLength), out);
}

} // namespace zantlog
