#include "base/shown_text.h"

#include "base/code_page_converter.h"

#include <unicode/ustring.h>

namespace zantlog {

namespace {

constexpr size_t kLongestText = INT32_MAX / 4; // ICU counts in int32_t, and a unit may become four bytes
constexpr UChar32 kReplacement = 0xFFFD;

// A converter substitutes what it does not have, unless it is told otherwise; by a control character in many
// code pages.
uint32_t openShowing(Converter *out) {
    return openConverter(out, [](UConverter *converter, UErrorCode *status) {
        ucnv_setSubstChars(converter, "?", 1, status);
    });
}

} // namespace

uint32_t shownInCodePage(const wchar_t *wide, size_t units, OwnedText *out, size_t *length) {
    if (units > kLongestText) {
        return ZANTLOG_FAILURE;
    }
    Converter converter;
    if (const uint32_t result = openShowing(&converter); result != ZANTLOG_OK) {
        return result;
    }
    const int32_t room =
        UCNV_GET_MAX_BYTES_FOR_STRING(static_cast<int32_t>(units), ucnv_getMaxCharSize(converter.get()));
    OwnedText text = allocateBlock<char>(static_cast<size_t>(room) + 1);
    if (!text) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    UErrorCode status = U_ZERO_ERROR;
    const int32_t written =
        ucnv_fromUChars(converter.get(), text.get(), room + 1, reinterpret_cast<const UChar *>(wide),
                        static_cast<int32_t>(units), &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    *length = static_cast<size_t>(written);
    *out = std::move(text);
    return ZANTLOG_OK;
}

uint32_t shownInCodePage(const char *utf8, size_t bytes, OwnedText *out, size_t *length) {
    if (bytes > kLongestText) {
        return ZANTLOG_FAILURE;
    }
    const OwnedWideText wide = allocateBlock<wchar_t>(bytes + 1);
    if (!wide) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    int32_t units = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(reinterpret_cast<UChar *>(wide.get()), static_cast<int32_t>(bytes + 1), &units, utf8,
                         static_cast<int32_t>(bytes), kReplacement, nullptr, &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    return shownInCodePage(wide.get(), static_cast<size_t>(units), out, length);
}

} // namespace zantlog
