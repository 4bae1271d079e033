// One argument of a catalog object as a wide string, for the event log.
#include <cstdio>
#include <cstring>

#include "base/bounded_text.h"
#include "base/decimal.h"
#include "base/utf8.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_text.h"
#include "zantlog/rendering.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr size_t kLongestDouble = 352; // DBL_MAX has 309 digits before the point
constexpr uint32_t kLongestDate = 256; // wide characters

uint32_t copyWide(const wchar_t *text, size_t length, OwnedWideText *out) {
    OwnedWideText copy = allocateBlock<wchar_t>(length + 1);
    if (!copy) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (length != 0) {
        std::memcpy(copy.get(), text, length * sizeof(wchar_t));
    }
    copy.get()[length] = 0;
    *out = std::move(copy);
    return ZANTLOG_OK;
}

uint32_t widenAscii(const char *text, size_t length, OwnedWideText *out) {
    OwnedWideText wide = allocateBlock<wchar_t>(length + 1);
    if (!wide) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    for (size_t i = 0; i < length; ++i) {
        wide.get()[i] = static_cast<wchar_t>(text[i]);
    }
    wide.get()[length] = 0;
    *out = std::move(wide);
    return ZANTLOG_OK;
}

uint32_t widenCodePage(const char *text, OwnedWideText *out) {
    const size_t capacity = std::strlen(text) + 1;
    OwnedWideText wide = allocateBlock<wchar_t>(capacity);
    if (!wide) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (os::multiByteToWide(wide.get(), text, capacity) == os::kConversionFailed) {
        return ZANTLOG_FAILURE;
    }
    *out = std::move(wide);
    return ZANTLOG_OK;
}

uint32_t wideCharacter(const zantLisArgIter *iter, OwnedWideText *out) {
    wchar_t value = 0;
    if (zantLisGetArg_wchar(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    return copyWide(&value, 1, out);
}

uint32_t wideDecimal(const zantLisArgIter *iter, int32_t (*fetch)(const zantLisArgIter *iter, int64_t *value),
                     OwnedWideText *out) {
    int64_t value = 0;
    if (fetch(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    char area[kDecimalDigits];
    const char *digits = formatSigned(area, value);
    return widenAscii(digits, static_cast<size_t>(area + kDecimalDigits - digits), out);
}

uint32_t wideUnsigned(const zantLisArgIter *iter, OwnedWideText *out) {
    uint64_t value = 0;
    if (zantLisGetArg_ulonglong(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    char area[kDecimalDigits];
    const char *digits = formatUnsigned(area, value);
    return widenAscii(digits, static_cast<size_t>(area + kDecimalDigits - digits), out);
}

uint32_t wideDouble(const zantLisArgIter *iter, OwnedWideText *out) {
    double value = 0;
    if (zantLisGetArg_double(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    char digits[kLongestDouble];
    if (std::snprintf(digits, sizeof digits, "%f", value) < 0) {
        return ZANTLOG_FAILURE;
    }
    return widenCodePage(digits, out); // the decimal point is the locale's
}

uint32_t widePointer(const zantLisArgIter *iter, OwnedWideText *out) {
    void *value = nullptr;
    if (zantLisGetArg_pointer(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    char digits[24];
    BoundedText text(digits);
    if (value != nullptr) {
        text.text("0x"); // a null has no prefix, as "%#x" prints it
    }
    text.hexadecimal(reinterpret_cast<uintptr_t>(value));
    return widenAscii(digits, text.length(), out);
}

uint32_t wideString(const zantLisArgIter *iter, OwnedWideText *out) {
    const wchar_t *value = nullptr;
    if (zantLisGetArg_wstring(iter, &value) != ZANTLIS_OK || value == nullptr) {
        return ZANTLOG_FAILURE;
    }
    return copyWide(value, os::wideLength(value), out);
}

uint32_t wideDateTime(const zantLisArgIter *iter, OwnedWideText *out) {
    int64_t value = 0;
    if (zantLisGetArg_datetime(iter, &value) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    std::tm local;
    wchar_t text[kLongestDate] = {};
    if (!os::localTime(value, &local) || !os::formatLocaleTimeWide(local, text, kLongestDate)) {
        text[0] = 0;
    }
    return copyWide(text, os::wideLength(text), out);
}

uint32_t wideUtf8(const zantLisArgIter *iter, OwnedWideText *out) {
    const char *value = nullptr;
    if (zantLisGetArg_utf8string(iter, &value) != ZANTLIS_OK || value == nullptr) {
        return ZANTLOG_FAILURE;
    }
    return wideFromUtf8(value, out);
}

uint32_t wideNative(const zantLisArgIter *iter, OwnedWideText *out) {
    const char *value = nullptr;
    if (zantLisGetArg_nativeString(iter, &value) != ZANTLIS_OK || value == nullptr) {
        return ZANTLOG_FAILURE;
    }
    if (*value == '\0') {
        return ZANTLOG_FAILURE; // an empty one is refused; kept: its event string stays unset
    }
    return widenCodePage(value, out);
}

uint32_t wideArgument(const zantLisArgIter *iter, int32_t kind, OwnedWideText *out) {
    switch (kind) {
    case ZANTLIS_WIDE_CHAR:
        return wideCharacter(iter, out);
    case ZANTLIS_SIGNED:
        return wideDecimal(iter, zantLisGetArg_longlong, out);
    case ZANTLIS_UNSIGNED:
        return wideUnsigned(iter, out);
    case ZANTLIS_DOUBLE:
        return wideDouble(iter, out);
    case ZANTLIS_POINTER:
        return widePointer(iter, out);
    case ZANTLIS_WIDE_STRING:
        return wideString(iter, out);
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return wideDecimal(iter, zantLisGetArg_os_error, out);
    case ZANTLIS_DATE_TIME:
        return wideDateTime(iter, out);
    case ZANTLIS_UTF8_STRING:
        return wideUtf8(iter, out);
    case ZANTLIS_NATIVE_STRING:
        return wideNative(iter, out);
    default:
        return ZANTLOG_FAILURE;
    }
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantLogGetArg_asStringW(zantLisArgIter *iter, wchar_t **out) {
    if (iter == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    int32_t kind = 0;
    if (zantLisGetArgTypeId(iter, &kind) != ZANTLIS_OK) {
        return ZANTLOG_FAILURE;
    }
    OwnedWideText text;
    if (const uint32_t result = wideArgument(iter, kind, &text); result != ZANTLOG_OK) {
        return result;
    }
    *out = text.release();
    return ZANTLOG_OK;
}
